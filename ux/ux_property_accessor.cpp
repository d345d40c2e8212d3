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

#include <array>
#include <cstddef>
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

/** @return the target's property; none when there is none or the target is gone */
UXPropertyTable::Found UXPropertyAccessor::_find(const Target& target, const std::string& key)
{
    const UXPropertyTable* table = target.watcher.isAlive() ? target.object->m_propertyTable : nullptr;
    return table ? table->find(*target.object, key) : UXPropertyTable::Found();
}

bool UXPropertyAccessor::_obtainFrom(const UXProperty& property, void* owner, const std::type_info& type,
                                     void* value)
{
    if (*property.type().info != type || !property.type().assign)
        return false;
    property.type().assign(value, property.place(owner));
    return true;
}

bool UXPropertyAccessor::_obtain(const std::string& key, const std::type_info& type, void* value) const
{
    const UXPropertyTable::Found found = _find(m_target, key);
    return found.property && _obtainFrom(*found.property, found.owner, type, value);
}

bool UXPropertyAccessor::_update(const std::string& key, const MakeValue& makeValue)
{
    // An update calls back, and a callback may destroy any target and this accessor.
    const Target target = m_target;
    const std::vector<Target> extraTargets = m_extraTargets;
    const std::string ownKey = key;
    const auto updateOne = [&](const Target& one) {
        const auto [property, owner] = _find(one, ownKey);
        const void* value = property && property->update ? makeValue(*property, owner) : nullptr;
        if (value)
            property->update(owner, value);
        return value != nullptr;
    };
    if (!updateOne(target))
        return false;
    for (const Target& extra : extraTargets) {
        if (extra.object != target.object)
            updateOne(extra);
    }
    return true;
}

bool UXPropertyAccessor::_update(const std::string& key, const std::type_info& type, const void* value)
{
    return _update(key, [&](const UXProperty& property, void*) {
        return *property.type().info == type ? value : nullptr;
    });
}

bool UXPropertyAccessor::updateValue(const std::string& key, const char* value)
{
    return value && updateValue(key, std::string(value));
}

bool UXPropertyAccessor::obtainEnumString(const std::string& key, std::string& name) const
{
    const auto [property, owner] = _find(m_target, key);
    if (!property || !property->type().names)
        return false;
    const UXPropertyType& type = property->type();
    name = type.names().obtainNameOfNumber(type.obtainNumber(property->place(owner)));
    return true;
}

bool UXPropertyAccessor::updateEnumString(const std::string& key, const std::string& name)
{
    alignas(int) std::array<std::byte, sizeof(int)> value{}; // an enumeration is kept as an int
    return _update(key, [&value, ownName = name](const UXProperty& property, void*) -> const void* {
        const UXPropertyType& type = property.type();
        int number = 0;
        if (!type.names || !type.names().obtainNumber(ownName, number))
            return nullptr;
        type.makeOfNumber(value.data(), number);
        return value.data();
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
    const auto [property, owner] = _find(m_target, key);
    if (!object || !property || !property->type().isObject)
        return false;
    *object = static_cast<UXJsonObject*>(property->place(owner));
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
