#pragma once

#include "host_error.h"

#include <filesystem>
#include <string>
#include <unistd.h>

/** @return where this process keeps a file of its own, in memory where there is such a place */
inline std::string obtainFuzzPath(const char* ending)
{
    const std::filesystem::path memory("/dev/shm");
    std::error_code none;
    const auto folder = std::filesystem::is_directory(memory, none) ? memory
                                                                    : std::filesystem::temp_directory_path();
    return (folder / ("kx_fuzz_" + std::to_string(getpid()) + ending)).string();
}

/** @return whether read reads; what the sample host refuses, it refuses by this error alone, and any other
 * one ends the program */
template <class Read>
bool accepts(const Read& read)
{
    try {
        read();
        return true;
    } catch (const HostError&) {
        return false;
    }
}
