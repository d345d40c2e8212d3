#include "ux/ux_accessible_object.h"

#include "ux/ux_accessible_source.h"
#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace {

UXRect obtainSeenRect(UXObject& object)
{
    UXRect rect = object.translateRectToParent(object.getBoundingRect(), nullptr);
    for (const UXObject* around = object.getParent(); around; around = around->getParent())
        rect = uxIntersectionRect(rect, around->translateRectToParent(around->getBoundingRect(), nullptr));
    return rect;
}

/** Adds the objects inside that say something, each in the place of those around it that do not. */
void appendParts(const UXObject& object, std::vector<UXObject*>& parts)
{
    for (UXObject* child : object.getChildren()) {
        if (!child->getVisible())
            continue;
        const auto* source = dynamic_cast<const UXAccessibleSource*>(child);
        if (source && source->isAccessible())
            parts.push_back(child);
        else if (!source)
            appendParts(*child, parts);
    }
}

} // namespace

UXAccessibleObject::UXAccessibleObject(UXObject& object, UXAccessibleRole role, std::string name)
    : m_object(&object), m_role(role), m_name(std::move(name))
{
}

UXAccessibleObject::~UXAccessibleObject() = default;

UXObject* UXAccessibleObject::getObject() const { return m_object.getObject(); }

UXAccessibleInfo UXAccessibleObject::obtainInfo()
{
    UXAccessibleInfo info;
    UXObject* object = getObject();
    if (!object)
        return info;
    info.role = m_role;
    info.name = m_name;
    info.rect = obtainSeenRect(*object);
    const UXDiagram* diagram = uxObtainDiagram(object);
    info.isFocusable = object->getShowsFocus();
    info.isFocused = diagram && diagram->getFocusedObject() == object;
    info.isSelectable = object->getSelectable();
    info.isSelected = object->getSelected();
    return info;
}

std::vector<UXObject*> UXAccessibleObject::_obtainParts() const
{
    std::vector<UXObject*> parts;
    if (const UXObject* object = getObject())
        appendParts(*object, parts);
    return parts;
}

void UXAccessibleObject::_takeParts()
{
    struct Part {
        UXObject* object;
        UXPoint place;
    };
    std::vector<Part> parts;
    for (UXObject* object : _obtainParts())
        parts.push_back({object, object->translatePointToParent({0, 0}, nullptr)});
    std::ranges::stable_sort(parts, [](const Part& a, const Part& b) {
        return std::pair(a.place.y, a.place.x) < std::pair(b.place.y, b.place.x);
    });
    m_parts.emplace();
    for (const Part& part : parts)
        m_parts->emplace_back(part.object);
}

std::uint64_t UXAccessibleObject::obtainChildCount()
{
    if (!getObject())
        return 0;
    if (!m_parts)
        _takeParts();
    return m_parts->size();
}

std::unique_ptr<UXAccessibleNode> UXAccessibleObject::createChild(std::uint64_t index)
{
    if (index >= UXAccessibleObject::obtainChildCount())
        return nullptr;
    UXObject* part = (*m_parts)[static_cast<std::size_t>(index)].getObject();
    return part ? uxCreateAccessibleNode(*part) : nullptr;
}

std::unique_ptr<UXAccessibleNode> uxCreateAccessibleNode(UXObject& object)
{
    if (auto* source = dynamic_cast<UXAccessibleSource*>(&object))
        return source->createAccessibleNode();
    return std::make_unique<UXAccessibleObject>(object);
}
