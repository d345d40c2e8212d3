#pragma once

#include "ux/ux_export.h"

#include <functional>

/**
 * The rounds of one outermost layout. What a layout finds missing is not asked for in its midst: an action
 * kept here runs when the pass through the tree has ended, and what it marks is laid out in a further round
 * before anybody paints. After greatestCount rounds, what is still marked waits for the next frame.
 */
class UX_EXPORT UXLayoutRounds {
public:
    static constexpr int greatestCount = 3;

    /** A layout begins. */
    UXLayoutRounds();
    ~UXLayoutRounds();

    UXLayoutRounds(const UXLayoutRounds&) = delete;
    UXLayoutRounds& operator=(const UXLayoutRounds&) = delete;

    /** Ends a round: the outermost layout runs the actions that were kept. Any object may be gone afterwards.
     *  @return whether a further round follows */
    bool next();

    /** @return whether a layout is under way */
    static bool isLayingOut();
    /** Keeps action until the outermost layout ends its round; outside of any it runs at once. */
    static void postAction(std::function<void()> action);

private:
    int m_count = 0;
};
