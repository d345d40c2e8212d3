#pragma once

#include "ux/ux_export.h"

#include <cstdint>
#include <functional>

class UXControl;

/** Calls an action again and again, or once, when the host drives its control's timer. Destroying it stops
 * it. */
class UX_EXPORT UXTimer {
public:
    enum class Mode : int { Repeat, Once };

    /** @param action may destroy the timer; an empty one does nothing */
    explicit UXTimer(std::function<void()> action);
    virtual ~UXTimer();

    UXTimer(const UXTimer&) = delete;
    UXTimer& operator=(const UXTimer&) = delete;

    /** Begins to count, anew if it ran, with the control's next timer call.
     *  @param control stays its owner's; its end stops the timer. Null starts nothing.
     *  @param intervalMilliseconds below 1 becomes 1 */
    void start(UXControl* control, std::int64_t intervalMilliseconds, Mode mode = Mode::Repeat);
    void stop();
    bool isRunning() const { return m_control != nullptr; }

private:
    friend class UXControl;

    /** Runs the action if its time has come. A late call runs it once, however many intervals have passed. */
    void _tick(std::int64_t nowMilliseconds);
    /** @return milliseconds until _tick runs the action, or begins to count; 0 for at once */
    std::int64_t _obtainRest(std::int64_t nowMilliseconds) const;

    std::function<void()> m_action;
    UXControl* m_control = nullptr;
    std::int64_t m_intervalMilliseconds = 0;
    std::int64_t m_startMilliseconds = 0;
    bool m_counting = false;
    Mode m_mode = Mode::Repeat;
};
