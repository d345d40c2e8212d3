#include "kx_axis_chart_test_provider.h"
#include "kx_bar_chart.h"
#include "kx_chart_label.h"
#include "kx_chart_linked_action_diagram.h"
#include "kx_chart_property.h"
#include "kx_chart_toolbox.h"
#include "kx_gauge_chart.h"
#include "kx_legend.h"
#include "kx_line_bar_chart.h"
#include "kx_test_input.h"
#include "kx_test_provider.h"
#include "kx_value_chart.h"
#include "ux/ux_color.h"
#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_global_control_space_event_diagram.h"
#include "ux/ux_localize.h"
#include "ux/ux_recording_paint_config.h"
#include "ux_fixed_measurer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

/** Where a host is called. */
enum class Hook { Notification, Question, Localizer, Handler };
/** What it does there. */
enum class Deed {
    DestroyChart,
    DestroyLinks,
    DestroyHints,
    DestroyDiagram,
    DestroyControl,
    DestroyContext,
    DestroyProvider,
    Throw
};

constexpr const char* hookNames[] = {"notification", "question", "localizer", "handler"};
constexpr const char* deedNames[] = {"chart",   "links",   "hints",    "diagram",
                                     "control", "context", "provider", "exception"};

/** An item of one chart answers to the same item of any other. */
template <class Provider>
class LinkingProvider : public Provider {
public:
    explicit LinkingProvider(std::function<void()> called)
    {
        this->wantsHighlight = true;
        this->onCall = [called](const std::string&) { called(); };
    }
    KXChartDataPath* obtainDataLinkedHighlightTargetPath(KXChartDataUser*, KXChartDataPath* path,
                                                         KXChartDataProvider*) override
    {
        auto* answer = new KXChartDataPath(*path);
        this->onCall("linked path");
        return answer;
    }
};

struct Kind {
    const char* name;
    std::function<std::unique_ptr<KXChart>()> makeChart;
    std::function<std::unique_ptr<KXChartDataProvider>(std::function<void()>)> makeProvider;
};

const Kind kinds[] = {
    {"bars", [] { return std::make_unique<KXBarChart>(); },
     [](std::function<void()> called) {
         auto made = std::make_unique<LinkingProvider<KXAxisChartTestProvider>>(std::move(called));
         made->values = {{1, 2, 3}, {3, 1, 2}, {2, 2, 2}};
         return made;
     }},
    {"lines and bars", [] { return std::make_unique<KXLineBarChart>(); },
     [](std::function<void()> called) {
         auto made = std::make_unique<LinkingProvider<KXAxisChartTestProvider>>(std::move(called));
         made->values = {{1, 2, 3}, {3, 1, 2}};
         return made;
     }},
    {"value", [] { return std::make_unique<KXValueChart>(); },
     [](std::function<void()> called) {
         return std::make_unique<LinkingProvider<KXTestProvider>>(std::move(called));
     }},
    {"gauge", [] { return std::make_unique<KXGaugeChart>(); },
     [](std::function<void()> called) {
         auto made = std::make_unique<LinkingProvider<KXTestProvider>>(std::move(called));
         made->measures = {30, 50, 0, 100};
         return made;
     }},
};

/** Two linked charts on a control that paints as soon as it is told to. */
class Board {
public:
    explicit Board(const Kind& kind) : m_kind(kind)
    {
        uxSetLocalizer([this](const std::string& text) {
            const std::string own = text;
            reach(Hook::Localizer);
            return own;
        });
        revive();
    }
    ~Board() { uxSetLocalizer({}); }
    Board(const Board&) = delete;
    Board& operator=(const Board&) = delete;

    /** Puts back what has gone. */
    void revive()
    {
        if (!control)
            control = std::make_unique<Control>(*this);
        if (!context)
            context = std::make_unique<UXContext>();
        if (!diagram)
            diagram = std::make_unique<UXDiagram>();
        if (!hints)
            hints = std::make_unique<UXGlobalControlSpaceEventDiagram>();
        if (!links)
            links = std::make_unique<KXChartLinkedActionDiagram>();
        diagram->setAlign(UXAlign::Client);
        context->setActiveDiagram(control.get(), diagram.get());
        control->setControlRect({0, 0, 600, 300});
        diagram->registerGlobalEventDiagram(hints.get());
        diagram->registerGlobalEventDiagram(links.get());
        _revive(neighbour, neighbourProvider, 300, [] {});
        _revive(chart, provider, 0, [this] { reach(Hook::Question); });
        diagram->layout();
    }

    KXChartDataUser& user() { return *chart->obtainLegendDataUser(); }
    UXControlPoint middle()
    {
        const UXPoint point = middleOf(*chart);
        return {point.x, point.y};
    }
    UXControlPoint legendCell()
    {
        const UXRect legend = chart->translateRectToParent(chart->getLegend()->getRect(), nullptr);
        return {legend.x + 20, legend.y + 10};
    }
    void key(UXKeyCode code)
    {
        UXEvent event;
        event.setKeyCode(static_cast<int>(code));
        control->keyDown(event);
    }
    void press(UXControlPoint point, UXEventKey button = UXEventKey::LeftButton)
    {
        control->mouseDown(point, KXTestInput::at({}, button));
    }
    void release(UXControlPoint point, UXEventKey button = UXEventKey::LeftButton)
    {
        control->mouseUp(point, KXTestInput::at({}, button));
    }

    /** From here on the host does what it does at the call of the hook that follows so many others. */
    void arm(Hook hook, Deed deed, int callsBefore)
    {
        m_hook = hook;
        m_deed = deed;
        m_callsBefore = callsBefore;
        m_isArmed = true;
    }
    /** @return whether the host's call has come */
    bool disarm() { return !std::exchange(m_isArmed, false); }

    /** @return whether the chart, where it is still on a view, loads and lays itself out as always */
    bool isUsable()
    {
        if (!chart || !diagram || !chart->hasParent(diagram.get()) || !chart->getVisible())
            return true;
        user().setDataProvider(provider.get());
        user().prepareData();
        user().reloadData();
        diagram->layout();
        UXRecordingPaintConfig config;
        diagram->paint(&config, diagram->getBoundingRect());
        return !chart->getRequireToVerifyLayout() && !chart->isUpdating();
    }

    std::unique_ptr<KXChartDataProvider> provider, neighbourProvider;
    std::unique_ptr<UXContext> context;
    std::unique_ptr<UXControl> control;
    std::unique_ptr<UXDiagram> diagram;
    std::unique_ptr<UXGlobalControlSpaceEventDiagram> hints;
    std::unique_ptr<KXChartLinkedActionDiagram> links;
    std::unique_ptr<KXChart> chart, neighbour;

private:
    class Control : public UXControl {
    public:
        explicit Control(Board& board) : m_board(board) {}

        void notifyDirtyRect(UXDiagram* diagram) override
        {
            const std::weak_ptr<const bool> life = getLife();
            const UXObjectWatcher shown(diagram);
            m_board.reach(Hook::Notification);
            if (!life.expired() && shown.isAlive())
                diagram->repaintDirtyRect();
        }
        void notifyFullScreenDirtyRect(UXDiagram*) override { m_board.reach(Hook::Notification); }
        void notifyCursorChange(int) override { m_board.reach(Hook::Notification); }
        void notifyResetScroller() override { m_board.reach(Hook::Notification); }
        UXPaintConfig* obtainPaintConfig(UXDiagram*) override { return &m_config; }

    private:
        Board& m_board;
        UXRecordingPaintConfig m_config;
    };

    void _revive(std::unique_ptr<KXChart>& shown, std::unique_ptr<KXChartDataProvider>& data, int left,
                 const std::function<void()>& asked)
    {
        if (!data)
            data = m_kind.makeProvider(asked);
        if (!shown)
            shown = _makeChart();
        shown->setVisible(true);
        shown->setRect({left, 0, 300, 300});
        diagram->addChild(shown.get());
        KXChartDataUser& dataUser = *shown->obtainLegendDataUser();
        dataUser.setDataProvider(data.get());
        dataUser.prepareData();
        dataUser.reloadData();
    }

    std::unique_ptr<KXChart> _makeChart()
    {
        std::unique_ptr<KXChart> made = m_kind.makeChart();
        made->setAlign(UXAlign::None);
        made->getChartProperty()->updateTitleValue("title");
        for (const UXEventType type :
             {UXEventType::MouseMove, UXEventType::MouseEnter, UXEventType::MouseLeave,
              UXEventType::MouseDown, UXEventType::LeftClick, UXEventType::KeyDown})
            made->registerEventHandler(type, [this](const UXEvent&) {
                reach(Hook::Handler);
                return false;
            });
        return made;
    }

    void reach(Hook hook)
    {
        if (!m_isArmed || hook != m_hook || m_callsBefore-- > 0)
            return;
        m_isArmed = false;
        switch (m_deed) {
        case Deed::DestroyChart:
            return chart.reset();
        case Deed::DestroyLinks:
            return links.reset();
        case Deed::DestroyHints:
            return hints.reset();
        case Deed::DestroyDiagram:
            return diagram.reset();
        case Deed::DestroyControl:
            return control.reset();
        case Deed::DestroyContext:
            return context.reset();
        case Deed::DestroyProvider:
            if (chart)
                user().setDataProvider(nullptr);
            return provider.reset();
        case Deed::Throw:
            throw std::runtime_error("the host's");
        }
    }

    const Kind& m_kind;
    UXFixedMeasurer m_measurer;
    Hook m_hook{};
    Deed m_deed{};
    int m_callsBefore = 0;
    bool m_isArmed = false;
};

struct Operation {
    const char* name;
    std::function<void(Board&)> act; // one call of the framework
    std::function<void(Board&)> prepare = {};
    bool destroys = false; // destructors let no exception out
};

const KXChartDataPath& firstItem()
{
    static const KXChartDataPath path = [] {
        KXChartDataPath made;
        made.valueIndexPath = {0, 0};
        return made;
    }();
    return path;
}

const Operation operations[] = {
    {"prepare", [](Board& b) { b.user().prepareData(); }},
    {"reload", [](Board& b) { b.user().reloadData(); }},
    {"reload colours", [](Board& b) { b.user().reloadColors(); }},
    {"layout", [](Board& b) { b.diagram->layout(); },
     [](Board& b) {
         b.user().requestToReloadData();
         b.chart->requireLayout();
     }},
    {"layout of new data", [](Board& b) { b.diagram->layout(); },
     [](Board& b) {
         b.user().prepareData();
         b.user().reloadData();
     }},
    {"read", [](Board& b) { b.chart->deserialize(b.chart->serialize()); }},
    {"title", [](Board& b) { b.chart->getChartProperty()->updateTitleValue("other"); }},
    {"hide the title", [](Board& b) { b.chart->getChartProperty()->updateShowTitle(false); }},
    {"legend above", [](Board& b) { b.chart->getChartProperty()->updateLegendPosition(UXPosition::Top); }},
    {"background", [](Board& b) { b.chart->getChartProperty()->updateBackgroundColor(UXColor(1, 2, 3)); }},
    {"default colour", [](Board& b) { b.chart->getChartProperty()->updateDefaultColor(UXColor(1, 2, 3)); }},
    {"first only", [](Board& b) { b.chart->getChartProperty()->updateShowOnlyTopX(true); }},
    {"interaction off", [](Board& b) { b.chart->getChartProperty()->updateEnableInteraction(false); },
     [](Board& b) { b.control->mouseMove(b.middle(), {}); }},
    {"reset",
     [](Board& b) {
         b.chart->customResetProperties(
             KXChartResetType::All, b.neighbour.get(),
             {"Title", "Legend", "Background", "DataFormat", "Value", "Gauge", "Bar", "XAxis", "YAxis"});
     }},
    {"assign all",
     [](Board& b) { b.neighbour->getChartProperty()->assignTo(b.chart->getChartProperty(), {}, true); },
     [](Board& b) {
         b.neighbour->getChartProperty()->setTitleValue("from here");
         b.neighbour->getChartProperty()->setLegendPosition(UXPosition::Left);
     }},
    {"move",
     [](Board& b) {
         b.chart->setRect({10, 10, 280, 280});
     }},
    {"hide", [](Board& b) { b.chart->setVisible(false); }},
    {"paint",
     [](Board& b) {
         UXRecordingPaintConfig config;
         b.diagram->paint(&config, b.diagram->getBoundingRect());
     },
     [](Board& b) { b.diagram->layout(); }},
    {"repaint", [](Board& b) { b.context->repaint(); }},
    {"resize the control",
     [](Board& b) {
         b.control->setControlRect({0, 0, 500, 200});
     }},
    {"zoom", [](Board& b) { b.control->zoomIn(true, {}); }},
    {"show nothing", [](Board& b) { b.context->setActiveDiagram(b.control.get(), nullptr); },
     [](Board& b) { b.control->mouseMove(b.middle(), {}); }},
    {"hover", [](Board& b) { b.control->mouseMove(b.middle(), {}); }},
    {"hover on",
     [](Board& b) {
         b.control->mouseMove({b.middle().x + 60, b.middle().y + 40}, {});
     },
     [](Board& b) { b.control->mouseMove(b.middle(), {}); }},
    {"leave",
     [](Board& b) {
         b.control->mouseLeave({-1, -1}, {});
     },
     [](Board& b) { b.control->mouseMove(b.middle(), {}); }},
    {"hover the legend", [](Board& b) { b.control->mouseMove(b.legendCell(), {}); }},
    {"press", [](Board& b) { b.press(b.middle()); }, [](Board& b) { b.control->mouseMove(b.middle(), {}); }},
    {"click", [](Board& b) { b.release(b.middle()); }, [](Board& b) { b.press(b.middle()); }},
    {"right click", [](Board& b) { b.release(b.middle(), UXEventKey::RightButton); },
     [](Board& b) { b.press(b.middle(), UXEventKey::RightButton); }},
    {"click the legend", [](Board& b) { b.release(b.legendCell()); },
     [](Board& b) { b.press(b.legendCell()); }},
    {"drag", [](Board& b) { b.control->mouseMove(b.legendCell(), {}); },
     [](Board& b) { b.press(b.middle()); }},
    {"wheel",
     [](Board& b) {
         UXEvent turn;
         turn.setWheelDelta({0, 1});
         b.control->mouseWheel(b.middle(), turn);
     }},
    {"tab", [](Board& b) { b.key(UXKeyCode::Tab); },
     [](Board& b) { b.diagram->setFocusedObject(b.chart.get()); }},
    {"down in the legend", [](Board& b) { b.key(UXKeyCode::Down); },
     [](Board& b) {
         b.diagram->setFocusedObject(b.chart.get());
         b.key(UXKeyCode::Tab);
     }},
    {"tab on from the legend", [](Board& b) { b.key(UXKeyCode::Tab); },
     [](Board& b) {
         b.diagram->setFocusedObject(b.chart.get());
         b.key(UXKeyCode::Tab);
     }},
    {"escape", [](Board& b) { b.key(UXKeyCode::Escape); },
     [](Board& b) { b.control->mouseMove(b.middle(), {}); }},
    {"timer", [](Board& b) { b.control->timer(5000); },
     [](Board& b) {
         b.control->mouseMove(b.middle(), {});
         b.control->timer(1000);
     }},
    {"linked highlight", [](Board& b) { b.chart->showLinkedHighlight(firstItem(), b.control.get()); }},
    {"end a linked highlight", [](Board& b) { b.chart->hideLinkedHighlight(b.control.get()); },
     [](Board& b) { b.chart->showLinkedHighlight(firstItem(), b.control.get()); }},
    {"hover the linked chart",
     [](Board& b) {
         b.control->mouseMove({b.middle().x + 300, b.middle().y}, {});
     }},
    {"buttons", [](Board& b) { b.chart->getToolbox()->prepare(); },
     [](Board& b) {
         b.chart->getToolbox()->setDataUser(&b.user());
         b.chart->getToolbox()->setVisible(true);
     }},
    {"take off", [](Board& b) { b.diagram->removeChild(b.chart.get()); },
     [](Board& b) { b.control->mouseMove(b.middle(), {}); }},
    {"destroy", [](Board& b) { b.chart.reset(); }, [](Board& b) { b.control->mouseMove(b.middle(), {}); },
     true},
    {"destroy the links", [](Board& b) { b.links.reset(); },
     [](Board& b) { b.control->mouseMove(b.middle(), {}); }, true},
    {"destroy the hints", [](Board& b) { b.hints.reset(); },
     [](Board& b) { b.control->mouseMove(b.middle(), {}); }, true},
    {"destroy the diagram", [](Board& b) { b.diagram.reset(); },
     [](Board& b) { b.control->mouseMove(b.middle(), {}); }, true},
    {"destroy the control", [](Board& b) { b.control.reset(); },
     [](Board& b) { b.control->mouseMove(b.middle(), {}); }, true},
    {"destroy the context", [](Board& b) { b.context.reset(); },
     [](Board& b) { b.control->mouseMove(b.middle(), {}); }, true},
};

/** @return whether the host's call has come before the operation was over */
bool operate(Board& board, const Operation& operation, Hook hook, Deed deed, int callsBefore)
{
    if (operation.prepare)
        operation.prepare(board);
    board.arm(hook, deed, callsBefore);
    try {
        operation.act(board);
    } catch (const std::runtime_error&) {
        EXPECT_EQ(deed, Deed::Throw);
    }
    return board.disarm();
}

} // namespace

class KXDestroyMatrix : public testing::TestWithParam<std::size_t> {};

/** Every operation by every hook by everything that a host may do in it, the first time that it is called and
 * some later times; KX_MATRIX_ALL tries every time. */
TEST_P(KXDestroyMatrix, LeavesWhatStays)
{
    const Operation& operation = operations[GetParam()];
    const bool triesAll = std::getenv("KX_MATRIX_ALL") != nullptr;
    for (const Kind& kind : kinds) {
        for (int hook = 0; hook < std::ssize(hookNames); ++hook) {
            for (int deed = 0; deed < std::ssize(deedNames); ++deed) {
                if (operation.destroys && Deed(deed) == Deed::Throw)
                    continue;
                for (int call = 0;; call = triesAll ? call + 1 : 3 * call + 1) {
                    SCOPED_TRACE(std::string(operation.name) + ", " + kind.name + ", " + hookNames[hook] +
                                 ", " + deedNames[deed] + ", call " + std::to_string(call));
                    Board board(kind);
                    if (!operate(board, operation, Hook(hook), Deed(deed), call))
                        break;
                    ASSERT_TRUE(board.isUsable());
                }
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Operations, KXDestroyMatrix, testing::Range(std::size_t{0}, std::size(operations)),
                         [](const auto& instance) {
                             std::string name = operations[instance.param].name;
                             std::ranges::replace(name, ' ', '_');
                             return name;
                         });

class KXDestroyStorm : public testing::TestWithParam<std::size_t> {};

/** The same at random and on and on, on a board whose parts live through many operations; KX_STORM_COUNT says
 * how many. */
TEST_P(KXDestroyStorm, LeavesWhatStays)
{
    const char* wanted = std::getenv("KX_STORM_COUNT");
    const long count = wanted ? std::atol(wanted) : 1500;
    std::mt19937 random(7);
    const auto below = [&](std::size_t limit) { return static_cast<int>(random() % limit); };
    Board board(kinds[GetParam()]);
    for (long i = 0; i < count; ++i) {
        const Operation& operation = operations[below(std::size(operations))];
        const auto deed = Deed(below(std::size(deedNames) - (operation.destroys ? 1 : 0)));
        operate(board, operation, Hook(below(std::size(hookNames))), deed, below(30));
        ASSERT_TRUE(board.isUsable()) << operation.name << ", step " << i;
        board.revive();
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, KXDestroyStorm, testing::Range(std::size_t{0}, std::size(kinds)));
