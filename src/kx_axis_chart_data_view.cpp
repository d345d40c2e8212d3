#include "kx_axis_chart_data_view.h"

#include "kx_axis_property.h"
#include "kx_key_definitions.h"
#include "kx_xy_axis_chart.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_localize.h"
#include "ux/ux_symbol_style.h"

#include <algorithm>
#include <limits>
#include <span>
#include <tuple>

namespace {

/** A thin mark over a filled one is meant where it is nearer to the pointer than this, in logical units. */
constexpr double filledDistance = 4;

} // namespace

KXAxisChartDataView::KXAxisChartDataView() = default;
KXAxisChartDataView::~KXAxisChartDataView() = default;

void KXAxisChartDataView::updateIsOnSecondaryAxis(bool isOnSecondaryAxis)
{
    if (isOnSecondaryAxis == m_isOnSecondaryAxis)
        return;
    m_isOnSecondaryAxis = isOnSecondaryAxis;
    if (m_chart && m_chart->preparedAndReloadedData())
        m_chart->reloadData();
}

bool KXAxisChartDataView::canShowSeries() const { return true; }
bool KXAxisChartDataView::drawsSeriesAsOne() const { return false; }
bool KXAxisChartDataView::canStack() const { return true; }
bool KXAxisChartDataView::placesItself() const { return false; }
bool KXAxisChartDataView::canBeLogarithmic() const { return !placesItself(); }
bool KXAxisChartDataView::isMirrored() const { return false; }
bool KXAxisChartDataView::labelsCategoriesInGap() const { return false; }
bool KXAxisChartDataView::prefersContinuousDates() const { return false; }
bool KXAxisChartDataView::prefersContinuousNumbers() const { return false; }

KXAxisChartStacking KXAxisChartDataView::obtainStacking() const
{
    if (!m_chart || !canStack())
        return KXAxisChartStacking::Plain;
    const KXAxisProperty& axis = _getValueAxisProperty();
    if (!axis.getIsStacked())
        return KXAxisChartStacking::Plain;
    return axis.getIs100PercentStacked() ? KXAxisChartStacking::Percentage : KXAxisChartStacking::Stacked;
}

std::optional<KXAxisChartValueRange> KXAxisChartDataView::obtainValueRange() const
{
    if (m_shownSeries.empty())
        return std::nullopt;
    const bool withSums = canStack() && _getValueAxisProperty().getIsStacked();
    if (m_chart->isLogarithmic(_getValueAxisProperty())) {
        KXValueExtremes positive;
        for (const std::uint64_t series : m_shownSeries)
            positive.take(kxFindValueExtremes(m_chart->obtainPlottedValues(series)));
        return positive.isEmpty() ? KXAxisChartValueRange()
                                  : KXAxisChartValueRange{positive.min, positive.max};
    }
    KXAxisChartValueRange range = m_chart->obtainValueRange(m_shownSeries,
                                                            m_chart->obtainShownCategoryCount(), withSums);
    if (!canStack()) {
        range.stackedMin = std::min(range.min, 0.0);
        range.stackedMax = std::max(range.max, 0.0);
    }
    return range;
}

std::optional<KXValueExtremes> KXAxisChartDataView::obtainNumberRange() const { return std::nullopt; }
std::span<const double> KXAxisChartDataView::obtainNumbers(std::uint64_t) const { return {}; }
bool KXAxisChartDataView::zoomsAlongValues() const { return false; }
double KXAxisChartDataView::obtainReach() const { return 0; }
bool KXAxisChartDataView::shouldIncludeZero() const { return false; }
double KXAxisChartDataView::obtainMinCategorySpacing() const { return 0; }
double KXAxisChartDataView::obtainLabelledCategorySpacing() const { return 0; }
double KXAxisChartDataView::obtainOverhang() const { return 0; }
double KXAxisChartDataView::obtainExtraLength() const { return 0; }
double KXAxisChartDataView::obtainExtraRoomAcross() const { return 0; }
void KXAxisChartDataView::reload() {}
std::vector<KXAxisChartMark> KXAxisChartDataView::obtainSingleMarks() const { return {}; }
void KXAxisChartDataView::layoutLabels() {}
std::vector<UXDoubleRect> KXAxisChartDataView::obtainLabelRects() const { return {}; }

std::vector<UXDoubleRect> KXAxisChartDataView::_obtainEarlierLabels() const
{
    std::vector<UXDoubleRect> rects;
    for (const auto& view : m_chart->getDataViews()) {
        if (view.get() == this)
            break;
        const std::vector<UXDoubleRect> own = view->obtainLabelRects();
        rects.insert(rects.end(), own.begin(), own.end());
    }
    if (const std::optional<UXDoubleRect> note = m_chart->obtainNoteRect())
        rects.push_back(*note);
    return rects;
}

void KXAxisChartDataView::paintLabels(UXPainter&, const UXRect&) const {}
std::optional<KXAxisChartMark> KXAxisChartDataView::hitMark(UXPoint) const { return std::nullopt; }
double KXAxisChartDataView::obtainHitDistance(UXPoint) const { return filledDistance; }
UXRect KXAxisChartDataView::obtainMarkPlace(const KXAxisChartMark&) const { return {}; }

std::vector<UXRect> KXAxisChartDataView::obtainMarkRects(const KXAxisChartMark&) const
{
    return {m_chart->getMarksArea()};
}

std::optional<std::uint64_t> KXAxisChartDataView::obtainCategoryAt(UXPoint) const { return std::nullopt; }

std::optional<UXPoint> KXAxisChartDataView::obtainHintPoint(const KXAxisChartMark&) const
{
    return std::nullopt;
}

double KXAxisChartDataView::obtainValue(const KXAxisChartMark& mark) const
{
    return m_chart->isPlaced(mark) ? m_chart->getValue(mark.series, mark.category)
                                   : std::numeric_limits<double>::quiet_NaN();
}

void KXAxisChartDataView::fillHintRow(UXHintRowInfo&, const KXAxisChartMark&) {}
void KXAxisChartDataView::fillHintFooter(UXHintInfo&, std::uint64_t) {}

std::optional<UXSymbolStyle> KXAxisChartDataView::obtainLegendSymbolStyle(std::uint64_t) const
{
    return std::nullopt;
}

bool KXAxisChartDataView::paintLegendSymbol(std::uint64_t, UXPainter&, const UXDoubleRect&,
                                            const UXColor&) const
{
    return false;
}

const UXPropertyTable& KXAxisChartDataView::obtainPropertyTable()
{
    using Self = KXAxisChartDataView;
    static constexpr UXProperty rows[] = {
        {.key = "m_isOnSecondaryAxis",
         .type = kxObtainKeyType<bool>,
         .place = [](void* owner) -> void* { return &static_cast<Self*>(owner)->m_isOnSecondaryAxis; },
         .update =
             [](void* owner, const void* value) {
                 static_cast<Self*>(owner)->updateIsOnSecondaryAxis(*static_cast<const bool*>(value));
             },
         .effect = UXPropertyEffect::Reload,
         .meaning = "the second axis of values tells those of the view"}};
    static const UXPropertyTable table("KXAxisChartDataView", nullptr, kxObtainKeyOwner<Self>, rows);
    return table;
}

void KXAxisChartDataView::customSerialize() { obtainPropertyTable().write(*this); }
bool KXAxisChartDataView::customDeserialize() { return obtainPropertyTable().read(*this); }

KXAxisChartStacks KXAxisChartDataView::_makeStacks() const
{
    KXAxisChartStacks stacks;
    for (const std::uint64_t series : m_shownSeries)
        stacks.series.push_back(
            {series, m_chart->obtainPlottedValues(series), {}, m_chart->getHighlightedParts(series)});
    stacks.form = obtainStacking();
    stacks.categoryNumbers = m_chart->getCategoryPlaces().getNumbers();
    stacks.categories = m_chart->getCategoryPlaces().getCategories();
    std::tie(stacks.first, stacks.end) = m_chart->obtainVisibleCategories();
    return stacks;
}

KXAxisProperty& KXAxisChartDataView::_getValueAxisProperty() const
{
    return m_isOnSecondaryAxis ? *m_chart->getSecondaryYAxisProperty() : *m_chart->getYAxisProperty();
}

void KXAxisChartDataView::_addTotal(UXHintInfo& info, std::uint64_t category) const
{
    const KXAxisChartStacks source = _makeStacks();
    std::vector<KXAxisChartStackSegment> pieces;
    source.obtainPieces(category, pieces);
    if (source.form != KXAxisChartStacking::Stacked || pieces.size() < 2)
        return;
    const std::string text = getChart()->obtainValueText(getShownSeries().front(),
                                                         source.obtainTotal(category));
    // Asking for the word comes last, as it may destroy the chart.
    info.addFooterRow(UXColor(), UXSymbolStyle::Rectangle, uxLocalizeString("Total"), text).showSymbol =
        false;
}
