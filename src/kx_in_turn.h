#pragma once

#include <cstdint>
#include <vector>

/** @return the value that a series takes of a list in turn, or usual where that is empty */
template <class T>
[[nodiscard]] T kxObtainInTurn(const std::vector<T>& list, std::uint64_t series, const T& usual)
{
    return list.empty() ? usual : list[series % list.size()];
}
