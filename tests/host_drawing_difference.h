#pragma once

#include <sstream>
#include <string>

/** @return the first line in which two texts differ, empty where they do not */
inline std::string findDifference(const std::string& wanted, const std::string& found)
{
    std::istringstream a(wanted), b(found);
    std::string lineA, lineB;
    for (int number = 1;; ++number) {
        const bool hasA = !std::getline(a, lineA).fail(), hasB = !std::getline(b, lineB).fail();
        if (!hasA && !hasB)
            return {};
        if (hasA != hasB || lineA != lineB)
            return "line " + std::to_string(number) + ": \"" + (hasA ? lineA : "nothing") + "\" became \"" +
                   (hasB ? lineB : "nothing") + "\"";
    }
}
