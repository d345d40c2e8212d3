#include "heat_board.h"
#include "turns.h"
#include "ux/cairo/ux_cairo_image_paint_config.h"
#include "ux/cairo/ux_cairo_install.h"
#include "ux/ux_diagram.h"
#include "ux/ux_label.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux/ux_virtual_scroll_view_delegate.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

// A frame of a scrolled view: as many rows as show are placed, laid out and painted, however many there are.

namespace {

constexpr int width = 400, height = 600, rowHeight = 20;

/** A table of row labels, reused while it scrolls. */
class Table : public UXVirtualScrollViewDelegate {
public:
    explicit Table(std::int64_t rows)
    {
        m_diagram.setRect({0, 0, width, height});
        m_view->setDelegate(this);
        m_diagram.addChild(m_view.get());
        for (int i = 0; i <= height / rowHeight; ++i) {
            m_labels.push_back(new UXLabel);
            m_view->addChild(m_labels.back());
        }
        m_view->setRect({0, 0, width, height});
        m_view->setContentHeight(rows * rowHeight);
    }
    ~Table() override { m_view->setDelegate(nullptr); }

    void frame(UXPaintConfig& config)
    {
        m_offset = (m_offset + 7) % 10000;
        m_view->setContentOffsetY(m_offset);
        m_diagram.layout();
        m_diagram.paint(&config, {0, 0, width, height});
    }

    void virtualScrollViewContentOffsetChanged(UXVirtualScrollView* view) override
    {
        const std::int64_t first = view->getContentOffsetY() / rowHeight;
        for (std::size_t i = 0; i < m_labels.size(); ++i) {
            const std::int64_t row = first + static_cast<std::int64_t>(i);
            m_labels[i]->setText("Row " + std::to_string(row));
            m_labels[i]->setRect(
                {0, static_cast<int>(row * rowHeight - view->getContentOffsetY()), width, rowHeight});
        }
    }

private:
    UXDiagram m_diagram;
    std::unique_ptr<UXVirtualScrollView> m_view = std::make_unique<UXVirtualScrollView>();
    std::vector<UXLabel*> m_labels; // the view's
    std::int64_t m_offset = 0;
};

void scrollRows(benchmark::State& state)
{
    uxCairoInstall();
    UXCairoImagePaintConfig image{UXDoubleSize(width, height)};
    Table few(1000), many(10000000);
    Turns turns(5);
    for (auto _ : state)
        turns.take([&] { many.frame(image); }, [&] { few.frame(image); });
    state.counters["frame_us"] = turns.getFirst();
    state.counters["10,000,000/1,000 rows"] = turns.getFirst() / turns.getSecond();
}
BENCHMARK(scrollRows)->Iterations(200);

/** @return a heat map of so many rows and a hundred columns */
std::unique_ptr<HeatBoard> makeHeatBoard(std::size_t rowCount)
{
    constexpr std::size_t columnCount = 100;
    std::vector<double> values(rowCount * columnCount);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = static_cast<double>(i * 7919 % 1000);
    auto board = std::make_unique<HeatBoard>(values, columnCount, false);
    board->layout(1000, 600);
    return board;
}

void scrollHeatMap(benchmark::State& state)
{
    uxCairoInstall();
    UXCairoImagePaintConfig image{UXDoubleSize(1000, 600)};
    const std::unique_ptr<HeatBoard> few = makeHeatBoard(1000), many = makeHeatBoard(100'000);
    Turns turns(5);
    std::int64_t offset = 0;
    for (auto _ : state) {
        offset = (offset + 7) % 10'000;
        turns.take([&] { many->scroll(offset, image); }, [&] { few->scroll(offset, image); });
    }
    state.counters["frame_us"] = turns.getFirst();
    state.counters["10,000,000/100,000 cells"] = turns.getFirst() / turns.getSecond();
}
BENCHMARK(scrollHeatMap)->Iterations(200);

} // namespace
