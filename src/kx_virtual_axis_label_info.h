#pragma once

#include <string>

/** The size of one label along an axis, made when it is asked for. */
struct KXVirtualAxisLabelInfo {
    int width = 0, height = 0; /**< in logical units, rounded up */
    std::string text;

    friend bool operator==(const KXVirtualAxisLabelInfo&, const KXVirtualAxisLabelInfo&) = default;
};
