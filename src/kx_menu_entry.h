#pragma once

#include "kx_menu_icon.h"

#include <functional>
#include <string>
#include <vector>

/** One choice in a menu or a strip, as the host describes it. */
struct KXMenuEntry {
    std::string text; /**< UTF-8, one line; a strip says it in a hint */
    KXMenuIcon icon = KXMenuIcon::None;
    bool enabled = true;              /**< one that is not can be seen but not chosen */
    bool checked = false;             /**< whether what the entry stands for is on */
    bool separator = false;           /**< a line between entries, of which nothing else counts */
    std::function<void()> action;     /**< run after the event that chose the entry; may be empty */
    std::vector<KXMenuEntry> entries; /**< a sub-menu, which is opened in place of an action */
    std::string identifier;           /**< names the entry to the provider in questions about it */
};
