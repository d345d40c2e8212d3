#include "ux/ux_timer.h"

#include "ux/ux_control.h"
#include "ux/ux_notification_scope.h"

#include <algorithm>
#include <utility>

UXTimer::UXTimer(std::function<void()> action) : m_action(std::move(action)) {}

UXTimer::~UXTimer() { stop(); }

void UXTimer::start(UXControl* control, std::int64_t intervalMilliseconds, Mode mode)
{
    stop();
    if (!control)
        return;
    m_control = control;
    m_intervalMilliseconds = std::max<std::int64_t>(intervalMilliseconds, 1);
    m_mode = mode;
    m_counting = false;
    control->m_timers.push_back(this);
}

void UXTimer::stop()
{
    if (m_control)
        std::erase(m_control->m_timers, this);
    m_control = nullptr;
}

void UXTimer::_tick(std::int64_t nowMilliseconds)
{
    if (!m_counting) {
        m_counting = true;
        m_startMilliseconds = nowMilliseconds;
        return;
    }
    // Unsigned, so that times at both ends of the clock have a distance too.
    const auto elapsed = static_cast<std::uint64_t>(nowMilliseconds) -
                         static_cast<std::uint64_t>(m_startMilliseconds);
    if (nowMilliseconds < m_startMilliseconds || elapsed < static_cast<std::uint64_t>(m_intervalMilliseconds))
        return;
    m_startMilliseconds = nowMilliseconds;
    const UXNotificationScope scope;
    if (m_mode == Mode::Once)
        stop();
    // A copy, since the action may destroy the timer.
    if (const std::function<void()> action = m_action)
        action();
}
