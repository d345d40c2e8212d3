#include "ux/ux_accessible_leaf.h"

#include <utility>

UXAccessibleLeaf::UXAccessibleLeaf(UXObject& object, UXAccessibleInfo info)
    : m_object(&object), m_info(std::move(info))
{
}

UXAccessibleLeaf::~UXAccessibleLeaf() = default;

UXObject* UXAccessibleLeaf::getObject() const { return m_object.getObject(); }

UXAccessibleInfo UXAccessibleLeaf::obtainInfo() { return getObject() ? m_info : UXAccessibleInfo(); }
