#include "ux/ux_child_walk.h"

#include "ux/ux_object.h"

UXChildWalk::UXChildWalk(UXObject* parent) : m_parent(parent), m_outer(parent->m_childWalks)
{
    parent->m_childWalks = this;
}

UXChildWalk::~UXChildWalk()
{
    if (m_parent)
        m_parent->m_childWalks = m_outer;
}

UXObject* UXChildWalk::next()
{
    while (m_parent && m_place < m_parent->m_children.size()) {
        UXObject* child = m_parent->m_children[m_place++];
        if (std::erase(m_metAhead, child) == 0)
            return child;
    }
    return nullptr;
}

void UXChildWalk::_childAdded(std::size_t index)
{
    if (index < m_place)
        ++m_place;
}

void UXChildWalk::_childRemoved(const UXObject* child, std::size_t index)
{
    if (index < m_place)
        --m_place;
    // Another child may come to stand at its address.
    std::erase(m_metAhead, child);
}

void UXChildWalk::_childMoved(const UXObject* child, std::size_t from, std::size_t to)
{
    const bool isMet = from < m_place;
    if (isMet)
        --m_place;
    if (to < m_place)
        ++m_place;
    else if (isMet)
        m_metAhead.push_back(child);
}
