#pragma once

#include <nlohmann/json.hpp>

#include "data_choice.h"

class JsonCursor;

/** Reads a choice: a list of chosen items. An item is one condition, or a list of conditions that all hold:
 *  {"column": "weather", "members": ["rain", null]}, {"column": "weather", "except": []},
 *  {"column": "date", "level": "month", "from": "2012-03-01", "to": "2012-05-01"}
 *  @return it with its items in their order, each once; throws HostError for what is not understood */
[[nodiscard]] DataChoice readDataChoice(const JsonCursor& place);

/** @return the choice as readDataChoice reads it, its keys always in the same order */
[[nodiscard]] nlohmann::ordered_json writeDataChoice(const DataChoice& choice);
