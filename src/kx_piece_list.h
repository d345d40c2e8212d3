#pragma once

#include "ux/ux_json_object.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

// Lists of pieces of a drawing that a document holds whole.

template <class Piece>
[[nodiscard]] std::vector<UXJsonObject*> kxListPieces(const std::vector<std::unique_ptr<Piece>>& pieces)
{
    std::vector<UXJsonObject*> list;
    list.reserve(pieces.size());
    for (const std::unique_ptr<Piece>& piece : pieces)
        list.push_back(piece.get());
    return list;
}

/** Makes as many pieces as a document lists, and reads them. */
template <class Piece>
[[nodiscard]] bool kxReadPieces(UXJsonObject& object, const char* key,
                                std::vector<std::unique_ptr<Piece>>& pieces)
{
    constexpr std::uint64_t mostPieces = 10'000; // a document may not have more made
    std::uint64_t count = 0;
    const bool isList = object.deserializeArrayBegin(key) && object.deserializePeekArray(count);
    object.deserializeArrayEnd();
    if (!isList)
        return false;
    pieces.clear();
    while (pieces.size() < (std::min)(count, mostPieces))
        pieces.push_back(std::make_unique<Piece>());
    return object.deserializeExistingObjectList(key, kxListPieces(pieces)) && pieces.size() == count;
}
