// What the user operates: check boxes, switches, buttons, sliders and lines of text.

#include "kx_chart_slider.h"
#include "kx_check_box.h"
#include "kx_test_input.h"
#include "kx_text_line.h"
#include "kx_toggle_switch.h"
#include "ux/ux_clipboard.h"
#include "ux/ux_recording_paint_config.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

constexpr double open = std::numeric_limits<double>::quiet_NaN();

/** A part that fills a small diagram, and goes before it. */
template <class Part>
struct Place {
    Place()
    {
        diagram.setRect({0, 0, 218, 24});
        part->setRect({0, 0, 218, 24});
        diagram.addChild(part);
        diagram.layout();
    }
    UXEvent with(UXKeyCode key, UXEventKey held, const std::string& text = {}) const
    {
        UXEvent event;
        event.setKeyCode(static_cast<int>(key));
        event.setKeyText(text);
        event.addEventKey(held);
        return event;
    }
    std::string paint()
    {
        UXRecordingPaintConfig config;
        diagram.paint(&config, diagram.getBoundingRect());
        return config.getRecording().getText();
    }

    UXFixedMeasurer measurer;
    UXDiagram diagram;
    Part* part = new Part;
    KXTestInput input{diagram};
};

TEST(KXControlPart, SwitchesByPointerAndKeys)
{
    using enum KXToggleSwitchState;
    struct Case {
        const char* name;
        KXToggleSwitchState before;
        bool isRound, isEnabled;
        KXToggleSwitchState after;
        int told;
    };
    const Case cases[] = {
        {"off", Off, false, true, On, 1},
        {"on", On, false, true, Off, 1},
        {"mixed goes on", Mixed, false, true, On, 1},
        {"a round mark stays", On, true, true, On, 1},
        {"disabled", Off, false, false, Off, 0},
    };
    for (const Case& c : cases) {
        for (const bool byKey : {false, true}) {
            SCOPED_TRACE(std::string(c.name) + (byKey ? " by key" : ""));
            Place<KXCheckBox> place;
            int told = 0;
            place.part->setChangedHandler([&](KXToggleSwitchState) { ++told; });
            place.part->setState(c.before);
            place.part->setRound(c.isRound);
            EXPECT_TRUE(place.part->takeKeys());
            place.part->setEnabled(c.isEnabled);
            if (byKey)
                place.input.type(UXKeyCode::Space);
            else
                place.input.click({5, 12});
            EXPECT_EQ(place.part->getState(), c.after);
            EXPECT_EQ(told, c.told);
        }
    }
    // A handler may end the part that calls it.
    Place<KXToggleSwitch> place;
    place.part->setChangedHandler([&](KXToggleSwitchState) { delete place.part; });
    place.input.click({5, 12});
    EXPECT_TRUE(place.diagram.getChildren().empty());
}

TEST(KXControlPart, EveryStateLooksDifferent)
{
    using enum KXToggleSwitchState;
    std::vector<std::string> looks;
    for (const bool isRound : {false, true})
        for (const KXToggleSwitchState state : {Off, On, Mixed})
            for (int look = 0; look < 5; ++look) {
                Place<KXCheckBox> place;
                place.part->setRound(isRound);
                place.part->setState(state);
                place.part->setEnabled(look != 1);
                if (look == 2 || look == 3)
                    place.input.move({5, 12});
                if (look == 3)
                    place.input.press({5, 12});
                if (look == 4)
                    place.part->takeKeys();
                looks.push_back(place.paint());
            }
    const std::size_t count = looks.size();
    std::ranges::sort(looks);
    looks.erase(std::unique(looks.begin(), looks.end()), looks.end());
    // What is mixed looks the same in a box and in a round mark but for the frame.
    EXPECT_EQ(looks.size(), count);
}

TEST(KXChartSlider, MovesItsThumbs)
{
    // The track of 200 units begins at 9, so that a unit is half a value.
    using Slider = Place<KXChartSlider>;
    struct Case {
        const char* name;
        KXChartSliderType type;
        double from, to, step;
        std::function<void(Slider&)> act;
        double fromAfter, toAfter;
        int told, toldFinally;
    };
    const auto drag = [](int from, int to) {
        return [from, to](Slider& s) {
            s.input.press({from, 12});
            s.input.move({to, 12});
            s.input.release({to, 12});
        };
    };
    const auto type = [](std::vector<UXKeyCode> keys) {
        return [keys](Slider& s) {
            s.part->takeKeys();
            for (const UXKeyCode key : keys)
                s.input.type(key);
        };
    };
    using enum KXChartSliderType;
    const Case cases[] = {
        {"the nearest thumb", Range, 20, 80, 0, drag(160, 129), 20, 60, 3, 1},
        {"held by its edge it does not jump", Range, 20, 80, 0, drag(54, 74), 30, 80, 2, 1},
        {"not over the other one", Range, 20, 40, 0, drag(49, 200), 40, 40, 2, 1},
        {"an end of the track is open", Range, 20, 80, 0, drag(169, 400), 20, open, 2, 1},
        {"whole steps", Range, 20, 80, 25, drag(49, 72), 25, 80, 2, 1},
        {"a value has no open end", Val, 50, 50, 0, drag(109, -50), 0, 0, 2, 1},
        {"a limit", Max, open, 50, 0, drag(20, 20), open, 5.5, 3, 1},
        {"arrows and pages", Range, 20, 80, 0, type({UXKeyCode::Right, UXKeyCode::PageUp}), 31, 80, 2, 2},
        {"the other thumb", Range, 20, 80, 10, type({UXKeyCode::Tab, UXKeyCode::Left}), 20, 70, 1, 1},
        {"as far as it goes", Range, 20, 80, 0, type({UXKeyCode::End}), 80, 80, 1, 1},
        {"no track", Range, 20, 80, 0,
         [&](Slider& s) {
             s.part->setBounds(7, 7);
             drag(20, 100)(s);
             type({UXKeyCode::Right})(s);
         },
         20, 80, 0, 0},
    };
    const auto expectSame = [](double value, double expected) {
        EXPECT_TRUE(value == expected || (std::isnan(value) && std::isnan(expected))) << value;
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Slider place;
        int told = 0, toldFinally = 0;
        place.part->setChangedHandler([&](bool isFinal, const UXEvent&) {
            ++told;
            toldFinally += isFinal;
        });
        place.part->setType(c.type);
        place.part->setStep(c.step);
        place.part->setRange(c.from, c.to);
        c.act(place);
        expectSame(place.part->getFrom(), c.fromAfter);
        expectSame(place.part->getTo(), c.toAfter);
        EXPECT_EQ(told, c.told);
        EXPECT_EQ(toldFinally, c.toldFinally);
        KXChartSlider read;
        EXPECT_TRUE(read.deserialize(place.part->serialize(), nullptr));
        expectSame(read.getFrom(), c.fromAfter);
    }
}

TEST(KXTextLine, EditsWhatIsSelected)
{
    // A character is 6.5 units wide and the text begins at 7.
    using Line = Place<KXTextLine>;
    const auto type = [](UXKeyCode key, UXEventKey held = UXEventKey(), const std::string& text = {}) {
        return [=](Line& line) { line.diagram.keyDown(line.with(key, held, text)); };
    };
    const auto command = [&](const char* letter) { return type(UXKeyCode(), UXEventKey::Ctrl, letter); };
    const auto typed = [&](const char* text) { return type(UXKeyCode(), UXEventKey(), text); };
    using enum UXKeyCode;
    struct Case {
        const char* name;
        std::vector<std::function<void(Line&)>> steps;
        const char* expected; // with the selection or the caret in brackets
    };
    const Case cases[] = {
        {"typed over", {type(Home), type(Right, UXEventKey::Shift), typed("x")}, "x[]ne two"},
        {"words", {type(Left, UXEventKey::Ctrl), type(Backspace, UXEventKey::Ctrl)}, "[]two"},
        {"an arrow goes to the selection's end", {command("a"), type(Left)}, "[]one two"},
        {"cut and pasted",
         {type(Left, UXEventKey::Ctrl), type(Home, UXEventKey::Shift), command("x"), type(End), command("v")},
         "twoone []"},
        {"breaks are pasted as spaces",
         {command("a"), [](Line&) { uxWriteClipboard("a\nb"); }, command("v")},
         "a b[]"},
        {"typing is undone at once",
         {typed("a"), typed("b"), type(Home), typed("c"), command("z"), command("z")},
         "one two[]"},
        {"and redone", {typed("a"), typed("b"), command("z"), command("y")}, "one twoab[]"},
        {"a change ends what was undone", {typed("a"), command("z"), typed("b"), command("y")}, "one twob[]"},
        {"dragged",
         {[](Line& line) {
             line.input.press({14, 12});
             line.input.move({30, 12});
             line.input.release({30, 12});
         }},
         "o[ne ]two"},
        {"a word",
         {[](Line& line) {
             line.diagram.mouseDoubleClick(KXTestInput::at({40, 12}));
         }},
         "one [two]"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Line line;
        line.part->setText("one two");
        line.part->takeKeys();
        for (const auto& step : c.steps)
            step(line);
        std::string shown = line.part->getInputText();
        const auto [begin, end] = line.part->getInputSelection();
        shown.insert(end, "]");
        shown.insert(begin, "[");
        EXPECT_EQ(shown, c.expected);
    }
    // What an input method composes is drawn at the caret with a line below, and is no text before it is
    // typed.
    Line composing;
    composing.part->setText("one two");
    composing.part->takeKeys();
    type(Home)(composing);
    composing.part->setInputComposition("\xE3\x81\x8B\xE3\x81\xAA", 4);
    EXPECT_EQ(composing.part->getInputCompositionCaret(), 3U) << "between characters";
    EXPECT_EQ(composing.part->getInputText(), "one two");
    const std::string drawn = composing.paint();
    EXPECT_EQ(uxFindMissing(drawn, {"addRectanglePath 7,", "\"\xE3\x81\x8B\xE3\x81\xAAone two\""}), "")
        << drawn;
    composing.part->setInputComposition("", 0);
    EXPECT_EQ(composing.paint().find("\xE3"), std::string::npos) << "cancelled";
    composing.part->setInputComposition("\xE3\x81\x8B", 3);
    typed("\xE8\x8F\xAF")(composing);
    EXPECT_EQ(composing.part->getInputText() + composing.part->getInputComposition(), "\xE8\x8F\xAFone two");
    // Where the host has a clipboard, that one counts.
    std::string hosts = "host's";
    uxSetClipboard([&] { return hosts; }, [&](const std::string& text) { hosts = text; });
    Line line;
    line.part->takeKeys();
    command("v")(line);
    command("a")(line);
    type(Right)(line);
    EXPECT_EQ(line.part->getInputText(), "host's");
    uxSetClipboard({}, {});
}

} // namespace
