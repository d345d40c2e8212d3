#pragma once

#include "kx_chart_aggregate_type.h"
#include "kx_chart_data_type.h"
#include "kx_chart_data_user.h"

#include <cstdint>
#include <limits>
#include <string>

/** Pulls the one value of a value chart. */
class KX_EXPORT KXValueChartDataUser : public KXChartDataUser {
public:
    explicit KXValueChartDataUser(KXChart* chart);
    ~KXValueChartDataUser() override;

    // What was pulled; the initial values below until then
    std::uint64_t getValueCount() const { return m_data.valueCount; }
    KXChartDataType getDataType() const { return m_data.dataType; }
    KXChartAggregateType getAggregateType() const { return m_data.aggregateType; }
    bool getIsNull() const { return m_data.isNull; }
    double getNumber() const { return m_data.number; }
    /** @return which part of the number belongs to what is chosen elsewhere; NaN where nothing is chosen */
    double getHighlightedPart() const { return m_data.part; }
    std::string getText() const { return m_data.text; }

    // From KXChartDataUser
    void customPrepareData(KXChartDataProvider* provider, bool& prepared) override;
    void customReloadData() override;
    void resetData() override;

private:
    struct Data {
        std::uint64_t valueCount = 0;
        KXChartDataType dataType = KXChartDataType::Float;
        KXChartAggregateType aggregateType{6};
        bool isNull = false;
        double number = (std::numeric_limits<double>::max)(); // stands for no number
        double part = std::numeric_limits<double>::quiet_NaN();
        std::string text;
    };

    Data m_data;
};
