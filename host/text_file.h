#pragma once

#include <string>

/** @return the bytes of a file; throws HostError when it cannot be read or has more than 64 MiB */
std::string readTextFile(const std::string& path);
