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

std::int64_t UXTimer::_obtainRest(std::int64_t nowMilliseconds) const
{
    if (!m_counting)
        return 0;
    if (nowMilliseconds < m_startMilliseconds)
        return m_intervalMilliseconds;
    // Unsigned, so that times at both ends of the clock have a distance too.
    const auto elapsed = static_cast<std::uint64_t>(nowMilliseconds) -
                         static_cast<std::uint64_t>(m_startMilliseconds);
    const auto interval = static_cast<std::uint64_t>(m_intervalMilliseconds);
    return elapsed < interval ? static_cast<std::int64_t>(interval - elapsed) : 0;
}

void UXTimer::_tick(std::int64_t nowMilliseconds)
{
    if (!m_counting) {
        m_counting = true;
        m_startMilliseconds = nowMilliseconds;
        return;
    }
    if (_obtainRest(nowMilliseconds) > 0)
        return;
    m_startMilliseconds = nowMilliseconds;
    const UXNotificationScope scope;
    if (m_mode == Mode::Once)
        stop();
    // A copy, since the action may destroy the timer.
    if (const std::function<void()> action = m_action)
        action();
}
