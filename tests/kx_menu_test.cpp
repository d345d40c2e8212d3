#include "kx_menu.h"

#include "kx_menu_event_diagram.h"
#include "kx_menu_item.h"
#include "kx_test_input.h"
#include "ux/ux_rect_functions.h"
#include "ux_fixed_measurer.h"

#include <gtest/gtest.h>

#include <memory>
#include <tuple>

namespace {

/** Counts what reaches the diagram under the menu, moves of the pointer aside. */
class Below : public UXObject {
public:
    Below() { setRect(uxMakeRect(0, 0, 400, 300)); }
    int reached = 0;
    UXPoint pointedAt;

protected:
    bool customMouseDown(const UXEvent&, bool&) override { return ++reached > 0; }
    bool customMouseUp(const UXEvent&, bool&) override { return ++reached > 0; }
    bool customMouseMove(const UXEvent& event, bool&) override
    {
        pointedAt = event.getMousePoint();
        return true;
    }
    bool customKeyDown(const UXEvent&, bool&) override { return ++reached > 0; }
};

/** A diagram of 400 x 300. Rows are 26 high, separators 9; letters are 6.5 wide. */
class KXMenuTest : public testing::Test {
protected:
    KXMenuTest()
    {
        diagram->setRect(uxMakeRect(0, 0, 400, 300));
        diagram->addChild(&below);
        KXMenuEntry disabled = makeEntry("Beta", [this] { log += "Beta "; });
        disabled.enabled = false;
        KXMenuEntry separator;
        separator.separator = true;
        const std::vector<KXMenuEntry> deepest{makeEntry("Deep", [this] { log += "Deep "; })};
        const std::vector<KXMenuEntry> deeper{makeEntry("One", [this] { log += "One "; }),
                                              makeEntry("Two", {}, deepest)};
        entries = {makeEntry("Alpha", [this] { log += "Alpha "; }), separator, disabled,
                   makeEntry("Gamma", {}, deeper), makeEntry("apple", [this] { log += "apple "; })};
        menus->setClosedHandler([this] { log += "closed "; });
    }
    ~KXMenuTest() override
    {
        if (diagram)
            diagram->removeChildren();
    }

    void open(const UXRect& anchor = {10, 10, 24, 24})
    {
        menus->openMenu(diagram.get(), entries, anchor);
        log.clear();
        below.reached = 0;
    }
    KXTestInput input() const { return {*diagram}; }
    UXPoint rowAt(std::size_t depth, int index) const
    {
        return middleOf(*menus->getMenus().at(depth)->getItem(index));
    }
    /** @return the current rows of the open menus, such as "3/0" */
    std::string state() const
    {
        std::string text;
        for (const KXMenu* menu : menus ? menus->getMenus() : std::vector<KXMenu*>())
            text += (text.empty() ? "" : "/") + std::to_string(menu->getCurrentIndex());
        return text;
    }

    UXFixedMeasurer measurer;
    Below below;
    std::string log;
    std::vector<KXMenuEntry> entries;
    std::unique_ptr<UXDiagram> diagram = std::make_unique<UXDiagram>();
    std::unique_ptr<KXMenuEventDiagram> menus = std::make_unique<KXMenuEventDiagram>();
};

} // namespace

TEST_F(KXMenuTest, StandsInsideTheDiagramWhereverItOpens)
{
    const std::tuple<const char*, int, std::size_t, UXRect, UXRect> cases[] = {
        {"below", 3, 4, {10, 10, 24, 24}, {10, 34, 120, 86}},
        {"no wider than menus may be", 3, 400, {10, 10, 24, 24}, {10, 34, 320, 86}},
        {"ends where its anchor ends", 3, 4, {370, 10, 24, 24}, {274, 34, 120, 86}},
        {"above", 3, 4, {10, 270, 24, 24}, {10, 184, 120, 86}},
        {"in the corner", 3, 4, {400, 300, 0, 0}, {280, 214, 120, 86}},
        {"cut to the diagram", 20, 4, {10, 10, 24, 24}, {10, 0, 120, 300}},
        {"far outside", 3, 4, {INT_MIN, INT_MAX, 0, 0}, {0, 214, 120, 86}},
    };
    for (const auto& [name, rows, letters, anchor, expected] : cases) {
        SCOPED_TRACE(name);
        entries.assign(static_cast<std::size_t>(rows), makeEntry(std::string(letters, 'x')));
        open(anchor);
        ASSERT_EQ(menus->getMenus().size(), 1u);
        const KXMenu& menu = *menus->getMenus()[0];
        EXPECT_EQ(menu.getFrameRect(), expected);
        // Whatever the height, keys show the row that they lead to.
        input().type(UXKeyCode::Up);
        const UXRect last = menu.getItem(rows - 1)->getRect();
        EXPECT_TRUE(uxContainsRect(menu.getContentRect(), last));
    }
    entries.clear();
    open();
    EXPECT_FALSE(menus->isOpen());
}

TEST_F(KXMenuTest, OpensToTheOtherSideOfWhatRunsFromRightToLeft)
{
    UXObject owner;
    diagram->addChild(&owner);
    owner.setDirection(UXDirection::RightToLeft);
    menus->openMenu(diagram.get(), entries, {300, 10, 24, 24}, &owner);
    const UXRect frame = menus->getMenus().at(0)->getFrameRect();
    EXPECT_EQ(uxMaxX(frame), 324);
    for (const UXKeyCode key : {UXKeyCode::Down, UXKeyCode::Down, UXKeyCode::Left})
        input().type(key);
    EXPECT_EQ(state(), "3/0") << "the sub-menu lies to the left";
    EXPECT_EQ(uxMaxX(menus->getMenus().at(1)->getFrameRect()), frame.x + 4);
    input().type(UXKeyCode::Right);
    EXPECT_EQ(state(), "3");
}

TEST_F(KXMenuTest, AnswersKeys)
{
    using enum UXKeyCode;
    const std::tuple<const char*, std::vector<UXKeyCode>, std::string, std::string, std::string> cases[] = {
        {"over what cannot be chosen", {Down, Down}, "", "3", ""},
        {"around the end", {Down, Down, Down, Down}, "", "0", ""},
        {"up from none", {Up}, "", "4", ""},
        {"into a sub-menu", {Down, Down, Right}, "", "3/0", ""},
        {"and deeper", {Down, Down, Enter, Down, Space}, "", "3/1/0", ""},
        {"back by left", {Down, Down, Right, Left}, "", "3", ""},
        {"escape closes the last", {Down, Escape}, "", "", "closed "},
        {"tab closes all", {Down, Down, Right, Tab}, "", "", "closed "},
        {"first letter in either case", {}, "A", "0", ""},
        {"the next one of that letter", {Down}, "a", "4", ""},
        {"enter chooses", {Down, Enter}, "", "", "closed Alpha "},
        {"in a sub-menu", {Down, Down, Right, Enter}, "", "", "closed One "},
    };
    for (const auto& [name, keys, text, expectedState, expectedLog] : cases) {
        SCOPED_TRACE(name);
        open();
        for (const UXKeyCode key : keys)
            EXPECT_TRUE(input().type(key));
        if (!text.empty())
            input().type(text);
        EXPECT_EQ(state(), expectedState);
        EXPECT_EQ(log, expectedLog);
        EXPECT_EQ(below.reached, 0);
    }
}

TEST_F(KXMenuTest, FollowsThePointerAndPostsWhatItChooses)
{
    open();
    input().move(rowAt(0, 3));
    EXPECT_EQ(state(), "3/-1") << "a row under the pointer opens its sub-menu";
    const UXRect frame = menus->getMenus()[1]->getFrameRect();
    EXPECT_EQ(frame.x, 10 + 120 - 4);
    input().move(rowAt(0, 3) + UXPoint(30, 14));
    EXPECT_EQ(state(), "3/-1") << "on the way to the sub-menu other rows are crossed";
    input().move(rowAt(1, 1));
    EXPECT_EQ(state(), "3/1/-1");
    input().move(rowAt(0, 0));
    EXPECT_EQ(state(), "0");
    input().move({300, 250});
    EXPECT_EQ(state(), "-1");

    input().click(rowAt(0, 2));
    input().click(rowAt(0, 1));
    EXPECT_EQ(state() + log, "-1") << "neither disabled rows nor separators can be chosen";
    input().press(rowAt(0, 3));
    input().move(rowAt(1, 0));
    UXEvent release = KXTestInput::at(rowAt(1, 0));
    release.postAction([this] { log += "posted "; });
    diagram->mouseUp(release);
    EXPECT_EQ(log, "closed posted One ") << "dragged onto, and after all that was posted before";
    EXPECT_EQ(below.reached, 0);
    EXPECT_EQ(below.pointedAt, release.getMousePoint()) << "what was behind need not wait for a move";

    open({390, 290, 0, 0});
    input().release(rowAt(0, 0));
    EXPECT_EQ(state(), "-1") << "the release of the press that opened the menu chooses nothing";
    input().move(rowAt(0, 3));
    EXPECT_EQ(uxMaxX(menus->getMenus()[1]->getFrameRect()), menus->getMenus()[0]->getFrameRect().x + 4)
        << "on the side that has the room";

    entries[4].entries = entries[3].entries;
    open();
    input().move(rowAt(0, 3));
    input().click(rowAt(0, 3) + UXPoint(30, 14));
    EXPECT_EQ(state(), "4/-1") << "a click has the say over where the pointer was going";
}

TEST_F(KXMenuTest, HasAllEventsUntilItCloses)
{
    open();
    EXPECT_TRUE(input().move({300, 200}) && input().type("x"));
    EXPECT_TRUE(input().press({300, 200}));
    EXPECT_EQ(log, "closed ");
    EXPECT_TRUE(input().move({310, 200}) && input().release({300, 200}));
    EXPECT_EQ(below.reached, 0) << "the press elsewhere only closes";
    EXPECT_EQ(below.pointedAt, UXPoint(300, 200));
    input().click({300, 200});
    EXPECT_EQ(below.reached, 2);

    open();
    diagram->setRect(uxMakeRect(0, 0, 200, 300));
    input().move({1, 1});
    EXPECT_FALSE(menus->isOpen()) << "placed inside another rectangle";
    menus->openMenu(diagram.get(), entries, {}, &below);
    diagram->removeChild(&below);
    input().move({1, 1});
    EXPECT_FALSE(menus->isOpen()) << "nobody's any more";
}

TEST_F(KXMenuTest, OutlivesWhatCallbacksDestroy)
{
    entries[0].action = [this] { menus.reset(); };
    open();
    input().click(rowAt(0, 0));
    EXPECT_FALSE(menus);

    menus = std::make_unique<KXMenuEventDiagram>();
    menus->setClosedHandler([this] { menus.reset(); });
    open();
    input().press({300, 200});
    EXPECT_FALSE(menus);

    menus = std::make_unique<KXMenuEventDiagram>();
    open();
    input().move(rowAt(0, 3));
    delete menus->getMenus()[0]->getItem(3);
    delete menus->getMenus()[1];
    input().type(UXKeyCode::Down);
    menus->setClosedHandler([this] { log += "closed "; });
    diagram->removeChildren();
    diagram.reset();
    EXPECT_EQ(log, "closed ");
}
