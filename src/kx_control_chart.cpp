#include "kx_control_chart.h"

#include "kx_calendar_time.h"
#include "kx_chart_data_format.h"
#include "kx_chart_data_path.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_items.h"
#include "kx_control_button.h"
#include "kx_control_chart_combo_box.h"
#include "kx_control_chart_combo_box_scroll_view.h"
#include "kx_control_chart_data_provider.h"
#include "kx_control_chart_event_diagram.h"
#include "kx_control_chart_list.h"
#include "kx_control_chart_range.h"
#include "kx_data_requests.h"
#include "kx_hint_text.h"
#include "kx_key_definitions.h"
#include "kx_menu_event_diagram.h"
#include "kx_no_data_label.h"
#include "ux/ux_event.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

const std::string memberIdentifier = "Member";

bool isSame(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

bool isMoment(KXChartDataType type)
{
    return type == KXChartDataType::Date || type == KXChartDataType::DateTime ||
           type == KXChartDataType::Time;
}

/** @return text in one line */
std::string makeLine(std::string text)
{
    std::ranges::replace_if(
        text, [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return text;
}

} // namespace

bool KXControlChart::Chosen::operator==(const Chosen& other) const
{
    return members == other.members && isSame(from, other.from) && isSame(to, other.to) &&
           relative == other.relative;
}

KXControlChart::KXControlChart()
    : KXPanelChartDataUser(this), UXPropertyAccessor(this), UXHintDelegate(this), KXChartDataAction(this),
      m_list(new KXControlChartList(*this)), m_comboBox(new KXControlChartComboBox),
      m_rangePanel(new KXControlChartRange(*this)), m_applyButton(new KXControlButton),
      m_cancelButton(new KXControlButton), m_noDataLabel(new KXNoDataLabel),
      m_search(*this, [this](const std::string& text) { return _formatText(text); })
{
    for (UXObject* part : std::initializer_list<UXObject*>{m_list, m_comboBox, m_rangePanel, m_applyButton,
                                                           m_cancelButton, m_noDataLabel}) {
        part->setVisible(false);
        addChild(part);
    }
    m_comboBox->setOpenHandler([this] { openDropDown(); });
    m_applyButton->setPrimary(true);
    m_applyButton->setAction([this](const UXEvent& event) { applyChoice(event); });
    m_cancelButton->setAction([this](const UXEvent&) { cancelChoice(); });
    _makeItems(*this, *this, *this, *this);
}

KXControlChart::~KXControlChart()
{
    m_menu.reset();
    m_dropDown.reset();
    _leaveView();
    // They ask the chart as they go.
    for (UXObject* part : std::initializer_list<UXObject*>{m_list, m_rangePanel})
        delete part;
}

UXTextProperty KXControlChart::_makeTextProperty(int fontSize, const UXColor& color)
{
    UXTextProperty property;
    property.font.size = fontSize;
    property.textColor = color;
    return property;
}

KX_DEFINE_CHART_KEYS(KXControlChart, KX_CONTROL_CHART_KEYS)

const UXPropertyTable& KXControlChart::obtainPropertyTable()
{
    using Self = KXControlChart;
    static constexpr UXProperty rows[] = {
        KX_OBJECT_ROW("m_dataFormat", uxObtainNestedObjectType, m_dataFormat,
                      "how counts, numbers and dates are written") KX_CONTROL_CHART_KEYS(KX_CHART_KEY_ROW)};
    static const UXPropertyTable table("KXControlChart", &KXChart::obtainPropertyTable(),
                                       kxObtainKeyOwner<Self>, rows);
    return table;
}

std::string KXControlChart::customSerializeTypeID() { return "KXControlChart"; }

/** A document may show the choice in another style, which asks for other data. */
bool KXControlChart::customDeserialize()
{
    const UXObjectWatcher self(this);
    const bool isComplete = KXPanelChart::customDeserialize();
    if (self.isAlive() && reloadedData())
        reloadData();
    return isComplete;
}

std::uint64_t KXControlChart::obtainLegendCellSize() { return 0; }

KXControlChartStyle KXControlChart::obtainShownStyle() const
{
    if (m_style != KXControlChartStyle::Default)
        return m_style;
    const bool hasMembers = getDimensionCount() > 0;
    return hasMembers && getDimensionDataType(0) == KXChartDataType::String ? KXControlChartStyle::List
                                                                            : KXControlChartStyle::Range;
}

// The data

void KXControlChart::customPrepareData(KXChartDataProvider* provider, bool& prepared)
{
    const KXChartDataProviderWatcher watcher(this);
    KXPanelChartDataUser::customPrepareData(provider, prepared);
    if (!watcher.isCurrent() || provider->obtainDataIsEmpty(this) || !watcher.isCurrent())
        return;
    m_rangeType = getDimensionCount() > 0 ? getDimensionDataType(0)
                                          : provider->obtainValueDataType(this, {0});
    // Members without any count can be chosen as well.
    if (watcher.isCurrent())
        prepared = true;
}

void KXControlChart::resetData()
{
    KXPanelChartDataUser::resetData();
    m_search.forgetMembers();
    m_range = {};
    m_greatestValue = 0;
}

void KXControlChart::customReloadData()
{
    const KXChartDataProviderUse use(*this);
    KXControlWords words = KXControlWords::load();
    if (!use.isAlive())
        return;
    m_words = std::move(words);
    m_greatestValue = 0;
    for (const double value : getValues(0))
        if (value > m_greatestValue) // not of a null
            m_greatestValue = value;
    auto* provider = use.as<KXControlChartDataProvider>();
    if (!provider)
        return;
    const bool hostFinds = provider->obtainCanFindMembers(this);
    const bool canChooseRelative = use.isCurrent() && provider->obtainCanChooseRelativeRange(this);
    if (!use.isCurrent())
        return;
    m_hostFinds = hostFinds;
    m_canChooseRelative = canChooseRelative &&
                          (m_rangeType == KXChartDataType::Date || m_rangeType == KXChartDataType::DateTime);
    _loadChosen(*provider);
    if (use.isCurrent() && obtainShownStyle() == KXControlChartStyle::Range)
        _loadRange(*provider);
}

/** What the user has not applied yet stays, unless the host has another choice by now. */
void KXControlChart::_loadChosen(KXControlChartDataProvider& provider)
{
    const KXChartDataProviderWatcher watcher(this);
    Chosen told;
    std::vector<std::uint64_t> members;
    bool isExcluding = true;
    if (provider.obtainSelection(this, members, isExcluding))
        told.members = KXControlChoice(std::move(members), isExcluding);
    double from = told.from, to = told.to;
    if (watcher.isCurrent() && provider.obtainRange(this, from, to)) {
        told.from = from;
        told.to = to;
    }
    KXControlChartRelativeRange relative;
    if (watcher.isCurrent() && provider.obtainRelativeRange(this, relative))
        told.relative = relative;
    if (!watcher.isCurrent())
        return;
    if (m_chosen == m_told || told != m_told)
        m_chosen = told;
    m_told = std::move(told);
}

void KXControlChart::_loadRange(KXControlChartDataProvider& provider)
{
    const KXChartDataProviderWatcher watcher(this);
    double lowest = 0, greatest = 0;
    const bool hasBounds = provider.obtainRangeBounds(this, lowest, greatest);
    if (!watcher.isCurrent())
        return;
    KXControlRange range;
    if (hasBounds) {
        std::vector<double> counts(KXControlRange::partCount);
        if (!provider.obtainHistogram(this, lowest, greatest, counts))
            counts.clear();
        range = KXControlRange(lowest, greatest, std::move(counts));
    } else {
        std::vector<double> numbers;
        const std::uint64_t count = getMemberCount(0);
        numbers.reserve(count);
        for (std::uint64_t member = 0; member < count && watcher.isCurrent(); ++member)
            numbers.push_back(provider.obtainDimensionDataAsNumber(this, {0, member}));
        if (watcher.isCurrent())
            range = KXControlRange(numbers, getValues(0));
    }
    if (watcher.isCurrent())
        m_range = std::move(range);
}

void KXControlChart::beforeReloadData()
{
    m_search.forgetMembers();
    KXPanelChart::beforeReloadData();
}

void KXControlChart::afterReloadData()
{
    const UXObjectWatcher self(this);
    KXPanelChart::afterReloadData();
    if (self.isAlive() && m_search.isActive())
        m_search.begin(m_search.getText(), m_hostFinds);
    if (!self.isAlive())
        return;
    for (KXControlChartList* list : _obtainLists())
        list->membersChanged();
    m_rangePanel->dataChanged();
    _chosenChanged();
    setRequireToVerifyLayout(true, true);
}

void KXControlChart::_memberTextsArrived()
{
    for (KXControlChartList* list : _obtainLists())
        list->contentChanged();
    if (obtainShownStyle() == KXControlChartStyle::Combo)
        setRequireToVerifyLayout(true, true);
}

void KXControlChart::dataArrived(std::uint64_t first, std::uint64_t count)
{
    const UXObjectWatcher self(this);
    KXPanelChartDataUser::dataArrived(first, count);
    if (!self.isAlive() || !m_search.isWaiting())
        return;
    m_search.arrive();
    if (self.isAlive())
        for (KXControlChartList* list : _obtainLists())
            list->membersChanged();
}

void KXControlChart::search(const std::string& text)
{
    const UXObjectWatcher self(this);
    m_search.begin(text, m_hostFinds);
    if (!self.isAlive())
        return;
    for (KXControlChartList* list : _obtainLists()) {
        list->getScrollView().setContentOffsetY(0);
        list->membersChanged();
    }
}

void KXControlChart::findMore()
{
    const UXObjectWatcher self(this);
    const std::size_t before = m_search.getFound().size();
    m_search.findMore();
    if (self.isAlive() && (m_search.getFound().size() != before || m_search.isComplete()))
        for (KXControlChartList* list : _obtainLists())
            list->membersChanged();
}

std::vector<KXControlChartList*> KXControlChart::_obtainLists() const
{
    std::vector<KXControlChartList*> lists{m_list};
    if (m_dropDown && m_dropDown->isOpen())
        lists.push_back(m_dropDown->getView()->getList());
    return lists;
}

// Texts

std::string KXControlChart::_formatText(const std::string& text) const
{
    return isMoment(getDimensionDataType(0))
               ? m_dataFormat->formatDateTime(text, getDimensionDataType(0), getDimensionAggregateType(0))
               : text;
}

std::string KXControlChart::_obtainValueText(std::uint64_t member) const
{
    if (getMeasureCount() == 0)
        return {};
    const double value = getValue(0, member);
    return std::isnan(value) ? "--" : makeLine(m_dataFormat->formatNumber(value));
}

KXControlChartRowContent KXControlChart::obtainRowContent(std::uint64_t member)
{
    const UXObjectWatcher self(this);
    KXControlChartRowContent content;
    std::string text = obtainMemberText(0, member);
    if (!self.isAlive())
        return content;
    if (!hasMemberText(0, member))
        text = KXDataRequests::placeholder;
    else if (shouldFormatMemberText(0, member))
        text = _formatText(text);
    content.text = makeLine(std::move(text));
    if (getMeasureCount() == 0)
        return content;
    const double value = getValue(0, member);
    if (m_showCounts)
        content.valueText = _obtainValueText(member);
    if (m_showBars && m_greatestValue > 0)
        content.share = std::isnan(value) ? 0 : std::max(value / m_greatestValue, 0.0);
    content.isFaint = std::isnan(value) || value == 0;
    return content;
}

bool KXControlChart::_isMoment() const { return isMoment(m_rangeType); }

std::string KXControlChart::obtainInputText(double value) const
{
    if (!std::isfinite(value))
        return {};
    if (!_isMoment())
        return makeLine(m_dataFormat->formatNumber(value));
    const std::string text = kxObtainCalendarText(kxObtainCalendarTime(value)); // YYYY-MM-DD HH:MM:SS
    constexpr std::size_t dateLength = 10;
    if (m_rangeType == KXChartDataType::Time)
        return text.substr(dateLength + 1);
    return m_rangeType == KXChartDataType::Date ? text.substr(0, dateLength) : text;
}

std::string KXControlChart::formatRangeValue(double value) const
{
    const std::string text = obtainInputText(value);
    return _isMoment() && !text.empty()
               ? makeLine(m_dataFormat->formatDateTime(text, m_rangeType, getDimensionAggregateType(0)))
               : text;
}

double KXControlChart::obtainRangeStep() const
{
    constexpr double secondsPerDay = 86400;
    if (const double gap = m_range.obtainLeastGap(); gap > 0)
        return gap;
    switch (m_rangeType) {
    case KXChartDataType::Integer:
        return 1;
    case KXChartDataType::Date:
        return secondsPerDay;
    case KXChartDataType::Time:
    case KXChartDataType::DateTime:
    case KXChartDataType::Float:
    case KXChartDataType::String:
        break;
    }
    return 0;
}

double KXControlChart::snapRangeEnd(double value, int direction)
{
    if (!m_range.hasMembers()) {
        const double step = obtainRangeStep();
        return step > 0 ? std::round(value / step) * step : value;
    }
    const std::optional<std::uint64_t> from = direction > 0   ? m_range.findMemberBelow(value)
                                              : direction < 0 ? m_range.findMemberAbove(value)
                                                              : std::nullopt;
    if (!from)
        return m_range.obtainNearest(value);
    const KXChartDataProviderUse use(*this);
    std::int64_t next = -1;
    if (KXChartDataProvider* provider = use.get())
        next = direction > 0 ? provider->obtainNextValidDimensionIndex(this, {0, *from})
                             : provider->obtainPreviousValidDimensionIndex(this, {0, *from});
    if (!use.isAlive())
        return value;
    // A host that does not say has all members in their order.
    const double passed = m_range.obtainNumber(*from);
    const std::optional<std::uint64_t> member = next >= 0 ? std::optional(static_cast<std::uint64_t>(next))
                                                : direction > 0 ? m_range.findMemberAbove(passed)
                                                                : m_range.findMemberBelow(passed);
    const double number = member ? m_range.obtainNumber(*member) : std::nan("");
    return std::isnan(number) ? m_range.obtainNearest(value) : number;
}

// The choice

bool KXControlChart::hasChoice() const
{
    return !m_chosen.members.isAll() || !std::isnan(m_chosen.from) || !std::isnan(m_chosen.to) ||
           m_chosen.relative.period != KXControlChartPeriod::None;
}

void KXControlChart::_choose(const Chosen& chosen, const UXEvent& event)
{
    const UXNotificationScope scope;
    const bool isTaken = isInteractionEnabled();
    if (isTaken)
        m_chosen = chosen;
    _chosenChanged(); // also where a part shows what is not taken
    if (isTaken && m_live)
        applyChoice(event);
}

/** Shows what is chosen, and tells nobody. */
void KXControlChart::_chosenChanged()
{
    for (KXControlChartList* list : _obtainLists())
        list->choiceChanged();
    m_rangePanel->choiceChanged();
    m_applyButton->setEnabled(hasUnappliedChoice());
    m_cancelButton->setEnabled(hasUnappliedChoice());
    if (obtainShownStyle() == KXControlChartStyle::Combo)
        setRequireToVerifyLayout(true, true); // its text may be a member's, which is to be asked for
}

void KXControlChart::chooseMembers(const std::vector<std::uint64_t>& members, bool chosen,
                                   const UXEvent& event)
{
    Chosen next = m_chosen;
    next.members.setChosen(members, chosen);
    // All of them, one by one, is everything.
    if (next.members.obtainState(getMemberCount(0)) == KXToggleSwitchState::On)
        next.members = KXControlChoice();
    _choose(next, event);
}

void KXControlChart::chooseFound(const UXEvent& event)
{
    const std::vector<std::uint64_t> found = m_search.getFound();
    if (getChoice().isAll()) {
        Chosen next = m_chosen;
        next.members = KXControlChoice(found, false);
        _choose(next, event);
        return;
    }
    const bool isChosen = std::ranges::all_of(
        found, [this](std::uint64_t member) { return getChoice().contains(member); });
    chooseMembers(found, !isChosen, event);
}

void KXControlChart::chooseAll(const UXEvent& event)
{
    Chosen next = m_chosen;
    const bool isAll = next.members.obtainState(getMemberCount(0)) == KXToggleSwitchState::On;
    next.members = KXControlChoice({}, !isAll || !m_multipleSelection);
    _choose(next, event);
}

void KXControlChart::chooseOnly(std::uint64_t member, const UXEvent& event)
{
    Chosen next = m_chosen;
    next.members = KXControlChoice({member}, false);
    _choose(next, event);
}

void KXControlChart::chooseAllBut(std::uint64_t member, const UXEvent& event)
{
    Chosen next = m_chosen;
    next.members = KXControlChoice({member}, true);
    _choose(next, event);
}

void KXControlChart::chooseRange(double from, double to, bool isFinal, const UXEvent& event)
{
    Chosen next = m_chosen;
    next.from = from;
    next.to = to;
    next.relative = {};
    if (isFinal) {
        _choose(next, event);
        return;
    }
    if (isInteractionEnabled())
        m_chosen = next;
    _chosenChanged();
}

void KXControlChart::chooseRelativeRange(const KXControlChartRelativeRange& range, const UXEvent& event)
{
    Chosen next = m_chosen;
    next.relative = range;
    _choose(next, event);
}

void KXControlChart::clearChoice(const UXEvent& event) { _choose(Chosen(), event); }

void KXControlChart::applyChoice(const UXEvent& event)
{
    const UXNotificationScope scope;
    if (!hasUnappliedChoice())
        return;
    const Chosen before = std::exchange(m_told, m_chosen);
    _chosenChanged();
    event.postAction([self = UXObjectWatcher(this), before] {
        if (auto* chart = static_cast<KXControlChart*>(self.getObject()))
            chart->_tell(before);
    });
}

void KXControlChart::_interactionDisabled()
{
    const UXObjectWatcher self(this);
    if (m_dropDown)
        m_dropDown->close();
    if (m_menu)
        m_menu->closeMenu();
    if (self.isAlive())
        KXPanelChart::_interactionDisabled();
}

void KXControlChart::cancelChoice()
{
    const UXNotificationScope scope;
    m_chosen = m_told;
    _chosenChanged();
}

void KXControlChart::_tell(const Chosen& before)
{
    const KXChartDataProviderUse use(*this);
    const Chosen now = m_told; // a host may reload the chart as it is told
    auto* provider = use.as<KXControlChartDataProvider>();
    if (provider && now.members != before.members)
        provider->selectionChanged(this, now.members.getMembers(), now.members.isExcluding());
    if (!use.isCurrent() || !provider)
        return;
    if (now.relative != before.relative && now.relative.period != KXControlChartPeriod::None)
        provider->relativeRangeChanged(this, now.relative);
    else if (!isSame(now.from, before.from) || !isSame(now.to, before.to) || now.relative != before.relative)
        provider->rangeChanged(this, now.from, now.to);
}

// Items

bool KXControlChart::isMemberHighlighted(std::uint64_t member) const
{
    const std::vector<KXChartItem>& linked = getItems()->getLinked();
    return std::ranges::binary_search(linked, KXChartItem{0, member, 0});
}

std::optional<KXChartItem> KXControlChart::obtainItemAt(UXPoint point) const
{
    if (!m_list->getVisible())
        return std::nullopt;
    const std::optional<std::uint64_t> member = m_list->obtainMemberAt(translatePointToChild(point, m_list));
    return member ? std::optional(KXChartItem{0, *member, 0}) : std::nullopt;
}

bool KXControlChart::hasItem(const KXChartItem& item) const
{
    return item.kind == 0 && item.index == 0 && item.group < getMemberCount(0) &&
           obtainShownStyle() == KXControlChartStyle::List;
}

std::vector<KXChartItem> KXControlChart::obtainItems() const
{
    std::vector<KXChartItem> items;
    if (m_list->getVisible())
        for (const std::uint64_t member : m_list->obtainMembersInSight())
            if (hasItem({0, member, 0}))
                items.push_back({0, member, 0});
    return items;
}

UXRect KXControlChart::obtainItemRect(const KXChartItem& item) const
{
    const UXRect row = m_list->getVisible() ? m_list->obtainMemberRect(item.group) : UXRect();
    if (uxIsEmptyRect(row))
        return {};
    return uxMakeRect(row.x + m_list->getRect().x, row.y + m_list->getRect().y, row.width, row.height);
}

KXChartDataPath* KXControlChart::createItemPath(const KXChartItem& item)
{
    auto* path = new KXChartDataPath;
    path->identifier = memberIdentifier;
    path->dimensionIndexPath = {0, item.group};
    return path;
}

std::vector<KXChartItem> KXControlChart::findItems(const KXChartDataPath& path)
{
    std::vector<KXChartItem> items;
    if (path.dimensionIndexPath.size() > 1 && path.dimensionIndexPath[0] == 0)
        for (std::size_t i = 1; i < path.dimensionIndexPath.size(); ++i)
            items.push_back({0, path.dimensionIndexPath[i], 0});
    else if (path.valueIndexPath.size() > 1)
        items.push_back({0, path.valueIndexPath[1], 0});
    std::erase_if(items, [this](const KXChartItem& item) { return !hasItem(item); });
    return items;
}

std::vector<KXObjectID> KXControlChart::obtainItemObjectIDs(const KXChartItem& item) const
{
    return {KXObjectID::instance().path(kxCreateObjectIDPath(memberIdentifier)).index(item.group)};
}

UXHintInfo KXControlChart::obtainItemHint(const KXChartItem& item)
{
    KXChartDataProviderHintData data;
    const KXChartDataProviderUse use(*this);
    if (auto* provider = use.as<KXPanelChartDataProvider>(); provider && getMeasureCount() > 0)
        data = provider->obtainHintData(this, {0, item.group});
    // The row says the same, unless it is cut.
    if (use.isAlive() && data.isEmpty() && m_list->isRowCut(item.group)) {
        data.title = obtainRowContent(item.group).text;
        if (use.isAlive() && getMeasureCount() > 0) {
            data.subtitle = getMeasureLabel(0);
            data.value = _obtainValueText(item.group);
        }
    }
    return use.isAlive() ? kxMakeHintInfo(data, m_hintInfo) : UXHintInfo(false);
}

void KXControlChart::explainMember(std::uint64_t member, KXControlChartRow& row)
{
    const UXObjectWatcher self(this), shown(&row);
    UXHintInfo info = obtainItemHint({0, member, 0});
    if (!self.isAlive() || !shown.isAlive() || !row.hasParent(this))
        return;
    const UXRect rect = row.translateRectToParent(row.getBoundingRect(), this);
    showHint({rect.x + rect.width / 2, rect.y}, nullptr, &info);
}

void KXControlChart::itemLooksChanged() { m_list->invalidate(); }
UXRect KXControlChart::obtainHintArea(UXPoint point) { return getItems()->obtainHintArea(point); }
KXChartDataPath* KXControlChart::createDataPath() { return getItems()->createActionPath(); }
