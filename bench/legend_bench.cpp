#include "kx_chart.h"
#include "kx_chart_data_user.h"
#include "kx_chart_property.h"
#include "kx_interaction_highlight_brightness_effect.h"
#include "kx_interaction_provider.h"
#include "kx_legend.h"
#include "kx_legend_cell.h"
#include "turns.h"
#include "ux/cairo/ux_cairo_image_paint_config.h"
#include "ux/cairo/ux_cairo_install.h"
#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_event.h"
#include "ux/ux_virtual_scroll_view.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

// A legend of 10,000 cells against one of 100: it is measured once, and after that a frame of either costs
// what shows, which is the same. They take turns, so that a busy machine slows both.

namespace {

constexpr int width = 600, height = 400;

class HoverEffects : public KXInteractionProvider {
public:
    std::vector<KXInteractionEffect*> obtainInteractionEffects(const std::vector<KXObjectID>&) override
    {
        return {new KXInteractionHighlightBrightnessEffect(0.3)};
    }
};

class LegendChart : public KXChart, public KXChartDataUser {
public:
    explicit LegendChart(std::uint64_t cellCount) : KXChartDataUser(this), m_cellCount(cellCount)
    {
        getChartProperty()->updateLegendPosition(UXPosition::Right);
    }
    void customPrepareData(KXChartDataProvider*, bool&) override {}
    void customReloadData() override {}
    std::uint64_t obtainLegendCellSize() override { return m_cellCount; }
    std::string obtainLegendLabel(std::uint64_t index) override
    {
        ++askedLabels;
        return "Series " + std::to_string(index % 97);
    }
    std::vector<KXObjectID> obtainLegendCellObjectID(std::uint64_t) override { return {KXObjectID()}; }

    std::uint64_t askedLabels = 0;

protected:
    void _customLayout(UXRect) override {}

private:
    std::uint64_t m_cellCount;
};

/** A chart with a legend in a window that paints what is dirty. */
class LegendWindow : public UXControl {
public:
    explicit LegendWindow(std::uint64_t cellCount)
        : m_image(UXDoubleSize(width, height)), m_diagram(&m_context), m_chart(cellCount)
    {
        m_diagram.setRect({0, 0, width, height});
        m_diagram.addChild(&m_chart);
        m_chart.setInteractionProvider(&m_effects);
        m_context.setActiveDiagram(this, &m_diagram);
        m_diagram.repaint();
    }

    std::uint64_t getAskedLabels() const { return m_chart.askedLabels; }
    void measure()
    {
        m_chart.afterReloadData();
        m_diagram.layout();
    }
    void scroll()
    {
        auto* view = dynamic_cast<UXVirtualScrollView*>(m_chart.getLegend()->getChildren().front());
        m_offset = (m_offset + 9) % 2000;
        view->setContentOffsetY(m_offset);
        m_diagram.repaintDirtyRect();
    }
    /** Over the next of the cells that show. */
    void hover()
    {
        m_row = (m_row + 1) % 12;
        const UXRect legend = m_chart.getLegend()->getRect();
        UXEvent event;
        event.setMousePoint({legend.x + 10, legend.y + 5 + 28 * m_row});
        m_diagram.mouseMove(event);
        m_diagram.repaintDirtyRect();
    }

    // From UXControl
    UXPaintConfig* obtainPaintConfig(UXDiagram*) override { return &m_image; }

private:
    HoverEffects m_effects;
    UXCairoImagePaintConfig m_image;
    UXContext m_context;
    UXDiagram m_diagram;
    LegendChart m_chart;
    std::int64_t m_offset = 0;
    int m_row = 0;
};

void compareFrames(benchmark::State& state, void (LegendWindow::*frame)())
{
    uxCairoInstall();
    LegendWindow many(10000), few(100);
    Turns turns(20);
    const std::uint64_t asked = many.getAskedLabels();
    for (auto _ : state)
        turns.take([&] { (many.*frame)(); }, [&] { (few.*frame)(); });
    const double frames = 20 * static_cast<double>(state.iterations());
    state.counters["frame_us"] = turns.getFirst();
    state.counters["10,000/100 cells"] = turns.getFirst() / turns.getSecond();
    state.counters["labels_a_frame"] = static_cast<double>(many.getAskedLabels() - asked) / frames;
}

void scrollLegend(benchmark::State& state) { compareFrames(state, &LegendWindow::scroll); }
BENCHMARK(scrollLegend)->Iterations(100);

void hoverLegend(benchmark::State& state) { compareFrames(state, &LegendWindow::hover); }
BENCHMARK(hoverLegend)->Iterations(100);

void measureLegend(benchmark::State& state)
{
    uxCairoInstall();
    LegendWindow many(10000);
    for (auto _ : state)
        many.measure();
}
BENCHMARK(measureLegend)->Unit(benchmark::kMillisecond)->Iterations(20);

} // namespace
