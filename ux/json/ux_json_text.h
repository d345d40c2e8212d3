#pragma once

#include "ux/ux_json_value.h"

#include <memory>
#include <string>

/** How deep lists and objects may stand in each other in a text. */
inline constexpr int uxDeepestJsonNesting = 256;

/** Reads a whole JSON text of at most 64 MiB, in any locale.
 *  @return null for text that is no JSON or no UTF-8, too long or too deep, and for a number beyond double's
 * range */
std::unique_ptr<UXJsonValue> uxParseJson(const std::string& text);

/** @return the value as text without blanks; doubles read back bit for bit, and bytes that are no UTF-8 are
 * written as U+FFFD */
std::string uxFormatJson(const UXJsonValue& value);
