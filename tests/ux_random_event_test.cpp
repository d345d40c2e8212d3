#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_event.h"
#include "ux/ux_global_event_diagram.h"
#include "ux/ux_global_smooth_scrolling_event_diagram.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux_event_probe.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace {

/** Two controls, a diagram and its global diagrams, all of which may go and come back in any callback. */
class RandomTree {
public:
    explicit RandomTree(unsigned seed) : m_random(seed) {}
    ~RandomTree()
    {
        for (const UXObjectWatcher& object : m_objects)
            delete object.getObject();
    }

    int below(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }
    long long getReachedCount() const { return m_reached; }
    const std::map<UXEventType, int>& getReachedTypes() const { return m_types; }

    void step()
    {
        replaceWhatIsGone();
        if (m_objects.size() < 12 || below(4) == 0)
            mutate();
        replaceWhatIsGone();
        send();
    }

    /** @return whether nothing believes the pointer to be on it once it has gone */
    bool isAtRestAfterLeaving()
    {
        replaceWhatIsGone();
        m_acting = false;
        m_delivered.clear();
        UXEvent release, leaving;
        release.setDragData(reinterpret_cast<void*>(++m_eventNumber));
        leaving.setDragData(reinterpret_cast<void*>(++m_eventNumber));
        m_controls[0]->mouseUp({-500, -500}, release);
        m_controls[0]->mouseLeave({-500, -500}, leaving);
        m_acting = true;
        for (const UXObjectWatcher& watcher : m_objects) {
            const auto* object = dynamic_cast<UXEventProbe*>(watcher.getObject());
            if (object && object->hasPointerState())
                return false;
        }
        return true;
    }

private:
    void reach(UXEventProbe& object, const UXEvent& event)
    {
        ++m_reached;
        ++m_types[event.getEventType()];
        const bool inTree = (m_diagram && object.hasParent(m_diagram.get())) || isAbove(object);
        EXPECT_TRUE(inTree || !m_acting);
        // The leaves of a cancelled press belong to no event that was sent.
        EXPECT_TRUE(!event.getDragData() ||
                    m_delivered.emplace(event.getDragData(), event.getEventType(), object.getName()).second)
            << "the same event twice, type " << static_cast<int>(event.getEventType());
        if (!m_acting)
            return;
        if (below(4) == 0)
            post(event);
        if (below(3) == 0)
            mutate();
    }

    bool isAbove(const UXObject& object) const { return m_above && object.hasParent(m_above.get()); }

    void replaceWhatIsGone()
    {
        if (!m_context)
            m_context = std::make_unique<UXContext>();
        if (!m_diagram) {
            m_diagram = std::make_unique<UXDiagram>(m_context.get());
            m_diagram->setRect({0, 0, 150, 100});
        }
        m_context->addDiagram(m_diagram.get());
        if (!m_scrolling)
            m_scrolling = std::make_unique<UXGlobalSmoothScrollingEventDiagram>();
        if (!m_above)
            m_above = std::make_unique<UXGlobalEventDiagram>();
        m_diagram->registerGlobalEventDiagram(m_above.get());
        m_diagram->registerGlobalEventDiagram(m_scrolling.get());
        for (std::unique_ptr<UXControl>& control : m_controls) {
            if (!control)
                control = std::make_unique<UXControl>();
            m_context->setActiveDiagram(control.get(), m_diagram.get());
            control->setControlRect({0, 0, 100, 100});
        }
    }

    UXObject* pick()
    {
        const int count = static_cast<int>(m_objects.size());
        return count == 0 ? nullptr : m_objects[static_cast<std::size_t>(below(count))].getObject();
    }

    void send()
    {
        using Entry = bool (UXControl::*)(const UXControlPoint&, const UXEvent&);
        static constexpr Entry entries[] = {
            &UXControl::mouseMove,   &UXControl::mouseMove,        &UXControl::mouseDown,
            &UXControl::mouseUp,     &UXControl::mouseMove,        &UXControl::mouseDown,
            &UXControl::mouseMove,   &UXControl::mouseUp,          &UXControl::mouseLeave,
            &UXControl::mouseWheel,  &UXControl::mouseDoubleClick, &UXControl::externalDragging,
            &UXControl::externalDrop};
        if (m_depth == 0)
            m_delivered.clear();
        UXEvent event;
        event.setDragData(reinterpret_cast<void*>(++m_eventNumber));
        event.setWheelDelta({below(3) - 1.0, below(3) - 1.0});
        event.setKeyCode(below(60));
        if (below(3) == 0)
            event.addEventKey(UXEventKey::RightButton);
        UXControl* control = m_controls[below(8) == 0].get();
        if (!control)
            return;
        const UXControlPoint point(below(110) - 5, below(110) - 5);
        const int choice = below(16);
        if (choice == 0)
            control->keyDown(event);
        else if (choice == 1)
            control->keyUp(event);
        else if (choice == 2)
            control->timer(m_now += 16);
        else
            (control->*entries[choice - 3])(point, event);
    }

    void post(const UXEvent& event)
    {
        const auto action = [this] { mutate(); };
        const int choice = below(3);
        if (choice == 0)
            event.postAction(action);
        else if (choice == 1 && m_controls[0])
            m_controls[0]->postAction(action);
        else if (m_context && m_diagram)
            m_context->postAction(m_diagram.get(), action);
    }

    void add()
    {
        UXObject* parent = pick();
        const bool isPlaced = parent && m_diagram && parent->hasParent(m_diagram.get());
        UXObject* root = below(6) == 0 ? m_above.get() : m_diagram.get();
        if (!isPlaced && !root)
            return;
        UXObject* made = nullptr;
        if (below(10) == 0) {
            auto* view = new UXVirtualScrollView;
            view->setContentHeight(below(1000));
            made = view;
        } else {
            auto* object = new UXEventProbe(std::to_string(++m_serial));
            object->whenReached = [this, object](const UXEvent& event) { reach(*object, event); };
            object->handles = below(4) == 0;
            object->stops = below(16) == 0;
            object->accepts = below(8) != 0;
            object->forwards = below(3) == 0;
            made = object;
        }
        made->setRect({below(40), below(40), 20 + below(80), 20 + below(80)});
        (isPlaced ? parent : root)->addChild(made);
        m_objects.emplace_back(made);
    }

    void mutate()
    {
        std::erase_if(m_objects, [](const UXObjectWatcher& watcher) { return !watcher.isAlive(); });
        UXObject* object = pick();
        if (!object || (m_objects.size() < 24 && below(4) == 0))
            return add();
        const int choice = below(11);
        if (choice < 2) {
            delete object;
        } else if (choice == 2 && m_diagram) {
            m_diagram->addChild(object);
        } else if (choice == 3) {
            object->setVisible(below(4) != 0);
        } else if (choice == 4) {
            object->bringToFront();
        } else if (choice == 5) {
            object->setRect({below(60), below(60), below(90), below(90)});
        } else if (choice == 6 && m_diagram) {
            m_diagram->layout();
        } else if (choice == 7 && m_diagram) {
            m_diagram->cancelPress();
        } else if (choice == 8) {
            destroyOneOfTheRoots();
        } else if (choice == 9) {
            object->setParent(nullptr);
        } else if (m_depth < 3) {
            ++m_depth;
            send();
            --m_depth;
        }
    }

    void destroyOneOfTheRoots()
    {
        const int choice = below(40);
        if (choice == 0)
            m_diagram.reset();
        else if (choice == 1)
            m_context.reset();
        else if (choice == 2)
            m_above.reset();
        else if (choice == 3)
            m_scrolling.reset();
        else if (choice == 4)
            m_controls[below(2)].reset();
    }

    std::mt19937 m_random;
    std::unique_ptr<UXContext> m_context;
    std::unique_ptr<UXGlobalEventDiagram> m_above;
    std::unique_ptr<UXGlobalSmoothScrollingEventDiagram> m_scrolling;
    std::unique_ptr<UXDiagram> m_diagram;
    std::unique_ptr<UXControl> m_controls[2];
    std::vector<UXObjectWatcher> m_objects;
    std::set<std::tuple<void*, UXEventType, std::string>> m_delivered;
    std::map<UXEventType, int> m_types;
    std::intptr_t m_eventNumber = 0;
    std::int64_t m_now = 0;
    long long m_reached = 0;
    int m_serial = 0, m_depth = 0;
    bool m_acting = true;
};

class UXRandomEvents : public testing::TestWithParam<unsigned> {};

} // namespace

TEST_P(UXRandomEvents, AreDeliveredOnceToWhatLivesOnADiagram)
{
    RandomTree tree(GetParam());
    for (int i = 0; i < 60000; ++i) {
        tree.step();
        ASSERT_TRUE(i % 1000 != 0 || tree.isAtRestAfterLeaving()) << "after step " << i;
    }
    EXPECT_GT(tree.getReachedCount(), 60000);
    EXPECT_EQ(tree.getReachedTypes().size(), 14U) << "every kind of event";
    RecordProperty("reached", std::to_string(tree.getReachedCount()));
}

INSTANTIATE_TEST_SUITE_P(Seeds, UXRandomEvents, testing::Values(1u, 2u, 3u, 4u));
