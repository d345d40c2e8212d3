#include "kx_table_header_tree.h"

#include <algorithm>
#include <numeric>
#include <utility>

/** An open parent. */
struct KXTableHeaderTree::Node {
    /** An open group among the members. */
    struct Open {
        std::uint64_t place;     // among the members that are shown
        std::uint64_t firstLine; // from the first line of all members
        std::uint64_t lineCount;
        std::unique_ptr<Node> node;
    };

    std::uint64_t memberCount = 0;
    std::uint64_t lineCount = 0; // of all members
    std::vector<Open> open;      // by place
    bool isArranged = false;     // shown says what is shown
    std::vector<std::uint64_t> shown;

    std::uint64_t obtainShownCount() const { return isArranged ? shown.size() : memberCount; }
    std::uint64_t obtainPosition(std::uint64_t place) const { return isArranged ? shown[place] : place; }
    /** @return where a member is shown; none where it is not */
    std::optional<std::uint64_t> findPlace(std::uint64_t position) const
    {
        if (!isArranged)
            return position < memberCount ? std::optional(position) : std::nullopt;
        const auto found = std::ranges::find(shown, position);
        return found == shown.end() ? std::nullopt
                                    : std::optional(static_cast<std::uint64_t>(found - shown.begin()));
    }
    /** @return the first open group at a place or behind it */
    auto findFrom(std::uint64_t place) { return std::ranges::lower_bound(open, place, {}, &Open::place); }
    auto findFrom(std::uint64_t place) const
    {
        return std::ranges::lower_bound(open, place, {}, &Open::place);
    }
    const Open* find(std::uint64_t place) const
    {
        const auto found = findFrom(place);
        return found != open.end() && found->place == place ? &*found : nullptr;
    }
    /** @return the first line of a member, from the first line of all members */
    std::uint64_t obtainFirstLine(std::uint64_t place) const
    {
        const auto found = findFrom(place);
        if (found == open.begin())
            return place;
        const Open& before = *std::prev(found);
        return before.firstLine + before.lineCount + (place - before.place - 1);
    }
};

KXTableHeaderTree::KXTableHeaderTree() : KXTableHeaderTree(0, 1, {}) {}

KXTableHeaderTree::KXTableHeaderTree(std::uint64_t levelCount, std::uint64_t count, Style style)
    : m_levelCount(levelCount), m_style(std::move(style)), m_root(std::make_unique<Node>())
{
    m_root->memberCount = levelCount > 0 ? count : 1;
    _update(*m_root, 0);
}

KXTableHeaderTree::KXTableHeaderTree(KXTableHeaderTree&&) noexcept = default;
KXTableHeaderTree& KXTableHeaderTree::operator=(KXTableHeaderTree&&) noexcept = default;
KXTableHeaderTree::~KXTableHeaderTree() = default;

/** @return whether the members of a level have a total with a line of its own: a group's own line can be the
 * total before its members */
bool KXTableHeaderTree::_hasTotalLine(std::uint64_t level) const
{
    const bool hasTotals = level < m_style.hasTotals.size() && m_style.hasTotals[level];
    return hasTotals && m_style.totals != KXTableTotals::None &&
           !(m_style.hasGroupLines && m_style.totals == KXTableTotals::Before);
}

std::uint64_t KXTableHeaderTree::_countLines(const Node& node, std::uint64_t level) const
{
    return node.lineCount + (m_style.hasGroupLines ? 1 : 0) + (_hasTotalLine(level) ? 1 : 0);
}

/** @param level of the members of node */
void KXTableHeaderTree::_update(Node& node, std::uint64_t level) const
{
    std::uint64_t added = 0; // lines beyond one for each member
    for (Node::Open& open : node.open) {
        open.firstLine = open.place + added;
        open.lineCount = _countLines(*open.node, level + 1);
        added += open.lineCount - 1;
    }
    node.lineCount = node.obtainShownCount() + added;
}

/** Counts anew from a node up to the root. */
void KXTableHeaderTree::_updateAlong(const KXIndexPath& path)
{
    std::vector<Node*> nodes{m_root.get()};
    nodes.reserve(path.size() + 1);
    for (const std::uint64_t position : path) {
        const std::optional<std::uint64_t> place = nodes.back()->findPlace(position);
        const Node::Open* open = place ? nodes.back()->find(*place) : nullptr;
        if (!open)
            break;
        nodes.push_back(open->node.get());
    }
    for (std::size_t level = nodes.size(); level-- > 0;)
        _update(*nodes[level], level);
}

KXTableHeaderTree::Node* KXTableHeaderTree::_findNode(const KXIndexPath& path) const
{
    Node* node = m_root.get();
    for (const std::uint64_t position : path) {
        const std::optional<std::uint64_t> place = node->findPlace(position);
        const Node::Open* open = place ? node->find(*place) : nullptr;
        if (!open)
            return nullptr;
        node = open->node.get();
    }
    return node;
}

std::uint64_t KXTableHeaderTree::obtainLineCount() const { return m_root->lineCount; }

std::uint64_t KXTableHeaderTree::obtainMemberCount(const KXIndexPath& parent) const
{
    const Node* node = _findNode(parent);
    return node ? node->memberCount : 0;
}

void KXTableHeaderTree::setShownMembers(const KXIndexPath& parent, std::vector<std::uint64_t> positions)
{
    Node* node = _findNode(parent);
    if (!node)
        return;
    node->open.clear();
    node->shown = std::move(positions);
    node->isArranged = true;
    _updateAlong(parent);
}

std::vector<std::uint64_t> KXTableHeaderTree::obtainShownMembers(const KXIndexPath& parent) const
{
    const Node* node = _findNode(parent);
    if (!node || node->isArranged)
        return node ? node->shown : std::vector<std::uint64_t>();
    std::vector<std::uint64_t> all(static_cast<std::size_t>(node->memberCount));
    std::iota(all.begin(), all.end(), std::uint64_t{0});
    return all;
}

bool KXTableHeaderTree::isExpanded(const KXIndexPath& path) const
{
    return !path.empty() && _findNode(path) != nullptr;
}

KXTableLine KXTableHeaderTree::obtainLine(std::uint64_t line) const
{
    if (m_levelCount == 0 || m_root->lineCount == 0)
        return {};
    line = std::min(line, m_root->lineCount - 1);
    KXTableLine found;
    const Node* node = m_root.get();
    while (true) {
        // 1. The last open group that begins at the line or before it holds the line or stands before it.
        const std::uint64_t level = found.path.size();
        const auto next = std::ranges::upper_bound(node->open, line, {}, &Node::Open::firstLine);
        const Node::Open* open = next == node->open.begin() ? nullptr : &*std::prev(next);
        if (!open || line >= open->firstLine + open->lineCount) {
            found.path.push_back(node->obtainPosition(
                open ? open->place + 1 + (line - open->firstLine - open->lineCount) : line));
            found.kind = _isAboveLeaves(level) ? KXTableLine::Kind::Group : KXTableLine::Kind::Member;
            return found;
        }

        // 2. In the group its own line is the first one, and its total stands before or after the members.
        found.path.push_back(node->obtainPosition(open->place));
        found.isExpanded = true;
        line -= open->firstLine;
        if (m_style.hasGroupLines && line-- == 0) {
            found.kind = KXTableLine::Kind::Group;
            return found;
        }
        const bool isBefore = m_style.totals == KXTableTotals::Before;
        if (_hasTotalLine(level + 1) && (isBefore ? line-- == 0 : line == open->node->lineCount)) {
            found.kind = KXTableLine::Kind::Total;
            return found;
        }
        found.isExpanded = false;
        node = open->node.get();
    }
}

std::optional<std::uint64_t> KXTableHeaderTree::findLine(const KXIndexPath& path, bool isTotal) const
{
    if (path.empty() || path.size() > m_levelCount)
        return m_levelCount == 0 && path.empty() ? std::optional<std::uint64_t>(0) : std::nullopt;
    std::uint64_t line = 0;
    const Node* node = m_root.get();
    for (std::size_t level = 0; node; ++level) {
        const std::optional<std::uint64_t> place = node->findPlace(path[level]);
        if (!place)
            return std::nullopt;
        line += node->obtainFirstLine(*place);
        const Node::Open* open = node->find(*place);
        const bool isBefore = m_style.totals == KXTableTotals::Before;
        const bool hasTotal = open && _hasTotalLine(level + 1);
        if (level + 1 < path.size()) {
            line += (m_style.hasGroupLines ? 1 : 0) + (hasTotal && isBefore ? 1 : 0);
            node = open ? open->node.get() : nullptr;
            continue;
        }
        if (isTotal)
            return hasTotal ? std::optional(line + (m_style.hasGroupLines ? 1 : 0) +
                                            (isBefore ? 0 : open->node->lineCount))
                            : std::nullopt;
        // An open group without a line of its own has none.
        return open && !m_style.hasGroupLines ? std::nullopt : std::optional(line);
    }
    return std::nullopt;
}

void KXTableHeaderTree::expand(const KXIndexPath& path, std::uint64_t memberCount)
{
    if (path.empty() || path.size() >= m_levelCount || memberCount == 0 || isExpanded(path))
        return;
    Node* parent = _findNode(KXIndexPath(path.begin(), path.end() - 1));
    const std::optional<std::uint64_t> place = parent ? parent->findPlace(path.back()) : std::nullopt;
    if (!place)
        return;
    auto node = std::make_unique<Node>();
    node->memberCount = memberCount;
    parent->open.insert(parent->findFrom(*place), {*place, 0, 0, std::move(node)});
    _updateAlong(path);
}

void KXTableHeaderTree::collapse(const KXIndexPath& path)
{
    if (!isExpanded(path))
        return;
    const KXIndexPath above(path.begin(), path.end() - 1);
    Node* parent = _findNode(above);
    parent->open.erase(parent->findFrom(*parent->findPlace(path.back())));
    _updateAlong(above);
}
