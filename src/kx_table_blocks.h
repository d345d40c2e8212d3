#pragma once

#include "kx_index_path.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <set>
#include <utility>
#include <vector>

/**
 * What the host has answered in blocks, as much of it as a limit in bytes lets be kept: what was used longest
 * ago goes first. What is missing is noted, and asked for once: what the host does not have yet is awaited.
 */
template <class Item>
class KXTableBlocks {
public:
    explicit KXTableBlocks(std::size_t greatestSize) : m_greatestSize(greatestSize) {}

    /** @return the items of a block, null where they are not there, which is noted unless they are awaited */
    const std::vector<Item>* find(const KXIndexPath& key)
    {
        const auto found = m_places.find(key);
        if (found == m_places.end()) {
            if (!m_awaited.contains(key))
                m_wanted.insert(key);
            return nullptr;
        }
        m_blocks.splice(m_blocks.begin(), m_blocks, found->second);
        return &found->second->items;
    }
    void store(const KXIndexPath& key, std::vector<Item> items)
    {
        drop(key);
        std::size_t size = sizeof(Block) + key.size() * sizeof(std::uint64_t);
        for (const Item& item : items)
            size += item.obtainSize();
        m_blocks.push_front({key, std::move(items), size});
        m_places[key] = m_blocks.begin();
        m_size += size;
        m_awaited.erase(key);
        while (m_size > m_greatestSize && m_blocks.size() > 1)
            drop(KXIndexPath(m_blocks.back().key));
    }
    void drop(const KXIndexPath& key)
    {
        const auto found = m_places.find(key);
        if (found == m_places.end())
            return;
        m_size -= found->second->size;
        m_blocks.erase(found->second);
        m_places.erase(found);
    }
    void clear() { *this = KXTableBlocks(m_greatestSize); }

    /** @return what find missed since the last call */
    std::set<KXIndexPath> takeWanted() { return std::exchange(m_wanted, {}); }
    bool hasWanted() const { return !m_wanted.empty(); }
    /** The host does not have the block yet. */
    void await(const KXIndexPath& key) { m_awaited.insert(key); }
    /** The host has more than before. @return whether something is awaited, which can be wanted again */
    bool arrive() { return !std::exchange(m_awaited, {}).empty(); }
    std::size_t getSize() const { return m_size; }

private:
    struct Block {
        KXIndexPath key;
        std::vector<Item> items;
        std::size_t size;
    };

    std::size_t m_greatestSize, m_size = 0;
    std::list<Block> m_blocks; // what was used last stands first
    std::map<KXIndexPath, typename std::list<Block>::iterator> m_places;
    std::set<KXIndexPath> m_wanted, m_awaited;
};
