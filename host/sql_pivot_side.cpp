#include "sql_pivot_side.h"

#include <algorithm>

#include "sql_data_set.h"

SqlPivotSide::SqlPivotSide(const SqlDataSet& data)
{
    const std::size_t levels = data.getDimensionCount();
    if (levels == 1) { // with the members that fill gaps
        m_root.below.reserve(data.getMembers(0).size());
        for (std::uint64_t member = 0; member < data.getMembers(0).size(); ++member)
            m_root.below.push_back({member, {}});
        return;
    }
    // The rows are sorted by their members, so that what is below one parent stands together.
    for (std::size_t row = 0; row < data.getRowCount(); ++row) {
        Node* node = &m_root;
        for (std::size_t level = 0; level < levels; ++level) {
            const std::uint64_t member = data.obtainMember(row, level);
            if (node->below.empty() || node->below.back().member != member)
                node->below.push_back({member, {}});
            node = &node->below.back();
        }
    }
}

const SqlPivotSide::Node* SqlPivotSide::_findNode(std::span<const std::uint64_t> path) const
{
    const Node* node = &m_root;
    for (const std::uint64_t position : path) {
        if (position >= node->below.size())
            return nullptr;
        node = &node->below[position];
    }
    return node;
}

std::size_t SqlPivotSide::obtainCount(std::span<const std::uint64_t> path) const
{
    const Node* node = _findNode(path);
    return node ? node->below.size() : 0;
}

std::vector<std::uint64_t> SqlPivotSide::obtainMembers(std::span<const std::uint64_t> path) const
{
    std::vector<std::uint64_t> members;
    const Node* node = &m_root;
    for (const std::uint64_t position : path) {
        if (position >= node->below.size())
            break;
        node = &node->below[position];
        members.push_back(node->member);
    }
    return members;
}

void SqlPivotSide::sort(const Order& isBefore)
{
    std::vector<std::uint64_t> members;
    _sort(m_root, members, isBefore);
}

void SqlPivotSide::_sort(Node& node, std::vector<std::uint64_t>& members, const Order& isBefore)
{
    std::ranges::stable_sort(node.below, [&](const Node& a, const Node& b) {
        std::vector<std::uint64_t> first = members, second = members;
        first.push_back(a.member);
        second.push_back(b.member);
        return isBefore(first, second);
    });
    for (Node& below : node.below) {
        members.push_back(below.member);
        _sort(below, members, isBefore);
        members.pop_back();
    }
}
