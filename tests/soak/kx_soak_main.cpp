// Holds memory flat: what 100,000 new values and 10,000 charts leave behind is nothing.

#include "kx_chart_property.h"
#include "kx_gauge_chart.h"
#include "kx_gauge_chart_data_provider.h"
#include "kx_value_chart.h"
#include "kx_value_chart_data_provider.h"
#include "ux/ux_diagram.h"
#include "ux/ux_recording_paint_config.h"

#include <cstdio>
#include <functional>
#include <malloc.h>

namespace {

constexpr int updateCount = 100'000, chartCount = 10'000, frameDistance = 50;
constexpr double allowedGrowth = 1.01;

class Values : public KXValueChartDataProvider, public KXGaugeChartDataProvider {
public:
    double value = 0;

    void beginPrepareData(KXChartDataUser*) override {}
    void endPrepareData(KXChartDataUser*) override {}
    bool obtainDataIsEmpty(KXChartDataUser*) override { return false; }
    std::uint64_t obtainValueCount(KXChartDataUser*) override { return 4; }
    double obtainValueData(KXChartDataUser*, const KXIndexPath& path) override
    {
        return path.at(0) == 0 ? value : static_cast<double>(path.at(0) * 1000);
    }
    KXChartDataProviderHintData obtainHintData(KXChartDataUser*, const KXIndexPath&) override { return {}; }
};

template <class Chart>
class ShownChart {
public:
    explicit ShownChart(Values& values)
    {
        m_diagram.setRect({0, 0, 320, 240});
        m_chart.setRect({0, 0, 320, 240});
        m_chart.getChartProperty()->updateTitleValue("Soak");
        m_diagram.addChild(&m_chart);
        m_chart.setDataProvider(&values);
        update(true);
    }

    void update(bool paints)
    {
        m_chart.prepareData();
        m_chart.reloadData();
        m_diagram.layout();
        if (!paints)
            return;
        UXRecordingPaintConfig config;
        m_diagram.paint(&config, m_diagram.getBoundingRect());
    }

private:
    UXDiagram m_diagram;
    Chart m_chart;
};

std::size_t obtainAllocatedBytes() { return mallinfo2().uordblks; }

/** Runs the steps once so that caches fill, then again. @return whether the second time left nothing behind
 */
bool isFlat(const char* name, int count, const std::function<void(int)>& step)
{
    std::size_t bytes[2] = {};
    for (std::size_t& measured : bytes) {
        for (int i = 0; i < count / 2; ++i)
            step(i);
        measured = obtainAllocatedBytes();
    }
    const bool flat = static_cast<double>(bytes[1]) <= static_cast<double>(bytes[0]) * allowedGrowth;
    std::printf("%s: %zu bytes after half, %zu after %d: %s\n", name, bytes[0], bytes[1], count,
                flat ? "flat" : "GROWS");
    return flat;
}

template <class Chart>
bool soak(const char* name)
{
    Values values;
    ShownChart<Chart> shown(values);
    bool flat = isFlat((std::string(name) + ", new values").c_str(), updateCount, [&](int i) {
        values.value = i % 1000 * 1.25;
        shown.update(i % frameDistance == 0);
    });
    flat = isFlat((std::string(name) + ", charts").c_str(), chartCount,
                  [&](int) { ShownChart<Chart> another(values); }) &&
           flat;
    return flat;
}

} // namespace

int main()
{
    if (obtainAllocatedBytes() == 0) {
        std::printf("this allocator does not count, as under the sanitizers\n");
        return 77;
    }
    const bool isValueFlat = soak<KXValueChart>("value chart");
    const bool isGaugeFlat = soak<KXGaugeChart>("gauge");
    return isValueFlat && isGaugeFlat ? 0 : 1;
}
