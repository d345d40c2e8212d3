#include "ux/ux_color_contrast.h"
#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_global_control_space_event_diagram.h"
#include "ux/ux_hint.h"
#include "ux/ux_hint_delegate.h"
#include "ux/ux_hint_frame.h"
#include "ux/ux_hint_layout.h"
#include "ux/ux_hint_placement.h"
#include "ux/ux_rect_functions.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"
#include "ux_test_event.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

TEST(UXHintPlacement, StandsWhereNothingOfInterestIsCovered)
{
    using enum UXHintPosition;
    struct Case {
        const char* name;
        UXHintPosition position;
        UXPoint point;
        UXRect area, pointer;
        UXSize size;
        UXRect expected;
        bool isRightToLeft = false;
    };
    const UXRect none;
    const Case cases[] = {
        {"above", AboveValue, {100, 50}, none, none, {40, 20}, {80, 25, 40, 20}},
        {"flipped", AboveValue, {100, 10}, none, none, {40, 20}, {80, 16, 40, 20}},
        {"shifted from the left", AboveValue, {3, 50}, none, none, {40, 20}, {0, 25, 40, 20}},
        {"shifted from the right", AboveValue, {198, 50}, none, none, {40, 20}, {160, 25, 40, 20}},
        {"past the pointer", AboveValue, {100, 10}, none, {98, 8, 14, 20}, {40, 20}, {80, 33, 40, 20}},
        {"above all of it", AboveValue, {100, 60}, {90, 40, 60, 40}, none, {40, 20}, {100, 15, 40, 20}},
        {"beside what is high", AboveValue, {100, 50}, {90, 0, 20, 100}, none, {40, 20}, {115, 40, 40, 20}},
        {"in what fills all", AboveValue, {100, 50}, {-9, -9, 999, 999}, none, {40, 20}, {80, 25, 40, 20}},
        {"too high for both", AboveValue, {100, 50}, none, none, {40, 60}, {106, 20, 40, 60}},
        {"too large for any", AboveValue, {100, 50}, none, none, {120, 60}, none},
        {"at the top", Top, {100, 80}, none, none, {40, 20}, {106, 30, 40, 20}},
        {"at the top, flipped", Top, {190, 80}, none, none, {40, 20}, {145, 30, 40, 20}},
        {"at the top, from right to left", Top, {100, 80}, none, none, {40, 20}, {55, 30, 40, 20}, true},
        {"far away", AboveValue, {INT_MAX, INT_MIN}, none, none, {40, 20}, none},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const UXHintPlacement placement{{0, 0, 200, 100}, c.point, c.area,     {0, 30, 200, 70},
                                        c.pointer,        5,       c.position, c.isRightToLeft};
        EXPECT_EQ(placement.place(c.size), c.expected);
    }
}

namespace {

UXHintInfo makeInfo(const std::string& title, int rowCount)
{
    UXHintInfo info;
    info.title = title;
    for (int i = 0; i < rowCount; ++i)
        info.addRow(UXColor(200, 0, 0), UXSymbolStyle::Circle, "row", std::to_string(i));
    return info;
}

std::string joinLabels(const UXHintLayout& layout)
{
    std::string text;
    for (const UXHintLine& line : layout.lines)
        text += line.content.label + (line.isDetails ? "=" + line.content.value : "") + " ";
    return text;
}

} // namespace

TEST(UXHintLayout, GivesUpWhatDoesNotFit)
{
    const UXFixedMeasurer measurer;
    UXHintInfo rows = makeInfo("Title", 1000), whole = makeInfo("Title", 2), blanks = makeInfo("", 1);
    whole.text = "Text";
    (void)whole.addFooterRow({}, UXSymbolStyle::Line, "sum", "1");
    for (int i = 0; i < 9; ++i)
        blanks.addRow(20);
    UXHintInfo part = makeInfo("Title", 2);
    part.omittedRowCount = 38;
    struct Case {
        const char* name;
        const UXHintInfo& info;
        UXSize limit;
        std::string expected;
    };
    const Case cases[] = {
        {"all", whole, {400, 300}, "Title Text row=0 row=1 sum=1 "},
        {"some rows", rows, {400, 100}, "Title row=0 row=1 row=2 and 997 more "},
        {"rows that are not here", part, {400, 300}, "Title row=0 row=1 and 38 more "},
        {"and rows without room", part, {400, 66}, "Title row=0 and 39 more "},
        {"no room for text and footer", whole, {400, 66}, "Title row=0 row=1 "},
        {"no room for a row", rows, {400, 52}, "Title and 1000 more "},
        {"no room for a line", rows, {400, 30}, ""},
        {"too narrow", whole, {40, 300}, ""},
        {"free room is no row", blanks, {400, 60}, "row=0 "},
        {"nothing said", UXHintInfo(), {400, 300}, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const UXHintLayout layout = uxLayOutHint(c.info, c.limit, {255, 255, 255}, "and %1 more");
        EXPECT_EQ(joinLabels(layout), c.expected);
        EXPECT_LE(layout.size.height, c.limit.height);
        EXPECT_LE(layout.size.width, c.limit.width);
    }
    EXPECT_EQ(uxLayOutHint(rows, {400, 52}, {}, "%1 weitere").lines.back().content.label, "1000 weitere");
}

TEST(UXHintLayout, ColumnsAreAlignedAndTextsReadable)
{
    const UXFixedMeasurer measurer;
    const UXColor ground(255, 255, 255);
    UXHintInfo info = makeInfo("", 1);
    (void)info.addRow("a longer label", "12");
    info.addRow(30);
    UXHintRowInfo& own = info.addRow("own", "1234");
    own.valueProperty.font.size = 10;
    own.valueProperty.textColor = UXColor(250, 250, 250);
    (void)info.addFooterRow({}, UXSymbolStyle::Line, std::string(200, 'x'), "sum");
    info.maxWidth = 200;

    const UXHintLayout layout = uxLayOutHint(info, {1000, 1000}, ground, "");
    ASSERT_EQ(layout.lines.size(), 4U);
    EXPECT_EQ(layout.size.width, 200);
    for (const UXHintLine& line : layout.lines) {
        EXPECT_EQ(line.valueRect.x + line.valueRect.width, layout.lines[0].rect.width);
        EXPECT_EQ(line.content.valueProperty.align, UXTextAlign::Right);
        EXPECT_EQ(line.labelRect.x, layout.lines[0].labelRect.x);
        EXPECT_LE(line.labelRect.x + line.labelRect.width, line.valueRect.x);
        EXPECT_GE(uxObtainContrast(line.content.valueProperty.textColor, ground), uxReadableContrast);
        EXPECT_GE(uxObtainContrast(line.content.labelProperty.textColor, ground), uxReadableContrast);
    }
    EXPECT_GE(layout.lines[2].rect.y - layout.lines[1].rect.getBottom(), 30);
    EXPECT_EQ(layout.lines[2].content.valueProperty.font.size, 10);
    EXPECT_GT(layout.separatorY, layout.lines[2].rect.getBottom());
    EXPECT_LT(layout.separatorY, layout.lines[3].rect.y);
}

TEST(UXHintDelegate, KeepsWhatShows)
{
    UXObject owner;
    UXHintDelegate hint(&owner);
    UXHintInfo info = makeInfo("Total", 0), disabled(false);
    const auto show = [&](UXHintInfo* shown) {
        return hint.showHint({3, 4}, nullptr, shown), hint.getHintVisible();
    };
    EXPECT_TRUE(show(&info));
    EXPECT_EQ(hint.getHintPoint(), UXPoint(3, 4));
    EXPECT_EQ(hint.getHintInfo(), info);
    EXPECT_FALSE(show(&disabled));
    hint.setShowHint(false);
    EXPECT_FALSE(show(&info));
    hint.setHintVisible({3, 4}, nullptr, &info);
    EXPECT_TRUE(hint.getHintVisible());
    hint.setHintVisible({3, 4}, nullptr, nullptr);
    EXPECT_FALSE(hint.getHintVisible());
}

namespace {

class Control : public UXControl {
public:
    int notified = 0;
    std::function<void()> onNotify;
    UXRecordingPaintConfig* config = nullptr;

    explicit Control(UXContext& context, UXDiagram& diagram)
    {
        context.setActiveDiagram(this, &diagram);
        setControlRect({0, 0, 400, 300});
    }
    void notifyDirtyRect(UXDiagram*) override
    {
        ++notified;
        if (onNotify)
            onNotify();
    }
    UXPaintConfig* obtainPaintConfig(UXDiagram*) override { return config; }
};

/** A control of 400 x 300 pixels, and on its diagram two neighbours that explain themselves. */
class UXHintScreen : public testing::Test {
protected:
    UXHintScreen()
    {
        diagram.setRect({0, 0, 400, 300});
        diagram.registerGlobalEventDiagram(&screen);
        for (int i = 0; i < 2; ++i) {
            owners[i] = std::make_unique<UXObject>();
            diagram.addChild(owners[i].get());
            owners[i]->setRect({100 + 100 * i, 100, 100, 100});
            delegates[i] = std::make_unique<UXHintDelegate>(owners[i].get());
            owners[i]->registerEventHandler(UXEventType::MouseMove, [this, i](const UXEvent& event) {
                return show(i, owners[i]->getTranslatedPointFromEvent(event)), true;
            });
            owners[i]->registerEventHandler(UXEventType::MouseLeave, [this, i](const UXEvent&) {
                return delegates[i]->hideHint(), true;
            });
        }
        clear();
    }
    void clear()
    {
        diagram.layout();
        diagram.clearDirtyRect();
        screen.clearDirtyRect();
        control.notified = 0;
    }
    void show(int i, UXPoint point) { delegates[i]->showHint(point, nullptr, &infos[i]); }
    void move(int x, int y) { control.mouseMove({x, y}, UXEvent()); }
    bool press(UXKeyCode key) { return control.keyDown(uxMakeKeyEvent(key)); }
    UXHint* hint(const UXControl* on = nullptr) const
    {
        const std::vector<UXHint*> hints = screen.getVisibleHints(on ? on : &control);
        return hints.size() == 1 ? hints[0] : nullptr;
    }
    UXRect dirty() const { return screen.getDirtyRegion().obtainBounds(); }

    const UXFixedMeasurer measurer;
    UXContext context;
    UXDiagram diagram{&context};
    UXGlobalControlSpaceEventDiagram screen;
    Control control{context, diagram};
    UXHintInfo infos[2] = {makeInfo("first", 2), makeInfo("other", 2)};
    std::unique_ptr<UXObject> owners[2];
    std::unique_ptr<UXHintDelegate> delegates[2];
};

} // namespace

TEST_F(UXHintScreen, AnUnchangedHintIsNotPaintedAgain)
{
    move(150, 150);
    ASSERT_TRUE(hint());
    const UXRect place = hint()->getRect();
    EXPECT_TRUE(uxContainsRect(dirty(), place));
    EXPECT_GT(control.notified, 0);
    EXPECT_TRUE(diagram.getDirtyRegion().isEmpty());

    clear();
    move(152, 151);
    show(0, {52, 51});
    EXPECT_EQ(hint()->getRect(), place);
    EXPECT_TRUE(uxIsEmptyRect(dirty()));
    EXPECT_EQ(control.notified, 0);

    // One changed value is all that is painted anew.
    infos[0].rows[1].value = "7";
    show(0, {50, 50});
    EXPECT_EQ(hint()->getRect(), place);
    EXPECT_LT(dirty().height, 20);
    EXPECT_FALSE(uxIsEmptyRect(dirty()));
}

TEST_F(UXHintScreen, MovesFromAnItemToItsNeighbourInOnePiece)
{
    move(195, 150);
    UXHint* first = hint();
    ASSERT_TRUE(first);
    clear();
    move(205, 150);
    EXPECT_EQ(hint(), first);
    EXPECT_EQ(first->getTarget(), owners[1].get());
    EXPECT_EQ(first->getFrame()->getHintInfo().title, "other");
    EXPECT_EQ(screen.getChildren().size(), 1U);
    EXPECT_EQ(control.notified, 1);
    move(10, 10);
    EXPECT_FALSE(hint());
}

TEST_F(UXHintScreen, FollowsThePointerAgainAfterAnEventThatThrew)
{
    move(150, 150);
    bool throws = true;
    owners[1]->registerEventHandler(UXEventType::MouseMove, [&](const UXEvent&) -> bool {
        return throws ? throw std::runtime_error("the host's") : false;
    });
    EXPECT_THROW(move(250, 150), std::runtime_error);
    throws = false;
    move(10, 10);
    EXPECT_FALSE(hint());
    move(250, 150);
    ASSERT_TRUE(hint());
    EXPECT_EQ(hint()->getFrame()->getHintInfo().title, "other");
}

TEST_F(UXHintScreen, GoesAwayWhenItHasTo)
{
    struct Case {
        const char* name;
        std::function<void()> act;
        bool staysAway; // when the pointer moves on
    };
    const UXControlPoint at{150, 150};
    const UXControlRect narrow{0, 0, 390, 300};
    const Case cases[] = {
        {"press", [&] { control.mouseDown(at, UXEvent()), control.mouseUp(at, UXEvent()); }, false},
        {"leave", [&] { control.mouseLeave(at, UXEvent()); }, false},
        {"resize", [&] { control.setControlRect(narrow); }, false},
        {"Escape", [&] { EXPECT_TRUE(press(UXKeyCode::Escape) && !press(UXKeyCode::Escape)); }, true},
        {"another key leaves it", [&] { press(UXKeyCode::Left), delegates[0]->hideHint(); }, false},
        {"hidden owner", [&] { owners[0]->setVisible(false), diagram.layout(); }, true},
        {"no owner", [&] { owners[0].reset(), diagram.layout(); }, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        move(10, 10);
        move(150, 150);
        ASSERT_TRUE(hint());
        clear();
        const UXRect place = hint()->getRect();
        c.act();
        EXPECT_FALSE(hint());
        EXPECT_TRUE(uxContainsRect(dirty(), place));
        move(152, 150);
        EXPECT_EQ(hint() == nullptr, c.staysAway);
        if (owners[0])
            owners[0]->setVisible(true);
    }
}

TEST_F(UXHintScreen, AnOwnerMayExplainItselfAndAHostPaintAtOnce)
{
    bool explains = true;
    owners[0]->registerEventResponder(UXEventResponderType::Hint, {UXEventKey::Shift},
                                      [&](const UXEvent&) { return explains; });
    UXEvent event;
    event.addEventKey(UXEventKey::Shift);
    for (const bool hides : {false, true}) {
        explains = hides;
        delegates[0]->showHint({5, 5}, &event, &infos[0]);
        EXPECT_EQ(hint() == nullptr, hides);
    }
    UXRecordingPaintConfig config;
    control.config = &config;
    control.onNotify = [&] { context.repaintDirtyRect(&diagram); };
    show(1, {5, 5});
    EXPECT_TRUE(hint() && uxIsEmptyRect(dirty()));
    control.onNotify = {};
}

TEST_F(UXHintScreen, EndsWithWhatItStandsFor)
{
    show(0, {5, 5});
    show(1, {5, 5});
    EXPECT_EQ(screen.getVisibleHints().size(), 2U);
    delegates[0].reset();
    ASSERT_TRUE(hint());
    EXPECT_EQ(hint()->getTarget(), owners[1].get());
    diagram.unregisterGlobalEventDiagram(&screen);
    EXPECT_FALSE(hint());
    show(1, {5, 5});
    EXPECT_FALSE(hint());
    diagram.registerGlobalEventDiagram(&screen);
    auto other = std::make_unique<UXDiagram>(&context);
    context.setActiveDiagram(&control, other.get());
    show(1, {5, 5});
    EXPECT_FALSE(hint());
}

TEST_F(UXHintScreen, AControlThatIsToldOfItMayDestroyIt)
{
    auto doomed = std::make_unique<UXGlobalControlSpaceEventDiagram>();
    diagram.unregisterGlobalEventDiagram(&screen);
    diagram.registerGlobalEventDiagram(doomed.get());
    move(150, 150);
    ASSERT_EQ(doomed->getVisibleHints().size(), 1U);
    control.onNotify = [&] { doomed.reset(); };
    EXPECT_FALSE(doomed->mouseDown(UXEvent()));
    EXPECT_FALSE(doomed);
    control.onNotify = {};
    move(160, 150);
}

TEST_F(UXHintScreen, StandsOnEveryControlInItsOwnSize)
{
    Control second(context, diagram);
    second.setScalingFactor(2);
    second.setControlRect({0, 0, 800, 600});
    control.setZoomRatio(1.3);
    show(0, {50, 50});
    ASSERT_TRUE(hint() && hint(&second));
    const UXRect frame = hint()->getFrame()->getRect(), own = hint()->getRect(),
                 large = hint(&second)->getRect();
    EXPECT_EQ(UXSize(own.width, own.height), UXSize(frame.width, frame.height));
    EXPECT_EQ(UXSize(large.width, large.height), UXSize(2 * frame.width, 2 * frame.height));
    EXPECT_EQ(uxMidX(own), 195);
    EXPECT_EQ(uxMidX(large), 300);

    const auto record = [&](const UXControl* painted) {
        UXRecordingPaintConfig config;
        screen.paintOver(painted, &config, {0, 0, 800, 600});
        return config.getRecording().getText();
    };
    EXPECT_NE(record(&control).find("first"), std::string::npos);
    EXPECT_NE(record(&control), record(&second));
    EXPECT_EQ(record(nullptr), "");

    // It goes with what it explains.
    control.setDiagramOriginInControlSpace({20, 0});
    diagram.layout();
    EXPECT_EQ(uxMidX(hint()->getRect()), 215);
    screen.hideHint(nullptr, &second);
    EXPECT_TRUE(hint() && !hint(&second));
}

TEST_F(UXHintScreen, FollowsThePointerWhereItIsAskedTo)
{
    infos[0].followMouse = true;
    infos[0].distance = 11;
    move(150, 180);
    ASSERT_TRUE(hint());
    EXPECT_EQ(hint()->getRect().getBottom(), 180 - 11);
    move(160, 170);
    EXPECT_EQ(hint()->getRect().getBottom(), 170 - 11);
    EXPECT_EQ(uxMidX(hint()->getRect()), 160);
}

TEST_F(UXHintScreen, NeverLiesUnderThePointerNorLeavesTheControl)
{
    std::mt19937 random(7);
    const auto pick = [&random](int low, int high) {
        return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
    };
    int shown = 0;
    for (int i = 0; i < 1000; ++i) {
        const int width = pick(1, 500), height = pick(1, 400);
        control.setScalingFactor(pick(1, 3) * 0.75);
        control.setControlRect({0, 0, width, height});
        infos[0] = makeInfo("title", pick(0, 40));
        infos[0].position = pick(0, 1) == 0 ? UXHintPosition::AboveValue : UXHintPosition::Top;
        infos[0].distance = pick(0, 30);
        const UXPoint pointer(pick(0, width - 1), pick(0, height - 1));
        owners[0]->setRect({0, 0, pick(100, 700), 600});
        move(pointer.x, pointer.y);
        if (!hint())
            continue;
        ++shown;
        EXPECT_FALSE(uxPointInRect(pointer, hint()->getRect())) << i;
        EXPECT_TRUE(uxContainsRect({0, 0, width, height}, hint()->getRect())) << i;
    }
    EXPECT_GT(shown, 300);
}

TEST_F(UXHintScreen, AControlThatPaintsAtOncePaintsItOverTheDiagram)
{
    UXRecordingPaintConfig config;
    control.config = &config;
    diagram.repaintDirtyRect();
    EXPECT_EQ(config.getRecording().getText(), "");
    UXHintRowInfo& row = infos[0].addRow(UXColor(1, 2, 3), UXSymbolStyle::Circle, "label", "12.5");
    row.labelProperty.textColor = UXColor(0, 0, 90);
    infos[0].text = "second";
    (void)infos[0].addFooterRow(UXColor(4, 5, 6), UXSymbolStyle::Rectangle, "sum", "13");
    move(150, 250);
    move(150, 150);
    diagram.repaintDirtyRect();
    const std::string painted = config.getRecording().getText();
    EXPECT_EQ(
        uxFindMissing(painted, {"first", "second", "1,2,3", "label", "0,0,90", "12.5", "4,5,6", "sum", "13"}),
        "")
        << painted;
    EXPECT_TRUE(screen.getDirtyRegion().isEmpty());
}
