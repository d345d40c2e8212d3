#include "kx_interaction.h"

#include "kx_chart_label.h"
#include "kx_chart_property.h"
#include "kx_interaction_color_effect.h"
#include "kx_interaction_context_menu_default_effect.h"
#include "kx_interaction_highlight_color_pattern_effect.h"
#include "kx_interaction_highlight_complementary_info_effect.h"
#include "kx_interaction_highlight_size_effect.h"
#include "kx_test_provider.h"
#include "kx_value_chart.h"
#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_event.h"
#include "ux/ux_message_right_click_param.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

/** A user that counts its uses of the provider, and can itself have conditions. */
class InteractiveUser : public UXObject, public KXInteraction, public KXInteractionUser {
public:
    InteractiveUser() : KXInteraction(this) {}
    std::string customSerializeTypeID() override { return "InteractiveUser"; }
    void endUseInteractionProvider() override { ++ended; }
    int ended = 0;
};

/** A chart's part that opens its dispatch. */
class Part : public UXObject, public KXInteraction {
public:
    Part() : KXInteraction(this) {}
    std::string customSerializeTypeID() override { return "Part"; }
    bool dispatch(KXInteractionUser& user, bool post, const UXEvent& event, KXInteractionEventType type,
                  const std::vector<KXObjectID>& ids, const KXInteractionCondition& condition = {})
    {
        return _triggerRegisteredInteraction(&user, post, event, type, ids, condition);
    }
};

KXObjectID makeID(std::uint64_t index)
{
    return KXObjectID::instance().path(kxCreateObjectIDPath(std::string("part"))).index(index);
}

class KXInteractionTest : public testing::Test {
protected:
    KXInteractionTest() { user.setInteractionProvider(&provider); }

    using Type = KXInteractionEventType;
    KXTestProvider provider;
    InteractiveUser user;
    Part part;
    UXEvent event;
};

TEST_F(KXInteractionTest, TellsTheProviderTheButtonAndTheModifiers)
{
    using enum UXEventKey;
    const std::tuple<std::vector<UXEventKey>, int, bool, bool, bool> cases[] = {
        {{}, 0, false, false, false},
        {{LeftButton, Shift}, 1, true, false, false},
        {{RightButton, Ctrl}, 3, false, true, false},
        {{RightButton, LeftButton, Alt}, 1, false, false, true},
    };
    for (const auto& [keys, button, first, second, third] : cases) {
        UXEvent click;
        for (const UXEventKey key : keys)
            click.addEventKey(key);
        EXPECT_TRUE(part.dispatch(user, true, click, Type::LeftClick, {makeID(1)}));
        const auto& [code, firstModifier, secondModifier, thirdModifier] = provider.eventInfo;
        EXPECT_EQ(std::tie(code, firstModifier, secondModifier, thirdModifier),
                  std::tie(button, first, second, third));
    }
}

TEST_F(KXInteractionTest, EveryConditionHasItsSayForItsTypeOfEvent)
{
    enum class Says { Nothing, Yes, No };
    using enum Says;
    const std::tuple<const char*, Says, Says, Says, Type, bool, bool> cases[] = {
        {"none", Nothing, Nothing, Nothing, Type::MouseEnter, false, true},
        {"no identifiers", Nothing, Nothing, Nothing, Type::MouseEnter, true, false},
        {"the call's refuses", No, Yes, Yes, Type::MouseEnter, false, false},
        {"the call's goes before the part's own", Yes, No, Nothing, Type::MouseEnter, false, true},
        {"the part's own refuses", Nothing, No, Yes, Type::MouseEnter, false, false},
        {"the user's refuses beside the call's", Yes, Nothing, No, Type::MouseEnter, false, false},
        {"the user's refuses beside the part's", Nothing, Yes, No, Type::MouseEnter, false, false},
        {"all agree", Yes, Yes, Yes, Type::MouseEnter, false, true},
        {"those of another type have none", Nothing, No, No, Type::LeftClick, false, true},
    };
    const auto condition = [](Says says) {
        return says == Nothing ? KXInteractionCondition()
                               : [says](Type, const UXEvent&) { return says == Yes; };
    };
    for (const auto& [name, ofCall, own, ofUser, conditionsFor, empty, asked] : cases) {
        SCOPED_TRACE(name);
        Part fresh;
        InteractiveUser freshUser;
        freshUser.setInteractionProvider(&provider);
        fresh.registerInteractionTriggerCondition(conditionsFor, condition(own));
        freshUser.registerInteractionTriggerCondition(conditionsFor, condition(ofUser));
        provider.objectIDs.clear();
        const std::vector<KXObjectID> ids(empty ? 0 : 1, makeID(1));
        EXPECT_TRUE(fresh.dispatch(freshUser, true, event, Type::MouseEnter, ids, condition(ofCall)))
            << "handled, whatever came of it";
        EXPECT_EQ(provider.objectIDs.size(), asked ? 1u : 0u);
        EXPECT_EQ(freshUser.ended, asked ? 1 : 0) << "every use is ended";
    }
}

TEST_F(KXInteractionTest, EveryRegistrationSaysWhatIsPointedAt)
{
    const std::vector<KXObjectID> one{makeID(7)}, two{makeID(1), makeID(2)};
    const KXInteractionObjectIDs perEvent = [](const UXEvent& e) {
        return std::vector<KXObjectID>{makeID(static_cast<std::uint64_t>(e.getMousePoint().x))};
    };
    const KXInteractionCondition yes = [](Type, const UXEvent&) { return true; };
    const KXInteractionCondition no = [](Type, const UXEvent&) { return false; };
    const std::set<Type> types{Type::LeftClick, Type::RightClick};
    using Asked = std::vector<std::vector<KXObjectID>>;
    const std::pair<std::function<void()>, Asked> cases[] = {
        {[&] { part.registerInteraction(&user, types, makeID(7)); }, {one}},
        {[&] { part.registerInteraction(&user, types, makeID(4), no); }, {}},
        {[&] { part.registerInteraction(&user, types, two); }, {two}},
        {[&] { part.registerInteraction(&user, types, two, yes); }, {two}},
        {[&] { part.registerInteraction(&user, types, perEvent); }, {one}},
        {[&] { part.registerInteraction(&user, types, perEvent, no); }, {}},
    };
    for (const auto& [registerAnew, expected] : cases) {
        registerAnew();
        for (const UXEventType type : {UXEventType::LeftClick, UXEventType::RightClick}) {
            provider.objectIDs.clear();
            UXEvent click(type);
            click.setMousePoint({7, 0});
            EXPECT_TRUE(part.triggerEventHandler(click));
            EXPECT_EQ(provider.objectIDs, expected) << "once: a registration replaces the one before";
        }
    }
    EXPECT_FALSE(part.triggerEventHandler(UXEvent(UXEventType::MouseEnter))) << "nobody cares";
}

TEST_F(KXInteractionTest, DoesWhatTheProviderSays)
{
    class MenuControl : public UXControl {
    public:
        void notifyRightClickMenu(UXMessageRightClickParam* param, UXPoint) override { menu = param->data; }
        void* menu = nullptr;
    };
    UXContext context;
    UXDiagram diagram(&context);
    MenuControl control;
    context.setActiveDiagram(&control, &diagram);
    diagram.addChild(&part);

    int runs = 0, menu = 0;
    provider.operation.action = [&runs] { ++runs; };
    provider.operation.contextMenu = &menu;
    part.dispatch(user, true, event, Type::RightClick, {makeID(1)});
    EXPECT_EQ(runs, 0) << "the action waits for the end of the dispatch";
    EXPECT_EQ(control.menu, &menu);
    event.runPostedActions();
    EXPECT_EQ(runs, 1);
    part.triggerInteraction(&user, Type::LeftClick, makeID(1));
    part.triggerInteraction(&user, Type::LeftClick, std::vector<KXObjectID>{makeID(1)});
    EXPECT_EQ(runs, 3) << "without an event it runs at once";

    user.setInteractionProvider(nullptr);
    EXPECT_TRUE(part.dispatch(user, true, event, Type::LeftClick, {makeID(1)}));
    KXValueChart chart;
    chart.setInteractionProvider(&provider);
    chart.getChartProperty()->setEnableInteraction(false);
    provider.objectIDs.clear();
    EXPECT_TRUE(part.dispatch(chart, true, event, Type::LeftClick, {makeID(1)}));
    EXPECT_TRUE(provider.objectIDs.empty()) << "the chart answers no pointer";

    auto* doomed = new Part;
    user.setInteractionProvider(&provider);
    provider.onCall = [doomed](const std::string&) { delete doomed; };
    EXPECT_TRUE(doomed->dispatch(user, true, event, Type::LeftClick, {makeID(1)}));

    struct CountingChart : KXValueChart {
        void endUseInteractionProvider() override { ++ended; }
        int ended = 0;
    } counting;
    counting.setInteractionProvider(&provider);
    doomed = new Part;
    provider.onCall = [doomed](const std::string&) { delete doomed; };
    EXPECT_TRUE(doomed->dispatch(counting, true, event, Type::LeftClick, {makeID(1)}));
    EXPECT_EQ(counting.ended, 1) << "the part has gone, its chart's use ends all the same";
}

TEST(KXChartLabel, LooksAsItsEffectsAndItsHighlightSay)
{
    const UXFixedMeasurer measurer;
    using Effect = std::unique_ptr<KXInteractionEffect>;
    const auto makeColor = [](int red) {
        return std::make_unique<KXInteractionColorEffect>(UXColor(red, 2, 3));
    };
    auto larger = std::make_unique<KXInteractionHighlightSizeEffect>();
    larger->setSizeRatio(1.5);
    using enum KXHighlightState;
    std::tuple<const char*, Effect, KXHighlightState, std::string, bool> cases[] = {
        {"usual", nullptr, None, "100,0,0", false},
        {"colour", makeColor(1), None, "1,2,3", false},
        {"a pattern's lines",
         std::make_unique<KXInteractionHighlightColorPatternEffect>(makeColor(9), makeColor(4)), None,
         "4,2,3", false},
        {"a pattern of fills alone",
         std::make_unique<KXInteractionHighlightColorPatternEffect>(makeColor(9), nullptr), None, "100,0,0",
         false},
        {"size", std::move(larger), None, "30", false},
        {"dimmed", nullptr, Dimmed, "100,0,0,0.35", false},
        {"lit", nullptr, Lit, "100,0,0,0.12", true},
        {"lit, and the host says nothing about the look",
         std::make_unique<KXInteractionHighlightComplementaryInfoEffect>(), Lit, "100,0,0,0.12", true},
        {"as with an open menu", std::make_unique<KXInteractionContextMenuDefaultEffect>(), None,
         "100,0,0,0.12", true},
        {"lit as the host says", makeColor(7), Lit, "7,2,3", false},
    };
    for (auto& [name, effect, state, look, glows] : cases) {
        SCOPED_TRACE(name);
        KXChartLabel label;
        UXTextProperty property;
        property.font.size = 20;
        property.textColor = UXColor(100, 0, 0);
        label.setTextProperty(property);
        label.setText("text");
        label.setRect({10, 20, 40, 20});
        label.updateInteractionEffects({effect.release()});
        label.updateHighlightState(state);
        const std::string drawn = uxPaintToText(label);
        EXPECT_NE(drawn.find(look), std::string::npos) << drawn;
        EXPECT_EQ(drawn.find("fill") != std::string::npos, glows) << drawn;
        EXPECT_EQ(label.inRect({-3, 0, 1, 1}), glows || label.obtainDrawnSizeRatio() > 1)
            << "what reaches over the edge is painted with it";
    }
}

} // namespace
