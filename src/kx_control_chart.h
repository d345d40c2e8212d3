#pragma once

#include "kx_chart_data_action.h"
#include "kx_control_chart_options.h"
#include "kx_control_chart_relative_range.h"
#include "kx_control_chart_row.h"
#include "kx_control_choice.h"
#include "kx_control_range.h"
#include "kx_control_words.h"
#include "kx_key_table.h"
#include "kx_member_search.h"
#include "kx_panel_chart.h"
#include "kx_panel_chart_data_user.h"
#include "ux/ux_hint_delegate.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_property_accessor.h"
#include "ux/ux_text_property.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class KXControlButton;
class KXControlChartComboBox;
class KXControlChartDataProvider;
class KXControlChartEventDiagram;
class KXControlChartList;
class KXControlChartRange;
class KXControlChartRow;
class KXMenuEventDiagram;
class KXNoDataLabel;
struct KXMenuEntry;

// type, name, member and JSON key, default, reset, effect, meaning; the data format stands before
#define KX_CONTROL_CHART_KEYS(KEY)                                                                           \
    KEY(KXControlChartStyle, Style, m_style, KXControlChartStyle::Default, Any(Control), Reload,             \
        "how the choice is made; Default: by a list of texts, or a range of numbers, dates and times")       \
    KEY(bool, MultipleSelection, m_multipleSelection, true, Any(Control), Layout,                            \
        "several members can be chosen, otherwise one or all")                                               \
    KEY(bool, ShowSearch, m_showSearch, true, Any(Control), Layout, "a line above lists that searches them") \
    KEY(bool, ShowAll, m_showAll, true, Any(Control), Layout, "a row of lists that stands for all members")  \
    KEY(bool, ShowCounts, m_showCounts, true, Any(Control), Layout, "what each member counts or weighs")     \
    KEY(bool, ShowBars, m_showBars, true, Any(Control), Layout, "the same as a bar behind each row")         \
    KEY(bool, SelectedFirst, m_selectedFirst, false, Any(Control), Layout,                                   \
        "what is chosen when the data come stands before the others")                                        \
    KEY(bool, Live, m_live, true, Any(Control), Layout,                                                      \
        "a choice counts at once, otherwise when the user applies it")                                       \
    KEY(KXChartSliderType, SliderType, m_sliderType, KXChartSliderType::Range, Any(Control), Layout,         \
        "which ends of a range can be chosen")                                                               \
    KEY(bool, ShowHistogram, m_showHistogram, true, Any(Control), Layout, "how much lies where in a range")  \
    KEY(bool, ShowInput, m_showInput, true, Any(Control), Layout, "lines that the ends are typed in")        \
    KEY(bool, ShowRelativeRanges, m_showRelativeRanges, true, Any(Control), Layout,                          \
        "dates relative to now, where the host can work them out")                                           \
    KEY(UXColor, AccentColor, m_accentColor, UXColor(38, 103, 198), Any(Control), Recolor,                   \
        "colour of what is chosen")                                                                          \
    KEY(UXColor, BarColor, m_barColor, UXColor(38, 103, 198, 0.13), Any(Control), Recolor,                   \
        "colour of the bars behind rows")                                                                    \
    KEY(UXTextProperty, LabelProperty, m_labelProperty, _makeTextProperty(13, UXColor(60, 60, 66)),          \
        Any(Control), Layout, "text of members, and of what can be typed and pressed")                       \
    KEY(UXTextProperty, ValueProperty, m_valueProperty, _makeTextProperty(12, UXColor(110, 110, 118)),       \
        Any(Control), Layout, "text of counts, and of a range's ends")                                       \
    KEY(UXHintInfo, HintSettings, m_hintInfo, UXHintInfo(), Any(Control), None, "how hints look")

/**
 * Lets the user choose members of a dimension, or a range of numbers or dates, by which the host filters what
 * other charts show: as a list, a list that a box opens, or a slider.
 *
 * The host keeps what is chosen (KXControlChartDataProvider). It is told after the event that made the
 * choice, of a thumb that is dragged when it is let go; and where m_live is off, when the user applies it.
 */
class KX_EXPORT KXControlChart : public KXPanelChart,
                                 public KXPanelChartDataUser,
                                 public UXPropertyAccessor,
                                 public UXHintDelegate,
                                 public KXChartDataAction {
    KX_DECLARE_CHART_KEYS(KX_CONTROL_CHART_KEYS)
public:
    KXControlChart();
    ~KXControlChart() override;

    // Parts: children, never null
    KXControlChartList* getList() const { return m_list; }
    KXControlChartComboBox* getComboBox() const { return m_comboBox; }
    KXControlChartRange* getRangePanel() const { return m_rangePanel; }
    KXControlButton* getApplyButton() const { return m_applyButton; }
    KXControlButton* getCancelButton() const { return m_cancelButton; }
    /** @return what shows the open list of the combo box; null before it was opened */
    KXControlChartEventDiagram* getDropDown() const { return m_dropDown.get(); }

    // What is shown
    /** @return the style, with what Default stands for with the present data */
    KXControlChartStyle obtainShownStyle() const;
    const KXControlWords& getWords() const { return m_words; }
    const KXMemberSearch& getSearch() const { return m_search; }
    const KXControlRange& getRange() const { return m_range; }
    bool canChooseRelative() const { return m_canChooseRelative && m_showRelativeRanges; }
    /** @return what a member's row says; in a layout what is missing is asked for when that has ended, else
     * at once, which may destroy the chart */
    KXControlChartRowContent obtainRowContent(std::uint64_t member);
    bool isMemberHighlighted(std::uint64_t member) const;
    std::string formatRangeValue(double value) const;
    /** @return what the user would type for a value */
    std::string obtainInputText(double value) const;
    /** @return the value of what is typed, NaN for nothing, which is an open end; none where it says nothing
     */
    std::optional<double> parseInput(const std::string& text) const;
    /** @return what an arrow moves an end by, 0 for the slider's own */
    double obtainRangeStep() const;
    /** @return the place of an end that is brought to value: that of a member, or a whole step. The host may
     * be asked, which may destroy the chart. */
    double snapRangeEnd(double value, int direction);
    /** @return what the row of all says: all, or all that was found */
    std::string obtainAllText() const;
    /** @return what the button of relative dates says */
    std::string obtainRelativeText() const;

    // What is chosen, as it is shown
    const KXControlChoice& getChoice() const { return m_chosen.members; }
    /** @return NaN for an open end, as getRangeTo */
    double getRangeFrom() const { return m_chosen.from; }
    double getRangeTo() const { return m_chosen.to; }
    const KXControlChartRelativeRange& getRelativeRange() const { return m_chosen.relative; }
    /** @return whether something is filtered */
    bool hasChoice() const;
    /** @return whether the host is to be told of what is chosen */
    bool hasUnappliedChoice() const { return m_chosen != m_told; }

    // What the user does; the host is told after the event
    void chooseMembers(const std::vector<std::uint64_t>& members, bool chosen, const UXEvent& event);
    /** Chooses all members, or none where all are chosen already. */
    void chooseAll(const UXEvent& event);
    /** Chooses what was found, in addition to what is chosen unless that is everything; or no more of it
     * where all of it is chosen. */
    void chooseFound(const UXEvent& event);
    void chooseOnly(std::uint64_t member, const UXEvent& event);
    void chooseAllBut(std::uint64_t member, const UXEvent& event);
    /** @param from, to NaN for an open end
     *  @param isFinal off while the user goes on */
    void chooseRange(double from, double to, bool isFinal, const UXEvent& event);
    void chooseRelativeRange(const KXControlChartRelativeRange& range, const UXEvent& event);
    void clearChoice(const UXEvent& event);
    void applyChoice(const UXEvent& event);
    /** Shows again what the host was told last. */
    void cancelChoice();
    void openMemberMenu(std::uint64_t member, const UXEvent& event);
    void openRelativeMenu(UXObject& button);
    void openDropDown();
    /** Lists the members whose texts contain text; all for an empty one. */
    void search(const std::string& text);
    void findMore();
    /** @param order of the members, empty for their own
     * @return the first one whose text begins so; the provider may be asked, which may destroy the chart */
    std::optional<std::uint64_t> findBeginning(const std::string& text, std::span<const std::uint64_t> order)
    {
        return m_search.findBeginning(text, order);
    }
    /** Tells of a member in a hint beside row, as the keyboard does. */
    void explainMember(std::uint64_t member, KXControlChartRow& row);

    // From KXChart: what is chosen
    void describe(KXChartDescription& description) override;

    // From UXJsonObject, KXChart, KXChartDataUser, UXHintDelegate and KXChartDataAction
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;
    std::uint64_t obtainLegendCellSize() override;
    void beforeReloadData() override;
    void afterReloadData() override;
    void customPrepareData(KXChartDataProvider* provider, bool& prepared) override;
    void customReloadData() override;
    void resetData() override;
    void dataArrived(std::uint64_t first, std::uint64_t count) override;
    UXRect obtainHintArea(UXPoint point) override;
    KXChartDataPath* createDataPath() override;

    // From KXChartItemsDelegate: the members in sight are the items
    std::optional<KXChartItem> obtainItemAt(UXPoint point) const override;
    bool hasItem(const KXChartItem& item) const override;
    std::vector<KXChartItem> obtainItems() const override;
    UXRect obtainItemRect(const KXChartItem& item) const override;
    KXChartDataPath* createItemPath(const KXChartItem& item) override;
    std::vector<KXChartItem> findItems(const KXChartDataPath& path) override;
    std::vector<KXObjectID> obtainItemObjectIDs(const KXChartItem& item) const override;
    UXHintInfo obtainItemHint(const KXChartItem& item) override;
    void itemLooksChanged() override;

protected:
    bool customKeyDown(const UXEvent& event, bool& stop) override;
    void _applyKeyEffect(UXPropertyEffect effect) override;
    void _interactionDisabled() override;
    void _customLayout(UXRect plotArea) override;
    void _memberTextsArrived() override;

private:
    /** What is chosen, by whichever style. */
    struct KX_EXPORT Chosen {
        KXControlChoice members;
        double from = std::numeric_limits<double>::quiet_NaN();
        double to = std::numeric_limits<double>::quiet_NaN();
        KXControlChartRelativeRange relative;

        bool operator==(const Chosen& other) const;
    };

    static UXTextProperty _makeTextProperty(int fontSize, const UXColor& color);
    KXChartDataType _obtainRangeType() const;
    bool _isMoment() const;
    std::string _formatText(const std::string& text) const;
    std::string _obtainValueText(std::uint64_t member) const;
    void _loadChosen(KXControlChartDataProvider& provider);
    void _loadRange(KXControlChartDataProvider& provider);
    void _choose(const Chosen& chosen, const UXEvent& event);
    void _chosenChanged();
    void _tell(const Chosen& before);
    std::string _writeChosenMembers();
    void _updateComboText();
    std::vector<KXControlChartList*> _obtainLists() const;
    void _openMenu(const std::vector<KXMenuEntry>& entries, const UXRect& anchor);
    bool _walkParts(bool forwards);
    bool _walkStyleParts(bool forwards);
    int _layoutFooter(const UXRect& area);

    KXControlChartList* m_list; // a child, as the others
    KXControlChartComboBox* m_comboBox;
    KXControlChartRange* m_rangePanel;
    KXControlButton* m_applyButton;
    KXControlButton* m_cancelButton;
    KXNoDataLabel* m_noDataLabel;
    KXControlWords m_words;
    KXMemberSearch m_search;
    KXControlRange m_range;
    KXChartDataType m_rangeType = KXChartDataType::Float;
    Chosen m_chosen, m_told;
    double m_greatestValue = 0; // of the members
    bool m_canChooseRelative = false;
    bool m_hostFinds = false;
    std::unique_ptr<KXControlChartEventDiagram> m_dropDown;
    std::unique_ptr<KXMenuEventDiagram> m_menu;
};
