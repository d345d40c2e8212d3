#include "dashboard_board.h"
#include "dashboard_reader.h"
#include "data_choice_json.h"
#include "host_error.h"
#include "host_temporary_file.h"
#include "json_cursor.h"
#include "kx_axis_chart_property.h"
#include "kx_chart_data_user.h"
#include "kx_chart_items.h"
#include "kx_control_chart.h"
#include "kx_control_chart_list.h"
#include "kx_control_chart_row.h"
#include "kx_no_data_label.h"
#include "kx_text_line.h"
#include "kx_xy_axis_chart.h"
#include "time_step.h"
#include "ux/cairo/ux_cairo_install.h"
#include "ux/ux_event.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_virtual_scroll_view.h"
#include "view_control.h"
#include "view_data_provider.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <tuple>

namespace {

std::string obtainBinding(const std::string& dimensions)
{
    return R"({"dimensions": [)" + dimensions + R"(], "measures": [{"aggregate": "count"}]})";
}

std::string obtainItem(int row, const std::string& binding, const std::string& more = {},
                       const std::string& type = "KXBarChart")
{
    return R"({"chart": {"type": ")" + type + R"("}, "binding": )" + binding + R"(, "column": 0, "row": )" +
           std::to_string(row) + R"(, "width": 1, "height": 1)" + more + '}';
}

/** @return a dashboard in JSON: charts in which clicks filter, then controls, each by its dimensions and one
 * to a row; the last item counts all rows */
std::string obtainDashboard(const std::string& data, const std::vector<std::string>& charts,
                            const std::vector<std::string>& controls = {})
{
    std::string items;
    int row = 0;
    for (const std::string& own : charts)
        items += obtainItem(row++, obtainBinding(own), R"(, "clickFilters": true)") + ", ";
    for (const std::string& own : controls)
        items += obtainItem(row++, obtainBinding(own), "", "KXControlChart") + ", ";
    return R"({"type": "Dashboard", "data": ")" + data + R"(", "columns": 1, "rows": 9, "items": [)" + items +
           obtainItem(row, obtainBinding("")) + "]}";
}

double obtainTotal(const Dashboard& dashboard)
{
    return dashboard.getProvider(dashboard.getItemCount() - 1).obtainValueData(nullptr, {0});
}

/** @return every cell that a chart shows, as a click on it names it */
std::vector<KXChartDataPath> obtainCells(const SqlDataSet& data)
{
    std::vector<KXChartDataPath> cells;
    for (std::uint64_t i = 0; i < data.getMembers(0).size(); ++i) {
        const bool isDivided = data.getDimensionCount() > 1;
        for (std::uint64_t j = 0; j < (isDivided ? data.getMembers(1).size() : 1); ++j) {
            KXChartDataPath cell;
            cell.dimensionIndexPath = {0, i};
            cell.valueIndexPath = isDivided ? KXIndexPath{0, i, j} : KXIndexPath{0, i};
            cells.push_back(cell);
        }
    }
    return cells;
}

/** @return rows with texts that look like SQL, or like what stands for a null, and with nulls everywhere */
std::string makeRows(std::mt19937& random, int count)
{
    const char* const kinds[] = {"a", "b", "\"x' OR 1=1 --\"", "(null)", ":p0", "\xC3\xA9", "", "Rest"};
    const char* const days[] = {"2023-12-31", "2024-01-01", "2024-02-29", "2024-03-31", "2024-04-01", ""};
    const char* const numbers[] = {"-1", "0", "0.5", "1e10", ""};
    const char* const moments[] = {"2024-01-01T00:00:00", "2024-03-31T23:59:59", "2025-12-31T12:00:00", ""};
    std::string rows = "kind,day,number,moment\n";
    for (int i = 0; i < count; ++i)
        rows += std::string(kinds[random() % 8]) + ',' + days[random() % 6] + ',' + numbers[random() % 5] +
                ',' + moments[random() % 4] + '\n';
    return rows;
}

/** Chooses a random part of what a chart shows. @return how many rows that part holds */
double chooseCells(ViewDataProvider& provider, std::mt19937& random)
{
    const SqlDataSet& shown = provider.getData();
    std::vector<KXChartDataPath> chosen = obtainCells(shown);
    std::erase_if(chosen, [&](const KXChartDataPath&) { return random() % 3 != 0; });
    if (random() % 3 == 0)
        chosen.clear();
    provider.selectionChanged(nullptr, chosen);
    // Without a choice all that the chart shows takes part, and a choice leaves its own chart alone.
    double rows = 0;
    for (KXChartDataPath& cell : obtainCells(shown)) {
        const bool isChosen = provider.obtainIsSelected(&cell);
        EXPECT_TRUE(isChosen || chosen.empty() || std::ranges::none_of(chosen, [&](const auto& path) {
                        return path.valueIndexPath == cell.valueIndexPath;
                    }));
        if (isChosen || chosen.empty())
            rows += provider.obtainValueData(nullptr, cell.valueIndexPath);
    }
    return rows;
}

/** The same in a control, whose answers have to be what it was told. */
double chooseMembers(KXControlChartDataProvider& provider, std::mt19937& random)
{
    const std::uint64_t count = provider.obtainDimensionDataCount(nullptr, 0);
    std::vector<std::uint64_t> members;
    for (std::uint64_t i = 0; i < count; ++i)
        if (random() % 3 == 0)
            members.push_back(i);
    const bool isExcluding = random() % 2 == 0;
    provider.selectionChanged(nullptr, members, isExcluding);
    std::vector<std::uint64_t> told;
    bool tellsExcluding = true;
    const bool isFiltered = provider.obtainSelection(nullptr, told, tellsExcluding);
    EXPECT_EQ(isFiltered, !isExcluding || !members.empty());
    EXPECT_EQ(told, members);
    EXPECT_EQ(tellsExcluding, isExcluding);
    std::vector<double> counts(count);
    provider.obtainValues(nullptr, {0, 0}, counts);
    double rows = 0;
    for (std::uint64_t i = 0; i < count; ++i)
        if ((std::ranges::find(members, i) == members.end()) == isExcluding && !std::isnan(counts[i]))
            rows += counts[i];
    return rows;
}

/** The same with two of its members as the ends of a range, either of which may be open. */
double chooseRange(KXControlChartDataProvider& provider, std::mt19937& random)
{
    const std::uint64_t count = provider.obtainDimensionDataCount(nullptr, 0);
    std::vector<double> counts(count), numbers(count);
    provider.obtainValues(nullptr, {0, 0}, counts);
    for (std::uint64_t i = 0; i < count; ++i)
        numbers[i] = provider.obtainDimensionDataAsNumber(nullptr, {0, i});
    const auto pickEnd = [&] { return count == 0 || random() % 4 == 0 ? NAN : numbers[random() % count]; };
    const double from = pickEnd(), to = pickEnd();
    provider.rangeChanged(nullptr, from, to);
    double toldFrom = NAN, toldTo = NAN;
    EXPECT_EQ(provider.obtainRange(nullptr, toldFrom, toldTo), !std::isnan(from) || !std::isnan(to));
    EXPECT_TRUE(toldFrom == from || (std::isnan(from) && std::isnan(toldFrom)));
    EXPECT_TRUE(toldTo == to || (std::isnan(to) && std::isnan(toldTo)));
    double rows = 0;
    for (std::uint64_t i = 0; i < count; ++i) {
        const bool isOpen = std::isnan(from) && std::isnan(to); // then even those without a number are in
        const bool isIn = !std::isnan(numbers[i]) && !(numbers[i] < from) && !(numbers[i] > to);
        if ((isOpen || isIn) && !std::isnan(counts[i]))
            rows += counts[i];
    }
    return rows;
}

const ViewItemHandlers noHandlers;

} // namespace

TEST(HostDashboard, ChosenItemsAddUpToWhatTheOthersShow)
{
    const char* const wanted = std::getenv("KX_RANDOM_COUNT"); // each seed is 40 choices
    const unsigned seeds = wanted ? static_cast<unsigned>(std::atoi(wanted)) : 2;
    for (unsigned seed = 0; seed < seeds; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        const TemporaryFile data(makeRows(random, 1 + static_cast<int>(random() % 300)));
        const std::string text = obtainDashboard(
            data.getPath(),
            {R"({"column": "kind", "top": {"count": 3, "others": "Rest"}})",
             R"({"column": "day", "level": "month", "fillGaps": true})",
             R"({"column": "number"}, {"column": "kind"})", R"({"column": "moment", "level": "quarter"})"},
            {R"({"column": "kind", "sort": {"measure": 0}})", R"({"column": "number"})",
             R"({"column": "moment", "level": "month"})", R"({"column": "day", "level": "week"})"});
        Dashboard dashboard(DashboardReader("d").readText(text), noHandlers);
        for (int turn = 0; turn < 40; ++turn) {
            const std::size_t item = random() % 8;
            ViewDataProvider& provider = dashboard.getProvider(item);
            const double expected = item < 4                    ? chooseCells(provider, random)
                                    : item < 6 && turn % 2 == 0 ? chooseMembers(provider, random)
                                    : item == 4                 ? chooseMembers(provider, random)
                                                                : chooseRange(provider, random);
            EXPECT_EQ(obtainTotal(dashboard), expected) << "turn " << turn << " item " << item;
        }
        const std::string saved = dashboard.save();
        const Dashboard again(DashboardReader("d").readText(saved), noHandlers);
        EXPECT_EQ(again.save(), saved);
        EXPECT_EQ(obtainTotal(again), obtainTotal(dashboard));
    }
}

/** Of every value that adds up the part is what the database answers where the same choice is a filter. */
TEST(HostDashboard, AHighlightedPartIsWhatAFilterLeaves)
{
    std::mt19937 random(7);
    const TemporaryFile data(makeRows(random, 300));
    struct Case {
        const char *dimensions, *all; // as the chart shows them, and with all of their members
        bool hasOthers;
    };
    const Case cases[] = {
        {R"({"column": "kind", "top": {"count": 2, "others": "Rest"}})", R"({"column": "kind"})", true},
        {R"({"column": "day", "level": "month", "fillGaps": true})", R"({"column": "day", "level": "month"})",
         false},
        {R"({"column": "number"}, {"column": "kind", "top": {"count": 3}})",
         R"({"column": "number"}, {"column": "kind"})", false},
        {"", "", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.dimensions);
        const auto open = [&](const char* effect, const std::string& dimensions) {
            return std::make_unique<Dashboard>(
                DashboardReader("d").readText(
                    R"({"type": "Dashboard", "data": ")" + data.getPath() + R"(", "columns": 1, "items": [)" +
                    obtainItem(0, obtainBinding(R"({"column": "moment", "level": "year"})"),
                               R"(, "choice": [{"column": "moment", "level": "year", "members":
                                   ["2024", null]}], "effect": ")" +
                                   std::string(effect) + '"',
                               "KXControlChart") +
                    ", " + obtainItem(1, R"({"dimensions": [)" + dimensions + R"(], "measures": [
                        {"aggregate": "count"}, {"column": "number", "aggregate": "sum"},
                        {"column": "number", "aggregate": "average"}]})") +
                    "]}"),
                noHandlers);
        };
        const auto highlighted = open("highlight", c.dimensions), filtered = open("filter", c.all);
        EXPECT_NE(highlighted->save().find(R"("effect": "highlight")"), std::string::npos);
        ViewDataProvider& provider = highlighted->getProvider(1);
        const SqlDataSet &shown = provider.getData(), &left = filtered->getProvider(1).getData();
        /** The index of each of the path's members where only what is chosen is left; none for one that is
         * gone, or stands for others. */
        const auto find = [&](const KXIndexPath& path) {
            std::vector<std::uint64_t> indexes;
            for (std::size_t i = 0; i < shown.getDimensionCount(); ++i) {
                const SqlMember& member = shown.getMembers(i)[path[i + 1]];
                const auto found = std::ranges::find_if(left.getMembers(i), [&](const SqlMember& other) {
                    return other.isNull == member.isNull && other.text == member.text && !member.isOthers();
                });
                indexes.push_back(static_cast<std::uint64_t>(found - left.getMembers(i).begin()));
            }
            return indexes;
        };
        std::vector<KXIndexPath> paths{{0, 0}};
        if (shown.getDimensionCount() > 0) {
            paths.clear();
            for (const KXChartDataPath& cell : obtainCells(shown))
                paths.push_back(cell.valueIndexPath);
        }
        double rows = 0, othersRows = 0;
        for (KXIndexPath path : paths)
            for (path[0] = 0; path[0] < 2; ++path[0]) {
                double part = NAN;
                ASSERT_TRUE(provider.obtainHighlightedValues(nullptr, path, path.size() - 1, {&part, 1}));
                const bool isOthers = shown.getDimensionCount() > 0 &&
                                      shown.getMembers(0)[path[1]].isOthers();
                const double expected = left.obtainNumber(path[0], find(path));
                if (!isOthers) {
                    EXPECT_EQ(part, std::isnan(expected) ? 0 : expected);
                }
                (isOthers ? othersRows : rows) += path[0] == 0 ? part : 0;
            }
        EXPECT_GT(rows, 0);
        EXPECT_EQ(othersRows > 0, c.hasOthers);
        double all = 0;
        for (std::size_t row = 0; row < left.getRowCount(); ++row)
            all += left.obtainRowNumber(0, row);
        if (c.hasOthers) {
            EXPECT_EQ(rows + othersRows, all);
        }
        // A table has its totals of the database, too.
        constexpr std::uint64_t allMembers = KXTableChartDataProvider::allMembers;
        KXTableCell total;
        provider.obtainCells(nullptr, {}, allMembers, {}, allMembers, 0, {{&total, 1}, 1});
        EXPECT_EQ(total.part, all);
        double none = NAN;
        EXPECT_FALSE(provider.obtainHighlightedValues(nullptr, {2, 0}, 1, {&none, 1})) << "an average";
    }
}

TEST(HostDashboard, ControlsFindMembersAndRanges)
{
    const TemporaryFile data("name,n\nÉclair,1\neclipse,9\nNECK,4\nPie,\nPie,5\n");
    Dashboard dashboard(
        DashboardReader("d").readText(
            R"({"type": "Dashboard", "data": ")" + data.getPath() + R"(", "columns": 1, "items": [)" +
            obtainItem(0, obtainBinding(R"({"column": "name"})"), R"(, "choice": [{"column": "name",
                "members": ["Pie", "eclipse", "gone", null]}])",
                       "KXControlChart") +
            ", " +
            obtainItem(1, R"({"measures": [{"column": "n", "aggregate": "max"}]})", "", "KXControlChart") +
            ", " + obtainItem(2, obtainBinding("")) + "]}"),
        noHandlers);
    KXControlChartDataProvider& names = dashboard.getProvider(0);
    KXControlChartDataProvider& range = dashboard.getProvider(1);
    const std::tuple<const char*, std::uint64_t, std::vector<std::uint64_t>> searches[] = {
        {"ECL", 0, {2, 3}}, {"éc", 0, {0, 2}}, {"éc", 1, {2, 3}}, {"k", 0, {0}}, {"x", 0, {}}, {"", 0, {}}};
    ASSERT_EQ(names.obtainDimensionDataCount(nullptr, 0), 6U); // NECK, Pie, eclipse, Éclair, gone, (null)
    for (const auto& [text, first, expected] : searches) {
        std::array<std::uint64_t, 2> room{};
        std::span<std::uint64_t> found(room);
        ASSERT_TRUE(names.findMembers(nullptr, text, first, found));
        EXPECT_EQ(std::vector(found.begin(), found.end()), expected) << text << first;
    }
    std::vector<std::uint64_t> members;
    bool isExcluding = true;
    EXPECT_TRUE(names.obtainSelection(nullptr, members, isExcluding));
    EXPECT_EQ(members, (std::vector<std::uint64_t>{1, 2, 4, 5}));

    // Bounds are those of all rows, and the picture behind them shows what is left of them.
    double lowest = 0, greatest = 0;
    EXPECT_TRUE(range.obtainRangeBounds(nullptr, lowest, greatest));
    EXPECT_EQ(std::pair(lowest, greatest), std::pair(1.0, 9.0));
    std::array<double, 2> counts{};
    EXPECT_TRUE(range.obtainHistogram(nullptr, lowest, greatest, counts));
    EXPECT_EQ(counts, (std::array{0.0, 2.0}));
    range.rangeChanged(nullptr, 5, NAN);
    EXPECT_EQ(obtainTotal(dashboard), 2);
    EXPECT_EQ(names.obtainDimensionDataCount(nullptr, 0), 6U);
    std::vector<double> left(6);
    names.obtainValues(nullptr, {0, 0}, left);
    EXPECT_EQ(left[1] + left[2], 2);
    EXPECT_TRUE(std::isnan(left[0]) && std::isnan(left[3]) && std::isnan(left[4]));
}

TEST(HostDashboard, ConditionsHoldWhatTheySay)
{
    const TemporaryFile data(
        "kind,day,at,n\na,2024-01-31,23:59:59,1\nb,2024-02-01,00:00:00,2.5\n"
        "x' OR 1=1 --,2024-02-29,12:00:00,-3\n(null),2024-03-01,12:59:59,\n,,13:00:00,4\n");
    const std::pair<const char*, int> cases[] = {
        {R"([])", 5},
        {R"([{"column": "kind", "members": []}])", 0},
        {R"([{"column": "kind", "except": []}])", 5},
        {R"([{"column": "kind", "members": ["x' OR 1=1 --"]}])", 1},
        {R"x([{"column": "kind", "members": ["(null)"]}])x", 1},
        {R"([{"column": "kind", "members": [null]}])", 1},
        {R"([{"column": "kind", "members": ["a", "gone", null]}])", 2},
        {R"([{"column": "kind", "except": ["a"]}])", 4},
        {R"([{"column": "kind", "except": ["a", null]}])", 3},
        {R"([{"column": "day", "from": "2024-02-01", "to": "2024-02-29"}])", 2},
        {R"([{"column": "day", "level": "month", "from": "2024-02-01", "to": "2024-02-01"}])", 2},
        {R"([{"column": "day", "level": "month", "members": ["2024-02-01", null]}])", 3},
        {R"([{"column": "day", "level": "quarter", "from": null, "to": "2024 Q1"}])", 4},
        {R"([{"column": "day", "level": "dayOfWeek", "from": "2001-01-03", "to": "2001-01-04"}])", 3},
        {R"([{"column": "day", "from": null, "to": null}])", 4},
        {R"([{"column": "at", "level": "hour", "from": "12:00:00", "to": "12:00:00"}])", 2},
        {R"([{"column": "at", "level": "hour", "from": "13:00:00", "to": "23:00:00"}])", 2},
        {R"([{"column": "n", "from": -3, "to": 2.5}])", 3},
        {R"([{"column": "n", "to": 1}])", 2},
        {R"([[{"column": "kind", "members": ["a", "b"]}, {"column": "n", "from": 2}]])", 1},
        {R"([{"column": "kind", "members": ["a"]}, {"column": "n", "from": 4}])", 2},
    };
    Dashboard dashboard(
        DashboardReader("d").readText(obtainDashboard(data.getPath(), {R"({"column": "n"})"})), noHandlers);
    for (const auto& [choice, expected] : cases) {
        SCOPED_TRACE(choice);
        const nlohmann::json parsed = nlohmann::json::parse(choice);
        dashboard.choose(0, readDataChoice(JsonCursor("c", parsed)));
        EXPECT_EQ(dashboard.getProvider(1).getError(), "");
        EXPECT_EQ(obtainTotal(dashboard), expected);
    }
}

TEST(HostDashboard, PeriodsMoveWithTheClock)
{
    const std::tuple<const char*, const char*, std::string> cases[] = {
        {"2024-02-29 12:30:00", R"("level": "month", "period": "today")", ">= 2024-02-29 < 2024-03-01 "},
        {"2024-02-29 12:30:00", R"("period": "lastSteps", "steps": 1)", ">= 2024-02-29 < 2024-03-01 "},
        {"2024-03-31 12:30:00", R"("level": "month", "period": "lastSteps", "steps": 2)",
         ">= 2024-02-01 < 2024-04-01 "},
        {"2024-01-01 00:10:00", R"("level": "hour", "period": "lastSteps", "steps": 2)",
         ">= 2023-12-31 23:00:00 < 2024-01-01 01:00:00 "},
        {"2024-01-31 00:00:00", R"("period": "lastMonth")", ">= 2023-12-01 < 2024-01-01 "},
        {"2024-05-31 00:00:00", R"("period": "thisQuarter")", ">= 2024-04-01 < 2024-07-01 "},
        {"2024-02-10 00:00:00", R"("period": "lastQuarter")", ">= 2023-10-01 < 2024-01-01 "},
        {"2024-02-10 23:00:00", R"("period": "yearToDate")", ">= 2024-01-01 < 2024-02-11 "},
        {"2024-02-10 00:00:00", R"("period": "lastSteps", "steps": 18446744073709551615)", "none"},
    };
    for (const auto& [now, period, expected] : cases) {
        SCOPED_TRACE(period);
        const nlohmann::json parsed = nlohmann::json::parse(R"([{"column": "d", )" + std::string(period) +
                                                            "}]");
        const DataChoice choice = readDataChoice(JsonCursor("c", parsed));
        EXPECT_EQ(nlohmann::json::parse(writeDataChoice(choice).dump()), parsed);
        std::string text;
        const double seconds = TimeStep::parse(now, DateLevel::Second)->obtainSeconds();
        const FilterAlternatives filters = obtainChoiceFilters(choice, seconds);
        for (const FilterBinding& filter : filters.at(0))
            text += filter.operation == FilterOperation::In
                        ? "none"
                        : (filter.operation == FilterOperation::Less ? "< " : ">= ") + filter.values.at(0) +
                              ' ';
        EXPECT_EQ(text, expected);
    }
}

TEST(HostDashboard, SaysWhatIsWrongAndWhere)
{
    const TemporaryFile data("kind,n\na,1\n");
    const std::string count = R"({"measures": [{"aggregate": "count"}]})";
    const auto withItems = [&](const std::string& items) {
        return R"({"type": "Dashboard", "data": ")" + data.getPath() +
               R"(", "columns": 1, "rows": 2, "items": [)" + items + "]}";
    };
    const auto withChoice = [&](const std::string& choice) {
        return withItems(obtainItem(0, obtainBinding(R"({"column": "kind"})"), R"(, "choice": )" + choice) +
                         ", " + obtainItem(1, count));
    };
    const std::pair<std::string, std::string> cases[] = {
        {withItems(""), ""},
        {withItems(obtainItem(0, count)), ""},
        {"[]", "an object is needed here"},
        {R"({"items": []})", "the key \"type\" is missing"},
        {R"({"type": "Dashboard", "items": {}})", "items: a list is needed here"},
        {R"({"type": "Dashboard", "columns": 49, "items": []})", "columns: has to be between 1 and 48"},
        {R"({"type": "Dashboard", "items": [)" + obtainItem(0, count) + "]}",
         "items[0]: neither this nor the dashboard names its data"},
        {withItems("{}"), "items[0]: the key \"chart\" is missing"},
        {withItems(obtainItem(2, count)), "items[0]: lies outside of 1 columns and 2 rows"},
        {withItems(obtainItem(0, count) + ", " + obtainItem(0, count)), "items[1]: lies over items[0]"},
        {withItems(obtainItem(0, R"("none.json")")), "none.json: "},
        {withItems(obtainItem(0, R"({"measures": []})")),
         "items[0]: d: items[0].binding: measures: a binding"},
        {withItems(obtainItem(0, count, R"(, "tooltip": 1)")), "items[0]: unknown key \"tooltip\""},
        {withChoice(R"([{"column": "kind"}])"), "items[0].choice[0]: either members, or except"},
        {withItems(obtainItem(0, obtainBinding(R"({"column": "n"})"),
                              R"(, "choice": [{"column": "n", "members": []}, {"column": "n", "from": 1}])",
                              "KXControlChart")),
         "items[0].choice: a control has one condition"},
        {withChoice(R"([[]])"), "items[0].choice[0]: a condition at least is needed"},
        {withChoice(R"([{"column": "kind", "members": ["a"], "from": 1}])"),
         "items[0].choice[0]: either members, or except"},
        {withChoice(R"([{"column": "n", "members": [1]}])"),
         "items[0].choice: the binding has no column \"n\""},
        {withChoice(R"([{"column": "kind", "level": "month", "to": "x"}])"),
         "choice of kind: \"x\": is no step"},
        {withChoice(R"([{"column": "kind", "level": "month", "members": []}])"),
         "items[1]: d: items[1].binding: choice of kind: \"kind\" holds no dates or times"},
    };
    for (const auto& [text, expected] : cases) {
        SCOPED_TRACE(text);
        std::string complaint;
        try {
            const Dashboard dashboard(DashboardReader("d").readText(text), noHandlers);
        } catch (const HostError& error) {
            complaint = error.what();
            complaint.erase(0, complaint.starts_with("d: ") ? 3 : 0);
        }
        EXPECT_TRUE(expected.empty() ? complaint.empty() : complaint.starts_with(expected)) << complaint;
    }
}

TEST(HostDashboard, WhatUsersMadeOfTheirChartsStays)
{
    const TemporaryFile data("day,kind,n\n2024-01-01,a,1\n2024-01-02,b,2\n2024-01-03,a,3\n2024-01-04,b,4\n");
    const std::string byDay = obtainBinding(R"({"column": "day"}, {"column": "kind"})");
    DashboardBoard board(DashboardReader("d").readText(
                             R"({"type": "Dashboard", "data": ")" + data.getPath() +
                             R"(", "columns": 1, "title": "Days", "items": [)" +
                             obtainItem(0, obtainBinding(R"({"column": "n"})"), R"(, "clickFilters": true)") +
                             ", " + obtainItem(1, byDay) + ", " +
                             obtainItem(2, byDay, R"(, "isFiltered": false)") + ", " +
                             obtainItem(3, obtainBinding("")) + "]}"),
                         noHandlers);
    board.arrange({900, 900});
    board.getDiagram().layout();
    Dashboard& dashboard = board.getDashboard();
    auto& source = dynamic_cast<KXXYAxisChart&>(dashboard.getChart(0));
    auto& target = dynamic_cast<KXXYAxisChart&>(dashboard.getChart(1));
    target.setSeriesShown(1, false);
    target.getAxisChartProperty()->updateVisibleXFrom(1);

    const auto choose = [&](const char* choice) {
        const nlohmann::json parsed = nlohmann::json::parse(choice);
        dashboard.choose(0, readDataChoice(JsonCursor("c", parsed)));
        source.obtainLegendDataUser()->reloadData(); // asks for the choice
        board.getDiagram().layout();
    };
    const auto saysNoData = [](KXXYAxisChart& chart) {
        for (std::uint64_t i = 0; i < chart.getPlot()->getChildrenCount(); ++i)
            if (dynamic_cast<KXNoDataLabel*>(chart.getPlot()->getChild(i)))
                return chart.getPlot()->getChild(i)->getVisible();
        return false;
    };
    choose(R"([{"column": "n", "members": [2, 3, 4]}])");
    EXPECT_EQ(target.obtainShownCategoryCount(), 3U);
    EXPECT_EQ(target.getShownSeries(), std::vector<std::uint64_t>{0});
    EXPECT_EQ(target.getAxisChartProperty()->getVisibleXFrom(), 1);
    EXPECT_EQ(source.obtainShownCategoryCount(), 4U);
    EXPECT_EQ(dashboard.getProvider(2).getData().getMembers(0).size(), 4U);
    choose(R"([{"column": "n", "members": [4]}])"); // what was hidden is the only series now
    EXPECT_FALSE(target.isSeriesShown(0));
    ASSERT_EQ(source.getItems()->getSelected().size(), 1U);
    EXPECT_EQ(source.getItems()->getSelected()[0].index, 3U);
    EXPECT_EQ(dashboard.getProvider(3).obtainValueDataString(nullptr, {0, 0}), "1");
    choose(R"([{"column": "n", "members": []}])");
    EXPECT_FALSE(dashboard.getProvider(3).obtainDataIsEmpty(nullptr));
    EXPECT_EQ(dashboard.getProvider(3).obtainValueDataString(nullptr, {0, 0}), "No data");
    EXPECT_TRUE(saysNoData(target));
    choose("[]");
    EXPECT_FALSE(saysNoData(target));
    EXPECT_EQ(target.obtainShownCategoryCount(), 4U);
    EXPECT_FALSE(target.isSeriesShown(1));
}

TEST(HostDashboard, AClickOnARowFiltersAndIsSaved)
{
    uxCairoInstall();
    const TemporaryFile data("kind\na\nb\nb\nb\nc\n");
    DashboardBoard board(DashboardReader("d").readText(
                             R"({"type": "Dashboard", "data": ")" + data.getPath() +
                             R"(", "columns": 1, "items": [)" +
                             obtainItem(0, obtainBinding(R"({"column": "kind"})"), "", "KXControlChart") +
                             ", " + obtainItem(1, obtainBinding("")) + "]}"),
                         noHandlers);
    ViewControl control(board);
    control.resize({500, 3000}, 1);
    control.paintDirtyAreas();
    const std::function<KXControlChartRow*(UXObject*)> findRow = [&](UXObject* object) {
        auto* row = dynamic_cast<KXControlChartRow*>(object);
        for (std::uint64_t i = 0; i < object->getChildrenCount() && !(row && row->getContent().text == "b");
             ++i)
            row = findRow(object->getChild(i));
        return row && row->getContent().text == "b" ? row : nullptr;
    };
    KXControlChartRow* row = findRow(&board.getDashboard().getChart(0));
    ASSERT_TRUE(row);
    const UXRect rect = row->translateRectToParent(row->getBoundingRect(), nullptr);
    const UXControlPoint middle = control.diagramSpaceToControlSpace(UXPoint(uxMidX(rect), uxMidY(rect)));
    UXEvent event;
    event.addEventKey(UXEventKey::LeftButton);
    control.mouseMove(middle, UXEvent());
    control.press(middle, event);
    control.mouseUp(middle, event);
    EXPECT_EQ(obtainTotal(board.getDashboard()), 2); // of all rows that are chosen at first, b goes
    EXPECT_NE(board.getDashboard().save().find(R"("except": [)"), std::string::npos);
}

TEST(HostDashboard, AnInputMethodComposesWhereTextIsTyped)
{
    uxCairoInstall();
    const TemporaryFile data("kind\na\nb\n");
    DashboardBoard board(
        DashboardReader("d").readText(
            R"({"type": "Dashboard", "data": ")" + data.getPath() + R"(", "columns": 1, "items": [)" +
            obtainItem(0, obtainBinding(R"({"column": "kind"})"), "", "KXControlChart") + ", " +
            obtainItem(1, obtainBinding(R"({"column": "kind"})"), "", "KXControlChart") + "]}"),
        noHandlers);
    ViewControl control(board);
    control.resize({500, 3000}, 1);
    control.paintDirtyAreas();
    const auto obtainLine = [&](std::size_t item) -> KXTextLine& {
        return dynamic_cast<KXControlChart&>(board.getDashboard().getChart(item)).getList()->getSearchLine();
    };
    control.compose("x", 1); // for nobody
    obtainLine(0).takeKeys();
    control.compose("\xE3\x81\x8B\xE3\x81\xAA", 1);
    EXPECT_EQ(obtainLine(0).getInputComposition(), "\xE3\x81\x8B\xE3\x81\xAA");
    EXPECT_EQ(obtainLine(0).getInputCompositionCaret(), 3U);
    obtainLine(1).takeKeys();
    control.compose("y", 9);
    EXPECT_EQ(obtainLine(0).getInputComposition(), "");
    EXPECT_EQ(obtainLine(1).getInputComposition(), "y");
    UXEvent typed(UXEventType::KeyDown);
    typed.setKeyText("z");
    control.keyDown(typed);
    EXPECT_EQ(obtainLine(1).getInputText() + obtainLine(1).getInputComposition(), "z");
}
