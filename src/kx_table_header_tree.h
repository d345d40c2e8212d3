#pragma once

#include "kx_export.h"
#include "kx_table_chart_options.h"
#include "kx_table_line.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

/**
 * The rows or the columns of a table, from first to last: the members below each parent as far as parents are
 * open, and the totals of these. Only what is open takes memory, a row or a column as such takes none; a line
 * is found in a time that grows with the levels and with the logarithm of how many siblings are open.
 *
 * The total of all stands in a panel of its own and is no line here.
 */
class KX_EXPORT KXTableHeaderTree {
public:
    /** How lines come of members. */
    struct Style {
        bool hasGroupLines = false;                 /**< an open group has a line of its own */
        KXTableTotals totals = KXTableTotals::None; /**< of open groups */
        /** By level of the members, whether these have a total. */
        std::vector<bool> hasTotals;
    };

    /** Of no dimension: one line that stands for all. */
    KXTableHeaderTree();
    /** @param levelCount how many dimensions there are
     *  @param count how many members the first one has */
    KXTableHeaderTree(std::uint64_t levelCount, std::uint64_t count, Style style);
    KXTableHeaderTree(KXTableHeaderTree&&) noexcept;
    KXTableHeaderTree& operator=(KXTableHeaderTree&&) noexcept;
    ~KXTableHeaderTree();

    std::uint64_t getLevelCount() const { return m_levelCount; }
    const Style& getStyle() const { return m_style; }
    std::uint64_t obtainLineCount() const;
    /** @return the last line past the last one; an empty path where there is none */
    KXTableLine obtainLine(std::uint64_t line) const;
    /** @return the line of a member or a group, or of an open group's total, none where it is not shown */
    std::optional<std::uint64_t> findLine(const KXIndexPath& path, bool isTotal = false) const;
    /** @return how many members there are below an open parent, the empty path for the first dimension; those
     * that are not shown, too */
    std::uint64_t obtainMemberCount(const KXIndexPath& parent) const;
    /** Shows these of the members below an open parent and no others, in this order. Groups among them are
     * closed by it. */
    void setShownMembers(const KXIndexPath& parent, std::vector<std::uint64_t> positions);
    /** @return those, all of them until others are set; none below a parent that is not open */
    std::vector<std::uint64_t> obtainShownMembers(const KXIndexPath& parent) const;

    bool isExpanded(const KXIndexPath& path) const;
    /** Opens a group whose parents are open; without members it stays closed. */
    void expand(const KXIndexPath& path, std::uint64_t memberCount);
    /** Closes a group, and those below it. */
    void collapse(const KXIndexPath& path);

private:
    struct Node;

    bool _isAboveLeaves(std::uint64_t level) const { return level + 1 < m_levelCount; }
    bool _hasTotalLine(std::uint64_t level) const;
    /** @return null for what is not open */
    Node* _findNode(const KXIndexPath& path) const;
    std::uint64_t _countLines(const Node& node, std::uint64_t level) const;
    void _update(Node& node, std::uint64_t level) const;
    void _updateAlong(const KXIndexPath& path);

    std::uint64_t m_levelCount = 0;
    Style m_style;
    std::unique_ptr<Node> m_root;
};
