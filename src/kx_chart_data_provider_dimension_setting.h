#pragma once

#include <string>
#include <vector>

/** The host's settings for one dimension. The chart type says what it reads from them; the axis charts take
 * the first three flags before they read a dimension's members. */
struct KXChartDataProviderDimensionSetting {
    bool firstFlag = false;
    bool secondFlag = false;
    bool thirdFlag = false;
    bool fourthFlag = false;
    double firstNumber = 0;
    double secondNumber = 100;
    double thirdNumber = 0;
    std::vector<std::string> list;
};
