#pragma once

#include <string>

/** Writes a file that appears whole or not at all: the bytes go beside it first. Throws HostError where that
 * fails; a file of that name is then as it was. */
void writeWholeFile(const std::string& path, const std::string& bytes);
