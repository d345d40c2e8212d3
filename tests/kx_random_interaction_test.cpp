#include "kx_chart_property.h"
#include "kx_chart_toolbox.h"
#include "kx_chart_toolbox_menu_context.h"
#include "kx_load_chart.h"
#include "kx_menu.h"
#include "kx_menu_event_diagram.h"
#include "kx_menu_item.h"
#include "kx_test_input.h"
#include "kx_test_provider.h"
#include "kx_value_chart.h"
#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_message_right_click_param.h"
#include "ux/ux_recording_paint_config.h"
#include "ux/ux_rect_functions.h"
#include "ux_fixed_measurer.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <random>

namespace {

/** A host's view that opens the menus that charts ask it for. */
class MenuControl : public UXControl {
public:
    KXMenuEventDiagram menus;

    void notifyRightClickMenu(UXMessageRightClickParam* param, UXPoint) override
    {
        const UXPoint point = param->event->getMousePoint();
        menus.openMenu(getActiveDiagram(), *static_cast<std::vector<KXMenuEntry>*>(param->data),
                       {point.x, point.y, 0, 0});
    }
};

/** A board of charts whose user and host do anything at any time, in the middle of each other's calls. */
class Board {
public:
    explicit Board(unsigned seed) : m_random(seed)
    {
        m_diagram.setRect(uxMakeRect(0, 0, 400, 300));
        m_context.setActiveDiagram(&m_control, &m_diagram);
        m_provider.wantsToolbox = m_provider.wantsDropDown = m_provider.wantsRightClick = true;
        m_provider.toolboxContext = &m_strip;
        m_provider.dropDownContext = &m_dropDown;
        m_provider.rightClickContext = &m_contextMenu;
        m_provider.onCall = [this](const std::string&) { _disturb(30); };
        _changeMenus();
    }

    void step()
    {
        if (_below(40) == 0 || m_charts.empty())
            _changeBoard();
        _sendSomething();
        if (_below(100) == 0) {
            m_provider.calls.clear();
            m_provider.paths.clear();
            m_diagram.layout();
            UXRecordingPaintConfig config;
            m_diagram.paint(&config, m_diagram.getBoundingRect());
        }
        _check(m_control.menus);
        for (const auto& chart : m_charts) {
            if (const KXMenuEventDiagram* menus = chart->getToolbox()->getMenuDiagram())
                _check(*menus);
        }
    }

    int actions = 0, menusSeen = 0;

private:
    using Entry = bool (UXObject::*)(const UXEvent&);

    int _below(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }

    void _check(const KXMenuEventDiagram& shown)
    {
        const std::vector<KXMenu*> menus = shown.getMenus();
        menusSeen += menus.size() > 1;
        EXPECT_EQ(shown.getVisible(), shown.isOpen());
        for (std::size_t i = 0; i < menus.size(); ++i) {
            EXPECT_TRUE(uxContainsRect(shown.getBoundingRect(), menus[i]->getFrameRect()));
            const KXMenuItem* current = menus[i]->getItem(menus[i]->getCurrentIndex());
            EXPECT_TRUE(i + 1 == menus.size() || (current && current->hasSubMenu()));
        }
    }

    std::vector<KXMenuEntry> _makeEntries(int depth)
    {
        std::vector<KXMenuEntry> entries;
        for (int i = 1 + _below(8); i > 0; --i) {
            KXMenuEntry entry = makeEntry(std::string(static_cast<std::size_t>(_below(30)), 'a'));
            entry.icon = static_cast<KXMenuIcon>(_below(14));
            entry.enabled = _below(5) != 0;
            entry.checked = _below(5) == 0;
            entry.separator = _below(8) == 0;
            if (depth > 0 && _below(3) == 0)
                entry.entries = _makeEntries(depth - 1);
            else if (_below(4) != 0)
                entry.action = [this] {
                    EXPECT_EQ(m_depth, 0) << "an action runs after the event";
                    ++actions;
                    _disturb(3);
                };
            entries.push_back(entry);
        }
        return entries;
    }
    void _changeMenus()
    {
        m_strip.entries = _makeEntries(2);
        m_dropDown.entries = _makeEntries(1);
        m_contextMenu = _makeEntries(2);
    }

    /** Once in so many calls the host does something in the middle of what called it. */
    void _disturb(int oneIn)
    {
        if (_below(oneIn) == 0)
            _changeBoard();
        if (m_depth < 2 && _below(2 * oneIn) == 0)
            _sendSomething();
    }

    void _changeBoard()
    {
        const int choice = _below(8);
        KXValueChart* chart = m_charts.empty() ? nullptr : m_charts[_index()].get();
        if (!chart || (choice < 2 && m_charts.size() < 6)) {
            chart = m_charts.emplace_back(std::make_unique<KXValueChart>()).get();
            chart->setAlign(UXAlign::None);
            chart->setRect(uxMakeRect(_below(300), _below(200), 20 + _below(200), 20 + _below(150)));
            chart->setDataProvider(&m_provider);
            m_diagram.addChild(chart);
            kxLoad(*chart);
        } else if (choice < 4) {
            const std::size_t index = _index();
            const std::unique_ptr<KXValueChart> gone = std::move(m_charts[index]);
            m_charts.erase(m_charts.begin() + static_cast<std::ptrdiff_t>(index));
        } else if (choice == 4) {
            _changeMenus();
        } else if (choice == 5) {
            chart->setVisible(_below(4) != 0);
        } else if (choice == 6) {
            chart->setParent(_below(4) == 0 ? nullptr : &m_diagram);
        } else {
            m_diagram.setFocusedObject(chart->getToolbox());
        }
    }
    std::size_t _index() { return static_cast<std::size_t>(_below(static_cast<int>(m_charts.size()))); }

    /** @return mostly a place on an open menu, or on a button where none is open */
    UXPoint _pickPoint()
    {
        std::vector<const UXObject*> targets{&m_diagram};
        const auto addMenus = [&](const KXMenuEventDiagram* shown) {
            for (KXMenu* menu : shown ? shown->getMenus() : std::vector<KXMenu*>())
                targets.insert(targets.end(), menu->getChildren().begin(), menu->getChildren().end());
        };
        addMenus(&m_control.menus);
        for (const auto& chart : m_charts)
            addMenus(chart->getToolbox()->getMenuDiagram());
        const bool menuIsOpen = targets.size() > 1;
        for (const auto& chart : m_charts) {
            const auto& buttons = chart->getToolbox()->getChildren();
            if (!menuIsOpen && chart->getToolbox()->getVisible())
                targets.insert(targets.end(), buttons.begin(), buttons.end());
        }
        const UXObject& target = *targets[static_cast<std::size_t>(_below(static_cast<int>(targets.size())))];
        const UXRect rect = target.getBoundingRect();
        const UXPoint point{_below(rect.width + 10) - 5, _below(rect.height + 10) - 5};
        return target.translatePointToParent(point, nullptr);
    }

    void _sendSomething()
    {
        static constexpr UXKeyCode keys[] = {
            UXKeyCode::Up,  UXKeyCode::Down,  UXKeyCode::Left,  UXKeyCode::Right,  UXKeyCode::Home,
            UXKeyCode::End, UXKeyCode::Enter, UXKeyCode::Space, UXKeyCode::Escape, UXKeyCode::Tab};
        static constexpr Entry entries[] = {
            &UXObject::mouseMove, &UXObject::mouseMove,  &UXObject::mouseDown,       &UXObject::mouseUp,
            &UXObject::keyDown,   &UXObject::keyDown,    &UXObject::mouseLeave,      &UXObject::mouseWheel,
            &UXObject::keyUp,     &UXObject::mouseEnter, &UXObject::mouseDoubleClick};
        const UXEventKey button = _below(5) == 0 ? UXEventKey::RightButton : UXEventKey::LeftButton;
        UXEvent event = KXTestInput::at(_pickPoint(), button);
        event.setWheelDelta({0, static_cast<double>(_below(5) - 2)});
        event.setKeyText("a");
        event.setKeyCode(_below(4) == 0 ? 0 : static_cast<int>(keys[_below(10)]));
        const int choice = _below(12);
        if (choice < 8) {
            _send(entries[choice], event);
        } else {
            _send(&UXObject::mouseDown, event.copyWithoutActions());
            _send(&UXObject::mouseUp, event);
        }
    }
    void _send(Entry entry, const UXEvent& event)
    {
        // The posted actions come last, in the order in which they were posted.
        const int depth = m_depth++;
        event.postAction([this] { m_depth = 0; });
        (m_diagram.*entry)(event);
        m_depth = depth;
    }

    std::mt19937 m_random;
    UXFixedMeasurer m_measurer;
    KXChartToolboxMenuContext m_strip, m_dropDown;
    std::vector<KXMenuEntry> m_contextMenu;
    KXTestProvider m_provider;
    UXContext m_context;
    UXDiagram m_diagram;
    MenuControl m_control;
    std::vector<std::unique_ptr<KXValueChart>> m_charts;
    int m_depth = 0; // of dispatches inside one another
};

class KXRandomInteraction : public testing::TestWithParam<unsigned> {};

} // namespace

TEST_P(KXRandomInteraction, MenusStandInsideAndActionsRunAfterTheirEvents)
{
    Board board(GetParam());
    for (int i = 0; i < 25000 && !HasFailure(); ++i)
        board.step();
    EXPECT_GT(board.actions, 100);
    EXPECT_GT(board.menusSeen, 100);
}

INSTANTIATE_TEST_SUITE_P(Seeds, KXRandomInteraction, testing::Values(1u, 2u, 3u, 4u));
