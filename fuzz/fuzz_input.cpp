#include "fuzz_input.h"

#include <algorithm>
#include <bit>
#include <limits>

FuzzInput FuzzInput::makeEndless(const std::uint8_t* bytes, std::size_t size)
{
    FuzzInput input(bytes, size);
    input.m_begin = bytes;
    return input;
}

std::uint8_t FuzzInput::takeByte()
{
    if (isEmpty() && m_begin)
        m_next = m_begin;
    return isEmpty() ? std::uint8_t{0} : *m_next++;
}

std::uint64_t FuzzInput::takeBits()
{
    std::uint64_t bits = 0;
    for (int i = 0; i < 8; ++i)
        bits = bits << 8 | takeByte();
    return bits;
}

int FuzzInput::takeInt()
{
    switch (const int choice = takeBelow(8)) {
    case 0:
        return (std::numeric_limits<int>::max)();
    case 1:
        return (std::numeric_limits<int>::min)();
    case 2:
        return -takeByte();
    default:
        return choice % 2 != 0 ? takeByte() : takeByte() * 4;
    }
}

double FuzzInput::takeNumber()
{
    using Limits = std::numeric_limits<double>;
    static constexpr double odd[] = {Limits::quiet_NaN(),
                                     Limits::infinity(),
                                     -Limits::infinity(),
                                     Limits::max(),
                                     Limits::lowest(),
                                     Limits::denorm_min(),
                                     -0.0,
                                     1e300,
                                     0.1};
    switch (takeBelow(4)) {
    case 0:
        return odd[takeBelow(static_cast<int>(std::size(odd)))];
    case 1:
        return std::bit_cast<double>(takeBits());
    case 2:
        return (takeByte() - 128) / 8.0;
    default:
        return takeByte();
    }
}

std::string FuzzInput::takeText()
{
    const int wanted = takeBelow(64);
    const auto size = std::min<std::ptrdiff_t>(wanted, m_end - m_next);
    std::string text(m_next, m_next + size);
    m_next += size;
    return text;
}
