#include "kx_axis_chart_base.h"

#include "kx_axis.h"
#include "kx_axis_chart_grid_layer.h"
#include "kx_axis_chart_layer.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_property.h"
#include "kx_axis_scale.h"
#include "kx_axis_tick_label_view.h"
#include "kx_chart_data_format.h"
#include "kx_density_room.h"
#include "ux/ux_flag_scope.h"
#include "ux/ux_label.h"
#include "ux/ux_layout_rounds.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

namespace {

/** Lines closer together than this are a shade and no grid. */
constexpr double leastGridPitch = 4;

/** One wish for the axis line and the tick labels; each of them can still be set apart afterwards. */
void shareColor(KXAxisProperty& property)
{
    const UXColor color = property.getAxisAndTickLabelColor();
    const UXJsonObjectWatcher watcher(&property);
    property.updateAxisColor(color);
    if (watcher.isAlive())
        property.updateTickLabelFontColor(color);
}

/** @return where zero lies along an axis, which is on both sides of a gap */
std::vector<double> obtainZeroPlaces(const KXAxis& axis, double middle)
{
    const double half = axis.getGap() / 2;
    return half > 0 ? std::vector<double>{middle - half, middle + half} : std::vector<double>{middle};
}

/** @return nothing where an answer of the host destroyed the labels */
std::optional<KXAxisChartLabelRoom> measureLabelRoom(const KXAxisChartAxis& axis)
{
    KXAxisTickLabelView& labels = *axis.labels;
    const UXObjectWatcher watcher(&labels);
    KXAxisChartLabelRoom room;
    room.length = labels.obtainLabelLength();
    if (watcher.isAlive())
        room.startOverhang = labels.obtainStartOverhang();
    if (!watcher.isAlive())
        return std::nullopt;
    room.extraLength = axis.axis->getExtraLength(labels.getExtraLengthKey());
    return room;
}

} // namespace

KXAxisChartBase::KXAxisChartBase()
    : m_axisChartProperty(std::make_unique<KXAxisChartProperty>()), m_plot(new UXVirtualScrollView),
      m_gridLayer(new KXAxisChartGridLayer), m_marksLayer(new KXAxisChartLayer),
      m_markLabelsLayer(new KXAxisChartLayer)
{
    addChild(m_plot);
    m_plot->setDelegate(this);
    m_plot->setAutoJumpOut(true);
    for (KXAxisChartBaseLayer* layer :
         std::initializer_list<KXAxisChartBaseLayer*>{m_gridLayer, m_marksLayer, m_markLabelsLayer})
        m_plot->addChild(layer);
    m_marksLayer->setPaintFunction(
        [this](UXPainter& painter, const UXRect& dirtyRect) { _paintMarks(painter, dirtyRect); });
    m_markLabelsLayer->setPaintFunction([this](UXPainter& painter, const UXRect& dirtyRect) {
        _paintMarkLabels(painter, dirtyRect);
        _paintOverMarks(painter);
    });
    m_axisChartProperty->registerUpdatedEvents([this](const std::string& key) {
        _applyKeyEffect(KXAxisChartProperty::obtainPropertyTable().obtainEffect(key));
    });
}

KXAxisChartBase::~KXAxisChartBase()
{
    m_plot->setDelegate(nullptr);
    m_axisChartProperty->unregisterAllUpdatedEvents();
    for (const auto& axis : m_axes) {
        axis->axis->setDelegate(nullptr);
        axis->labels->setDelegate(nullptr);
        axis->property->unregisterAllUpdatedEvents();
        axis->dataFormat->setUpdatedEvent({});
    }
}

KXAxisChartProperty* KXAxisChartBase::getAxisChartProperty() const { return m_axisChartProperty.get(); }
UXVirtualScrollView* KXAxisChartBase::getPlot() const { return m_plot; }
KXAxisChartGridLayer* KXAxisChartBase::getGridLayer() const { return m_gridLayer; }
KXAxisChartLayer* KXAxisChartBase::getMarksLayer() const { return m_marksLayer; }
KXAxisChartLayer* KXAxisChartBase::getMarkLabelsLayer() const { return m_markLabelsLayer; }

bool KXAxisChartBase::isVertical() const
{
    return m_axisChartProperty->getOrientation() == KXAxisChartOrientation::Vertical;
}

double KXAxisChartBase::_obtainMinCategorySpacing() const
{
    return kxObtainDensityRoom(m_axisChartProperty->getDataDensity()).category;
}

void KXAxisChartBase::_customUpdateTicks() {}

KXAxisChartAxis& KXAxisChartBase::_addAxis()
{
    KXAxisChartAxis& added = *m_axes.emplace_back(std::make_unique<KXAxisChartAxis>());
    added.axis = new KXAxis;
    added.axis->setDelegate(this);
    m_plot->addChild(added.axis);
    added.labels = new KXAxisTickLabelView;
    added.labels->setAxis(added.axis);
    added.labels->setDelegate(this);
    m_plot->addChild(added.labels);
    m_plot->bringChildOverChild(added.labels, m_markLabelsLayer);
    added.title = new UXLabel;
    m_plot->addChild(added.title);
    added.property->registerUpdatedEvents([this, &added](const std::string& key) {
        _axisPropertyUpdated(added, KXAxisProperty::obtainPropertyTable().obtainEffect(key));
    });
    added.property->registerUpdatedEvents("m_axisAndTickLabelColor",
                                          [&added](const std::string&) { shareColor(*added.property); });
    added.dataFormat->setUpdatedEvent([this, &added] {
        added.ticksChanged = true;
        _layoutAnew();
    });
    return added;
}

KXAxisChartAxis* KXAxisChartBase::_findAxis(const KXAxis* axis) const
{
    const auto found = std::ranges::find_if(m_axes, [axis](const auto& own) { return own->axis == axis; });
    return found == m_axes.end() ? nullptr : found->get();
}

KXAxisChartAxis* KXAxisChartBase::_findAxis(const KXAxisTickLabelView* labels) const
{
    const auto found = std::ranges::find_if(m_axes,
                                            [labels](const auto& own) { return own->labels == labels; });
    return found == m_axes.end() ? nullptr : found->get();
}

void KXAxisChartBase::_layoutAnew() { setRequireToVerifyLayout(true, true); }

void KXAxisChartBase::_repaintMarks()
{
    m_marksLayer->invalidate();
    m_markLabelsLayer->invalidate();
}

void KXAxisChartBase::_repaintMarks(const UXRect& area)
{
    // The layers share the plot's space, and one of them is enough to have both painted.
    m_marksLayer->addDirtyRect(uxIntersectionRect(area, m_marksArea));
}

void KXAxisChartBase::_setFirstCategory(double category)
{
    m_firstCategory = std::isfinite(category) ? std::max(category, 0.0) : 0;
    _layoutAnew();
}

void KXAxisChartBase::_applyKeyEffect(UXPropertyEffect effect)
{
    if (effect == UXPropertyEffect::Repaint || effect == UXPropertyEffect::Recolor)
        _repaintMarks();
    else
        KXChart::_applyKeyEffect(effect);
}

void KXAxisChartBase::_axisPropertyUpdated(KXAxisChartAxis& axis, UXPropertyEffect effect)
{
    if (effect < UXPropertyEffect::Layout) {
        _colorAxes();
        if (!getRequireToVerifyLayout()) // which would make the grid lines anew
            _layoutGrid();
        return;
    }
    axis.cache.needsUpdate = true;
    _layoutAnew();
}

void KXAxisChartBase::axisAxisLengthChanged(KXAxis*, double)
{
    if (!m_layingOut)
        _layoutAnew();
}

void KXAxisChartBase::axisVisibleValuesChanged(KXAxis* axis)
{
    KXAxisChartAxis* own = _findAxis(axis);
    const UXLayoutRounds layout;
    if (own && own->labels->getVisible())
        own->labels->update(false);
}

void KXAxisChartBase::axisTickLabelViewRequestExtraLengthAtTheEnd(KXAxisTickLabelView* view, double length)
{
    if (const KXAxisChartAxis* own = _findAxis(view))
        own->axis->setExtraLength(view->getExtraLengthKey(), length);
}

bool KXAxisChartBase::shouldClipInScrollArea(UXVirtualScrollView*, UXObject*)
{
    // Labels stand beside what scrolls; the layers clip themselves.
    return false;
}

void KXAxisChartBase::virtualScrollViewContentOffsetChanged(UXVirtualScrollView* view, const UXEvent&)
{
    KXAxisChartAxis* scrolled = _obtainScrolledAxis();
    if (view != m_plot || m_layingOut || !scrolled)
        return;
    const UXObjectWatcher self(this);
    UXFlagScope scrolling(this, m_isScrolling);
    UXLayoutRounds rounds;
    const std::int64_t offset = scrolled->isHorizontal() ? m_plot->getContentOffsetX()
                                                         : m_plot->getContentOffsetY();
    scrolled->axis->setOffset(offset);
    scrolled->axis->update();
    if (!self.isAlive())
        return;
    const double spacing = scrolled->axis->obtainCurrentValueSpacing();
    m_firstCategory = spacing > 0 ? static_cast<double>(offset) / spacing : 0;
    _keepLabelsInRoom();
    _layoutContent();
    while (rounds.next() && self.isAlive()) {
        // What came into sight is asked for, and takes its place by itself.
    }
    if (self.isAlive())
        m_plot->invalidate();
}

void KXAxisChartBase::_layoutContent()
{
    const UXObjectWatcher self(this);
    _layoutGrid();
    _layoutMarks();
    if (!self.isAlive())
        return;
    _repaintMarks();
    _visibleCategoriesChanged();
}

/** What the axes and the scroll bar are painted in; grid lines hold theirs. */
void KXAxisChartBase::_colorAxes()
{
    for (const auto& own : m_axes)
        own->axis->setColor(own->property->getAxisColor());
    if (const KXAxisChartAxis* scrolled = _obtainScrolledAxis()) {
        m_plot->setScrollBarColor(scrolled->property->getScrollBarColor());
        m_plot->setScrollBarSliderColor(scrolled->property->getScrollBarSliderColor());
    }
}

void KXAxisChartBase::_layoutGrid()
{
    std::vector<KXAxisChartGridLines> grid, zeros;
    for (const auto& own : m_axes) {
        KXAxis& axis = *own->axis;
        if (!own->isUsed || !axis.isValidAxis())
            continue;
        const bool alongX = own->isHorizontal();
        const auto placeOf = [&](double value) {
            const UXDoublePoint point = axis.obtainDoubleValuePositionInAxis(value);
            return alongX ? point.x : point.y;
        };
        if (own->property->getShowGridLine() && own->sharesGrid) {
            const auto limit = static_cast<std::size_t>(
                std::max(axis.obtainAxisLength() / leastGridPitch, 1.0));
            const auto [first, last] = axis.obtainCurrentFirstLastValues();
            KXAxisChartGridLines& lines = grid.emplace_back(!alongX, std::vector<double>(),
                                                            own->property->getGridLineColor());
            for (const double tick : kxObtainAxisTicks(own->cache, first, last, limit))
                if (tick != 0 || axis.getGap() == 0)
                    lines.places.push_back(placeOf(tick));
        }
        const bool hasZero = own->cache.isValueAxis && !own->cache.isLogarithmic && axis.getMinValue() < 0 &&
                             axis.getMaxValue() > 0;
        if (hasZero && own.get() != _obtainScrolledAxis() && m_axisChartProperty->getShowZeroLine())
            zeros.push_back({!alongX, obtainZeroPlaces(axis, placeOf(0)), own->property->getAxisColor()});
    }
    grid.insert(grid.end(), zeros.begin(), zeros.end());
    m_gridLayer->setLines(grid, m_marksArea);
}

/** A longer label than those before needs more room than the layout has given. */
void KXAxisChartBase::_keepLabelsInRoom()
{
    const UXLayoutRounds layout;
    const KXAxisChartAxis* scrolled = _obtainScrolledAxis();
    if (scrolled && scrolled->labels->getVisible() &&
        scrolled->labels->obtainLabelLength() > m_scrolledLabelLength)
        _layoutAnew();
}

/** Where other texts need no other room, the labels alone are laid out. */
void KXAxisChartBase::_updateTickTexts(KXAxisChartAxis& axis)
{
    const UXLayoutRounds layout;
    axis.labels->updateTexts();
    if (m_isScrolling)
        _keepLabelsInRoom();
    else if (!axis.labels->getVisible())
        _layoutAnew();
    else if (const std::optional<KXAxisChartLabelRoom> room = measureLabelRoom(axis);
             room && *room != axis.labelRoom)
        _layoutAnew();
}

/** Takes what the user set about the chart and about each axis of the same place; their handlers may call
 * out. */
void KXAxisChartBase::_customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups)
{
    const UXObjectWatcher self(this), sourceWatcher(source);
    const auto* other = dynamic_cast<const KXAxisChartBase*>(source);
    if (!other)
        return;
    m_axisChartProperty->customResetProperties(type, other->m_axisChartProperty.get(), groups);
    for (std::size_t i = 0; self.isAlive() && sourceWatcher.isAlive(); ++i) {
        if (i >= m_axes.size() || i >= other->m_axes.size())
            return;
        const KXAxisChartAxis& axis = *other->m_axes[i];
        m_axes[i]->property->customResetProperties(type, axis.property.get(), groups);
        if (groups.contains("DataFormat") && self.isAlive() && sourceWatcher.isAlive())
            m_axes[i]->dataFormat->customResetProperties(KXChartResetType::All, axis.dataFormat.get(),
                                                         groups);
    }
}

const UXPropertyTable& KXAxisChartBase::obtainPropertyTable()
{
    static const UXPropertyTable table(
        "KXAxisChartProperty", &KXChart::obtainPropertyTable(),
        [](UXJsonObject& object) -> void* {
            auto* chart = dynamic_cast<KXAxisChartBase*>(&object);
            return chart ? chart->m_axisChartProperty.get() : nullptr;
        },
        KXAxisChartProperty::obtainPropertyTable().getProperties());
    return table;
}

bool KXAxisChartBase::customDeserialize()
{
    const UXObjectWatcher self(this);
    const bool isComplete = KXChart::customDeserialize();
    if (self.isAlive())
        _layoutAnew();
    return isComplete;
}
