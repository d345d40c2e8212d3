#pragma once

#include "kx_menu_entry.h"

/**
 * What a host wants in a chart's strip or in a drop-down menu of it. The host owns it; whoever asked copies
 * what it needs before the use of the provider ends.
 *
 * In a strip each entry is a button, from left to right, and separators are left out. A button opens its
 * entries, or runs its action; one that has neither asks the provider for a drop-down menu, with a data path
 * of its identifier.
 */
struct KXChartToolboxMenuContext {
    std::vector<KXMenuEntry> entries;
};
