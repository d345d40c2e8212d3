#pragma once

#include "kx_value_chart_data_provider.h"

#include <string>
#include <utility>

/** One text as a host would provide it to a value chart. */
class TextValue : public KXValueChartDataProvider {
public:
    explicit TextValue(std::string text = {}) : m_text(std::move(text)) {}

    // From KXChartDataProvider
    void beginPrepareData(KXChartDataUser*) override {}
    void endPrepareData(KXChartDataUser*) override {}
    bool obtainDataIsEmpty(KXChartDataUser*) override { return false; }
    std::uint64_t obtainValueCount(KXChartDataUser*) override { return 1; }
    KXChartDataType obtainValueDataType(KXChartDataUser*, const KXIndexPath&) override
    {
        return KXChartDataType::String;
    }
    std::string obtainValueDataString(KXChartDataUser*, const KXIndexPath&) override { return m_text; }

private:
    std::string m_text;
};
