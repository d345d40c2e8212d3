#include "whole_file.h"

#include "host_error.h"

#include <filesystem>
#include <fstream>
#include <system_error>

void writeWholeFile(const std::string& path, const std::string& bytes)
{
    const std::filesystem::path target(path);
    std::filesystem::path beside(target);
    beside += ".part";
    std::ofstream file(beside, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    std::error_code error;
    if (file)
        std::filesystem::rename(beside, target, error);
    if (file && !error)
        return;
    std::error_code ignored;
    std::filesystem::remove(beside, ignored);
    throw HostError(path, "", "cannot be written");
}
