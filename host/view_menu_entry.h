#pragma once

#include <functional>
#include <string>
#include <vector>

/** One line of a context menu and what it does. */
struct ViewMenuEntry {
    std::string text;
    std::function<void()> action;
};

/** A context menu, from top to bottom. Where a chart asks the host for a menu, its context points to one. */
using ViewMenuEntries = std::vector<ViewMenuEntry>;
