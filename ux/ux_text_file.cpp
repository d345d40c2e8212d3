#include "ux/ux_text_file.h"

#include <cstdint>
#include <exception>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

namespace {

constexpr std::uintmax_t maxSize = std::uintmax_t{64} << 20;

/** @return whether name could be made a path: the conversion throws on text that is no UTF-8 */
bool makePath(const std::string& name, std::filesystem::path& path)
{
    try {
        path = std::filesystem::path(std::u8string(name.begin(), name.end()));
        return !path.empty();
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace

bool uxReadTextFile(const std::string& fileName, std::string& text)
{
    std::filesystem::path path;
    std::error_code error;
    if (!makePath(fileName, path) || !std::filesystem::is_regular_file(path, error))
        return false;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error || size > maxSize)
        return false;

    std::ifstream file(path, std::ios::binary);
    std::string read(static_cast<std::size_t>(size), '\0');
    if (!file.read(read.data(), static_cast<std::streamsize>(size)))
        return false;
    text = std::move(read);
    return true;
}

bool uxWriteTextFile(const std::string& fileName, const std::string& text)
{
    std::filesystem::path path;
    if (!makePath(fileName, path))
        return false;
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.close();
    return file.good();
}
