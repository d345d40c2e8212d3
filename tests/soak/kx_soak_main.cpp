// Holds memory flat: what 10,000 new values and 1,000 charts of each type leave behind is nothing, with
// hints, strip, menu, legend and links in use. kx_soak 10 takes ten times as many of both.

#include "kx_axis_chart_data_provider.h"
#include "kx_chart.h"
#include "kx_chart_data_user.h"
#include "kx_chart_linked_action_diagram.h"
#include "kx_chart_property.h"
#include "kx_chart_toolbox.h"
#include "kx_chart_toolbox_menu_context.h"
#include "kx_control_chart_data_provider.h"
#include "kx_gauge_chart_data_provider.h"
#include "kx_interaction_highlight_complementary_info_effect.h"
#include "kx_json_object_factory.h"
#include "kx_menu_event_diagram.h"
#include "kx_pie_chart_data_provider.h"
#include "kx_table_chart_data_provider.h"
#include "kx_value_chart_data_provider.h"
#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_event.h"
#include "ux/ux_global_control_space_event_diagram.h"
#include "ux/ux_recording_paint_config.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <malloc.h>
#include <memory>
#include <string>

namespace {

constexpr int updateCount = 10'000, chartCount = 1'000, frameDistance = 50, mostTimes = 1'000;
constexpr double allowedGrowth = 1.01;
constexpr UXSize viewSize{480, 320};

/** Answers every chart: some measures over six categories, a strip with a menu, and highlights of what is
 * linked. */
class Values : public KXValueChartDataProvider,
               public KXGaugeChartDataProvider,
               public KXPieChartDataProvider,
               public KXTableChartDataProvider,
               public KXControlChartDataProvider,
               public KXAxisChartDataProvider {
public:
    double value = 1;

    explicit Values(std::uint64_t measureCount) : m_measureCount(measureCount)
    {
        KXMenuEntry more;
        more.text = "More";
        m_strip.entries = {more};
        more.text = "Copy";
        m_strip.entries[0].entries = {more, more};
    }
    void beginPrepareData(KXChartDataUser*) override {}
    void endPrepareData(KXChartDataUser*) override {}
    bool obtainDataIsEmpty(KXChartDataUser*) override { return false; }
    std::uint64_t obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension) override
    {
        return dimension == categoryDimension ? 6 : 0;
    }
    std::string obtainDimensionData(KXChartDataUser*, const KXIndexPath& path) override
    {
        return "Category number " + std::to_string(path.at(1));
    }
    double obtainDimensionDataAsNumber(KXChartDataUser*, const KXIndexPath& path) override
    {
        return static_cast<double>(path.at(1));
    }
    std::uint64_t obtainValueCount(KXChartDataUser*) override { return m_measureCount; }
    std::string obtainValueLabel(KXChartDataUser*, std::uint64_t measure) override
    {
        return "Measure number " + std::to_string(measure);
    }
    KXChartDataType obtainValueDataType(KXChartDataUser*, const KXIndexPath&) override
    {
        return KXChartDataType::Float;
    }
    double obtainValueData(KXChartDataUser*, const KXIndexPath& path) override
    {
        return path.at(0) == 0 ? value : static_cast<double>(path.at(0) * 1000);
    }
    KXChartDataProviderHintData obtainHintData(KXChartDataUser*, const KXIndexPath&) override
    {
        return {"What is under the pointer", std::to_string(value)};
    }
    bool obtainDataShouldShowToolbox(KXChartDataUser*, KXChartDataPath*) override { return true; }
    KXChartToolboxMenuContext* obtainDataToolboxContext(KXChartDataUser*, KXChartDataPath*) override
    {
        return &m_strip;
    }
    std::vector<KXInteractionEffect*> obtainInteractionEffects(const std::vector<KXObjectID>&) override
    {
        return {new KXInteractionHighlightComplementaryInfoEffect}; // the chart destroys it
    }
    bool obtainDataShouldLinkedHighlightAction(KXChartDataUser*, KXChartDataPath*) override { return true; }

private:
    std::uint64_t m_measureCount;
    KXChartToolboxMenuContext m_strip;
};

/** A chart in a view with all that a host registers there. */
class ShownChart {
public:
    ShownChart(const std::string& type, Values& values)
        : m_made(KXJsonObjectFactory().create(type)), m_chart(dynamic_cast<KXChart&>(*m_made))
    {
        const UXRect whole(0, 0, viewSize.width, viewSize.height);
        m_context.addDiagram(&m_diagram);
        m_context.setActiveDiagram(&m_control, &m_diagram);
        m_control.setUseCases({1, 2});
        m_control.setControlRect({0, 0, viewSize.width, viewSize.height});
        m_diagram.setRect(whole);
        m_diagram.registerGlobalEventDiagram(&m_hints);
        m_diagram.registerGlobalEventDiagram(&m_links);
        m_chart.setRect(whole);
        m_chart.getChartProperty()->updateTitleValue("Soak");
        m_chart.getChartProperty()->updateShowLegend(true);
        m_diagram.addChild(&m_chart);
        m_chart.obtainLegendDataUser()->setDataProvider(&values);
        update();
    }

    void update()
    {
        m_chart.obtainLegendDataUser()->prepareData();
        m_chart.obtainLegendDataUser()->reloadData();
        m_diagram.layout();
    }

    /** Points at the chart until something explains itself, opens the strip's menu, clicks on the legend and
     * paints. @return whether a hint and a menu came of it */
    bool use()
    {
        bool hasHint = false;
        for (int y = viewSize.height - 60; !hasHint && y > 40; y -= 20)
            for (int x = 20; !hasHint && x < viewSize.width; x += 60) {
                m_control.mouseMove({x, y}, UXEvent());
                hasHint = !m_hints.getVisibleHints().empty();
            }
        paint();
        const auto items = m_chart.getToolbox()->getItems();
        const bool hasMenu = !items.empty() && m_chart.getToolbox()->activateItem(items[0], UXEvent()) &&
                             m_chart.getToolbox()->getMenuOpen();
        m_chart.legendCellClicked(0, UXEvent());
        paint();
        if (hasMenu)
            m_chart.getToolbox()->getMenuDiagram()->closeMenu();
        m_chart.legendCellClicked(0, UXEvent());
        m_control.mouseLeave({-1, -1}, UXEvent());
        return hasHint && hasMenu;
    }

private:
    void paint()
    {
        UXRecordingPaintConfig view, over;
        m_diagram.layout();
        m_diagram.paint(&view, m_diagram.getBoundingRect());
        m_hints.paintOver(&m_control, &over, m_diagram.getBoundingRect());
    }

    UXContext m_context;
    UXControl m_control;
    UXDiagram m_diagram{&m_context};
    UXGlobalControlSpaceEventDiagram m_hints{&m_context};
    KXChartLinkedActionDiagram m_links{&m_context};
    std::unique_ptr<UXJsonObject> m_made;
    KXChart& m_chart;
};

/** @return what the program holds, large blocks included */
std::size_t obtainAllocatedBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

/** Runs the first half of the steps so that caches fill, then the other. @return whether the other left
 * nothing behind */
bool isFlat(const std::string& name, int count, const std::function<void(int)>& step)
{
    std::size_t bytes[2] = {};
    for (std::size_t& measured : bytes) {
        for (int i = 0; i < count / 2; ++i)
            step(i);
        measured = obtainAllocatedBytes();
    }
    const bool flat = static_cast<double>(bytes[1]) <= static_cast<double>(bytes[0]) * allowedGrowth;
    std::printf("%s: %zu bytes after half, %zu after %d: %s\n", name.c_str(), bytes[0], bytes[1], count,
                flat ? "flat" : "GROWS");
    return flat;
}

bool soak(const std::string& name, int times)
{
    Values values(name == "KXValueChart" ? 1 : 4); // a value chart shows a single one
    ShownChart shown(name, values);
    bool isUsed = true;
    const bool isUpdateFlat = isFlat(name + ", new values", updateCount * times, [&](int i) {
        values.value = (i % 1000 + 1) * 1.25;
        shown.update();
        if (i % frameDistance == 0)
            isUsed = shown.use() && isUsed;
    });
    const bool isChartFlat = isFlat(name + ", charts", chartCount * times, [&](int) {
        ShownChart another(name, values);
        isUsed = another.use() && isUsed;
    });
    if (!isUsed)
        std::printf("%s: no hint or no menu came to be seen\n", name.c_str());
    return isUpdateFlat && isChartFlat && isUsed;
}

} // namespace

int main(int argc, char** argv)
{
    const int times = argc > 1 ? std::clamp(std::atoi(argv[1]), 1, mostTimes) : 1;
    if (obtainAllocatedBytes() == 0) {
        std::printf("this allocator does not count, as under the sanitizers\n");
        return 77;
    }
    bool isFlat = true;
    for (const std::string& type : KXJsonObjectFactory::obtainChartTypeNames())
        isFlat = soak(type, times) && isFlat;
    return isFlat ? 0 : 1;
}
