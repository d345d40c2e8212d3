#pragma once

#include <set>
#include <string>

/** Property keys or names of groups of them, ordered byte-wise. */
using KXKeys = std::set<std::string>;
