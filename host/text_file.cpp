#include "text_file.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "host_error.h"

std::string readTextFile(const std::string& path)
{
    constexpr std::uintmax_t mostBytes = std::uintmax_t{64} << 20U;
    std::error_code unknown;
    if (std::filesystem::is_directory(path, unknown))
        throw HostError(path, "", "is a folder, not a file");
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw HostError(path, "", errno ? std::generic_category().message(errno) : "cannot be opened");
    std::string text;
    for (std::string block(1 << 16, '\0'); file.read(block.data(), 1 << 16), file.gcount() > 0;) {
        text.append(block, 0, static_cast<std::size_t>(file.gcount()));
        if (text.size() > mostBytes)
            throw HostError(path, "", "is longer than 64 MiB");
    }
    if (file.bad())
        throw HostError(path, "", "cannot be read to its end");
    return text;
}
