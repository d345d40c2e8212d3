#include "kx_chart.h"

#include "kx_chart_data_provider.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_data_user.h"
#include "kx_chart_items.h"
#include "kx_chart_label.h"
#include "kx_chart_linked_action_diagram.h"
#include "kx_chart_property.h"
#include "kx_chart_toolbox.h"
#include "kx_key_definitions.h"
#include "kx_legend.h"
#include "ux/ux_child_walk.h"
#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_event.h"
#include "ux/ux_ground.h"
#include "ux/ux_hint_delegate.h"
#include "ux/ux_key_code.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_paint_clip.h"
#include "ux/ux_paint_config_watcher.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

/** Between title, legend and plot area, in logical units. */
constexpr int partGap = 15;
/** A legend is not worth its place when less than this would be left. */
constexpr int leastHeightWithLegend = 100;
constexpr int leastWidthWithLegend = 300;
constexpr int leastLegendWidth = 100;
constexpr int greatestLegendWidth = 200;
constexpr int toolboxInset = 1;
constexpr int toolboxHeight = 25;
constexpr int chartPadding = 1;

/** The views that present a chart and those that let it answer the pointer. */
constexpr int presentUseCase = 1;
constexpr int interactiveUseCase = 2;

bool isHorizontal(UXPosition position)
{
    return position == UXPosition::Left || position == UXPosition::Right;
}
bool isVertical(UXPosition position) { return position == UXPosition::Top || position == UXPosition::Bottom; }

void clampToEmpty(UXRect& rect)
{
    rect.width = std::max(rect.width, 0);
    rect.height = std::max(rect.height, 0);
}

/** Takes amount units and the gap away from the right of area. A text of an absurd font size is as large as
 * an int can say, so sums with it saturate. */
void cutRight(UXRect& area, int amount)
{
    area.width = uxSaturateToInt(std::int64_t{area.width} - amount - partGap);
}

void cutBottom(UXRect& area, int amount)
{
    area.height = uxSaturateToInt(std::int64_t{area.height} - amount - partGap);
}

void cutLeft(UXRect& area, int amount)
{
    area.x = uxSaturateToInt(std::int64_t{area.x} + amount + partGap);
    cutRight(area, amount);
}

void cutTop(UXRect& area, int amount)
{
    area.y = uxSaturateToInt(std::int64_t{area.y} + amount + partGap);
    cutBottom(area, amount);
}

/** @return where a part begins that ends at end; an absurd padding puts the edges at int's limits */
int obtainEndPlace(int end, int extent) { return uxSaturateToInt(std::int64_t{end} - extent); }

/** @return the width of a title at the side: at most half of the content, less the gap; negative when there
 * is no room */
int obtainSideTitleWidth(const UXRect& content, const UXRect& title)
{
    return std::min(content.width / 2 - partGap, title.width);
}

} // namespace

/** What a layout pass decides before any part is moved. */
struct KXChart::Division {
    UXRect content; // C: all there is
    UXRect title;   // T
    UXRect legend;  // L
    UXRect plot;    // P
    bool showsTitle = false;
    bool showsLegend = false;
};

KXChart::KXChart()
    : m_chartProperty(std::make_unique<KXChartProperty>()), m_title(new KXChartLabel), m_legend(new KXLegend),
      m_toolbox(new KXChartToolbox), m_defaultColors{{90, 195, 242, 1.0},  {112, 202, 87, 1.0},
                                                     {255, 221, 0, 1.0},   {247, 165, 80, 1.0},
                                                     {252, 99, 96, 1.0},   {227, 104, 161, 1.0},
                                                     {144, 61, 133, 1.0},  {171, 124, 80, 1.0},
                                                     {195, 181, 155, 1.0}, {225, 225, 225, 1.0}}
{
    setAlign(UXAlign::Client);
    setPadding(UXPadding(chartPadding, chartPadding, chartPadding, chartPadding));
    addChild(m_title);
    m_legend->setArrangement(UXArrangement::Column);
    m_legend->setShowHint(true);
    m_legend->setDelegate(this);
    m_legend->setColorSeries(m_defaultColors);
    addChild(m_legend);
    m_toolbox->setVisible(false);
    addChild(m_toolbox);
}

KXChart::~KXChart()
{
    m_items.reset(); // the concrete chart, whose items they are, has gone
    _leaveView();
    m_chartProperty->unregisterAllUpdatedEvents();
    m_legend->setDelegate(nullptr);
}

void KXChart::_leaveView()
{
    const UXNotificationScope scope;
    const UXObjectWatcher linked(KXChartLinkedActionDiagram::find(this));
    setParent(nullptr);
    if (linked.isAlive())
        static_cast<KXChartLinkedActionDiagram*>(linked.getObject())->forgetChart(this);
}

const UXPropertyTable& KXChart::obtainPropertyTable()
{
    using Self = KXChart;
    static const UXPropertyTable properties(
        "KXChartProperty", nullptr,
        [](UXJsonObject& object) -> void* {
            auto* chart = dynamic_cast<KXChart*>(&object);
            return chart ? chart->m_chartProperty.get() : nullptr;
        },
        KXChartProperty::obtainPropertyTable().getProperties());
    static constexpr UXProperty rows[] = {
        {.key = "m_titleValueWrap",
         .type = kxObtainDerivedKeyType<Self, bool, &Self::_getTitleValueWrap, &Self::_storeTitleValueWrap>,
         .place = [](void* owner) { return owner; },
         .update =
             [](void* owner, const void* wrap) {
                 static_cast<Self*>(owner)->m_chartProperty->updateTitleValueWrap(
                     *static_cast<const bool*>(wrap));
             },
         .effect = UXPropertyEffect::Layout,
         .meaning = "the title breaks into lines; part of m_titleProperty"},
        {.key = "m_titleDefaultValue",
         .type = kxObtainDerivedKeyType<Self, std::string, &Self::_getTitleDefaultValue,
                                        &Self::_storeTitleDefaultValue>,
         .place = [](void* owner) { return owner; },
         .update =
             [](void* owner, const void* text) {
                 static_cast<Self*>(owner)->_updateTitleDefaultValue(*static_cast<const std::string*>(text));
             },
         .effect = UXPropertyEffect::Layout,
         .meaning = "text of the title where m_titleValue is empty"},
        {.key = "m_titleFontSize",
         .type = kxObtainDerivedKeyType<Self, int, &Self::_getTitleFontSize, &Self::_storeTitleFontSize>,
         .place = [](void* owner) { return owner; },
         .update =
             [](void* owner, const void* size) {
                 static_cast<Self*>(owner)->_updateTitleFontSize(*static_cast<const int*>(size));
             },
         .effect = UXPropertyEffect::Layout,
         .meaning = "font size of the title, in logical units; part of m_titleProperty"},
    };
    static const UXPropertyTable table("KXChart", &properties, kxObtainKeyOwner<Self>, rows);
    return table;
}

KXChartProperty* KXChart::getChartProperty() const { return m_chartProperty.get(); }
KXChartLabel* KXChart::getTitle() const { return m_title; }
KXLegend* KXChart::getLegend() const { return m_legend; }
KXChartToolbox* KXChart::getToolbox() const { return m_toolbox; }
std::vector<UXColor> KXChart::getDefaultColors() const { return m_defaultColors; }

void KXChart::init()
{
    const UXNotificationScope scope;
    if (m_initialized)
        return;
    m_initialized = true;
    _applyAll();
    registerChartPropertyUpdatedEvents();
    if (KXChartDataUser* user = obtainLegendDataUser()) {
        m_title->setIdentifier("Title");
        m_title->registerLeftClickAction(user, [this] { return m_chartProperty->getEnableTitleClick(); });
    }
}

void KXChart::_applyAll()
{
    _applyBorder();
    _applyBackground();
    _applyTitle();
    _applyLegend();
    _applyLegendLabelColor();
}

bool KXChart::isInitialized() { return m_initialized; }

void KXChart::registerChartPropertyUpdatedEvents()
{
    const auto registerGroup = [this](const std::vector<std::string>& keys, void (KXChart::*handler)()) {
        m_chartProperty->registerUpdatedEvents(keys,
                                               [this, handler](const std::string&) { (this->*handler)(); });
    };
    registerGroup({"m_showBorder", "m_borderColor"}, &KXChart::_applyBorder);
    registerGroup({"m_backgroundColor"}, &KXChart::_applyBackground);
    registerGroup({"m_defaultColor"}, &KXChart::_applyDefaultColor);
    registerGroup({"m_showTitle", "m_titleValue", "m_titleProperty"}, &KXChart::_applyTitle);
    registerGroup({"m_titlePosition", "m_titleHorizontalAlign", "m_titleVerticalAlign"},
                  &KXChart::_layoutAnew);
    registerGroup({"m_showLegend", "m_legendPosition", "m_legendHorizontalAlign", "m_legendVerticalAlign"},
                  &KXChart::_applyLegend);
    registerGroup({"m_legendLabelColor"}, &KXChart::_applyLegendLabelColor);
    registerGroup({"m_showOnlyTopX", "m_topXItemsToShow"}, &KXChart::_reloadAnew);
    registerGroup({"m_enableInteraction"}, &KXChart::_applyEnableInteraction);
}

void KXChart::_layoutAnew() { setRequireToVerifyLayout(true, true); }

void KXChart::_applyBorder()
{
    setShowBorder(m_chartProperty->getShowBorder());
    setBorderColor(m_chartProperty->getBorderColor());
    invalidate();
}

void KXChart::_applyBackground()
{
    setBackgroundColor(m_chartProperty->getBackgroundColor());
    invalidate();
}

void KXChart::_applyDefaultColor()
{
    const UXObjectWatcher self(this);
    reloadChartColors();
    if (!self.isAlive())
        return;
    updateLegendColor();
    invalidate();
}

void KXChart::_applyTitle()
{
    // A new colour alone is painted; anything else changes what the title measures. What follows the
    // title's place is set by the layout.
    UXTextProperty wanted = m_chartProperty->getTitleProperty();
    UXTextProperty recoloured = m_title->getTextProperty();
    wanted.align = recoloured.align;
    wanted.option = recoloured.option;
    recoloured.textColor = wanted.textColor;
    const bool measuresAnew = recoloured != wanted ||
                              m_title->getText() != m_chartProperty->getTitleValue() ||
                              m_title->getVisible() != m_chartProperty->getShowTitle();
    m_title->setVisible(m_chartProperty->getShowTitle());
    m_title->setText(m_chartProperty->getTitleValue());
    m_title->setTextProperty(wanted);
    if (measuresAnew)
        _layoutAnew();
    else
        m_title->invalidate();
}

void KXChart::_applyLegend()
{
    m_legend->setVisible(m_chartProperty->getShowLegend());
    m_legend->setArrangement(isVertical(m_chartProperty->getLegendPosition()) ? UXArrangement::Row
                                                                              : UXArrangement::Column);
    m_legend->setHorizontalAlign(m_chartProperty->getLegendHorizontalAlign());
    m_legend->setVerticalAlign(m_chartProperty->getLegendVerticalAlign());
    _layoutAnew();
}

void KXChart::_applyLegendLabelColor() { m_legend->setLabelColor(m_chartProperty->getLegendLabelColor()); }

void KXChart::_reloadAnew()
{
    KXChartDataUser* user = obtainLegendDataUser();
    if (user && user->preparedAndReloadedData())
        user->reloadData();
}

void KXChart::_applyEnableInteraction()
{
    const UXObjectWatcher self(this);
    if (auto* linked = KXChartLinkedActionDiagram::find(this))
        linked->forgetChart(this);
    if (self.isAlive() && !m_chartProperty->getEnableInteraction())
        _interactionDisabled();
    if (self.isAlive())
        _layoutAnew(); // switched on again, the chart joins the present highlight
}

void KXChart::_interactionDisabled()
{
    const UXNotificationScope scope;
    const UXObjectWatcher self(this);
    m_legend->endCellHover();
    if (self.isAlive() && m_items)
        m_items->clear();
}

void KXChart::_makeItems(KXChartItemsDelegate& delegate, KXChartDataUser& user, UXHintDelegate& hint,
                         KXChartDataAction& action)
{
    m_items = std::make_unique<KXChartItems>(delegate, user, hint, action);
}

void KXChart::customSerialize()
{
    UXObject::customSerialize();
    obtainPropertyTable().getParent()->write(*this);
    obtainPropertyTable().write(*this);
}

std::string KXChart::customSerializeTypeID() { return "KXChart"; }

bool KXChart::customDeserialize()
{
    bool complete = UXObject::customDeserialize();
    complete = obtainPropertyTable().getParent()->read(*this) && complete;
    complete = obtainPropertyTable().read(*this) && complete;
    if (isInitialized())
        _applyAll();
    else
        init();
    return complete;
}

bool KXChart::_getTitleValueWrap() const { return m_chartProperty->getTitleValueWrap(); }

void KXChart::_storeTitleValueWrap(const bool& wrap)
{
    UXTextProperty title = m_chartProperty->getTitleProperty();
    if (wrap != m_chartProperty->getTitleValueWrap())
        title.lineMode = wrap ? 1 : 2;
    m_chartProperty->setTitleProperty(title);
}

std::string KXChart::_getTitleDefaultValue() const { return m_title->getDefaultText(); }
void KXChart::_storeTitleDefaultValue(const std::string& text) { m_title->setDefaultText(text); }

void KXChart::_updateTitleDefaultValue(const std::string& text)
{
    if (m_title->getDefaultText() == text)
        return;
    m_title->setDefaultText(text);
    _layoutAnew();
}

int KXChart::_getTitleFontSize() const { return m_chartProperty->getTitleProperty().font.size; }

void KXChart::_storeTitleFontSize(const int& size)
{
    UXTextProperty title = m_chartProperty->getTitleProperty();
    title.font.size = size;
    m_chartProperty->setTitleProperty(title);
}

void KXChart::_updateTitleFontSize(int size)
{
    UXTextProperty title = m_chartProperty->getTitleProperty();
    title.font.size = size;
    m_chartProperty->updateTitleProperty(title);
}

void KXChart::_applyKeyEffect(UXPropertyEffect effect)
{
    const UXNotificationScope scope;
    const UXObjectWatcher self(this);
    switch (effect) {
    case UXPropertyEffect::None:
        break;
    case UXPropertyEffect::Repaint:
        invalidate();
        break;
    case UXPropertyEffect::Recolor:
        reloadChartColors();
        if (self.isAlive())
            invalidate();
        break;
    case UXPropertyEffect::Layout:
        _layoutAnew();
        break;
    case UXPropertyEffect::Reload:
        _reloadAnew();
        break;
    }
}

void KXChart::_setKey(const UXPropertyType& type, void* member, const void* value, UXPropertyEffect effect)
{
    if (type.equal(member, value))
        return;
    type.assign(member, value);
    _applyKeyEffect(effect);
}

void KXChart::_resetKeys(const UXPropertyTable& table, KXChartResetType type, KXChart& source,
                         const KXKeys& groups)
{
    const UXNotificationScope scope;
    KXKeys taken = groups;
    taken.insert("");
    table.reset(source, *this, taken, type == KXChartResetType::All);
}

void KXChart::showLinkedHighlightHint(UXHintInfo* info, UXObject* target, UXPoint point, UXControl* control)
{
    const UXNotificationScope scope;
    auto* hint = dynamic_cast<UXHintDelegate*>(this);
    if (hint && info)
        hint->showHintOn(control, target ? translatePoint(point, target, this) : point, info);
}

void KXChart::hideLinkedHighlightHint(UXHintInfo*, UXControl*)
{
    if (auto* hint = dynamic_cast<UXHintDelegate*>(this))
        hint->hideHint();
}

void KXChart::linkedHighlightRequested(KXChartDataUser* user, const KXChartDataPath& path, UXObject* source,
                                       const UXEvent& event)
{
    if (auto* linked = KXChartLinkedActionDiagram::find(this))
        linked->requestHighlight(this, user, path, source, event);
}

void KXChart::linkedHighlightCleared(KXChartDataUser*, const KXChartDataPath&, UXObject* source,
                                     const UXEvent&)
{
    if (auto* linked = KXChartLinkedActionDiagram::find(this))
        linked->clearHighlight(source);
}

KXHighlightResult KXChart::showLinkedHighlight(const KXChartDataPath& path, UXControl* control)
{
    const UXNotificationScope scope;
    return m_items ? m_items->showLinked(path, control)
                   : KXChartLinkedAction::showLinkedHighlight(path, control);
}

void KXChart::hideLinkedHighlight(UXControl* control)
{
    const UXNotificationScope scope;
    const UXObjectWatcher self(this);
    if (m_items)
        m_items->setLinked({});
    if (self.isAlive())
        hideLinkedHighlightHint(nullptr, control);
}

void KXChart::beforeCustomLayout() {}
void KXChart::_customResetProperties(KXChartResetType, KXChart*, const KXKeys&) {}
void KXChart::updateLegendColor() { m_legend->updateLegendColor(); }

bool KXChart::_isPresentOrInteractiveUseCaseType(const UXEvent& event)
{
    return event.containUseCase(presentUseCase) || event.containUseCase(interactiveUseCase);
}

void KXChart::customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups)
{
    const UXNotificationScope scope;
    if (!source)
        return;
    const UXObjectWatcher self(this);
    const UXObjectWatcher sourceWatcher(source);
    m_chartProperty->customResetProperties(type, source->m_chartProperty.get(), groups);
    if (self.isAlive() && sourceWatcher.isAlive())
        _customResetProperties(type, source, groups);
}

void KXChart::beforePrepareData() {}
void KXChart::beforeReloadData() {}
void KXChart::reloadChartColors() {}

void KXChart::afterReloadData()
{
    const UXNotificationScope scope;
    const UXObjectWatcher self(this);
    m_legend->markDataUpdated();
    m_legend->markCellVisibleUpdated();
    if (m_items)
        m_items->takeNewData();
    if (!self.isAlive())
        return;
    // What is highlighted may be another item now; the layout finds out which.
    if (auto* linked = KXChartLinkedActionDiagram::find(this))
        linked->leaveHighlight(this);
}

KXChartDataUser* KXChart::obtainLegendDataUser() { return dynamic_cast<KXChartDataUser*>(this); }

UXSymbolStyle KXChart::obtainLegendSymbolStyle(std::uint64_t) { return m_legend->getSymbolStyle(); }

bool KXChart::shouldShowPointingHandWhenMouseOverLegendCell(std::uint64_t, const UXEvent& event)
{
    return !_isPresentOrInteractiveUseCaseType(event);
}

void KXChart::customLayout()
{
    // The concrete chart may ask its provider while it lays out, and the provider may destroy the chart.
    const UXObjectWatcher self(this);
    init();
    beforeCustomLayout();
    if (!self.isAlive())
        return;
    Division division = _divideContent();
    if (!self.isAlive())
        return;
    m_title->setRect(division.title);
    m_title->keepTextInside(division.content);
    m_legend->setRect(division.legend);
    _customLayout(division.plot);
    if (!self.isAlive())
        return;
    const UXRect& content = division.content;
    const UXRect inside = uxInflateRect(content, -toolboxInset, -toolboxInset);
    m_toolbox->setRect(uxMakeRect(inside.x, inside.y, inside.width, toolboxHeight));
    if (auto* linked = KXChartLinkedActionDiagram::find(this))
        linked->joinHighlight(this);
    if (!self.isAlive())
        return;
    UXChildWalk walk(this);
    while (UXObject* child = walk.next())
        if (child->getVisible())
            child->layout();
}

KXChart::Division KXChart::_divideContent()
{
    Division division;
    division.content = getContentRect();
    division.title = _measureTitle(division.content);
    division.showsTitle = _shouldShowTitle(division.title);
    division.showsLegend = _shouldShowLegend(division);
    division.plot = division.content;
    if (division.showsTitle)
        _placeTitle(division);
    else
        division.title = uxMakeRect(division.content.x, division.content.y, 0, 0);
    if (division.showsLegend)
        _placeLegend(division);
    else
        division.legend = uxMakeRect(division.content.x, division.content.y, 0, 0);
    clampToEmpty(division.title);
    clampToEmpty(division.legend);
    clampToEmpty(division.plot);
    return division;
}

UXRect KXChart::_measureTitle(const UXRect& content)
{
    // The alignment belongs to the place: it follows the title along the top and the bottom only.
    UXTextProperty property = m_chartProperty->getTitleProperty();
    property.align = UXTextAlign::Left;
    if (property.option == UXTextOption::Default)
        property.option = UXTextOption::EllipsisEnd; // a title never runs out of the chart
    if (isVertical(m_chartProperty->getTitlePosition())) {
        if (m_chartProperty->getTitleHorizontalAlign() == UXPosition::Center)
            property.align = UXTextAlign::Center;
        else if (m_chartProperty->getTitleHorizontalAlign() == UXPosition::Right)
            property.align = UXTextAlign::Right;
    }
    m_title->setTextProperty(property);
    m_title->setRect(content);
    m_title->autoResize();
    UXRect title = m_title->getRect();
    const int most = std::max(obtainSideTitleWidth(content, title), 0);
    if (isHorizontal(m_chartProperty->getTitlePosition()) && m_chartProperty->getTitleValueWrap() &&
        most < title.width) {
        // Narrower lines are more of them.
        m_title->setRect({content.x, content.y, most, content.height});
        m_title->autoResize();
        title.height = m_title->getRect().height;
    }
    return title;
}

bool KXChart::_shouldShowTitle(const UXRect& title) const
{
    if (!m_title->getVisible())
        return false;
    const UXPosition position = m_chartProperty->getTitlePosition();
    return isVertical(position) ? title.height >= 1 : !isHorizontal(position) || title.width >= 1;
}

bool KXChart::_shouldShowLegend(const Division& division)
{
    if (!m_legend->getVisible() || obtainLegendCellSize() == 0)
        return false;
    const UXPosition titlePosition = m_chartProperty->getTitlePosition();
    const UXPosition legendPosition = m_chartProperty->getLegendPosition();
    const bool titleIsElsewhere = division.showsTitle && !isVertical(titlePosition) &&
                                  !isHorizontal(titlePosition);
    if (titleIsElsewhere)
        return true;
    const UXRect& content = division.content;
    if (isVertical(legendPosition)) {
        const bool sharesHeight = division.showsTitle && isVertical(titlePosition);
        const std::int64_t taken = sharesHeight ? std::int64_t{division.title.height} + partGap : 0;
        return content.height - taken >= leastHeightWithLegend;
    }
    if (isHorizontal(legendPosition)) {
        const bool sharesWidth = division.showsTitle && isHorizontal(titlePosition);
        const std::int64_t taken = sharesWidth
                                       ? std::int64_t{obtainSideTitleWidth(content, division.title)} + partGap
                                       : 0;
        return content.width - taken >= leastWidthWithLegend;
    }
    return true;
}

void KXChart::_placeTitle(Division& division) const
{
    const UXRect& content = division.content;
    UXRect& title = division.title;
    const UXPosition position = m_chartProperty->getTitlePosition();
    if (isVertical(position)) {
        title.width = content.width;
        if (position == UXPosition::Top) {
            cutTop(division.plot, title.height);
        } else {
            title.y = obtainEndPlace(content.getBottom(), title.height);
            cutBottom(division.plot, title.height);
        }
        return;
    }
    if (!isHorizontal(position))
        return;

    title.width = obtainSideTitleWidth(content, title);
    const UXPosition align = m_chartProperty->getTitleVerticalAlign();
    if (align == UXPosition::Top)
        title.y = content.y;
    else if (align == UXPosition::Center)
        title.y = obtainEndPlace(uxMidY(content), title.height / 2);
    else if (align == UXPosition::Bottom)
        title.y = obtainEndPlace(content.getBottom(), title.height);
    // A chart too narrow for any title gives it no width and keeps the whole plot area.
    const bool fits = title.width >= 0;
    title.width = std::max(title.width, 0);
    if (position == UXPosition::Right)
        title.x = obtainEndPlace(uxMaxX(content), title.width);
    if (fits && position == UXPosition::Left)
        cutLeft(division.plot, title.width);
    else if (fits)
        cutRight(division.plot, title.width);
}

void KXChart::_placeLegend(Division& division) const
{
    UXRect& plot = division.plot;
    division.legend = plot;
    UXRect& legend = division.legend;
    const int height = uxSaturateToInt(std::floor(m_legend->obtainLegendHeight()));
    const int width = std::clamp(uxSaturateToInt(std::floor(m_legend->obtainLegendWidth())), leastLegendWidth,
                                 greatestLegendWidth);
    switch (m_chartProperty->getLegendPosition()) {
    case UXPosition::Top:
        legend.height = height;
        cutTop(plot, height);
        break;
    case UXPosition::Bottom:
        legend.y = obtainEndPlace(plot.getBottom(), height);
        legend.height = height;
        cutBottom(plot, height);
        break;
    case UXPosition::Left:
        legend.width = width;
        cutLeft(plot, width);
        break;
    case UXPosition::Right:
        legend.x = obtainEndPlace(uxMaxX(plot), width);
        legend.width = width;
        cutRight(plot, width);
        break;
    default:
        legend = uxMakeRect(division.content.x, division.content.y, 0, 0);
        break;
    }
}

void KXChart::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    const UXNotificationScope scope;
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        uxDrawGround(*painter, *this, 0);
        _paintUnderChildren(*painter);
        uxDestroyPainter(painter);
    }
    // The toolbox lies over everything, wherever it stands among the children.
    const UXObjectWatcher self(this);
    const UXPaintConfigWatcher configWatcher(config);
    UXChildWalk walk(this);
    while (UXObject* child = configWatcher.isGone() ? nullptr : walk.next()) {
        if (child != m_toolbox && _shouldPaintChild(child))
            _paintChild(child, config, dirtyRect);
    }
    const auto goesOn = [&] { return self.isAlive() && !configWatcher.isGone(); };
    if (goesOn())
        _paintOverChildren(config, dirtyRect);
    if (UXPainter* painter = goesOn() && m_items ? uxCreatePainterWithObject(config, this) : nullptr) {
        m_items->paintFocus(*painter);
        uxDestroyPainter(painter);
    }
    if (goesOn())
        _paintChild(m_toolbox, config, dirtyRect);
}

bool KXChart::_shouldPaintChild(const UXObject*) const { return true; }
void KXChart::_paintUnderChildren(UXPainter&) {}
void KXChart::_paintOverChildren(UXPaintConfig*, const UXRect&) {}

void KXChart::_paintChild(UXObject* child, UXPaintConfig* config, const UXRect& dirtyRect)
{
    if (!child->getVisible())
        return;
    const UXRect rect = translateRectToChild(dirtyRect, child);
    if (!child->inRect(rect))
        return;
    // What an absurd font or a tiny chart leaves no room for is cut at the chart's edge.
    std::optional<UXPaintClip> clip;
    if (config && !uxContainsRect(getBoundingRect(), child->getRect()))
        clip.emplace(*config, UXDoubleRect(translateRectToParent(getBoundingRect(), nullptr)));
    child->paint(config, rect);
}

bool KXChart::customMouseDown(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    if (m_items)
        m_items->press(event);
    return self.isAlive() && UXObject::customMouseDown(event, stop);
}

bool KXChart::customMouseMove(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    if (_wantsToolbox())
        m_toolbox->pointerCame();
    const bool handled = self.isAlive() && UXObject::customMouseMove(event, stop);
    if (self.isAlive() && m_items)
        m_items->hover(event);
    return handled;
}

/** @return whether this is still here and its host wants the strip, which then knows whom to ask */
bool KXChart::_wantsToolbox()
{
    KXChartDataUser* user = obtainLegendDataUser();
    if (!user)
        return false;
    const KXChartDataProviderUse use(*user);
    const bool wanted = use.isCurrent() && use.get()->obtainDataShouldShowToolbox(user, nullptr);
    if (!use.isAlive())
        return false;
    if (wanted)
        m_toolbox->setDataUser(user);
    return wanted;
}

bool KXChart::customMouseLeave(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    if (m_items)
        m_items->leave(event);
    if (self.isAlive() && obtainLegendDataUser())
        m_toolbox->pointerLeft();
    return self.isAlive() && UXObject::customMouseLeave(event, stop);
}

bool KXChart::customKeyDown(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    const bool isTab = event.getKeyCode() == static_cast<int>(UXKeyCode::Tab) &&
                       !event.containsEventKey(UXEventKey::Ctrl) && !event.containsEventKey(UXEventKey::Alt);
    if (m_items && m_items->walk(event))
        return true;
    if (!self.isAlive())
        return false;
    if (isTab && _walkParts(!event.containsEventKey(UXEventKey::Shift)))
        return true;
    return self.isAlive() && UXObject::customKeyDown(event, stop);
}

/** From the chart as a whole to the legend and on to the strip of buttons, or back.
 *  @return false at an end: who holds the charts goes on from there */
bool KXChart::_walkParts(bool forwards)
{
    UXDiagram* diagram = uxObtainDiagram(this);
    if (!diagram)
        return false;
    const UXObjectWatcher self(this), view(diagram);
    const UXObject* focused = diagram->getFocusedObject();
    const auto holdsFocus = [focused](UXObject* part) {
        return focused && (focused == part || focused->hasParent(part));
    };
    const bool isOnToolbox = holdsFocus(m_toolbox), isOnLegend = holdsFocus(m_legend);
    bool moved = false;
    if (forwards && !isOnToolbox)
        moved = (!isOnLegend && m_legend->takeKeys()) ||
                (self.isAlive() && _wantsToolbox() && m_toolbox->takeKeys());
    else if (isOnToolbox && !forwards)
        moved = m_legend->takeKeys();
    if (!self.isAlive() || !view.isAlive())
        return true;
    if (!moved && (isOnToolbox || isOnLegend)) {
        diagram->setFocusedObject(this);
        moved = !forwards;
    }
    if (isOnToolbox)
        m_toolbox->leaveKeys();
    return moved;
}
