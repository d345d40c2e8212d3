#include "kx_object_id.h"

#include <limits>

KXObjectID::KXObjectID() = default;
KXObjectID::KXObjectID(const KXObjectID&) = default;
KXObjectID::KXObjectID(KXObjectID&&) noexcept = default;
KXObjectID& KXObjectID::operator=(const KXObjectID&) = default;
KXObjectID& KXObjectID::operator=(KXObjectID&&) noexcept = default;
KXObjectID::~KXObjectID() = default;

KXObjectID KXObjectID::instance() { return {}; }

KXObjectID KXObjectID::path(const KXObjectIDPath& selected) const
{
    KXObjectID made = *this;
    made.m_selectedPath = selected;
    return made;
}

KXObjectID KXObjectID::index(std::uint64_t i) const
{
    KXObjectID made = *this;
    if (made.m_selectedPath) {
        made.m_indexes[*made.m_selectedPath] = i;
        made.m_selectedPath.reset();
    }
    return made;
}

KXObjectID KXObjectID::property(const KXObjectIDProperty& chosen) const
{
    KXObjectID made = *this;
    made.m_property = chosen;
    return made;
}

std::uint64_t KXObjectID::index() const
{
    const std::uint64_t* found = _findIndex();
    return found ? *found : (std::numeric_limits<std::uint64_t>::max)();
}

KXObjectIDProperty KXObjectID::property() const { return m_property.value_or(KXObjectIDProperty()); }

bool KXObjectID::hasPathTypes() const { return !m_indexes.empty(); }

bool KXObjectID::hasPathType(const KXObjectIDPath& path) const { return m_indexes.contains(path); }

bool KXObjectID::hasIndex(std::uint64_t i) const
{
    const std::uint64_t* found = _findIndex();
    return found && *found == i;
}

bool KXObjectID::hasProperty() const { return m_property.has_value(); }

bool KXObjectID::hasProperty(const KXObjectIDProperty& property) const { return m_property == property; }

std::strong_ordering operator<=>(const KXObjectID& a, const KXObjectID& b)
{
    if (const auto order = a.m_property <=> b.m_property; order != 0)
        return order;
    if (const auto order = a.m_indexes.size() <=> b.m_indexes.size(); order != 0)
        return order;
    return a.m_indexes <=> b.m_indexes;
}

const std::uint64_t* KXObjectID::_findIndex() const
{
    if (!m_selectedPath)
        return nullptr;
    const auto found = m_indexes.find(*m_selectedPath);
    return found == m_indexes.end() ? nullptr : &found->second;
}
