#include "kx_calendar_time.h"
#include "kx_chart_property.h"
#include "kx_chart_slider.h"
#include "kx_control_button.h"
#include "kx_control_chart.h"
#include "kx_control_chart_combo_box.h"
#include "kx_control_chart_combo_box_scroll_view.h"
#include "kx_control_chart_event_diagram.h"
#include "kx_control_chart_list.h"
#include "kx_control_chart_range.h"
#include "kx_folded_text.h"
#include "kx_load_chart.h"
#include "kx_menu.h"
#include "kx_table_data_provider.h"
#include "kx_test_input.h"
#include "kx_text_line.h"
#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <cmath>
#include <cstdio>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

constexpr double open = std::numeric_limits<double>::quiet_NaN();

std::string describe(const std::vector<std::uint64_t>& members, bool isExcluding)
{
    std::string text = isExcluding ? "all but" : "only";
    for (const std::uint64_t member : members)
        text += " " + std::to_string(member);
    return text;
}

/** Keeps the choice as a host does, and counts what it is asked. */
class Host : public KXTableDataProvider {
public:
    std::vector<std::string> told;
    KXControlChoice choice;
    double from = open, to = open;
    bool hostFinds = false, hasSearched = true, canChooseRelative = false;
    int askedTexts = 0;

    bool obtainDataIsEmpty(KXChartDataUser*) override { return false; } // members without counts are enough
    bool obtainSelection(KXChartDataUser*, std::vector<std::uint64_t>& members, bool& isExcluding) override
    {
        members = choice.getMembers();
        isExcluding = choice.isExcluding();
        return true;
    }
    void selectionChanged(KXChartDataUser*, const std::vector<std::uint64_t>& members,
                          bool isExcluding) override
    {
        choice = KXControlChoice(members, isExcluding);
        told.push_back(describe(members, isExcluding));
    }
    bool obtainMemberTexts(KXChartDataUser* user, std::uint64_t dimension, std::uint64_t first,
                           std::span<std::string> texts) override
    {
        askedTexts += static_cast<int>(texts.size());
        return KXTableDataProvider::obtainMemberTexts(user, dimension, first, texts);
    }
    bool obtainCanFindMembers(KXChartDataUser*) override { return hostFinds; }
    bool findMembers(KXChartDataUser*, const std::string&, std::uint64_t first,
                     std::span<std::uint64_t>& found) override
    {
        // Every third member
        for (std::size_t i = 0; i < found.size(); ++i)
            found[i] = (first + i) * 3;
        if (first + found.size() > 300)
            found = found.first(300 - first);
        return hasSearched;
    }
    bool obtainRange(KXChartDataUser*, double& low, double& high) override
    {
        low = from;
        high = to;
        return true;
    }
    void rangeChanged(KXChartDataUser*, double low, double high) override
    {
        from = low;
        to = high;
        const auto write = [](double end) {
            return std::isnan(end) ? std::string("open") : std::to_string(std::llround(end));
        };
        told.push_back(write(low) + " to " + write(high));
    }
    bool obtainCanChooseRelativeRange(KXChartDataUser*) override { return canChooseRelative; }
    void relativeRangeChanged(KXChartDataUser*, const KXControlChartRelativeRange& range) override
    {
        told.push_back("period " + std::to_string(static_cast<int>(range.period)));
    }
};

/** A control that fills a diagram, over the members of a host. */
class Board {
public:
    explicit Board(int height = 300)
    {
        diagram.setRect({0, 0, 300, height});
        chart.setAlign(UXAlign::None);
        chart.setRect(diagram.getRect());
        diagram.addChild(&chart);
    }
    void load(std::vector<std::string> members, std::vector<double> counts = {})
    {
        host.addDimension("Member", std::move(members));
        if (!counts.empty())
            host.addMeasure("Count", std::move(counts));
        reload();
    }
    void loadMany(std::size_t count)
    {
        std::vector<std::string> members;
        for (std::size_t i = 0; i < count; ++i)
            members.push_back("Member " + std::to_string(i));
        load(std::move(members));
    }
    void reload()
    {
        chart.setDataProvider(&host);
        chart.prepareData();
        chart.reloadData();
        diagram.layout();
    }
    std::vector<KXControlChartRow*> obtainRows() const
    {
        std::vector<KXControlChartRow*> rows;
        for (UXObject* child : chart.getList()->getScrollView().getChildren())
            if (auto* row = dynamic_cast<KXControlChartRow*>(child))
                rows.push_back(row);
        return rows;
    }
    std::string obtainTexts() const
    {
        std::string texts;
        for (const KXControlChartRow* row : obtainRows())
            texts += row->getContent().text + "|";
        return texts;
    }
    void click(std::size_t row)
    {
        input.click(middleOf(*obtainRows().at(row)));
        diagram.layout();
    }
    void type(UXKeyCode key, const std::string& text = {})
    {
        input.type(key, text);
        diagram.layout();
    }
    std::string obtainTold() const
    {
        std::string all;
        for (const std::string& told : host.told)
            all += told + ", ";
        return all;
    }

    const UXFixedMeasurer measurer;
    Host host;
    UXDiagram diagram;
    KXControlChart chart;
    KXTestInput input{diagram};
};

TEST(KXFoldedText, ForgetsCaseAndAccents)
{
    const char* const cases[][2] = {
        {"Zürich", "zurich"},    {"ŁÓDŹ", "lodz"},   {"Cafe\u0301", "cafe"},   {"Straße", "strasse"},
        {"Ærø 2×3", "aero 2×3"}, {"ΑΘΗΝΑ", "αθηνα"}, {"Москва Ѐ", "москва ѐ"}, {"東京 \xFF", "東京 \xFF"},
    };
    for (const auto& [text, folded] : cases)
        EXPECT_EQ(kxFoldText(text), folded);
}

TEST(KXControlChoice, GoesOnFromAllOrNone)
{
    using enum KXToggleSwitchState;
    struct Case {
        const char* name;
        KXControlChoice before;
        std::vector<std::pair<std::uint64_t, bool>> steps;
        const char* after;
        std::uint64_t count; // of four
        KXToggleSwitchState state;
    };
    const Case cases[] = {
        {"at first", {}, {}, "all but", 4, On},
        {"one less", {}, {{2, false}, {2, false}}, "all but 2", 3, Mixed},
        {"and again", {}, {{2, false}, {2, true}}, "all but", 4, On},
        {"some, in any order", KXControlChoice({3, 1, 3}, false), {{0, true}}, "only 0 1 3", 3, Mixed},
        {"none", KXControlChoice({1}, false), {{1, false}}, "only", 0, Off},
        {"some that are gone", KXControlChoice({1, 9}, false), {}, "only 1 9", 1, Mixed},
        {"all, one by one", KXControlChoice({0, 1, 2}, false), {{3, true}}, "only 0 1 2 3", 4, On},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        KXControlChoice choice = c.before;
        for (const auto& [member, chosen] : c.steps)
            choice.setChosen(member, chosen);
        EXPECT_EQ(describe(choice.getMembers(), choice.isExcluding()), c.after);
        EXPECT_EQ(choice.obtainCount(4), c.count);
        EXPECT_EQ(choice.obtainState(4), c.state);
    }
}

TEST(KXControlRange, CountsAlikeWhatStandsEvenly)
{
    constexpr double far = 1.7e308;
    std::vector<double> months, even;
    for (int month = 1; month <= 12; ++month)
        months.push_back(kxObtainCalendarSeconds({2023, month, 1}));
    for (int i = 0; i < 96; ++i)
        even.push_back(i * 0.1);
    struct Case {
        const char* name;
        std::vector<double> numbers, weights;
        std::size_t partCount;
        double first, last; // of the counts
    };
    const Case cases[] = {
        {"nothing", {}, {}, 0, 0, 0},
        {"nulls", {open, open}, {}, 0, 0, 0},
        {"one", {7}, {}, 1, 1, 1},
        {"months", months, {}, 12, 1, 1},
        {"two steps to a part", even, {}, 48, 2, 2},
        {"uneven", {0, 1, 2, 1000}, {}, 48, 3, 1},
        {"weighed", {5, 3, 4}, {8, open, -2}, 3, 0, 8},
        {"the widest", {-far, far, far}, {far, far, far}, 2, far, std::numeric_limits<double>::max()},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const std::vector<double> counts = KXControlRange(c.numbers, c.weights).getCounts();
        ASSERT_EQ(counts.size(), c.partCount);
        if (counts.empty())
            continue;
        EXPECT_EQ(counts.front(), c.first);
        EXPECT_EQ(counts.back(), c.last);
    }
}

TEST(KXControlChart, TellsTheHostWhatIsChosen)
{
    struct Case {
        const char* name;
        std::function<void(Board&)> act;
        const char* told;
    };
    const Case cases[] = {
        {"a row", [](Board& b) { b.click(2); }, "all but 1, "},
        {"all rows one by one",
         [](Board& b) {
             b.click(2);
             b.click(2);
         },
         "all but 1, all but, "},
        {"the row of all",
         [](Board& b) {
             b.click(0);
             b.click(3);
         },
         "only, only 2, "},
        {"one of many",
         [](Board& b) {
             b.chart.setMultipleSelection(false);
             b.diagram.layout();
             b.click(2);
             b.click(3);
             b.click(0);
         },
         "only 1, only 2, all but, "},
        {"by keys",
         [](Board& b) {
             b.diagram.setFocusedObject(&b.chart);
             b.type(UXKeyCode::Tab); // to the line
             b.type(UXKeyCode::Down);
             b.type(UXKeyCode::End);
             b.type(UXKeyCode::Space);
         },
         "all but 3, "},
        {"as far as another row",
         [](Board& b) {
             b.click(1);
             b.diagram.setFocusedObject(b.chart.getList());
             b.type(UXKeyCode::End);
             UXEvent space;
             space.setKeyCode(static_cast<int>(UXKeyCode::Space));
             space.addEventKey(UXEventKey::Shift);
             b.diagram.keyDown(space);
         },
         "all but 0, all but 0 1 2 3, "},
        {"all that were found",
         [](Board& b) {
             b.chart.getList()->getSearchLine().takeKeys();
             b.type(UXKeyCode(), "T");
             b.click(0);
             b.chart.getList()->getSearchLine().takeKeys();
             b.type(UXKeyCode::Escape);
             b.type(UXKeyCode(), "o");
             b.click(0);
             b.click(0);
         },
         "only 1 2, all but, only 0 1 3, "},
        {"cleared",
         [](Board& b) {
             b.click(1);
             b.input.click(middleOf(b.chart.getList()->getClearButton()));
         },
         "all but 0, all but, "},
        {"the menu",
         [](Board& b) {
             b.input.click(middleOf(*b.obtainRows().at(3)), UXEventKey::RightButton);
             b.input.type(UXKeyCode::Down);
             b.input.type(UXKeyCode::Enter);
         },
         "only 2, "},
        {"not before it is applied",
         [](Board& b) {
             b.chart.setLive(false);
             b.diagram.layout();
             b.click(1);
             b.click(2);
             EXPECT_EQ(b.obtainTold(), "");
             b.reload(); // as after another control's choice
             EXPECT_TRUE(b.chart.hasUnappliedChoice());
             b.input.click(middleOf(*b.chart.getApplyButton()));
             b.diagram.layout();
             b.click(1);
             b.input.click(middleOf(*b.chart.getCancelButton()));
             EXPECT_FALSE(b.chart.hasUnappliedChoice());
         },
         "all but 0 1, "},
        {"nothing without interaction",
         [](Board& b) {
             b.chart.getChartProperty()->updateEnableInteraction(false);
             b.click(1);
         },
         ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Board board;
        board.load({"one", "two", "three", "four"}, {3, 0, std::nan(""), 8});
        c.act(board);
        EXPECT_EQ(board.obtainTold(), c.told);
        EXPECT_EQ(describe(board.chart.getChoice().getMembers(), board.chart.getChoice().isExcluding()),
                  describe(board.host.choice.getMembers(), board.host.choice.isExcluding()));
    }
}

TEST(KXControlChart, RowsSayWhatTheHostCounts)
{
    Board board;
    board.load({"one", "two", "three", "four"}, {4, 0, std::nan(""), 8});
    const std::vector<KXControlChartRow*> rows = board.obtainRows();
    ASSERT_EQ(rows.size(), 5U);
    EXPECT_EQ(rows[0]->getContent(), (KXControlChartRowContent{"All", "", open, false}));
    EXPECT_EQ(rows[1]->getContent(), (KXControlChartRowContent{"one", "4", 0.5, false}));
    EXPECT_EQ(rows[2]->getContent(), (KXControlChartRowContent{"two", "0", 0, true}));
    EXPECT_EQ(rows[3]->getContent(), (KXControlChartRowContent{"three", "--", 0, true}));
    board.host.choice = KXControlChoice({3}, false);
    board.chart.setSelectedFirst(true);
    board.reload();
    EXPECT_EQ(board.obtainTexts(), "All|four|one|two|three|");
}

TEST(KXControlChart, FindsMembers)
{
    struct Case {
        const char* name;
        bool hostFinds, hasSearched;
        const char* text;
        const char* texts; // the first ones in sight
        std::size_t found;
    };
    const Case cases[] = {
        {"in the texts", false, true, "r 99", "All 11 found|Member 99|Member 990|", 11},
        {"nothing", false, true, "none", "", 0},
        {"by the host, page by page", true, true, "x", "Member 0|Member 3|", KXMemberSearch::pageSize},
        {"not yet", true, false, "x", "", 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Board board;
        board.host.hostFinds = c.hostFinds;
        board.host.hasSearched = c.hasSearched;
        board.loadMany(1000);
        KXTextLine& line = board.chart.getList()->getSearchLine();
        line.takeKeys();
        board.type(UXKeyCode(), c.text);
        EXPECT_EQ(board.obtainTexts().substr(0, std::string(c.texts).size()), c.texts);
        EXPECT_EQ(board.chart.getSearch().getFound().size(), c.found);
        if (!c.hasSearched) {
            board.host.hasSearched = true;
            board.chart.dataArrived(0, 1000);
            board.diagram.layout();
        }
        if (c.hostFinds) {
            board.chart.getList()->getScrollView().setContentOffsetY(1'000'000);
            board.diagram.layout();
            EXPECT_EQ(board.chart.getSearch().getFound().size(), 300U);
        }
        board.type(UXKeyCode::Escape);
        EXPECT_EQ(board.obtainTexts().substr(0, 13), "All|Member 0|");
    }
}

/** What is typed within a second is one text, where no line is there to search in. */
TEST(KXControlChart, GoesToTheRowThatBeginsSo)
{
    Board board;
    board.chart.setShowSearch(false);
    board.load({"Anna", "Beta", "\xC3\x89lan", "Elba", "Element"});
    UXContext context;
    UXControl control;
    context.addDiagram(&board.diagram);
    context.setActiveDiagram(&control, &board.diagram);
    control.timer(0);
    board.chart.getList()->takeKeys();
    struct Case {
        std::int64_t at; // milliseconds
        const char *text, *row;
    };
    const Case cases[] = {{0, "e", "\xC3\x89lan"},
                          {300, "l", "\xC3\x89lan"},
                          {600, "E", "Element"},
                          {2000, "b", "Beta"},
                          {3500, "x", "Beta"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        control.timer(c.at);
        UXEvent event(UXEventType::KeyDown);
        event.setKeyText(c.text);
        control.keyDown(event);
        control.timer(c.at + 1);
        board.diagram.layout();
        std::string walked;
        for (const KXControlChartRow* row : board.obtainRows())
            if (board.chart.getList()->isWalkedTo(row->getIndex()))
                walked = row->getContent().text;
        EXPECT_EQ(walked, c.row);
    }
    context.setActiveDiagram(&control, nullptr);
}

/** A picture without a window shows what was chosen, too. */
TEST(KXControlChart, ASavedRangeIsWrittenInItsLines)
{
    Board board;
    board.host.from = 20;
    board.host.to = 30;
    board.host.addDimension("Number", std::vector<double>{0, 10, 20, 30, 40}, KXChartDataType::Float);
    board.reload();
    const std::string drawn = uxPaintToText(board.diagram);
    for (const KXTextLine* line :
         {&board.chart.getRangePanel()->getFromLine(), &board.chart.getRangePanel()->getToLine()}) {
        SCOPED_TRACE(line->getInputText());
        const std::size_t found = drawn.find(" \"" + line->getInputText() + "\" font ");
        ASSERT_NE(found, std::string::npos) << drawn;
        const std::string drawText = drawn.substr(drawn.rfind('\n', found) + 1, 80);
        double left = -1;
        std::sscanf(drawText.c_str(), "%*s %lf", &left);
        EXPECT_TRUE(left >= 0 && left < line->getRect().width) << drawText;
    }
}

TEST(KXControlChart, CostsWhatIsInSight)
{
    Board board;
    board.loadMany(200'000);
    const int asked = board.host.askedTexts;
    EXPECT_LT(asked, 40);
    board.chart.getList()->getScrollView().setContentOffsetY(2'000'000);
    board.diagram.layout();
    EXPECT_LT(board.host.askedTexts - asked, 40);
    EXPECT_LT(board.obtainRows().size(), 20U);
    // A count that changes leaves the user where he is.
    const std::string texts = board.obtainTexts();
    board.reload();
    EXPECT_EQ(board.obtainTexts(), texts);
}

TEST(KXControlChart, ABoxOpensItsListWhereThereIsRoom)
{
    for (const int top : {0, 260}) {
        SCOPED_TRACE(top);
        Board board;
        board.chart.setStyle(KXControlChartStyle::Combo);
        board.chart.setRect({0, top, 300, 60});
        board.load({"one", "two", "three", "four"});
        KXControlChartComboBox& box = *board.chart.getComboBox();
        EXPECT_EQ(box.getText(), "All");
        board.input.click(middleOf(box));
        ASSERT_TRUE(board.chart.getDropDown()->isOpen());
        KXControlChartComboBoxScrollView& view = *board.chart.getDropDown()->getView();
        const UXRect frame = view.getFrameRect();
        EXPECT_GE(frame.y, 0);
        EXPECT_LE(frame.getBottom(), 300);
        EXPECT_EQ(frame.y<top, top> 0);
        // The keys are in the open list: from its line to the rows, and the third one.
        for (const UXKeyCode key : {UXKeyCode::Down, UXKeyCode::Down, UXKeyCode::Down, UXKeyCode::Space})
            board.type(key);
        EXPECT_EQ(board.obtainTold(), "all but 1, ");
        EXPECT_EQ(box.getText(), "3 of 4");
        board.type(UXKeyCode::Escape);
        EXPECT_FALSE(board.chart.getDropDown()->isOpen());
        EXPECT_FALSE(box.isOpen());
        // A press elsewhere closes and does nothing else; the end of the chart closes too.
        board.input.click(middleOf(box));
        board.input.click({290, top > 0 ? 290 : 295});
        EXPECT_FALSE(board.chart.getDropDown()->isOpen());
        board.input.click(middleOf(box));
    }
}

TEST(KXControlChart, ARangeIsDraggedAndTyped)
{
    struct Case {
        const char* name;
        KXChartDataType type;
        std::vector<std::string> members; // of dates
        std::function<void(Board&)> act;
        const char* told;
        const char* from; // what the line says
    };
    const std::vector<std::string> days{"2024-02-28", "2024-02-29", "2024-03-01", "2024-03-31"};
    const auto typeInto = [](KXTextLine& line, Board& board, const std::string& text) {
        line.takeKeys();
        line.selectInputText(0, line.getInputText().size());
        board.input.type(UXKeyCode(), text);
        board.type(UXKeyCode::Enter);
    };
    const auto numbers = KXChartDataType::Float;
    const Case cases[] = {
        {"to the nearest member",
         numbers,
         {},
         [](Board& b) {
             KXChartSlider& slider = b.chart.getRangePanel()->getSlider();
             const UXPoint origin = slider.translatePointToParent({0, 11}, nullptr);
             b.input.press({origin.x + 9, origin.y});
             b.input.move({origin.x + static_cast<int>(slider.obtainPlace(12)), origin.y});
             EXPECT_EQ(b.obtainTold(), ""); // while it is dragged
             b.input.release({origin.x, origin.y});
         },
         "10 to open, ",
         "10"},
        {"typed",
         numbers,
         {},
         [&](Board& b) { typeInto(b.chart.getRangePanel()->getToLine(), b, "1,5.0"); },
         "open to 15, ",
         ""},
        {"the wrong way round",
         numbers,
         {},
         [&](Board& b) {
             typeInto(b.chart.getRangePanel()->getFromLine(), b, "30");
             typeInto(b.chart.getRangePanel()->getToLine(), b, "20");
         },
         "30 to open, 20 to 30, ",
         "20"},
        {"nonsense",
         numbers,
         {},
         [&](Board& b) {
             typeInto(b.chart.getRangePanel()->getFromLine(), b, "1o");
             EXPECT_FALSE(b.chart.getRangePanel()->getFromLine().isValid());
         },
         "",
         "1o"},
        {"not without interaction",
         numbers,
         {},
         [](Board& b) {
             b.chart.getChartProperty()->updateEnableInteraction(false);
             b.chart.getRangePanel()->getSlider().takeKeys();
             b.type(UXKeyCode::Right);
             EXPECT_TRUE(std::isnan(b.chart.getRangePanel()->getSlider().getFrom()));
         },
         "",
         ""},
        {"dates", KXChartDataType::Date, days,
         [&](Board& b) { typeInto(b.chart.getRangePanel()->getFromLine(), b, "2024-02-29"); },
         "1709164800 to open, ", "2024-02-29"},
        {"a date that there is not", KXChartDataType::Date, days,
         [&](Board& b) { typeInto(b.chart.getRangePanel()->getFromLine(), b, "2023-02-29"); }, "",
         "2023-02-29"},
        {"from member to member", KXChartDataType::Date, days,
         [](Board& b) {
             b.chart.getRangePanel()->getSlider().takeKeys();
             for (int i = 0; i < 3; ++i)
                 b.type(UXKeyCode::Right);
         },
         "1709164800 to open, 1709251200 to open, 1711843200 to open, ", "2024-03-31"},
        {"relative to now", KXChartDataType::Date, days,
         [](Board& b) {
             b.input.click(middleOf(b.chart.getRangePanel()->getRelativeButton()));
             b.input.type(UXKeyCode::Down);
             b.input.type(UXKeyCode::Enter);
         },
         "period 1, ", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Board board;
        board.host.canChooseRelative = true;
        if (c.members.empty())
            board.host.addDimension("Number", std::vector<double>{0, 10, 20, 30, 40}, c.type);
        else
            board.host.addDimension("Day", c.members, c.type);
        board.reload();
        ASSERT_EQ(board.chart.obtainShownStyle(), KXControlChartStyle::Range);
        c.act(board);
        EXPECT_EQ(board.obtainTold(), c.told);
        EXPECT_EQ(board.chart.getRangePanel()->getFromLine().getInputText(), c.from);
    }
}

} // namespace
