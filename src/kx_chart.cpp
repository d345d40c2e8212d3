#include "kx_chart.h"

#include "kx_chart_data_user.h"
#include "kx_chart_items.h"
#include "kx_chart_label.h"
#include "kx_chart_linked_action_diagram.h"
#include "kx_chart_property.h"
#include "kx_chart_toolbox.h"
#include "kx_key_definitions.h"
#include "kx_legend.h"
#include "ux/ux_accessible_change.h"
#include "ux/ux_child_walk.h"
#include "ux/ux_event.h"
#include "ux/ux_ground.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_paint_clip.h"
#include "ux/ux_paint_config_watcher.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"

#include <optional>
#include <string_view>

namespace {

constexpr int chartPadding = 1;

/** The views that present a chart and those that let it answer the pointer. */
constexpr int presentUseCase = 1;
constexpr int interactiveUseCase = 2;

/** The direction of a chart, as a property of which the chart is the place. Documents leave it out where it
 * is that of what the chart stands on, as do those of charts that have no other. */
const UXPropertyType& obtainDirectionType()
{
    static constexpr auto obtain = [](const void* chart) {
        return static_cast<const KXChart*>(chart)->getDirection();
    };
    static const UXPropertyType type{
        .info = &typeid(UXDirection),
        .assign = [](void* to, const void* chart) { *static_cast<UXDirection*>(to) = obtain(chart); },
        .write =
            [](const UXPropertyType&, UXJsonObject& object, const std::string& key, const void* chart) {
                if (obtain(chart) != UXDirection::AsParent)
                    kxWriteKey(&object, key, obtain(chart));
            },
        .read =
            [](const UXPropertyType&, UXJsonObject& object, const std::string& key, void* chart) {
                const bool isLeftOut = !UXPropertyTable::holdsKey(object, key);
                UXDirection direction = isLeftOut ? UXDirection::AsParent : obtain(chart);
                const bool isRead = isLeftOut || kxReadKey(&object, key, direction);
                static_cast<KXChart*>(chart)->setDirection(direction);
                return isRead;
            },
        .names = kxObtainEnumNames<UXDirection>,
        .obtainNumber = [](const void* chart) { return static_cast<int>(obtain(chart)); },
        .makeOfNumber = kxObtainKeyType<UXDirection>().makeOfNumber};
    return type;
}

} // namespace

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
        {.key = "m_direction",
         .type = obtainDirectionType,
         .place = [](void* owner) { return owner; },
         .update =
             [](void* owner, const void* direction) {
                 static_cast<Self*>(owner)->setDirection(*static_cast<const UXDirection*>(direction));
             },
         .effect = UXPropertyEffect::Layout,
         .meaning = "RightToLeft mirrors the chart, but for texts; documents leave AsParent out"},
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
    _showBorder();
    _showBackground();
    _showTitle();
    _showLegend();
    _layoutAnew();
}

bool KXChart::isInitialized() { return m_initialized; }

void KXChart::registerChartPropertyUpdatedEvents()
{
    for (const UXProperty& property : KXChartProperty::obtainPropertyTable().getProperties())
        if (property.effect != UXPropertyEffect::None)
            m_chartProperty->registerUpdatedEvents(
                std::string(property.key),
                [this, &property](const std::string&) { _chartPropertyUpdated(property); });
}

/** The part that shows the property's group comes up to date and is painted; what else is different follows
 * from the effect. */
void KXChart::_chartPropertyUpdated(const UXProperty& property)
{
    struct Part {
        const char* group;
        /** @return whether more than what the part has painted anew is different now */
        bool (KXChart::*show)();
    };
    static constexpr Part parts[] = {{"Border", &KXChart::_showBorder},
                                     {"Background", &KXChart::_showBackground},
                                     {"Title", &KXChart::_showTitle},
                                     {"Legend", &KXChart::_showLegend},
                                     {"", &KXChart::_followInteraction}};
    const UXObjectWatcher self(this);
    for (const Part& part : parts)
        if (property.reset.group == std::string_view(part.group) && !(this->*part.show)())
            return;
    if (self.isAlive() && property.effect > UXPropertyEffect::Repaint)
        _applyKeyEffect(property.effect);
}

void KXChart::_layoutAnew() { setRequireToVerifyLayout(true, true); }

bool KXChart::_showBorder()
{
    setShowBorder(m_chartProperty->getShowBorder());
    setBorderColor(m_chartProperty->getBorderColor());
    invalidate();
    return true;
}

bool KXChart::_showBackground()
{
    setBackgroundColor(m_chartProperty->getBackgroundColor());
    invalidate();
    return true;
}

/** A new colour alone is painted; anything else changes what the title measures. What follows the title's
 * place is set by the layout. */
bool KXChart::_showTitle()
{
    UXTextProperty wanted = m_chartProperty->getTitleProperty();
    UXTextProperty recoloured = m_title->getTextProperty();
    wanted.align = recoloured.align;
    wanted.option = recoloured.option;
    const bool changesColor = recoloured.textColor != wanted.textColor;
    recoloured.textColor = wanted.textColor;
    const bool measuresAnew = recoloured != wanted;
    m_title->setVisible(m_chartProperty->getShowTitle());
    m_title->setText(m_chartProperty->getTitleValue());
    m_title->setTextProperty(wanted);
    if (changesColor)
        m_title->invalidate();
    return measuresAnew || !changesColor;
}

bool KXChart::_showLegend()
{
    const UXPosition side = m_chartProperty->getLegendPosition();
    m_legend->setVisible(m_chartProperty->getShowLegend());
    m_legend->setArrangement(side == UXPosition::Top || side == UXPosition::Bottom ? UXArrangement::Row
                                                                                   : UXArrangement::Column);
    m_legend->setHorizontalAlign(m_chartProperty->getLegendHorizontalAlign());
    m_legend->setVerticalAlign(m_chartProperty->getLegendVerticalAlign());
    m_legend->setLabelColor(m_chartProperty->getLegendLabelColor());
    return true;
}

void KXChart::_reloadAnew()
{
    KXChartDataUser* user = obtainLegendDataUser();
    if (user && user->reloadedData()) // those without values have a legend as well
        user->reloadData();
}

/** Switched on again, the chart joins the present highlight with the next layout. */
bool KXChart::_followInteraction()
{
    const UXObjectWatcher self(this);
    if (auto* linked = KXChartLinkedActionDiagram::find(this))
        linked->forgetChart(this);
    if (self.isAlive() && !m_chartProperty->getEnableInteraction())
        _interactionDisabled();
    return self.isAlive();
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
    for (const UXPropertyTable* table : UXPropertyTable::obtainTable(*this)->obtainTables())
        table->write(*this);
}

std::string KXChart::customSerializeTypeID() { return "KXChart"; }

bool KXChart::customDeserialize()
{
    // The keys of the kinds above too, so that each part comes up to date once, with all that was read.
    const UXObjectWatcher self(this);
    bool complete = UXObject::customDeserialize();
    for (const UXPropertyTable* table : UXPropertyTable::obtainTable(*this)->obtainTables())
        if (self.isAlive())
            complete = table->read(*this) && complete;
    if (!self.isAlive())
        return false;
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
        if (!self.isAlive())
            return;
        updateLegendColor();
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
    uxTellAccessibleChange(*this, UXAccessibleChange::Children);
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
