#include "kx_chart_data_action.h"

#include "kx_chart_label.h"
#include "kx_test_provider.h"
#include "kx_value_chart.h"
#include "ux/ux_assert.h"
#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_event.h"
#include "ux/ux_message_right_click_param.h"
#include "ux_test_event.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

/** A clickable part that counts the paths it made and lost, and gives tests its protected step. */
class Part : public UXObject, public KXChartDataAction {
public:
    struct Path : KXChartDataPath {
        explicit Path(std::shared_ptr<int> count) : alive(std::move(count)) { ++*alive; }
        ~Path() override { --*alive; }
        std::shared_ptr<int> alive; // a path may outlive its part
    };

    Part() : KXChartDataAction(this) {}
    std::string customSerializeTypeID() override { return "Part"; }
    KXChartDataPath* createDataPath() override
    {
        if (!showsItem)
            return nullptr;
        ++made;
        return new Path(alive);
    }
    bool click(KXChartDataUser* user, bool post, const UXEvent& event,
               const KXTriggerCondition& condition = {})
    {
        return _triggerRegisteredLeftClickAction(user, post, event, condition);
    }

    bool showsItem = true;
    int made = 0;
    std::shared_ptr<int> alive = std::make_shared<int>(0);
};

class KXChartDataActionTest : public testing::Test {
protected:
    KXChartDataActionTest() { chart.setDataProvider(&provider); }

    KXTestProvider provider;
    KXValueChart chart;
    Part part;
    UXEvent event;
};

TEST_F(KXChartDataActionTest, EveryConditionHasItsSay)
{
    enum class Says { Nothing, Yes, No };
    using enum Says;
    const std::tuple<const char*, Says, Says, Says, bool> cases[] = {
        {"none", Nothing, Nothing, Nothing, true},
        {"the call's refuses", No, Nothing, Nothing, false},
        {"the call's goes before the part's own", Yes, No, Nothing, true},
        {"the part's own refuses", Nothing, No, Yes, false},
        {"the user's refuses beside the call's", Yes, Nothing, No, false},
        {"the user's refuses beside the part's", Nothing, Yes, No, false},
        {"all agree", Yes, Yes, Yes, true},
    };
    const auto condition = [](Says says) {
        return says == Nothing ? KXTriggerCondition() : [says] { return says == Yes; };
    };
    for (const auto& [name, ofCall, own, ofUser, clicked] : cases) {
        SCOPED_TRACE(name);
        provider.calls.clear();
        part.registerLeftClickActionTriggerCondition(condition(own));
        chart.registerLeftClickActionTriggerCondition(condition(ofUser));
        EXPECT_EQ(part.click(&chart, true, event, condition(ofCall)), clicked);
        EXPECT_EQ(provider.calls.size(), clicked ? 1u : 0u) << "a refused click asks nothing";
    }
}

TEST_F(KXChartDataActionTest, PathsAreDestroyedOnceAndRegisteredOnesKept)
{
    provider.leftClickAction = [] {};
    EXPECT_TRUE(part.click(&chart, false, event));
    EXPECT_EQ(part.made, 1);
    EXPECT_EQ(*part.alive, 0);

    const auto registeredAlive = std::make_shared<int>(0);
    part.registerLeftClickAction(&chart, new Part::Path(registeredAlive), {});
    EXPECT_TRUE(part.click(&chart, false, event));
    EXPECT_EQ(part.made, 1) << "the registered path serves";
    EXPECT_EQ(*registeredAlive, 1);
    part.registerLeftClickAction(&chart, nullptr, {});
    EXPECT_EQ(*registeredAlive, 0);

    part.showsItem = false;
    provider.calls.clear();
    EXPECT_FALSE(part.click(&chart, true, event));
    EXPECT_TRUE(provider.calls.empty());
}

TEST_F(KXChartDataActionTest, AnEmptyActionIsNotPostedAndCannotRun)
{
    EXPECT_TRUE(part.click(&chart, true, event));
    event.runPostedActions();
    EXPECT_THROW(part.click(&chart, false, event), std::bad_function_call);
    EXPECT_EQ(*part.alive, 0);
    provider.leftClickAction = [] { throw 1; };
    EXPECT_THROW(part.click(&chart, false, event), int);
    EXPECT_EQ(*part.alive, 0);
}

TEST_F(KXChartDataActionTest, AKeyPressRunsOnlyWhatTheHostWants)
{
    int runs = 0;
    provider.leftClickAction = [&] { ++runs; };
    part.triggerLeftClickAction(&chart);
    EXPECT_EQ(runs, 0);
    provider.wantsLeftClick = true;
    part.triggerLeftClickAction(&chart);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(*part.alive, 0);
}

TEST_F(KXChartDataActionTest, ARightClickAsksForItsMenuOnlyWhereOneIsWanted)
{
    UXEvent click(UXEventType::RightClick);
    part.registerRightClickMenu(&chart, {});
    EXPECT_FALSE(part.triggerEventHandler(click));
    provider.wantsRightClick = true;
    part.registerRightClickMenu(&chart, {});
    part.registerRightClickMenu(&chart, {});
    provider.calls.clear();
    EXPECT_TRUE(part.triggerEventHandler(click));
    EXPECT_EQ(provider.calls, std::vector<std::string>{"rightClickContext"})
        << "asked once, however often registered";
    part.registerRightClickMenuTriggerCondition([] { return false; });
    provider.calls.clear();
    EXPECT_FALSE(part.triggerEventHandler(click));
    EXPECT_TRUE(provider.calls.empty());
}

TEST_F(KXChartDataActionTest, MissingObjectsAreReported)
{
    int reports = 0;
    uxSetAssertHandler([&](std::source_location) { ++reports; });
    EXPECT_FALSE(part.click(nullptr, true, event));
    part.triggerLinkedHighlightAction(nullptr, &part, event);
    part.triggerLinkedHighlightClearAction(&chart, nullptr, event);
    uxSetAssertHandler({});
    EXPECT_EQ(reports, 3);
    EXPECT_TRUE(provider.calls.empty());
}

TEST_F(KXChartDataActionTest, TheHostMayDestroyThePartWhileItAnswers)
{
    auto doomed = std::make_unique<Part>();
    provider.onCall = [&](const std::string&) { doomed.reset(); };
    doomed->registerRightClickMenu(&chart, {});
    EXPECT_EQ(doomed, nullptr);
}

TEST_F(KXChartDataActionTest, AnActionThatOutlivesItsChartAsksNothing)
{
    auto doomed = std::make_unique<KXValueChart>();
    doomed->setDataProvider(&provider);
    provider.wantsLeftClick = provider.wantsRightClick = provider.wantsHighlight = true;
    part.registerLeftClickAction(doomed.get(), {});
    part.registerRightClickMenu(doomed.get(), {});
    part.registerLinkedHighlightAction(doomed.get(), {});
    doomed.reset();
    provider.calls.clear();
    for (const UXEventType type :
         {UXEventType::MouseEnter, UXEventType::LeftClick, UXEventType::RightClick, UXEventType::MouseLeave})
        EXPECT_FALSE(part.triggerEventHandler(UXEvent(type)));
    EXPECT_TRUE(provider.calls.empty());
}

TEST_F(KXChartDataActionTest, AContextMenuOpensOnceWhereTheUserClicked)
{
    struct MenuControl : UXControl {
        void notifyRightClickMenu(UXMessageRightClickParam* param, UXPoint) override
        {
            sources.push_back(param->event->getSourceObject());
        }
        std::vector<UXObject*> sources;
    };
    UXContext context;
    UXDiagram diagram(&context);
    MenuControl first, second;
    diagram.setRect({0, 0, 100, 100});
    part.setRect({0, 0, 50, 50});
    diagram.addChild(&part);
    for (MenuControl* control : {&first, &second})
        context.setActiveDiagram(control, &diagram);
    int menu = 0;
    provider.wantsRightClick = true;
    provider.rightClickContext = &menu;
    part.registerRightClickMenu(&chart, {});
    for (MenuControl* control : {&second, &first, &second}) {
        control->mouseDown({10, 10}, uxMakeEventAt(10, 10, UXEventKey::RightButton));
        control->mouseUp({10, 10}, uxMakeEventAt(10, 10, UXEventKey::RightButton));
    }
    EXPECT_EQ(first.sources, std::vector<UXObject*>{&part});
    EXPECT_EQ(second.sources, std::vector<UXObject*>(2, &part));
}

TEST_F(KXChartDataActionTest, AHighlightIsAskedForWhenTheDispatchIsOver)
{
    /** A chart that notes for which source its linked charts are asked. */
    class LinkedChart : public KXValueChart {
    public:
        void linkedHighlightRequested(KXChartDataUser*, const KXChartDataPath&, UXObject* source,
                                      const UXEvent& event) override
        {
            sources.push_back(source);
            event.postAction([this] { ++actionCount; });
        }
        std::vector<UXObject*> sources;
        int actionCount = 0;
    };
    LinkedChart linked;
    linked.setDataProvider(&provider);
    provider.wantsHighlight = true;
    part.triggerLinkedHighlightAction(&linked, &part, event);
    EXPECT_TRUE(linked.sources.empty());
    event.runPostedActions();
    EXPECT_EQ(linked.sources, std::vector<UXObject*>{&part});
    EXPECT_EQ(linked.actionCount, 1);

    auto doomed = std::make_unique<UXObject>();
    provider.onCall = [&](const std::string&) { doomed.reset(); };
    part.triggerLinkedHighlightAction(&linked, doomed.get(), event);
    event.runPostedActions();
    EXPECT_EQ(linked.sources, (std::vector<UXObject*>{&part, nullptr})) << "the host destroyed the source";
    part.triggerLinkedHighlightAction(&linked, &part, UXEvent()); // an event that nobody dispatches
}

} // namespace
