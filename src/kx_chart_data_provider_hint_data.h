#pragma once

#include <string>
#include <utility>

/** What a provider writes into the hint of one data item. */
struct KXChartDataProviderHintData {
    KXChartDataProviderHintData() = default;
    KXChartDataProviderHintData(std::string titleText, std::string valueText)
        : title(std::move(titleText)), value(std::move(valueText))
    {
    }
    KXChartDataProviderHintData(std::string titleText, std::string subtitleText, std::string valueText)
        : title(std::move(titleText)), subtitle(std::move(subtitleText)), value(std::move(valueText))
    {
    }

    bool isEmpty() const { return title.empty() && subtitle.empty() && value.empty(); }

    std::string title;
    std::string subtitle;
    std::string value;
};
