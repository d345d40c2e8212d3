#include "ux/ux_notification_scope.h"

#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_event.h"
#include "ux/ux_object.h"
#include "ux/ux_virtual_scroll_view.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

/** A control that writes down what it is told. */
class TellingControl : public UXControl {
public:
    std::string log;
    std::function<void()> whenTold;

    void notifyDirtyRect(UXDiagram*) override { note("dirty "); }
    void notifyFullScreenDirtyRect(UXDiagram*) override { note("full "); }
    void notifyResetScroller() override { note("scroller "); }
    void notifyCursorChange(int cursor) override { note("cursor" + std::to_string(cursor) + " "); }

private:
    void note(const std::string& entry)
    {
        log += entry;
        if (whenTold)
            whenTold();
    }
};

class UXNotifications : public testing::Test {
protected:
    UXNotifications()
    {
        diagram.setRect({0, 0, 100, 100});
        diagram.addChild(&object);
        context.setActiveDiagram(&control, &diagram);
        diagram.clearDirtyRect();
        control.log.clear();
    }
    UXContext context;
    TellingControl control;
    UXDiagram diagram;
    UXObject object;
};

} // namespace

TEST_F(UXNotifications, ComeOnceWhenTheOutermostCallEnds)
{
    {
        const UXNotificationScope outer;
        object.setRect({0, 0, 10, 10});
        object.setRect({50, 50, 10, 10});
        context.notifyCursorChange(&control, 1);
        context.notifyCursorChange(&control, 2);
        control.setDiagramOrigin({5, 5});
        EXPECT_EQ(control.log, "");
    }
    EXPECT_EQ(control.log, "dirty cursor2 scroller full ");
}

TEST_F(UXNotifications, OfWhatIsDestroyedComeWhenItIsGone)
{
    UXVirtualScrollView view;
    diagram.addChild(&view);
    for (UXObject* parent : {&object, static_cast<UXObject*>(&view)}) {
        parent->setRect({0, 0, 50, 50});
        for (int i = 0; i < 3; ++i) {
            auto* child = new UXObject;
            child->setRect({10 * i, 0, 10, 10});
            parent->addChild(child);
        }
        const std::size_t own = parent->getChildrenCount() - 3;
        diagram.clearDirtyRect();
        control.log.clear();
        control.whenTold = [&] { EXPECT_EQ(parent->getChildrenCount(), own) << "a host may paint at once"; };
        parent->clearChildren();
        control.whenTold = nullptr;
        EXPECT_EQ(control.log, "dirty ");
    }
}

TEST_F(UXNotifications, OfWhoeverIsToldComeAtOnce)
{
    control.whenTold = [this] {
        control.whenTold = nullptr;
        diagram.clearDirtyRect();
        object.setRect({20, 20, 10, 10});
        control.log += "back ";
    };
    object.setRect({0, 0, 10, 10});
    EXPECT_EQ(control.log, "dirty dirty back ")
        << "a host that calls in a notification is an outermost caller";
}

TEST_F(UXNotifications, LeaveOutWhoIsGoneOrShowsSomethingElse)
{
    auto gone = std::make_unique<TellingControl>();
    UXDiagram other;
    {
        const UXNotificationScope scope;
        context.setActiveDiagram(gone.get(), &diagram);
        object.setRect({0, 0, 10, 10});
        gone.reset();
        context.setActiveDiagram(&control, &other);
        control.log += "now ";
    }
    EXPECT_EQ(control.log, "now full ");
}

TEST_F(UXNotifications, OfAnOperationThatThrowsComeWithTheNext)
{
    object.registerEventHandler(UXEventType::KeyDown, [this](const UXEvent&) -> bool {
        object.setRect({0, 0, 10, 10});
        throw std::runtime_error("the host's");
    });
    EXPECT_THROW(object.keyDown(UXEvent()), std::runtime_error);
#ifndef _WIN32 // there the library, which brings its own C++ runtime, sees no exception of the host's under
               // way
    EXPECT_EQ(control.log, "");
#endif
    object.setVisible(false);
    EXPECT_EQ(control.log, "dirty ");

    control.whenTold = [] { throw std::runtime_error("the control's"); };
    diagram.clearDirtyRect();
    EXPECT_THROW(object.setVisible(true), std::runtime_error);
    control.whenTold = nullptr;
    control.log.clear();
    diagram.clearDirtyRect();
    object.invalidate();
    EXPECT_EQ(control.log, "dirty ") << "no call is left open";
}
