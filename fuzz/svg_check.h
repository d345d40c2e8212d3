#pragma once

#include <string_view>

/** @return whether page is UTF-8 and XML: every tag is closed in its turn, values stand in quotes, and
 * nothing is in it that XML forbids */
bool isWellFormed(std::string_view page);
