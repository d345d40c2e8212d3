#pragma once

#include "kx_export.h"
#include "ux/ux_object_watcher.h"

#include <cstdint>
#include <functional>
#include <set>

/**
 * What a chart shows and does not have yet: noted while it lays out, and asked for in blocks right after
 * that, so that no layout waits for a host. What the host does not have yet either is awaited, and not asked
 * for again until it has arrived.
 */
class KX_EXPORT KXDataRequests {
public:
    /** What stands in the place of a text that is still to come. */
    static constexpr const char* placeholder = "\u2026";
    /** No block is longer. */
    static constexpr std::uint64_t greatestBlock = 1024;

    /** Asks the host for a block. @return false for "not yet" */
    using Question = std::function<bool(std::uint64_t first, std::uint64_t count)>;

    /** @param owner the chart, with which the requests go
     *  @param ask called outside of any layout; may destroy the chart
     *  @param answered called once after the blocks of a round of which one was answered */
    KXDataRequests(UXObject* owner, Question ask, std::function<void()> answered);

    /** Asks for an item: in a layout when that has ended, and otherwise at once, without a word to answered.
     * The host may destroy the chart then. */
    void want(std::uint64_t index);
    bool isAwaited(std::uint64_t index) const { return m_awaited.contains(index); }
    /** The host has what it did not have before.
     *  @return whether some of it is awaited, so that a layout is to want it again */
    bool arrive(std::uint64_t first, std::uint64_t count);
    /** Forgets what is wanted and awaited: the data are others. */
    void clear();

private:
    bool _askFor(std::uint64_t first, std::uint64_t count);
    void _askForAll();

    UXObjectWatcher m_owner;
    Question m_question;
    std::function<void()> m_answered;
    std::set<std::uint64_t> m_wanted, m_awaited;
    unsigned m_generation = 0; // changes when the data do
    bool m_isPosted = false;
};
