#include "ux/ux_child_walk.h"

#include "ux/ux_object.h"

UXChildWalk::UXChildWalk(UXObject* parent)
    : m_parent(parent), m_outer(parent->m_childWalks), m_left(parent->m_children.size())
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
    if (!m_parent || m_left == 0 || m_place >= m_parent->m_children.size())
        return nullptr;
    --m_left;
    return m_parent->m_children[m_place++];
}

void UXChildWalk::_childCame(std::size_t index)
{
    if (index < m_place)
        ++m_place;
}

void UXChildWalk::_childWent(std::size_t index)
{
    if (index < m_place)
        --m_place;
}
