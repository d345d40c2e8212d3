#include "ux/ux_property_accessor.h"

#include "ux/ux_align.h"
#include "ux/ux_arrangement.h"
#include "ux/ux_color.h"
#include "ux/ux_font.h"
#include "ux/ux_hint_position.h"
#include "ux/ux_named_enum_map.h"
#include "ux/ux_point.h"
#include "ux/ux_position.h"
#include "ux/ux_property_table.h"
#include "ux/ux_rect.h"
#include "ux/ux_rect_edge.h"
#include "ux/ux_size.h"
#include "ux/ux_symbol_style.h"
#include "ux/ux_text_option.h"
#include "ux/ux_text_property.h"

#include <utility>

namespace {

template <class E>
bool obtainName(const UXPropertyAccessor& accessor, const std::string& key, std::string& name)
{
    E value{};
    if (!accessor.obtainEnum(key, value))
        return false;
    name = uxObtainNamedEnumMap<E>().obtainName(value);
    return true;
}

template <class E>
bool updateByName(UXPropertyAccessor& accessor, const std::string& key, const std::string& name)
{
    E value{};
    return uxObtainNamedEnumMap<E>().obtainValue(name, value) && accessor.updateEnum(key, value);
}

} // namespace

UXPropertyAccessor::UXPropertyAccessor(UXJsonObject* target) : m_target{target, UXJsonObjectWatcher(target)}
{
}

UXPropertyAccessor::~UXPropertyAccessor() = default;

void UXPropertyAccessor::setTargetJsonObject(UXJsonObject* target)
{
    m_target = {target, UXJsonObjectWatcher(target)};
    m_oldProperty.reset();
}

UXJsonObject* UXPropertyAccessor::getTargetJsonObject() const
{
    return m_target.watcher.isAlive() ? m_target.object : nullptr;
}

void UXPropertyAccessor::setExtraTargetJsonObjectsForUpdate(const std::set<UXJsonObject*>& targets)
{
    m_extraTargets.clear();
    for (UXJsonObject* target : targets)
        m_extraTargets.push_back({target, UXJsonObjectWatcher(target)});
}

std::set<UXJsonObject*> UXPropertyAccessor::getExtraTargetJsonObjectsForUpdate() const
{
    std::set<UXJsonObject*> targets;
    for (const Target& target : m_extraTargets) {
        if (target.watcher.isAlive())
            targets.insert(target.object);
    }
    return targets;
}

const UXProperty* UXPropertyAccessor::_find(const Target& target, const std::string& key)
{
    const UXPropertyTable* table = target.watcher.isAlive() ? target.object->m_propertyTable : nullptr;
    return table ? table->find(key) : nullptr;
}

bool UXPropertyAccessor::_obtain(const std::string& key, const std::type_info& type, void* value) const
{
    const UXProperty* property = _find(m_target, key);
    return property && property->type == type && property->obtain &&
           property->obtain(*m_target.object, value);
}

bool UXPropertyAccessor::_update(const std::string& key, const Update& update)
{
    // An update calls back, and a callback may destroy any target and this accessor.
    const Target target = m_target;
    const std::vector<Target> extraTargets = m_extraTargets;
    const std::string ownKey = key;
    const UXProperty* property = _find(target, ownKey);
    if (!property || !update(*property, *target.object))
        return false;

    for (const Target& extra : extraTargets) {
        const UXProperty* extraProperty = _find(extra, ownKey);
        if (extraProperty && extra.object != target.object)
            update(*extraProperty, *extra.object);
    }
    return true;
}

bool UXPropertyAccessor::_update(const std::string& key, const std::type_info& type, const void* value)
{
    return _update(key, [&](const UXProperty& property, UXJsonObject& object) {
        return property.type == type && property.update && property.update(object, value);
    });
}

bool UXPropertyAccessor::updateValue(const std::string& key, const char* value)
{
    return value && updateValue(key, std::string(value));
}

bool UXPropertyAccessor::obtainEnumString(const std::string& key, std::string& name) const
{
    const UXProperty* property = _find(m_target, key);
    return property && property->obtainName && property->obtainName(*m_target.object, name);
}

bool UXPropertyAccessor::updateEnumString(const std::string& key, const std::string& name)
{
    return _update(key, [ownName = name](const UXProperty& property, UXJsonObject& object) {
        return property.updateByName && property.updateByName(object, ownName);
    });
}

#define UX_ENUM_BY_NAME(E)                                                                      \
    bool UXPropertyAccessor::obtain##E##String(const std::string& key, std::string& name) const \
    {                                                                                           \
        return obtainName<E>(*this, key, name);                                                 \
    }                                                                                           \
    bool UXPropertyAccessor::update##E##String(const std::string& key, const std::string& name) \
    {                                                                                           \
        return updateByName<E>(*this, key, name);                                               \
    }
UX_ENUM_BY_NAME(UXRectEdge)
UX_ENUM_BY_NAME(UXTextOption)
UX_ENUM_BY_NAME(UXAlign)
UX_ENUM_BY_NAME(UXPosition)
UX_ENUM_BY_NAME(UXHintPosition)
UX_ENUM_BY_NAME(UXArrangement)
UX_ENUM_BY_NAME(UXSymbolStyle)
#undef UX_ENUM_BY_NAME

bool UXPropertyAccessor::obtainObject(const std::string& key, UXJsonObject** object) const
{
    const UXProperty* property = _find(m_target, key);
    if (!object || !property || !property->obtainObject)
        return false;
    *object = property->obtainObject(*m_target.object);
    return true;
}

#define UX_VECTOR_COUNT(T)                                                                              \
    bool UXPropertyAccessor::obtain##T##VectorCount(const std::string& key, std::uint64_t& count) const \
    {                                                                                                   \
        return obtainVectorCount<T>(key, count);                                                        \
    }
UX_VECTOR_COUNT(UXPoint)
UX_VECTOR_COUNT(UXSize)
UX_VECTOR_COUNT(UXRect)
UX_VECTOR_COUNT(UXColor)
UX_VECTOR_COUNT(UXFont)
UX_VECTOR_COUNT(UXTextProperty)
UX_VECTOR_COUNT(UXRectEdge)
#undef UX_VECTOR_COUNT

void UXPropertyAccessor::markOldProperty()
{
    UXJsonObject* target = getTargetJsonObject();
    m_oldProperty = target ? std::optional<std::string>(target->serialize()) : std::nullopt;
}

bool UXPropertyAccessor::propertyChanged(bool markAgain)
{
    UXJsonObject* target = getTargetJsonObject();
    if (!target || !m_oldProperty)
        return false;
    std::string now = target->serialize();
    const bool isChanged = now != *m_oldProperty;
    if (markAgain)
        m_oldProperty = std::move(now);
    return isChanged;
}
