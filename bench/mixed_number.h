#pragma once

#include <cstdint>

/** @return the numbers that the comparison makes up: the finalizer of SplitMix64 (Steele, Lea and Flood 2014)
 */
constexpr std::uint64_t mixNumber(std::uint64_t z)
{
    z += 0x9E3779B97F4A7C15U;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31);
}
