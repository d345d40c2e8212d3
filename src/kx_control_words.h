#pragma once

#include "kx_export.h"

#include <string>

/** What filter controls say, in the host's language. */
struct KX_EXPORT KXControlWords {
    /** @return those of the host's language; asking for them may destroy any chart */
    static KXControlWords load();

    std::string all = "All", allFound = "All %1 found", none = "None", someOfAll = "%1 of %2",
                search = "Search", noMatch = "No match";
    std::string clear = "Clear", apply = "Apply", cancel = "Cancel";
    std::string onlyThis = "Only this", allButThis = "All but this";
    std::string from = "From", to = "To", relative = "Relative";
    std::string today = "Today", lastSteps = "Last %1";
    std::string thisMonth = "This month", lastMonth = "Last month", thisQuarter = "This quarter";
    std::string lastQuarter = "Last quarter", thisYear = "This year", lastYear = "Last year";
    std::string monthToDate = "Month to date", quarterToDate = "Quarter to date", yearToDate = "Year to date";
};
