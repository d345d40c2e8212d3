#pragma once

#include "ux/ux_json_value.h"

// How values stand in a document: a structure as an object of its fields by name, an enumeration as its
// value's name. T is bool, int, double, std::string, or one of the framework's structures and enumerations
// that UXJsonObject writes.

template <class T>
UXJsonValue uxEncodeJson(const T& value);

/** @return false, and value as it was, when anything is missing or of another type; whole numbers stop at
 * int's limits */
template <class T>
bool uxDecodeJson(const UXJsonValue& json, T& value);
