#include "ux/ux_whole_file.h"

#if defined(__wasi__)

// A page has no files.
UXWholeFile uxReadWholeFile(const std::string&) { return {}; }

bool uxWriteWholeFile(const std::string&, const std::string&) { return false; }

#else

#    include <exception>
#    include <filesystem>
#    include <fstream>
#    include <system_error>
#    include <utility>

namespace {

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

UXWholeFile readFile(const std::filesystem::path& path)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return {};
    const std::uint64_t size = std::filesystem::file_size(path, error);
    if (error || size > uxLargestFile)
        return {};
    std::ifstream file(path, std::ios::binary);
    UXWholeFile read{std::make_unique_for_overwrite<char[]>(size), size};
    if (!file.read(read.bytes.get(), static_cast<std::streamsize>(size)))
        return {};
    return read;
}

} // namespace

UXWholeFile uxReadWholeFile(const std::string& name)
{
    std::filesystem::path path;
    if (!makePath(name, path))
        return {};
    try {
        return readFile(path);
    } catch (const std::exception&) {
        return {}; // no memory for it
    }
}

bool uxWriteWholeFile(const std::string& name, const std::string& text)
{
    std::filesystem::path path;
    if (!makePath(name, path))
        return false;
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.close();
    return file.good();
}

#endif
