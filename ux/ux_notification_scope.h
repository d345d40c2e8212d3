#pragma once

#include "ux/ux_export.h"

#include <functional>

class UXControl;
class UXDiagram;
class UXObject;
enum class UXAccessibleChange;

/** What a control is told once the framework has done what it was called for. */
enum class UXNotification {
    DirtyRect,
    FullScreenDirtyRect,
    DiagramAlignChanged,
    DiagramSizeChanged,
    ResetScroller,
    CursorChange,
    AccessibleChange
};

/**
 * One call into the framework, for as long as it runs. Calls stand inside one another; what controls are to
 * be told meanwhile waits for the end of the outermost: const UXNotificationScope scope;
 *     m_label->setText(text);
 *     m_label->setVisible(true);
 * A control that is told may paint at once, and may destroy anything, the object that was called included: by
 * then nobody is in the middle of anything. Every operation that goes on after it has made something dirty
 * opens a scope.
 *
 * What an operation that ends with an exception leaves behind is told when the next one ends; on Windows,
 * where the library has a C++ runtime of its own and sees no exception of the host's, while it passes. An
 * exception of the host's in a notification goes on to the caller of the outermost operation, so that one in
 * a notification that a destructor brings about ends the program, as exceptions in destructors do.
 */
class UX_EXPORT UXNotificationScope {
public:
    UXNotificationScope();
    ~UXNotificationScope() noexcept(false);

    UXNotificationScope(const UXNotificationScope&) = delete;
    UXNotificationScope& operator=(const UXNotificationScope&) = delete;

    /** Ends the call before the scope ends: the outermost tells the controls, whose exceptions pass through.
     */
    void finish();

    /** Has control told when the outermost call ends, at once outside of any. The same is told once.
     *  @param diagram what it is about; a control that shows another by then is not told. Null: about none
     *  @param cursor of a CursorChange; the last one counts */
    static void post(UXNotification notification, UXControl* control, UXDiagram* diagram = nullptr,
                     int cursor = 0);
    /** The same of an AccessibleChange: one of an object that is gone by then is not told. */
    static void postAccessibleChange(UXControl* control, UXObject& object, UXAccessibleChange change);
    /** Has action make dirty what the call has changed, once and for all: it runs when the outermost call
     * ends, before the controls are told, at once outside of any, and in any case before the next paint. It
     * calls no host. */
    static void postAction(std::function<void()> action);
    static void runPostedActions();

private:
    int m_exceptions; // under way when the call began
    bool m_isFinished = false;
};
