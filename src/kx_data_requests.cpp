#include "kx_data_requests.h"

#include "ux/ux_layout_rounds.h"

#include <utility>

constexpr const char* KXDataRequests::placeholder;
constexpr std::uint64_t KXDataRequests::greatestBlock;

KXDataRequests::KXDataRequests(UXObject* owner, Question ask, std::function<void()> answered)
    : m_owner(owner), m_question(std::move(ask)), m_answered(std::move(answered))
{
}

void KXDataRequests::want(std::uint64_t index)
{
    if (m_awaited.contains(index))
        return;
    if (!UXLayoutRounds::isLayingOut()) {
        _askFor(index, 1);
        return;
    }
    m_wanted.insert(index);
    if (std::exchange(m_isPosted, true))
        return;
    UXLayoutRounds::postAction([this, owner = m_owner] {
        if (owner.isAlive())
            _askForAll();
    });
}

bool KXDataRequests::arrive(std::uint64_t first, std::uint64_t count)
{
    const auto from = m_awaited.lower_bound(first);
    // Past the last index there is nothing: a count up to there takes all.
    const auto to = first + count < first ? m_awaited.end() : m_awaited.lower_bound(first + count);
    const bool isAwaited = from != to;
    m_awaited.erase(from, to);
    return isAwaited;
}

void KXDataRequests::clear()
{
    m_wanted.clear();
    m_awaited.clear();
    ++m_generation;
}

/** @return whether the host had the block; what it had not is awaited */
bool KXDataRequests::_askFor(std::uint64_t first, std::uint64_t count)
{
    const UXObjectWatcher owner = m_owner;
    const unsigned generation = m_generation;
    if (m_question(first, count))
        return true;
    for (std::uint64_t i = 0; owner.isAlive() && generation == m_generation && i < count; ++i)
        m_awaited.insert(first + i);
    return false;
}

/** Neighbours are one block. An answer may destroy the chart, or come with other data, which want anew. */
void KXDataRequests::_askForAll()
{
    const UXObjectWatcher owner = m_owner;
    const unsigned generation = m_generation;
    m_isPosted = false;
    const std::set<std::uint64_t> wanted = std::exchange(m_wanted, {});
    bool isAnswered = false;
    for (auto index = wanted.begin(); index != wanted.end();) {
        const std::uint64_t first = *index;
        std::uint64_t count = 0;
        for (; index != wanted.end() && *index == first + count && count < greatestBlock; ++index)
            ++count;
        isAnswered = _askFor(first, count) || isAnswered;
        if (!owner.isAlive() || generation != m_generation)
            return;
    }
    if (isAnswered)
        m_answered();
}
