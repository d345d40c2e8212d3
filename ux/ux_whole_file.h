#pragma once

#include <cstdint>
#include <memory>
#include <string>

/** No document and no image is larger. */
inline constexpr std::uint64_t uxLargestFile = std::uint64_t{64} << 20;

/** The bytes of a file. */
struct UXWholeFile {
    std::unique_ptr<char[]> bytes; /**< null where the file could not be read */
    std::uint64_t size = 0;
};

/**
 * Reads a file as a whole. Its size is asked for first, as a device or a pipe has none and must not be read
 * to its end.
 * @param name UTF-8 on every system
 * @return without bytes where there is no such file, or where it is no file, unreadable or too large; also
 * where the name cannot be spelled here, or there is no memory for the file
 */
[[nodiscard]] UXWholeFile uxReadWholeFile(const std::string& name);

/** @return false when the file could not be written in full; what was there before is lost then */
[[nodiscard]] bool uxWriteWholeFile(const std::string& name, const std::string& text);
