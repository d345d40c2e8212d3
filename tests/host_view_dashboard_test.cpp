#include "dashboard_board.h"
#include "dashboard_reader.h"
#include "host_temporary_file.h"
#include "host_x_display.h"
#include "kx_chart_label.h"
#include "kx_chart_slider.h"
#include "kx_control_chart.h"
#include "kx_control_chart_combo_box.h"
#include "kx_control_chart_combo_box_scroll_view.h"
#include "kx_control_chart_event_diagram.h"
#include "kx_control_chart_list.h"
#include "kx_control_chart_range.h"
#include "kx_control_chart_row.h"
#include "kx_text_line.h"
#include "kx_value_chart.h"
#include "text_file.h"
#include "ux/cairo/ux_cairo_install.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_virtual_scroll_view.h"
#include "view_control.h"
#include "view_data_provider.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace {

const ViewItemHandlers noHandlers;

constexpr const char* rows = R"(kind,size,day
alder,S,2024-01-01
alder,L,2024-01-02
birch,S,2024-01-03
birch,S,2024-01-04
birch,L,2024-01-05
cedar,L,2024-01-06
elm,S,2024-01-07
elm,S,2024-01-08
elm,S,2024-01-09
elm,S,2024-01-10
)";

enum Item : std::size_t { Kinds, Days, Sizes, Count };

/** @return a list, a range, a box at the lower edge, and a chart that counts the rows that are left */
std::string obtainDocument(const std::string& data)
{
    const auto item = [](const char* chart, const char* dimension, const char* place) {
        return R"({"chart": {)" + std::string(chart) + R"(}, "binding": {"dimensions": [)" + dimension +
               R"(], "measures": [{"aggregate": "count", "label": "Rows"}]}, )" + place + '}';
    };
    return R"({"type": "Dashboard", "data": ")" + data + R"(", "columns": 3, "rows": 6, "items": [)" +
           item(R"("type": "KXControlChart")", R"({"column": "kind"})",
                R"("column": 0, "row": 0, "width": 1, "height": 6)") +
           ", " +
           item(R"("type": "KXControlChart", "m_style": "Range")", R"({"column": "day", "level": "day"})",
                R"("column": 1, "row": 0, "width": 1, "height": 5)") +
           ", " +
           item(R"("type": "KXControlChart", "m_style": "Combo")", R"({"column": "size"})",
                R"("column": 1, "row": 5, "width": 1, "height": 1)") +
           ", " + item(R"("type": "KXValueChart")", "", R"("column": 2, "row": 0, "width": 1, "height": 6)") +
           "]}";
}

/** kx_view with a dashboard on a display of its own, and the same dashboard here, which tells where its parts
 * are and takes the same input. */
class HostViewDashboard : public testing::Test {
protected:
    static constexpr UXSize size{960, 640};

    void open()
    {
        uxCairoInstall();
        model = std::make_unique<DashboardBoard>(DashboardReader(document.getPath()).readFile(), noHandlers);
        control = std::make_unique<ViewControl>(*model);
        control->resize(size, 1);
        control->paintDirtyAreas();
        const std::vector<std::string> command = {KX_VIEW_PROGRAM,
                                                  document.getPath(),
                                                  "--log-paints",
                                                  "--log-actions",
                                                  "--reduce-motion",
                                                  "--scale",
                                                  "1",
                                                  "--size",
                                                  "960x640",
                                                  "--dump",
                                                  "/dev/null",
                                                  "--save",
                                                  saved.getPath()};
        view = std::make_unique<ChildProcess>(
            command, std::vector<std::string>{display.getVariable(), "SDL_VIDEODRIVER=x11",
                                              "SDL_FRAMEBUFFER_ACCELERATION=0"});
        ASSERT_FALSE(view->readTo("paint").empty());
        const std::string window = display.act({"search", "--onlyvisible", "--class", "kx_view"});
        display.act({"windowmove", window, "0", "0"});
        act({"mousemove", "5", "5"});
    }

    /** Does something with the mouse or the keys, and waits until the window has answered all of it. */
    void act(std::vector<std::string> command)
    {
        command.insert(command.end(), {"key", "F12"});
        display.act(command);
        told = view->readTo("dumped");
        ASSERT_TRUE(!told.empty() && told.back().starts_with("dumped"));
    }

    // The same here and there
    void click(const UXObject& part) { drag(obtainMiddle(part), obtainMiddle(part)); }
    void drag(const UXControlPoint& from, const UXControlPoint& to)
    {
        act({"mousemove", std::to_string(from.x), std::to_string(from.y), "mousedown", "1", "mousemove",
             std::to_string(to.x), std::to_string(to.y), "mouseup", "1", "mousemove", "5", "5"});
        UXEvent event;
        event.addEventKey(UXEventKey::LeftButton);
        control->mouseMove(from, UXEvent());
        control->press(from, event);
        if (from.x != to.x || from.y != to.y)
            control->mouseMove(to, event);
        control->mouseUp(to, event);
        control->mouseMove({5, 5}, UXEvent());
        control->paintDirtyAreas();
    }
    void press(const char* name, UXKeyCode key, const std::string& text = {})
    {
        act({"key", name});
        UXEvent event;
        event.setKeyCode(static_cast<int>(key));
        event.setKeyText(text);
        if (std::string(name).starts_with("ctrl+"))
            event.addEventKey(UXEventKey::Ctrl);
        control->pressKey(event);
        control->paintDirtyAreas();
    }
    void type(const std::string& text)
    {
        display.act({"type", text}); // which takes all words that follow
        act({});
        for (const char letter : text) {
            UXEvent event(UXEventType::KeyDown);
            event.setKeyText(std::string(1, letter));
            control->keyDown(event);
        }
        control->paintDirtyAreas();
    }

    UXControlPoint obtainMiddle(const UXObject& part) const
    {
        const UXRect bounds = part.getBoundingRect();
        return toControl(part, {uxMidX(bounds), uxMidY(bounds)});
    }
    UXControlPoint toControl(const UXObject& part, UXPoint point) const
    {
        return control->diagramSpaceToControlSpace(part.translatePointToParent(point, nullptr));
    }
    KXControlChart& getControl(Item item) const
    {
        return dynamic_cast<KXControlChart&>(model->getDashboard().getChart(item));
    }
    static const UXObject& findRow(const KXControlChartList& list, const std::string& text)
    {
        for (const UXObject* child : list.getScrollView().getChildren())
            if (const auto* row = dynamic_cast<const KXControlChartRow*>(child);
                row && row->getContent().text == text)
                return *row;
        ADD_FAILURE() << "no row " << text;
        return list;
    }
    /** @return what the window's chart says when it is clicked */
    std::string readCount()
    {
        const UXControlPoint place = obtainMiddle(
            *dynamic_cast<KXValueChart&>(model->getDashboard().getChart(Count)).getValueLabel());
        act({"mousemove", std::to_string(place.x), std::to_string(place.y), "click", "1", "mousemove", "5",
             "5"});
        for (const std::string& line : told)
            if (line.starts_with("click "))
                return line.substr(line.rfind(' ') + 1);
        return "nothing";
    }

    const TemporaryFile data{rows};
    const TemporaryFile document{obtainDocument(data.getPath()), "d.dashboard.json"};
    const TemporaryFile saved{"", "saved.json"};
    XDisplay display;
    std::unique_ptr<DashboardBoard> model;
    std::unique_ptr<ViewControl> control;
    std::unique_ptr<ChildProcess> view;
    std::vector<std::string> told; // what the window printed about the last act
};

} // namespace

TEST_F(HostViewDashboard, FiltersByMouseAndKeys)
{
    if (!display.getProblem().empty())
        GTEST_SKIP() << "no " << display.getProblem();
    open();
    EXPECT_EQ(readCount(), "10");

    // 1. Rows of a list, as they are and as they are found.
    const KXControlChartList& kinds = *getControl(Kinds).getList();
    click(findRow(kinds, "birch"));
    EXPECT_EQ(readCount(), "7");
    click(kinds.getSearchLine());
    type("el");
    click(findRow(kinds, "elm"));
    EXPECT_EQ(readCount(), "3");
    click(kinds.getSearchLine());
    press("Escape", UXKeyCode::Escape);
    click(findRow(kinds, "birch"));
    EXPECT_EQ(readCount(), "6");

    // 2. A date that is typed, then both thumbs.
    const KXControlChartRange& days = *getControl(Days).getRangePanel();
    click(days.getFromLine());
    press("ctrl+a", UXKeyCode(), "a");
    type("2024-01-02");
    press("Return", UXKeyCode::Enter);
    EXPECT_EQ(readCount(), "5");
    const auto dragThumb = [&](KXChartSliderThumbType thumb, double share) {
        const KXChartSlider& slider = days.getSlider();
        const UXDoubleRect rect = slider.obtainThumbRect(thumb);
        const UXPoint from(static_cast<int>(uxMidDoubleX(rect)), static_cast<int>(uxMidDoubleY(rect)));
        drag(toControl(slider, from),
             toControl(slider, {static_cast<int>(slider.getRect().width * share), from.y}));
    };
    dragThumb(KXChartSliderThumbType::Lower, 0.3);
    EXPECT_EQ(days.getFromLine().getInputText(), "2024-01-04");
    EXPECT_EQ(readCount(), "3"); // two birches and the cedar
    dragThumb(KXChartSliderThumbType::Upper, 0.45);
    EXPECT_EQ(days.getToLine().getInputText(), "2024-01-05");
    EXPECT_EQ(readCount(), "2");

    // 3. A box at the lower edge, whose list opens above it.
    const KXControlChart& sizes = getControl(Sizes);
    click(*sizes.getComboBox());
    ASSERT_TRUE(sizes.getDropDown() && sizes.getDropDown()->isOpen());
    EXPECT_LT(sizes.getDropDown()->getView()->getFrameRect().y,
              control->controlSpaceToDiagramSpace(obtainMiddle(*sizes.getComboBox())).y);
    click(findRow(*sizes.getDropDown()->getView()->getList(), "S"));
    press("Escape", UXKeyCode::Escape);
    EXPECT_EQ(readCount(), "1");

    // 4. What is saved says the same of the data.
    press("ctrl+s", UXKeyCode(), "");
    EXPECT_EQ(readTextFile(saved.getPath()), model->getDashboard().save());
    const Dashboard again(DashboardReader(document.getPath()).readText(readTextFile(saved.getPath())),
                          noHandlers);
    EXPECT_EQ(again.getProvider(Count).obtainValueData(nullptr, {0}), 1);
}
