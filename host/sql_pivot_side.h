#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

class SqlDataSet;

/** The rows, or the columns, of a pivot table: which members of each dimension the data have below those of
 * the one before. A path is positions below each parent, as tables have it; members are indexes as the data
 * set has them. */
class SqlPivotSide {
public:
    /** No dimension. */
    SqlPivotSide() = default;
    /** @param data grouped by the dimensions of this side and by no other */
    explicit SqlPivotSide(const SqlDataSet& data);

    /** @return how many members there are below a path */
    std::size_t obtainCount(std::span<const std::uint64_t> path) const;
    /** @return the members along a path, as far as there are such */
    std::vector<std::uint64_t> obtainMembers(std::span<const std::uint64_t> path) const;
    /** Puts the members below each parent into another order; those that are equal stay in theirs.
     *  @param isBefore asked about the members along two paths that differ in the last one */
    using Order = std::function<bool(std::span<const std::uint64_t> a, std::span<const std::uint64_t> b)>;
    void sort(const Order& isBefore);

private:
    struct Node {
        std::uint64_t member = 0;
        std::vector<Node> below;
    };

    const Node* _findNode(std::span<const std::uint64_t> path) const;
    static void _sort(Node& node, std::vector<std::uint64_t>& members, const Order& isBefore);

    Node m_root;
};
