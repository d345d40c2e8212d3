#include "ux/ux_png_encoder.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace {

using Bytes = std::vector<unsigned char>;

void append32(Bytes& bytes, std::uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<unsigned char>(value >> shift));
}

/** The remainders of CRC-32 for every byte, with the polynomial that the PNG standard's annex D gives. */
constexpr std::array<std::uint32_t, 256> makeCrcTable()
{
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t remainder = byte;
        for (int bit = 0; bit < 8; ++bit)
            remainder = remainder & 1 ? 0xEDB88320U ^ remainder >> 1 : remainder >> 1;
        table[byte] = remainder;
    }
    return table;
}

std::uint32_t obtainCrc(std::span<const unsigned char> bytes)
{
    static constexpr std::array<std::uint32_t, 256> table = makeCrcTable();
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const unsigned char byte : bytes)
        crc = table[(crc ^ byte) & 0xFFU] ^ crc >> 8;
    return ~crc;
}

/** The check sum Adler-32 of RFC 1950. */
std::uint32_t obtainAdler(std::span<const unsigned char> bytes)
{
    std::uint32_t a = 1, b = 0;
    for (const unsigned char byte : bytes) {
        a = (a + byte) % 65521;
        b = (b + a) % 65521;
    }
    return b << 16 | a;
}

void appendChunk(Bytes& file, std::string_view type, const Bytes& data)
{
    append32(file, static_cast<std::uint32_t>(data.size()));
    const std::size_t start = file.size();
    file.insert(file.end(), type.begin(), type.end());
    file.insert(file.end(), data.begin(), data.end());
    append32(file, obtainCrc(std::span(file).subspan(start)));
}

/** The rows as PNG filters them, each behind a byte 0 for "no filter". PNG keeps colours not multiplied by
 * alpha. */
Bytes obtainRows(const UXImage& image)
{
    const auto [width, height] = image.getSize();
    const std::uint32_t* pixel = image.getPixels();
    Bytes rows;
    rows.reserve((std::size_t(width) * 4 + 1) * std::size_t(height));
    for (int y = 0; y < height; ++y) {
        rows.push_back(0);
        for (int x = 0; x < width; ++x, ++pixel) {
            const std::uint32_t alpha = *pixel >> 24;
            for (const int shift : {16, 8, 0}) {
                const std::uint32_t multiplied = *pixel >> shift & 0xFFU;
                const std::uint32_t color = alpha == 0 ? 0 : (multiplied * 255 + alpha / 2) / alpha;
                rows.push_back(static_cast<unsigned char>(std::min(color, 255U)));
            }
            rows.push_back(static_cast<unsigned char>(alpha));
        }
    }
    return rows;
}

/** A zlib stream (RFC 1950) of stored blocks (RFC 1951, 3.2.4). */
Bytes obtainStoredStream(const Bytes& content)
{
    constexpr std::size_t longestBlock = 65535;
    Bytes stream{0x78, 0x01};
    for (std::size_t at = 0; at < content.size(); at += longestBlock) {
        const std::size_t length = std::min(longestBlock, content.size() - at);
        const auto low = static_cast<unsigned char>(length), high = static_cast<unsigned char>(length >> 8);
        const auto isLast = static_cast<unsigned char>(at + length == content.size());
        stream.insert(stream.end(), {isLast, low, high, static_cast<unsigned char>(~low),
                                     static_cast<unsigned char>(~high)});
        const auto first = content.begin() + static_cast<std::ptrdiff_t>(at);
        stream.insert(stream.end(), first, first + static_cast<std::ptrdiff_t>(length));
    }
    append32(stream, obtainAdler(content));
    return stream;
}

} // namespace

std::vector<unsigned char> uxEncodePng(const UXImage& image)
{
    Bytes file{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    Bytes header;
    append32(header, static_cast<std::uint32_t>(image.getSize().width));
    append32(header, static_cast<std::uint32_t>(image.getSize().height));
    header.insert(header.end(),
                  {8, 6, 0, 0, 0}); // bits, colour with alpha, deflate, plain filter, not interlaced
    appendChunk(file, "IHDR", header);
    appendChunk(file, "IDAT", obtainStoredStream(obtainRows(image)));
    appendChunk(file, "IEND", {});
    return file;
}

std::string uxEncodeBase64(std::span<const unsigned char> bytes)
{
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - at);
        std::uint32_t group = 0;
        for (std::size_t i = 0; i < 3; ++i)
            group = group << 8 | (i < count ? bytes[at + i] : 0U);
        for (std::size_t i = 0; i < 4; ++i)
            text.push_back(i <= count ? digits[group >> (18 - 6 * i) & 63U] : '=');
    }
    return text;
}
