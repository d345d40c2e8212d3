#include "kx_tornado_chart_data_view.h"

#include "kx_bar_layout.h"
#include "kx_chart_data_format.h"
#include "kx_value_extremes.h"
#include "kx_xy_axis_chart.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_localize.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_painter.h"
#include "ux/ux_painter_state.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_symbol_style.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

/** Of the hatching, in logical units. */
constexpr double hatchWidth = 1.5, hatchDistance = 6;
constexpr UXColor hatchColor(255, 255, 255, 0.7);

constexpr double none = std::numeric_limits<double>::quiet_NaN();

/** Draws lines at 45 degrees, which lie the same in every bar. */
void hatch(UXPainter& painter, const UXDoubleRect& rect)
{
    const UXPainterState state(painter);
    painter.addRectanglePath(rect);
    painter.clip();
    painter.setColor(hatchColor);
    painter.setLineWidth(hatchWidth);
    const double end = rect.x + rect.width + rect.height;
    for (double x = std::floor(rect.x / hatchDistance) * hatchDistance; x <= end; x += hatchDistance)
        painter.addLinePath(x, rect.y, x - rect.height, rect.y + rect.height);
    painter.stroke();
}

} // namespace

KXTornadoChartDataView::KXTornadoChartDataView() = default;
KXTornadoChartDataView::~KXTornadoChartDataView() = default;

void KXTornadoChartDataView::takeRows(KXTornadoRows rows, KXTornadoForm form, double center)
{
    m_rows = std::move(rows);
    m_form = form;
    m_center = std::isfinite(center) ? center : 0;
    m_spans.clear();
    if (form != KXTornadoForm::FromCenter)
        return;
    m_spans.reserve(m_rows.drawn.size());
    for (const std::vector<double>& values : m_rows.drawn) {
        std::vector<KXAxisChartSpan>& spans = m_spans.emplace_back();
        spans.reserve(values.size());
        for (const double value : values)
            spans.push_back({m_center, value});
    }
}

double KXTornadoChartDataView::_obtainDrawn(std::uint64_t series, std::uint64_t category) const
{
    const bool isThere = series < m_rows.drawn.size() && category < m_rows.categories.size();
    return isThere ? m_rows.drawn[series][category] : none;
}

bool KXTornadoChartDataView::isHatched(const KXAxisChartMark& mark) const
{
    return m_form == KXTornadoForm::Mirrored && getChart()->getValue(mark.series, mark.category) < 0;
}

bool KXTornadoChartDataView::placesItself() const { return true; }
bool KXTornadoChartDataView::isMirrored() const { return m_form == KXTornadoForm::Mirrored; }
bool KXTornadoChartDataView::labelsCategoriesInGap() const { return m_labelsInGap && isMirrored(); }

KXAxisChartStacking KXTornadoChartDataView::obtainStacking() const
{
    return m_form == KXTornadoForm::FromCenter ? KXAxisChartStacking::Floating : KXAxisChartStacking::Stacked;
}

KXTornadoChartDataView::Side KXTornadoChartDataView::_obtainSide(bool isLeft, std::uint64_t category) const
{
    constexpr double largest = (std::numeric_limits<double>::max)();
    Side side;
    for (const std::uint64_t series : getShownSeries()) {
        const double value = getChart()->getValue(series, category);
        if (_isLeft(series) != isLeft || std::isnan(value))
            continue;
        if (side.count++ == 0)
            side.firstSeries = series;
        side.drawn = std::min(side.drawn + std::abs(value), largest);
        side.sum = std::clamp(side.sum + value, -largest, largest);
    }
    return side;
}

/** Of a mirrored axis the greater side; else all that is drawn. */
std::optional<KXAxisChartValueRange> KXTornadoChartDataView::obtainValueRange() const
{
    if (getShownSeries().empty())
        return std::nullopt;
    const std::uint64_t count = getChart()->obtainShownCategoryCount();
    KXValueExtremes all;
    if (m_form == KXTornadoForm::Mirrored) {
        double greatest = 0;
        for (std::uint64_t category = 0; category < count; ++category)
            for (const bool isLeft : {true, false})
                greatest = std::max(greatest, _obtainSide(isLeft, category).drawn);
        all = {0, greatest};
    } else {
        for (const std::uint64_t series : getShownSeries())
            if (series < m_rows.drawn.size())
                all.take(kxFindValueExtremes(
                    std::span(m_rows.drawn[series])
                        .first(std::min<std::size_t>(count, m_rows.drawn[series].size()))));
        const double start = m_form == KXTornadoForm::FromCenter ? m_center : 0;
        all.take({start, start});
    }
    return KXAxisChartValueRange{all.min, all.max, all.min, all.max};
}

bool KXTornadoChartDataView::shouldIncludeZero() const { return m_form != KXTornadoForm::FromCenter; }

/** Room at one end would move zero off the middle. */
double KXTornadoChartDataView::obtainExtraLength() const { return 0; }

KXAxisChartStacks KXTornadoChartDataView::_makeStacks() const
{
    KXAxisChartStacks stacks = KXBarChartDataView::_makeStacks();
    for (KXAxisChartStacks::Series& series : stacks.series) {
        if (series.index < m_rows.drawn.size())
            series.values = m_rows.drawn[series.index];
        if (series.index < m_spans.size())
            series.spans = m_spans[series.index];
    }
    return stacks;
}

void KXTornadoChartDataView::paint(UXPainter& painter, const UXRect& dirtyRect) const
{
    KXBarChartDataView::paint(painter, dirtyRect);
    for (const KXBar& bar : getBars())
        if (isHatched(bar.mark) && uxIntersectsRect(uxSurroundingRect(bar.rect), dirtyRect))
            hatch(painter, bar.rect);
}

/** The difference is that of the row; beside it each series has its own value. */
double KXTornadoChartDataView::obtainValue(const KXAxisChartMark& mark) const
{
    return m_form == KXTornadoForm::Difference ? _obtainDrawn(mark.series, mark.category)
                                               : KXBarChartDataView::obtainValue(mark);
}

/** The last bar of a side has free room beyond it. */
bool KXTornadoChartDataView::_canStandOutside(std::size_t index) const
{
    const KXBar& bar = getBars()[index];
    for (std::size_t i = index + 1; i < getBars().size(); ++i) {
        const KXAxisChartMark& next = getBars()[i].mark;
        if (next.category != bar.mark.category)
            break;
        if (_isLeft(next.series) == _isLeft(bar.mark.series))
            return false;
    }
    return true;
}

/** One for each side that has something to add up. */
std::vector<KXBarChartDataView::Total> KXTornadoChartDataView::_obtainTotals(const KXAxisChartStacks&,
                                                                             std::uint64_t category) const
{
    std::vector<Total> totals;
    for (const bool isLeft : {true, false})
        if (const Side side = _obtainSide(isLeft, category); side.count > 1)
            totals.push_back({isLeft ? -side.drawn : side.drawn, side.sum});
    return m_form == KXTornadoForm::Mirrored ? totals : std::vector<Total>();
}

void KXTornadoChartDataView::fillHintRow(UXHintRowInfo& row, const KXAxisChartMark& mark)
{
    KXBarChartDataView::fillHintRow(row, mark);
    if (m_form == KXTornadoForm::Difference)
        row.label = uxLocalizeString("Difference");
}

void KXTornadoChartDataView::fillHintFooter(UXHintInfo& info, std::uint64_t category)
{
    const KXXYAxisChart& chart = *getChart();
    const KXChartDataFormat& format = *chart.getYDataFormat();
    const UXObjectWatcher watcher(getChart()); // which a question for a word may destroy
    const Side left = _obtainSide(true, category), right = _obtainSide(false, category);
    const auto add = [&](const std::string& label, const std::string& text) {
        info.addFooterRow(UXColor(), UXSymbolStyle::Rectangle, label, text).showSymbol = false;
    };
    const auto addNamed = [&](const char* name, double value) {
        const std::string text = format.formatNumber(value);
        add(uxLocalizeString(name), text);
    };
    const auto addSide = [&](const Side& side, const char* name) {
        if (side.count == 1 && m_form == KXTornadoForm::Difference)
            add(chart.getSeriesLabel(side.firstSeries), format.formatNumber(side.sum));
        else if (side.count > 1)
            addNamed(name, side.sum);
    };
    addSide(left, "Left");
    if (watcher.isAlive())
        addSide(right, "Right");
    if (watcher.isAlive() && m_form == KXTornadoForm::Mirrored && left.count > 0 && right.count > 0)
        addNamed("Difference", right.sum - left.sum);
}

std::string KXTornadoChartDataView::customSerializeTypeID() { return "KXTornadoChartDataView"; }
