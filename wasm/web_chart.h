#pragma once

#include "kx_chart.h"
#include "ux/ux_object.h"
#include "web_item.h"

#include <cstdint>
#include <memory>
#include <string>

/** A chart in its place of a view. */
class WebChart final : public UXObject {
public:
    /** @param document JSON of any origin, as charts are saved
     *  @return null where it is no chart's; keys that a chart does not take keep their defaults */
    static std::unique_ptr<WebChart> create(const std::string& document);
    ~WebChart() override;

    KXChart& getChart() const { return *m_chart; }
    /** @return the chart drawn at a size without its view, SVG in UTF-8; its place in the view stays */
    std::string obtainSvg(const UXSize& size);

    /** @return how the page knows the chart, 0 where it is none of a view's */
    static std::uint32_t findNumber(const KXChart* chart);
    /** Tells the page that shows the chart what happened to an item. */
    static void tell(const WebItem& item, const std::string& event);

private:
    explicit WebChart(std::unique_ptr<KXChart> chart);
    void _takeChart();

    std::unique_ptr<KXChart> m_chart;
};
