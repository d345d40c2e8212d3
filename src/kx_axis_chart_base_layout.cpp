#include "kx_axis_chart_base.h"

#include "kx_axis.h"
#include "kx_axis_chart_grid_layer.h"
#include "kx_axis_chart_layer.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_property.h"
#include "kx_axis_scale.h"
#include "kx_axis_tick_label_view.h"
#include "ux/ux_flag_scope.h"
#include "ux/ux_label.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/** In logical units; no chart that is seen comes near to it. */
constexpr int greatestExtent = 1 << 24;
// Between an axis, its labels and its title, logical units
constexpr int labelGap = 5;
/** Labels that would be cut at less than this are thinned out instead of turned. */
constexpr int leastTurnedLength = 48;
/** The first labels keep no more of the plot free beside the marks than one part of so many. */
constexpr int overhangDivider = 6;
constexpr int titleGap = 4;
/** Between labels one below the other. */
constexpr double lineGap = 2;
constexpr int barExtent = UXVirtualScrollView::extraExtent;
/** Titles, then the labels that take too much, give way where the marks would get less room than this. */
constexpr UXSize leastAreaBesideTitles{120, 80};
constexpr UXSize leastAreaBesideLabels{48, 32};
/** A title at the end of an axis takes no more of the plot than this part. */
constexpr int endTitleDivider = 4;
/** Labels neither, across their axis. */
constexpr int labelDivider = 3;
/** But beside a small chart they have the room of a word, as far as the marks keep theirs. */
constexpr int wordLength = 64;
constexpr int noWrapLineMode = 2;

/** @return extent so that sums of several stay far inside int */
int boundExtent(int extent) { return std::clamp(extent, 0, greatestExtent); }

UXSize measureTitle(const KXAxisChartAxis& axis)
{
    const UXSize size = axis.measureTitle();
    return {boundExtent(size.width), boundExtent(size.height)};
}

/** @return the side of the marks at which a title at the end of the axis stands */
UXPosition obtainEndSide(const KXAxisChartAxis& axis)
{
    return axis.isHorizontal() ? UXPosition::Right : UXPosition::Top;
}

/** @return whether the first value stands at that side, as of categories from the top down */
bool startsAtEndSide(const KXAxisChartAxis& axis)
{
    return (axis.isHorizontal() ? axis.axis->getVectorNotationX() : axis.axis->getVectorNotationY()) < 0;
}

/** @return by how much a label beside an axis along y reaches over its tick */
int obtainHalfLine(const KXAxisChartAxis& axis)
{
    return uxSaturateToInt(std::ceil(axis.measureLabelLine() / 2));
}

/** @return how far apart such labels stand that all of them show, in whole units */
double obtainLinePitch(const KXAxisChartAxis& axis) { return std::ceil(axis.measureLabelLine() + lineGap); }

/** @param lies whether the labels' axis lies along x, so that they take height from the plot */
int obtainGreatestLabelLength(bool lies, const UXRect& plot)
{
    if (lies)
        return std::max(plot.height / labelDivider, 1);
    const int beside = leastAreaBesideLabels.width + labelGap + barExtent;
    return std::max({plot.width / labelDivider, std::min(wordLength, plot.width - beside), 1});
}

/** @return the rectangle of the axis's line, at its side of the marks */
UXRect obtainAxisRect(const KXAxisChartAxis& axis, const UXRect& area)
{
    if (axis.position == UXPosition::Top)
        return {area.x, area.y, area.width, std::min(area.height, 1)};
    if (axis.position == UXPosition::Right)
        return {uxMaxX(area) - std::min(area.width, 1), area.y, std::min(area.width, 1), area.height};
    return area;
}

} // namespace

KXAxisChartBase::Band& KXAxisChartBase::Bands::at(UXPosition side)
{
    switch (side) {
    case UXPosition::Left:
        return left;
    case UXPosition::Right:
        return right;
    case UXPosition::Top:
        return top;
    default:
        return bottom;
    }
}

/** Labels above and below the marks stand clear of half the line by which those beside reach over to them. */
int KXAxisChartBase::Bands::obtainLabelGap(UXPosition side) const
{
    const bool lies = side == UXPosition::Top || side == UXPosition::Bottom;
    return lies ? std::max(labelGap, at(side).reach - 1) : labelGap;
}

void KXAxisChartBase::_customLayout(UXRect plotArea)
{
    const UXObjectWatcher self(this);
    UXFlagScope layingOut(this, m_layingOut);
    m_plot->setRect({plotArea.x, plotArea.y, boundExtent(plotArea.width), boundExtent(plotArea.height)});
    _customUpdateAxes();
    if (self.isAlive())
        _layoutAxes();
    if (!self.isAlive())
        return;
    layingOut.end();
    _layoutContent();
}

void KXAxisChartBase::_layoutAxes()
{
    const UXObjectWatcher self(this);
    Detail detail;
    _layoutAxes(detail);
    if (!self.isAlive())
        return;
    if (m_marksArea.width < leastAreaBesideTitles.width ||
        m_marksArea.height < leastAreaBesideTitles.height) {
        detail.titles = false;
        _layoutAxes(detail);
    }
    if (!self.isAlive())
        return;
    detail.standingLabels = m_marksArea.width >= leastAreaBesideLabels.width;
    detail.lyingLabels = m_marksArea.height >= leastAreaBesideLabels.height;
    if (!detail.standingLabels || !detail.lyingLabels)
        _layoutAxes(detail);
}

/** Labels take room from the axes, and what labels need depends on the axes' room: the second round settles
 * it but for labels that turn with it, which a third one follows. */
void KXAxisChartBase::_layoutAxes(const Detail& detail)
{
    constexpr int rounds = 3;
    const UXObjectWatcher self(this);
    KXAxisChartAxis* scrolled = _obtainScrolledAxis();
    _updateLabels(detail);
    if (!self.isAlive())
        return;
    Bands bands;
    bool scrolls = false;
    m_fitsCategories = false;
    for (int round = 0; round < rounds; ++round) {
        // What was visible on the way here needs no room and turns no label, known texts or not.
        for (const auto& axis : m_axes)
            axis->labels->forgetRoom();
        _placeAxes(_obtainArea(bands, scrolls), bands.gap);
        _customUpdateTicks();
        if (!self.isAlive())
            return;
        _placeLabels(bands);
        bands = _measureBands(detail);
        if (!self.isAlive())
            return;
        scrolls = scrolled && scrolled->isUsed && scrolled->axis->isScrollable();
    }
    scrolls = _settleScroll(bands, scrolls);
    if (!self.isAlive())
        return;
    for (const auto& axis : m_axes)
        axis->labelRoom.extraLength = axis->axis->getExtraLength(axis->labels->getExtraLengthKey());
    _placeScroll(bands, scrolls);
    _placeTitles(bands, detail, scrolls);
    _placeLayers();
}

/** Places the axes for the last time, with a scroll bar exactly where there is something to scroll to. A bar
 * that would take away its own reason is left out, and the categories come closer together instead.
 * @return whether the chart scrolls */
bool KXAxisChartBase::_settleScroll(const Bands& bands, bool scrolls)
{
    const UXObjectWatcher self(this);
    const KXAxisChartAxis* scrolled = _obtainScrolledAxis();
    for (const auto& [tried, fits] : {std::pair(scrolls, false), {!scrolls, false}, {false, true}}) {
        m_fitsCategories = fits;
        _placeAxes(_obtainArea(bands, tried), bands.gap);
        _customUpdateTicks();
        if (!self.isAlive())
            return false;
        _placeLabels(bands);
        // Asked for their length, the labels say what they need at the end of the axis, and the marks are
        // placed by that.
        for (std::size_t i = 0; self.isAlive() && i < m_axes.size(); ++i)
            if (m_axes[i]->labels->getVisible())
                m_axes[i]->labels->obtainLabelLength();
        if (!self.isAlive())
            return false;
        const bool isScrollable = scrolled && scrolled->isUsed && scrolled->axis->isScrollable();
        if (isScrollable == tried)
            return tried;
    }
    return false;
}

/** @return the least room of a category: beside the marks each one's label has a line of its own, and where
 * the chart scrolls, its marks have room for their labels; below 0 where all are to be seen at once */
double KXAxisChartBase::_obtainScrolledSpacing(const KXAxisChartAxis& axis, const UXRect& area) const
{
    double least = _obtainMinCategorySpacing();
    if (m_fitsCategories || !m_axisChartProperty->getEnableScroll() || least < 0)
        return -1;
    const bool hasLines = !axis.isHorizontal() && axis.labels->getVisible() &&
                          axis.property->getTickLabelIntervalMode() != KXAxisTickLabelIntervalMode::Custom;
    if (hasLines)
        least = std::max(least, std::min(obtainLinePitch(axis), m_plot->getRect().height * 1.0));
    const double categories = axis.axis->getMaxValue() - axis.axis->getMinValue();
    const bool scrolls = categories * least > (axis.isHorizontal() ? area.width : area.height);
    return scrolls ? std::max(least, _obtainLabelledCategorySpacing()) : least;
}

/** Gives the labels what their axes' properties say, and has them forget ticks that are others now. */
void KXAxisChartBase::_updateLabels(const Detail& detail)
{
    const UXObjectWatcher self(this);
    const UXRect plot = m_plot->getBoundingRect();
    for (std::size_t i = 0; self.isAlive() && i < m_axes.size(); ++i) {
        KXAxisChartAxis& axis = *m_axes[i];
        const KXAxisProperty& property = *axis.property;
        KXAxisTickLabelView& labels = *axis.labels;
        const bool hasRoom = axis.isHorizontal() ? detail.lyingLabels : detail.standingLabels;
        labels.setVisible(hasRoom && axis.isUsed && property.getShowTickLabels());
        // The labels ask anew for what they need at the end of the axis: at another size that is other room,
        // and at another side it has another key.
        axis.axis->setExtraLength(labels.getExtraLengthKey(), 0);
        labels.setPosition(axis.position);
        labels.setTickInterval(axis.cache.tickInterval);
        labels.setAnchorTick(kxObtainAxisAnchorTick(axis.cache));
        labels.setTextProperty(property.getTickLabelProperty());
        labels.setTickLabelRotationType(property.getTickLabelRotationType());
        // Numbers that may be thinned out are not turned: they stay below their lines of the grid.
        const bool isScrolled = &axis == _obtainScrolledAxis();
        const bool isCategories = isScrolled && !axis.cache.isValueAxis;
        const bool mayTurn = isCategories ||
                             property.getTickLabelIntervalMode() != KXAxisTickLabelIntervalMode::Auto;
        labels.setAutoRotateLabels(mayTurn && plot.height / labelDivider >= leastTurnedLength);
        labels.setPrefersAllLabels(isCategories);
        labels.setCentersLabels(axis.labelsInGap);
        const bool endsAtTitle = !isCategories && property.getShowTitleAtEndOfAxis();
        labels.setShowLabelInBound(isScrolled && axis.isHorizontal() && !endsAtTitle);
        labels.setTickLabelIntervalMode(property.getTickLabelIntervalMode());
        labels.setUseFixedTickLabelIntervalForAutoIntervalMode(
            property.getUseFixedTickLabelIntervalForAutoIntervalMode());
        labels.setTickLabelInterval(property.getTickLabelInterval());
        labels.setMaxLabelLength(obtainGreatestLabelLength(axis.isHorizontal(), plot));
        if (labels.getVisible() && std::exchange(axis.ticksChanged, false))
            labels.reloadData();
    }
}

/** The first label below the marks may begin before their edge, and one beside them may reach down. */
void KXAxisChartBase::_measureOverhang(const KXAxisChartAxis& axis, Bands& bands)
{
    const UXObjectWatcher self(this);
    const int most = m_plot->getRect().width / overhangDivider;
    const int overhang = axis.isHorizontal() ? std::min(axis.labels->obtainStartOverhang(), most)
                                             : obtainHalfLine(axis);
    if (!self.isAlive())
        return;
    const bool startsAtEnd = startsAtEndSide(axis);
    Band& band = !axis.isHorizontal() ? bands.bottom : startsAtEnd ? bands.right : bands.left;
    band.overhang = std::max(band.overhang, boundExtent(overhang));
    band.reach = band.overhang;
    if (axis.isHorizontal() || !startsAtEnd)
        return; // values end below the top, as far as their last label needs
    const int above = axis.axis->isScrollable() ? overhang : axis.labels->obtainStartOverhang();
    if (self.isAlive())
        bands.top.reach = std::max(bands.top.reach, boundExtent(above));
}

/** Asking for the labels' length may ask the provider for texts, which may destroy the chart. */
void KXAxisChartBase::_measureLabels(Bands& bands)
{
    const UXObjectWatcher self(this);
    for (std::size_t i = 0; i < m_axes.size(); ++i) {
        KXAxisChartAxis& axis = *m_axes[i];
        const int length = axis.labels->getVisible() ? boundExtent(axis.labels->obtainLabelLength()) : 0;
        if (!self.isAlive())
            return;
        if (!axis.labelsInGap)
            bands.at(axis.position).labels = std::max(bands.at(axis.position).labels, length);
        else if (length > 0)
            bands.gap = length + 2 * labelGap;
        axis.labelRoom = {};
        axis.labelRoom.length = length;
        if (axis.labels->getVisible())
            axis.labelRoom.startOverhang = axis.labels->obtainStartOverhang();
        if (self.isAlive() && length > 0)
            _measureOverhang(axis, bands);
        if (!self.isAlive())
            return;
        if (&axis == _obtainScrolledAxis())
            m_scrolledLabelLength = length;
    }
    for (const UXPosition side : {UXPosition::Left, UXPosition::Top, UXPosition::Right, UXPosition::Bottom})
        if (bands.at(side).labels > 0)
            bands.at(side).labels += bands.obtainLabelGap(side);
}

KXAxisChartBase::Bands KXAxisChartBase::_measureBands(const Detail& detail)
{
    const UXObjectWatcher self(this);
    Bands bands;
    _measureLabels(bands);
    if (!self.isAlive())
        return bands;
    for (std::size_t i = 0; detail.titles && self.isAlive() && i < m_axes.size(); ++i)
        if (m_axes[i]->showsTitle())
            _measureTitle(*m_axes[i], bands);
    return bands;
}

void KXAxisChartBase::_measureTitle(const KXAxisChartAxis& axis, Bands& bands)
{
    const UXObjectWatcher self(this);
    const UXSize title = measureTitle(axis);
    if (!axis.property->getShowTitleAtEndOfAxis()) {
        bands.at(axis.position).title = title.height + titleGap;
        return;
    }
    const int gap = _obtainEndTitleGap(axis);
    if (!self.isAlive())
        return;
    const int most = m_plot->getRect().width / endTitleDivider;
    Band& band = bands.at(obtainEndSide(axis));
    band.endGap = std::max(band.endGap, gap);
    band.endTitle = std::max(band.endTitle,
                             gap + (axis.isHorizontal() ? std::min(title.width, most) : title.height));
}

/** A title over what begins at the top stands clear of the uppermost label, wherever that is scrolled to.
 * Asking for it may destroy the chart. */
int KXAxisChartBase::_obtainEndTitleGap(const KXAxisChartAxis& axis) const
{
    if (axis.isHorizontal() || !startsAtEndSide(axis) || !axis.labels->getVisible())
        return titleGap;
    const bool moves = axis.axis->isScrollable();
    return std::max(titleGap, boundExtent(moves ? obtainHalfLine(axis) : axis.labels->obtainStartOverhang()));
}

/** @return what the bands leave of the plot, no longer than an axis that is given a length */
UXRect KXAxisChartBase::_obtainArea(const Bands& bands, bool scrolls) const
{
    const KXAxisChartAxis* scrolled = _obtainScrolledAxis();
    const bool barLies = scrolled && scrolled->isHorizontal();
    const int below = bands.bottom.obtainExtent() + (scrolls && barLies ? barExtent : 0);
    const int beside = bands.right.obtainExtent() + (scrolls && !barLies ? barExtent : 0);
    const UXRect plot = m_plot->getBoundingRect();
    const int left = bands.left.obtainExtent(), top = bands.top.obtainExtent();
    UXRect area(left, top, std::max(plot.width - left - beside, 0), std::max(plot.height - top - below, 0));
    for (const auto& axis : m_axes) {
        const int length = axis->property->getAxisLength();
        if (!axis->isUsed || length <= 0)
            continue;
        if (axis->isHorizontal()) {
            area.width = std::min(area.width, length);
        } else {
            const int cut = area.height - std::min(area.height, length);
            area = {area.x, area.y + cut, area.width, area.height - cut};
        }
    }
    return area;
}

/** @param gap of an axis of values between its sides */
void KXAxisChartBase::_placeAxes(const UXRect& area, int gap)
{
    m_marksArea = area;
    _colorAxes();
    const KXAxisChartAxis* scrolled = _obtainScrolledAxis();
    for (const auto& own : m_axes) {
        KXAxis& axis = *own->axis;
        axis.setVisible(own->isUsed);
        axis.setShowAxis(own->property->getShowAxis() && !own->labelsInGap);
        axis.setGap(own.get() == scrolled ? 0 : gap);
        const bool isReversed = own.get() != scrolled && m_axisChartProperty->getIsYReversed();
        if (own->isHorizontal())
            axis.setVectorNotation(isReversed ? -1 : 1, 0);
        else
            axis.setVectorNotation(0, own.get() == scrolled || isReversed ? -1 : 1);
        if (own.get() == scrolled && m_fitsCategories)
            axis.setValueSpacing(-1);
        axis.setMinValueSpacing(own.get() == scrolled ? _obtainScrolledSpacing(*own, area) : -1);
        axis.setRect(obtainAxisRect(*own, area));
        axis.updateCache();
        // An axis that is all extra length shows no labels, which would ask for less.
        if (!axis.isValidAxis()) {
            axis.setExtraLength(own->labels->getExtraLengthKey(), 0);
            axis.updateCache();
        }
    }
}

/** Labels stand beside the marks; along their axis they have all of the plot, so that the outer ones may
 * reach over its ends. */
void KXAxisChartBase::_placeLabels(const Bands& bands)
{
    const UXRect area = m_marksArea, plot = m_plot->getBoundingRect();
    for (const auto& axis : m_axes) {
        const int gap = bands.obtainLabelGap(axis->position);
        const int length = std::max(bands.at(axis->position).labels - gap, 0);
        UXRect rect;
        if (axis->position == UXPosition::Bottom)
            rect = {0, uxMaxY(area) + gap, plot.width, length};
        else if (axis->position == UXPosition::Top)
            rect = {0, area.y - gap - length, plot.width, length};
        else if (axis->position == UXPosition::Left)
            rect = {area.x - gap - length, 0, length, plot.height};
        else
            rect = {uxMaxX(area) + gap, 0, length, plot.height};
        if (axis->labelsInGap)
            rect = _obtainGapRect(bands.gap);
        axis->labels->setRect(rect);
    }
}

/** @return the room between the two sides of the marks, less what stays free of it; empty without one */
UXRect KXAxisChartBase::_obtainGapRect(int gap) const
{
    const KXAxisChartAxis* scrolled = _obtainScrolledAxis();
    for (const auto& own : m_axes) {
        if (own.get() == scrolled || !own->isUsed || !own->isHorizontal())
            continue;
        const int length = std::max(gap - 2 * labelGap, 0);
        const double middle = own->axis->obtainDoubleValuePositionInAxis(0).x;
        return {uxSaturateToInt(std::round(middle - length / 2.0)), 0, length,
                m_plot->getBoundingRect().height};
    }
    return {};
}

void KXAxisChartBase::_placeTitles(const Bands& bands, const Detail& detail, bool scrolls)
{
    for (const auto& axis : m_axes) {
        UXLabel& label = *axis->title;
        label.setVisible(detail.titles && axis->showsTitle());
        if (!label.getVisible())
            continue;
        const bool atEnd = axis->property->getShowTitleAtEndOfAxis();
        const bool hasBar = scrolls && axis.get() == _obtainScrolledAxis() && axis->isHorizontal();
        const UXRect rect = atEnd ? _obtainEndTitleRect(*axis, bands)
                                  : _obtainTitleRect(*axis, bands, hasBar ? barExtent : 0);
        const bool isTurned = !atEnd && !axis->isHorizontal();
        label.setText(axis->shortenTitle(isTurned ? rect.height : rect.width));
        label.setVisible(!label.getText().empty() && (isTurned || rect.height >= measureTitle(*axis).height));
        UXTextProperty property = axis->property->getTitleProperty();
        property.option = UXTextOption::Default; // it is as short as it has to be
        property.lineMode = noWrapLineMode;
        label.setTextProperty(property);
        label.setRotation(isTurned ? 270 : 0);
        label.setRect(rect);
    }
}

/** @return the place of a title beside its axis's labels and the scroll bar */
UXRect KXAxisChartBase::_obtainTitleRect(const KXAxisChartAxis& axis, const Bands& bands, int bar) const
{
    const UXRect area = m_marksArea;
    const int height = measureTitle(axis).height;
    const int distance = bands.at(axis.position).labels + titleGap;
    switch (axis.position) {
    case UXPosition::Top:
        return {area.x, area.y - distance - height, area.width, height};
    case UXPosition::Left:
        return {area.x - distance - height, area.y, height, area.height};
    case UXPosition::Right:
        return {uxMaxX(area) + distance, area.y, height, area.height};
    default:
        return {area.x, uxMaxY(area) + distance + bar, area.width, height};
    }
}

/** @return the place of a title beyond the end of its axis */
UXRect KXAxisChartBase::_obtainEndTitleRect(const KXAxisChartAxis& axis, const Bands& bands) const
{
    const UXRect area = m_marksArea, plot = m_plot->getBoundingRect();
    const UXSize size = measureTitle(axis);
    if (axis.isHorizontal()) {
        const int middle = axis.position == UXPosition::Top ? area.y : uxMaxY(area);
        int y = middle - size.height / 2;
        if (axis.labels->getVisible()) // the last label may reach into the title's width
            y = axis.position == UXPosition::Top ? std::max(y, middle - labelGap)
                                                 : std::min(y, middle + labelGap - size.height);
        y = std::min(y, uxMaxY(plot) - size.height);
        // An axis at that side has its labels and its title next to the marks.
        const int x = uxMaxX(area) + bands.right.labels + bands.right.title + titleGap;
        return {x, std::max(y, 0), std::min(size.width, plot.width / endTitleDivider),
                std::min(size.height, plot.height)};
    }
    const int width = std::min(size.width, plot.width);
    const int x = axis.position == UXPosition::Left ? 0 : uxMaxX(plot) - width;
    const int y = area.y - bands.top.labels - bands.top.title - bands.top.endGap - size.height;
    return {x, y, width, size.height};
}

/** The bar stands beside the marks, or under the labels of the categories, and the title beyond it. */
void KXAxisChartBase::_placeScroll(const Bands& bands, bool scrolls)
{
    KXAxisChartAxis* scrolled = _obtainScrolledAxis();
    const UXRect area = m_marksArea, plot = m_plot->getBoundingRect();
    scrolls = scrolls && !uxIsEmptyRect(area);
    const bool lies = scrolled && scrolled->isHorizontal();
    UXPadding padding(area.x, area.y, plot.width - uxMaxX(area), plot.height - uxMaxY(area));
    if (scrolls && lies)
        padding.bottom -= bands.bottom.labels + barExtent;
    else if (scrolls)
        padding.right -= barExtent;
    m_plot->setScrollPadding(padding);
    m_plot->setEnableHorizontalScrollBar(scrolls && lies, false);
    m_plot->setEnableVerticalScrollBar(scrolls && !lies, false);
    const double total = scrolls ? scrolled->axis->obtainTotalLength() : 0;
    const auto extent = static_cast<std::int64_t>(std::ceil(std::min(total, 1e15)));
    m_plot->setContentWidth(lies ? extent : 0);
    m_plot->setContentHeight(lies ? 0 : extent);
    if (!scrolled)
        return;

    // The same category stands first as before, whatever the spacing is now.
    const double first = m_firstCategory * scrolled->axis->obtainCurrentValueSpacing();
    const auto offset = static_cast<std::int64_t>(std::round(std::clamp(first, 0.0, 1e15)));
    m_plot->setContentOffsetX(lies ? offset : 0);
    m_plot->setContentOffsetY(lies ? 0 : offset);
    scrolled->axis->setOffset(lies ? m_plot->getContentOffsetX() : m_plot->getContentOffsetY());
    scrolled->axis->update();
}

void KXAxisChartBase::_placeLayers()
{
    const UXRect whole = m_plot->getBoundingRect();
    m_gridLayer->setRect(whole);
    for (KXAxisChartLayer* layer : {m_marksLayer, m_markLabelsLayer}) {
        layer->setRect(whole);
        layer->setDrawingRect(m_marksArea);
    }
}
