#pragma once

#include <string_view>

/** @return whether page is UTF-8 and XML: every tag is closed in its turn, values stand in quotes,
 * nothing is in it that XML forbids, no name is given twice and none is used that is not given */
bool isWellFormed(std::string_view page);
