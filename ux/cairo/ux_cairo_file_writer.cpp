#include "ux/cairo/ux_cairo_file_writer.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace fs = std::filesystem;

namespace {

bool writeBytes(const fs::path& path, std::string_view bytes)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    return !file.fail();
}

/** @return a name beside path that nobody else uses at this moment */
fs::path makePartPath(const fs::path& path)
{
    const std::int64_t now = std::chrono::steady_clock::now().time_since_epoch().count();
    fs::path part = path;
    part += ".";
    part += std::to_string(now ^ static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(&path)));
    part += ".part";
    return part;
}

} // namespace

bool uxCairoWriteFile(const std::string& path, std::string_view bytes)
{
    if (path.empty() || path.find('\0') != std::string::npos)
        return false;
    std::error_code error;
    fs::path target(std::u8string(path.begin(), path.end()));
    if (const fs::path resolved = fs::canonical(target, error); !error)
        target = resolved;
    const fs::file_status status = fs::status(target, error);
    if (fs::exists(status) && !fs::is_regular_file(status))
        return !fs::is_directory(status) && writeBytes(target, bytes);

    const fs::path part = makePartPath(target);
    if (writeBytes(part, bytes)) {
        fs::rename(part, target, error);
        if (!error)
            return true;
    }
    fs::remove(part, error);
    return false;
}
