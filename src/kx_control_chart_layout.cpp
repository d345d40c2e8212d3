#include "kx_control_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_description.h"
#include "kx_control_button.h"
#include "kx_control_chart_combo_box.h"
#include "kx_control_chart_combo_box_scroll_view.h"
#include "kx_control_chart_event_diagram.h"
#include "kx_control_chart_list.h"
#include "kx_control_chart_range.h"
#include "kx_date_time_seconds.h"
#include "kx_menu_entry.h"
#include "kx_menu_event_diagram.h"
#include "kx_no_data_label.h"
#include "kx_number_punctuation.h"
#include "kx_sentence.h"
#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_read_double.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cmath>
#include <utility>

// What stands where, and what the keyboard, the typed texts and the menus do.

namespace {

constexpr int inset = 8, footerGap = 6; // logical units
/** Of a wide chart, a box and a slider take no more than this. */
constexpr int greatestComboWidth = 420;

std::string fill(std::string words, const std::string& first, const std::string& second = {})
{
    // The second first: the first one's text may hold a mark.
    for (const auto& [mark, text] : {std::pair("%2", &second), std::pair("%1", &first)})
        if (const std::size_t place = words.find(mark); place != std::string::npos)
            words.replace(place, 2, *text);
    return words;
}

} // namespace

void KXControlChart::_applyKeyEffect(UXPropertyEffect effect)
{
    if (effect == UXPropertyEffect::Recolor) {
        for (KXControlChartList* list : _obtainLists())
            list->colorsChanged();
        m_rangePanel->colorsChanged();
        for (KXControlPart* part :
             std::initializer_list<KXControlPart*>{m_comboBox, m_applyButton, m_cancelButton})
            part->setAccentColor(m_accentColor);
        return;
    }
    if (effect == UXPropertyEffect::Layout) {
        for (KXControlChartList* list : _obtainLists())
            list->membersChanged();
        m_rangePanel->dataChanged();
    }
    KXPanelChart::_applyKeyEffect(effect);
}

void KXControlChart::_customLayout(UXRect plotArea)
{
    const UXObjectWatcher self(this);
    const KXControlChartStyle style = obtainShownStyle();
    const bool isRange = style == KXControlChartStyle::Range;
    const bool hasData = isRange ? !m_range.isEmpty() : getMemberCount(0) > 0;
    m_noDataLabel->update(plotArea, hasData);
    if (!self.isAlive())
        return;
    const int side = std::min(inset, plotArea.width / 8), end = std::min(inset, plotArea.height / 8);
    // Below a title there is room already.
    UXRect area = uxInflateRect(plotArea, -side, plotArea.y > inset ? 0 : -end, -side, -end);
    area.height -= _layoutFooter(area);
    m_list->setVisible(hasData && style == KXControlChartStyle::List);
    m_comboBox->setVisible(hasData && style == KXControlChartStyle::Combo);
    m_rangePanel->setVisible(hasData && isRange);
    m_list->setRect(area);
    m_rangePanel->setRect(area);
    if (!m_comboBox->getVisible())
        return;
    m_comboBox->setTextProperty(m_labelProperty);
    m_comboBox->setAccentColor(m_accentColor);
    m_comboBox->autoResize();
    const int height = m_comboBox->getRect().height;
    m_comboBox->setVisible(height <= area.height);
    m_comboBox->setRect(uxMakeRect(area.x, area.y, std::min(area.width, greatestComboWidth), height));
    _updateComboText();
}

/** @return the height that the buttons take */
int KXControlChart::_layoutFooter(const UXRect& area)
{
    int right = uxMaxX(area), height = 0;
    for (KXControlButton* button : {m_applyButton, m_cancelButton}) {
        button->setText(button == m_applyButton ? m_words.apply : m_words.cancel);
        button->setTextProperty(m_labelProperty);
        button->setAccentColor(m_accentColor);
        button->autoResize();
        height = std::max(height, button->getRect().height);
    }
    const bool isShown = !m_live && preparedData() && area.height > 2 * height;
    for (KXControlButton* button : {m_applyButton, m_cancelButton}) {
        button->setVisible(isShown);
        // In a narrow chart each has half of the width.
        const int width = std::min(button->getRect().width, std::max((area.width - footerGap) / 2, 0));
        right -= width;
        button->setRect(uxMakeRect(right, area.getBottom() - height, width, height));
        right -= footerGap;
    }
    return isShown ? height + footerGap : 0;
}

/** In a layout nobody is asked; else that may destroy the chart. */
std::string KXControlChart::_writeChosenMembers()
{
    const std::uint64_t count = getMemberCount(0), chosen = getChoice().obtainCount(count);
    if (getChoice().isAll() || chosen == count)
        return m_words.all;
    if (chosen == 0)
        return m_words.none;
    if (chosen == 1 && !getChoice().isExcluding())
        return obtainRowContent(getChoice().getMembers().front()).text;
    return fill(m_words.someOfAll, m_dataFormat->formatNumber(static_cast<double>(chosen)),
                m_dataFormat->formatNumber(static_cast<double>(count)));
}

void KXControlChart::_updateComboText() { m_comboBox->setText(_writeChosenMembers()); }

void KXControlChart::describe(KXChartDescription& description)
{
    const UXObjectWatcher self(this);
    KXPanelChart::describe(description);
    if (!self.isAlive() || !preparedAndReloadedData())
        return;
    if (obtainShownStyle() != KXControlChartStyle::Range) {
        description.values = {_writeChosenMembers()};
        return;
    }
    const auto write = [this](double value, double end) {
        return formatRangeValue(std::isnan(value) ? end : value);
    };
    description.values = {kxWriteSentence("from %1 to %2", {write(getRangeFrom(), m_range.getLowest()),
                                                            write(getRangeTo(), m_range.getGreatest())})};
}

void KXControlChart::openDropDown()
{
    UXDiagram* diagram = uxObtainDiagram(this);
    if (!diagram || !m_comboBox->getVisible() || !isInteractionEnabled())
        return;
    if (!m_dropDown) {
        m_dropDown = std::make_unique<KXControlChartEventDiagram>();
        m_dropDown->setClosedHandler([this] {
            m_comboBox->setOpen(false);
            search({});
        });
    }
    const UXRect anchor = m_comboBox->translateRectToParent(m_comboBox->getBoundingRect(), nullptr);
    m_comboBox->setOpen(true);
    m_dropDown->open(diagram, new KXControlChartComboBoxScrollView(this), anchor, m_comboBox);
}

void KXControlChart::_openMenu(const std::vector<KXMenuEntry>& entries, const UXRect& anchor)
{
    UXDiagram* diagram = uxObtainDiagram(this);
    if (!diagram)
        return;
    if (!m_menu)
        m_menu = std::make_unique<KXMenuEventDiagram>();
    m_menu->openMenu(diagram, entries, anchor, this);
}

void KXControlChart::openMemberMenu(std::uint64_t member, const UXEvent& event)
{
    if (!isInteractionEnabled() || member >= getMemberCount(0))
        return;
    const auto makeEntry = [this, &event](const std::string& text, auto act) {
        KXMenuEntry entry;
        entry.text = text;
        entry.action = [self = UXObjectWatcher(this), own = event.copyWithoutActions(), act] {
            if (auto* chart = static_cast<KXControlChart*>(self.getObject()))
                act(*chart, own);
            own.runPostedActions();
        };
        return entry;
    };
    std::vector<KXMenuEntry> entries{
        makeEntry(m_words.onlyThis,
                  [member](KXControlChart& chart, const UXEvent& own) { chart.chooseOnly(member, own); })};
    if (m_multipleSelection)
        entries.push_back(makeEntry(m_words.allButThis, [member](KXControlChart& chart, const UXEvent& own) {
            chart.chooseAllBut(member, own);
        }));
    const UXPoint point = event.getMousePoint();
    _openMenu(entries, uxMakeRect(point.x, point.y, 0, 0));
}

std::string KXControlChart::obtainAllText() const
{
    const auto found = static_cast<double>(m_search.getFound().size());
    return m_search.isActive() ? fill(m_words.allFound, m_dataFormat->formatNumber(found)) : m_words.all;
}

std::string KXControlChart::obtainRelativeText() const
{
    using enum KXControlChartPeriod;
    const KXControlChartRelativeRange& range = m_chosen.relative;
    switch (range.period) {
    case None:
        break;
    case Today:
        return m_words.today;
    case LastSteps:
        return fill(m_words.lastSteps, m_dataFormat->formatNumber(static_cast<double>(range.steps)));
    case ThisMonth:
        return m_words.thisMonth;
    case LastMonth:
        return m_words.lastMonth;
    case ThisQuarter:
        return m_words.thisQuarter;
    case LastQuarter:
        return m_words.lastQuarter;
    case ThisYear:
        return m_words.thisYear;
    case LastYear:
        return m_words.lastYear;
    case MonthToDate:
        return m_words.monthToDate;
    case QuarterToDate:
        return m_words.quarterToDate;
    case YearToDate:
        return m_words.yearToDate;
    }
    return m_words.relative;
}

void KXControlChart::openRelativeMenu(UXObject& button)
{
    using enum KXControlChartPeriod;
    std::vector<KXMenuEntry> entries;
    const auto add = [&](const std::string& text, KXControlChartPeriod period, std::uint64_t steps = 0) {
        KXMenuEntry entry;
        entry.text = text;
        entry.checked = m_chosen.relative == KXControlChartRelativeRange{period, steps};
        entry.action = [self = UXObjectWatcher(this), period, steps] {
            const UXEvent own;
            if (auto* chart = static_cast<KXControlChart*>(self.getObject()))
                chart->chooseRelativeRange({period, steps}, own);
            own.runPostedActions();
        };
        entries.push_back(std::move(entry));
    };
    add(m_words.today, Today);
    for (const std::uint64_t steps : {7U, 30U, 90U})
        add(fill(m_words.lastSteps, std::to_string(steps)), LastSteps, steps);
    add(m_words.thisMonth, ThisMonth);
    add(m_words.lastMonth, LastMonth);
    add(m_words.thisQuarter, ThisQuarter);
    add(m_words.lastQuarter, LastQuarter);
    add(m_words.thisYear, ThisYear);
    add(m_words.lastYear, LastYear);
    add(m_words.monthToDate, MonthToDate);
    add(m_words.quarterToDate, QuarterToDate);
    add(m_words.yearToDate, YearToDate);
    _openMenu(entries, button.translateRectToParent(button.getBoundingRect(), nullptr));
}

std::optional<double> KXControlChart::parseInput(const std::string& text) const
{
    std::string typed = text;
    const std::size_t begin = typed.find_first_not_of(' ');
    if (begin == std::string::npos)
        return std::nan("");
    typed = typed.substr(begin, typed.find_last_not_of(' ') - begin + 1);
    if (_isMoment()) {
        const double seconds = kxObtainSeconds(typed, m_rangeType);
        // A day beyond its month's last one is no day.
        constexpr std::size_t dateLength = 10;
        const bool isThere = m_rangeType == KXChartDataType::Time ||
                             obtainInputText(seconds).substr(0, dateLength) == typed.substr(0, dateLength);
        return std::isnan(seconds) || !isThere ? std::nullopt : std::optional(seconds);
    }
    const KXNumberPunctuation marks = kxObtainNumberPunctuation(m_dataFormat->getThousandsSeparator(),
                                                                m_dataFormat->getDecimalSeparator());
    std::erase(typed, marks.thousandsSeparator);
    std::ranges::replace(typed, marks.decimalPoint, '.');
    double value = 0;
    const auto [end, error] = uxReadDouble(typed.data(), typed.data() + typed.size(), value);
    const bool isNumber = error == std::errc() && end == typed.data() + typed.size() && std::isfinite(value);
    return isNumber ? std::optional(value) : std::nullopt;
}

bool KXControlChart::_walkStyleParts(bool forwards)
{
    if (m_list->getVisible())
        return m_list->walkParts(forwards);
    if (m_rangePanel->getVisible())
        return m_rangePanel->walkParts(forwards);
    return !m_comboBox->isFocused() && m_comboBox->takeKeys();
}

/** From the list, the range or the box to what applies the choice, or back. @return false at an end */
bool KXControlChart::_walkParts(bool forwards)
{
    const UXDiagram* diagram = uxObtainDiagram(this);
    const UXObject* focused = diagram ? diagram->getFocusedObject() : nullptr;
    UXObject* const style[] = {m_list, m_rangePanel, m_comboBox};
    const bool isInStyle = std::ranges::any_of(style, [focused](UXObject* part) {
        return focused && (focused == part || focused->hasParent(part));
    });
    if (focused == m_applyButton)
        return forwards ? false : m_cancelButton->takeKeys() || _walkStyleParts(false);
    if (focused == m_cancelButton)
        return forwards ? m_applyButton->takeKeys() : _walkStyleParts(false);
    if (isInStyle || forwards) {
        if (_walkStyleParts(forwards))
            return true;
        return forwards && (m_cancelButton->takeKeys() || m_applyButton->takeKeys());
    }
    return false;
}

bool KXControlChart::customKeyDown(const UXEvent& event, bool& stop)
{
    const UXNotificationScope scope;
    const UXObjectWatcher self(this);
    const auto key = static_cast<UXKeyCode>(event.getKeyCode());
    const bool isCommand = event.containsEventKey(UXEventKey::Ctrl) ||
                           event.containsEventKey(UXEventKey::Alt);
    const UXDiagram* diagram = uxObtainDiagram(this);
    const bool isOnSelf = diagram && diagram->getFocusedObject() == this;
    if (key == UXKeyCode::Tab && !isCommand && isInteractionEnabled() &&
        _walkParts(!event.containsEventKey(UXEventKey::Shift)))
        return true;
    // A key on the chart as a whole begins with its first part.
    if (isOnSelf && key != UXKeyCode::Tab && key != UXKeyCode::Escape && m_list->getVisible() &&
        m_list->takeKeys())
        return true;
    return self.isAlive() && KXPanelChart::customKeyDown(event, stop);
}
