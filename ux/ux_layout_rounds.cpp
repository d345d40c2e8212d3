#include "ux/ux_layout_rounds.h"

#include <cstddef>
#include <deque>
#include <utility>

constexpr int UXLayoutRounds::greatestCount;

namespace {

// Layouts run on the host's one thread.
int layoutDepth = 0;

/** @return what waits; never destroyed, since a host's static objects may outlive any other */
std::deque<std::function<void()>>& keptActions()
{
    static auto* const kept = new std::deque<std::function<void()>>;
    return *kept;
}

/** Whoever asks the host is outside of any layout: an answer may lay out by itself. */
class OutsideScope {
public:
    OutsideScope() : m_depth(std::exchange(layoutDepth, 0)) {}
    ~OutsideScope() { layoutDepth = m_depth; }
    OutsideScope(const OutsideScope&) = delete;
    OutsideScope& operator=(const OutsideScope&) = delete;

private:
    int m_depth;
};

} // namespace

UXLayoutRounds::UXLayoutRounds() { ++layoutDepth; }

UXLayoutRounds::~UXLayoutRounds() { --layoutDepth; }

bool UXLayoutRounds::next()
{
    if (layoutDepth > 1 || keptActions().empty())
        return false;
    const OutsideScope outside;
    // One at a time: an answer may lay out by itself, which runs the rest, or throw, which leaves it kept.
    for (std::size_t left = keptActions().size(); left > 0 && !keptActions().empty(); --left) {
        const std::function<void()> action = std::move(keptActions().front());
        keptActions().pop_front();
        action();
    }
    return ++m_count < greatestCount;
}

bool UXLayoutRounds::isLayingOut() { return layoutDepth > 0; }

void UXLayoutRounds::postAction(std::function<void()> action)
{
    if (isLayingOut())
        keptActions().push_back(std::move(action));
    else
        action();
}
