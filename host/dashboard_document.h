#pragma once

#include "data_choice.h"
#include "ux/ux_direction.h"
#include "ux/ux_rect.h"

#include <string>
#include <vector>

/** A document that is part of a dashboard: a file of its own, or an object in the dashboard itself. */
struct DashboardPart {
    std::string file; // as the dashboard names it, from its folder; empty for an object
    std::string text; // of the object, JSON
};

/** What a choice does to the other items: their rows are those that are chosen, or the part of each of their
 * values stands out that is. */
enum class ChoiceEffect { Filter, Highlight };

/** A chart or a control of a dashboard with its place and its data. */
struct DashboardItem {
    DashboardPart chart, binding;
    std::string data;          // empty for the dashboard's
    UXRect cells;              // of the grid, at least one
    bool clickFilters = false; // whether what is clicked in the chart is a choice
    ChoiceEffect effect = ChoiceEffect::Filter;
    bool isFiltered = true; // whether choices made in other items count here
    DataChoice choice;
};

/** What a dashboard is, without the data: items on a grid that fills a window or a page. */
struct DashboardDocument {
    static constexpr int mostCells = 48; // along either side

    std::string name;                              // what errors call it, the file it came from
    std::string title;                             // above the items, empty for none
    std::string data;                              // of the items that name none of their own
    UXDirection direction = UXDirection::AsParent; // RightToLeft: columns count from the right, charts mirror
    int columns = 12, rows = 8;
    std::vector<DashboardItem> items;
};
