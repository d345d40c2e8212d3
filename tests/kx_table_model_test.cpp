#include "kx_table_blocks.h"
#include "kx_table_clip.h"
#include "kx_table_color_rule.h"
#include "kx_table_databar_info.h"
#include "kx_table_header_tree.h"

#include <cmath>
#include <gtest/gtest.h>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace {

/** @return the line as "0/1" for a member, with + or - behind a closed or open group, "=" behind a total */
std::string describe(const KXTableLine& line)
{
    std::string text;
    for (const std::uint64_t position : line.path)
        text += (text.empty() ? "" : "/") + std::to_string(position);
    if (line.kind == KXTableLine::Kind::Group)
        text += line.isExpanded ? "-" : "+";
    return text + (line.kind == KXTableLine::Kind::Total ? "=" : "");
}

std::string describe(const KXTableHeaderTree& tree)
{
    std::string text;
    for (std::uint64_t line = 0; line < tree.obtainLineCount(); ++line)
        text += (line > 0 ? " " : "") + describe(tree.obtainLine(line));
    return text;
}

TEST(KXTableHeaderTree, LinesComeOfMembersGroupsAndTotals)
{
    constexpr KXTableTotals After = KXTableTotals::After, Before = KXTableTotals::Before;
    struct Case {
        const char* name;
        bool hasGroupLines;
        KXTableTotals totals;
        std::string expected;
    };
    const Case cases[] = {
        {"tree, totals after", true, After,
         "0+ 1- 1/0+ 1/1- 1/1/0 1/1= 1= 2- 2/0+ 2/1- 2/1/0 2/1/1 2/1= 2= 3+"},
        {"tree, a group's line is its total", true, Before,
         "0+ 1- 1/0+ 1/1- 1/1/0 2- 2/0+ 2/1- 2/1/0 2/1/1 3+"},
        {"columns, totals after", false, After, "0+ 1/0+ 1/1/0 1/1= 1= 2/0+ 2/1/0 2/1/1 2/1= 2= 3+"},
        {"columns, totals before", false, Before, "0+ 1= 1/0+ 1/1= 1/1/0 2= 2/0+ 2/1= 2/1/0 2/1/1 3+"},
        {"columns, no totals", false, KXTableTotals::None, "0+ 1/0+ 1/1/0 2/0+ 2/1/0 2/1/1 3+"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        KXTableHeaderTree tree(3, 4, {c.hasGroupLines, c.totals, {true, true, true}});
        EXPECT_EQ(describe(tree), "0+ 1+ 2+ 3+");
        tree.expand({2}, 2);
        tree.expand({1}, 2); // before what is open
        tree.expand({2, 1}, 2);
        tree.expand({1, 1}, 1);
        tree.expand({3}, 0);       // has nothing to open
        tree.expand({0, 0}, 5);    // its parent is closed
        tree.expand({2, 1, 0}, 5); // a member
        EXPECT_EQ(describe(tree), c.expected);
        for (std::uint64_t line = 0; line < tree.obtainLineCount(); ++line) {
            const KXTableLine found = tree.obtainLine(line);
            EXPECT_EQ(tree.findLine(found.path, found.kind == KXTableLine::Kind::Total), line);
        }
        tree.collapse({1});
        tree.collapse({1});
        const std::string open = describe(tree);
        EXPECT_EQ(open.substr(0, 5), "0+ 1+");
        tree.expand({1}, 2);
        EXPECT_EQ(describe(tree).find("1/1/0"), std::string::npos) << "what is below opens closed";
        EXPECT_FALSE(tree.findLine({4}));
        EXPECT_FALSE(tree.findLine({0, 0}));
    }
    KXTableHeaderTree tree(3, 4, {false, After, {true, true, false}});
    tree.expand({1}, 2);
    tree.expand({1, 0}, 2);
    EXPECT_EQ(describe(tree), "0+ 1/0/0 1/0/1 1/1+ 1= 2+ 3+") << "the last level has no total";
    KXTableHeaderTree arranged(2, 4, {true, After, {true, true}});
    using Positions = std::vector<std::uint64_t>;
    EXPECT_EQ(arranged.obtainShownMembers({}), (Positions{0, 1, 2, 3}));
    arranged.setShownMembers({}, {});
    EXPECT_EQ(arranged.obtainShownMembers({}), Positions()) << "none of them";
    arranged.setShownMembers({}, {3, 1});
    arranged.expand({1}, 3);
    arranged.setShownMembers({1}, {2, 0});
    arranged.expand({0}, 2); // is not shown
    EXPECT_EQ(describe(arranged), "3+ 1- 1/2 1/0 1=");
    EXPECT_EQ(arranged.findLine({1, 0}), 3u);
    EXPECT_FALSE(arranged.findLine({1, 1}));
    EXPECT_EQ(arranged.obtainMemberCount({1}), 3u);
    EXPECT_EQ(describe(KXTableHeaderTree()), "") << "one line for all";
    EXPECT_EQ(KXTableHeaderTree().obtainLineCount(), 1u);
}

TEST(KXTableHeaderTree, AMillionGroupsTakeTheTimeOfWhatIsOpen)
{
    KXTableHeaderTree tree(2, 1'000'000, {true, KXTableTotals::After, {true, true}});
    for (std::uint64_t group = 0; group < 1'000'000; group += 1000)
        tree.expand({group}, 1'000'000);
    EXPECT_EQ(tree.obtainLineCount(), 1'000'000 + 1000 * (1'000'000 + 1ull));
    const KXTableLine line = tree.obtainLine(999'000ull + 999 * 1'000'001ull + 1 + 654'321);
    EXPECT_EQ(describe(line), "999000/654321");
    EXPECT_EQ(tree.findLine(line.path), 999'000ull + 999 * 1'000'001ull + 1 + 654'321);
}

TEST(KXTableClip, CellsStaySingleAndDoNothing)
{
    using enum KXTableClip::Cell;
    struct Case {
        const char* name;
        KXTableClip::Cell cell;
        std::string text, expected, html;
    };
    const Case cases[] = {
        {"plain", Text, "a b", "a b", "<td>a b</td>"},
        {"a negative number", Number, "-1,234.5", "-1,234.5", "<td>-1,234.5</td>"},
        {"a formula", Text, "=1+1", "'=1+1", "<td>'=1+1</td>"},
        {"one behind a blank", Text, " @SUM(A1)", "' @SUM(A1)", "<td>' @SUM(A1)</td>"},
        {"one in a header", Header, "-cmd", "'-cmd", "<th>'-cmd</th>"},
        {"a tab", Text, "a\tb", "\"a\tb\"", "<td>a\tb</td>"},
        {"two lines", Text, "a\nb", "\"a\nb\"", "<td>a<br/>b</td>"},
        {"quotes", Text, "say \"x\"", "\"say \"\"x\"\"\"", "<td>say &quot;x&quot;</td>"},
        {"markup", Text, "<script>&", "<script>&", "<td>&lt;script&gt;&amp;</td>"},
        {"a control character", Text, "a\x01", "a\x01", "<td>a</td>"},
        {"empty", Text, "", "", "<td></td>"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        KXTableClip clip;
        clip.addCell("x", Text);
        clip.addCell(c.text, c.cell);
        clip.endRow();
        EXPECT_EQ(clip.obtainText(), "x\t" + c.expected + "\r\n");
        EXPECT_EQ(clip.obtainHtml(),
                  "<meta charset=\"utf-8\"/><table><tr><td>x</td>" + c.html + "</tr></table>");
    }
}

TEST(KXTableClip, RefusesTooMuch)
{
    KXTableClip cells(1), bytes;
    cells.addCell("", KXTableClip::Cell::Text);
    EXPECT_FALSE(cells.isTooLarge());
    cells.addCell("", KXTableClip::Cell::Text);
    EXPECT_TRUE(cells.isTooLarge());
    EXPECT_EQ(cells.obtainText() + cells.obtainHtml(), "");
    bytes.addCell(std::string(KXTableClip::greatestSize + 1, 'x'), KXTableClip::Cell::Text);
    EXPECT_TRUE(bytes.isTooLarge());
}

TEST(KXTableBlocks, KeepsWhatWasUsedLast)
{
    struct Item {
        std::size_t obtainSize() const { return 1000; }
    };
    KXTableBlocks<Item> blocks(3600);
    for (const std::uint64_t key : {1, 2, 3})
        blocks.store({key}, std::vector<Item>(1));
    EXPECT_NE(blocks.find({1}), nullptr);
    blocks.store({4}, std::vector<Item>(1)); // 2 goes
    EXPECT_EQ(blocks.find({2}), nullptr);
    EXPECT_NE(blocks.find({1}), nullptr);
    EXPECT_LE(blocks.getSize(), 3600u);
    EXPECT_EQ(blocks.takeWanted(), std::set<KXIndexPath>{{2}});
    blocks.await({2});
    EXPECT_EQ(blocks.find({2}), nullptr);
    EXPECT_FALSE(blocks.hasWanted()) << "what is awaited is not wanted";
    EXPECT_TRUE(blocks.arrive());
    EXPECT_FALSE(blocks.arrive());
    blocks.store({5}, std::vector<Item>(9)); // more than the limit by itself: it is what is shown
    EXPECT_NE(blocks.find({5}), nullptr);
    EXPECT_EQ(blocks.find({1}), nullptr);
}

TEST(KXTableColorRule, HoldsForARange)
{
    struct Case {
        const char* name;
        KXTableColorRuleKind kind;
        double from, to, value;
        int expected; // red, -1 for no colour
    };
    using enum KXTableColorRuleKind;
    const Case cases[] = {
        {"in the range", Value, 1, 3, 3, 200},
        {"past it", Value, 1, 3, 3.5, -1},
        {"of the lowest tenth", Percent, 0, 10, 12, 200},
        {"not of it", Percent, 0, 10, 40, -1},
        {"a scale's middle", Scale, 0, 0, 60, 150},
        {"of a given scale", Scale, 0, 10, 5, 150},
        {"beyond it", Scale, 0, 10, 99, 100},
        {"not a number", Scale, 0, 10, NAN, -1},
        {"of the lower half of the cells", Percentile, 0, 50, 12, 200},
        {"not of it", Percentile, 0, 50, 13, -1},
        {"between two steps", Percentile, 90, 200, 74.5, 200},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        KXTableColorRule rule;
        rule.setKind(c.kind);
        rule.setFrom(c.from);
        rule.setTo(c.to);
        rule.setFillColor(UXColor(200, 0, 0));
        rule.setMiddleColor(UXColor(150, 0, 0));
        rule.setToColor(UXColor(100, 0, 0));
        const std::optional<UXColor> color = rule.obtainColor(c.value, {10, 110, true, false},
                                                              std::vector<double>{10, 11, 12, 14, 110});
        EXPECT_EQ(color ? color->red : -1, c.expected);
    }
}

TEST(KXTableDatabarInfo, BarsGoFromZero)
{
    struct Case {
        const char* name;
        KXTableDatabarStyle style;
        double value, least, greatest, from, to;
    };
    using enum KXTableDatabarStyle;
    const Case cases[] = {
        {"half", LeftToRight, 5, 2, 10, 0, 0.5},
        {"all", LeftToRight, 10, 2, 10, 0, 1},
        {"below zero", LeftToRight, -5, -10, 10, 0.25, 0.5},
        {"above zero", LeftToRight, 5, -10, 10, 0.5, 0.75},
        {"from the right", RightToLeft, 5, 0, 10, 0.5, 1},
        {"only negative", LeftToRight, -10, -10, -2, 0, 1},
        {"none", None, 5, 0, 10, 0, 0},
        {"not a number", LeftToRight, NAN, 0, 10, 0, 0},
        {"all zero", LeftToRight, 0, 0, 0, 0, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        KXTableDatabarInfo info;
        info.setStyle(c.style);
        const KXTableDatabarInfo::Bar bar = info.obtainBar(c.value, c.least, c.greatest);
        EXPECT_DOUBLE_EQ(bar.from, c.from);
        EXPECT_DOUBLE_EQ(bar.to, c.to);
    }
}

} // namespace
