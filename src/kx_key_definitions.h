#pragma once

#include "kx_enum_map.h"
#include "kx_key_json.h"
#include "kx_key_table.h"
#include "ux/ux_property_table.h"

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

/** Defines in a .cpp what KX_DECLARE_KEYS declared in the header. */
#define KX_DEFINE_KEYS(Class, Base, KEYS) KX_DEFINE_KEY_LISTS(Class, Base, KEYS, KEYS)

/** @param WRITTEN the keys that the document holds, in its order
 *  @param KEYS every key, in the order of assigning */
#define KX_DEFINE_KEY_LISTS(Class, Base, WRITTEN, KEYS)                                                   \
    void Class::customSerialize()                                                                         \
    {                                                                                                     \
        Base::customSerialize();                                                                          \
        WRITTEN(KX_KEY_WRITE)                                                                             \
    }                                                                                                     \
    std::string Class::customSerializeTypeID() { return #Class; }                                         \
    bool Class::customDeserialize()                                                                       \
    {                                                                                                     \
        bool complete = Base::customDeserialize();                                                        \
        WRITTEN(KX_KEY_READ)                                                                              \
        return complete;                                                                                  \
    }                                                                                                     \
    Class* Class::copy(const KXKeys& keys, bool exclude)                                                  \
    {                                                                                                     \
        auto* made = new Class;                                                                           \
        assignTo(made, keys, exclude);                                                                    \
        return made;                                                                                      \
    }                                                                                                     \
    void Class::assignTo(KXChartPropertyBase* target, const KXKeys& keys, bool exclude)                   \
    {                                                                                                     \
        const UXJsonObjectWatcher sourceWatcher(this);                                                    \
        const UXJsonObjectWatcher targetWatcher(target);                                                  \
        Base::assignTo(target, {}, true);                                                                 \
        if (!sourceWatcher.isAlive() || !targetWatcher.isAlive())                                         \
            return;                                                                                       \
        auto* own = dynamic_cast<Class*>(target);                                                         \
        if (!own)                                                                                         \
            return;                                                                                       \
        KEYS(KX_KEY_ASSIGN)                                                                               \
    }                                                                                                     \
    const UXPropertyTable& Class::obtainPropertyTable()                                                   \
    {                                                                                                     \
        using Self = Class;                                                                               \
        static const UXPropertyTable table(kxObtainParentPropertyTable<Base>(), {KEYS(KX_KEY_PROPERTY)}); \
        return table;                                                                                     \
    }

// What a row stands for in the functions above. A callback on the way may destroy either object.
#define KX_KEY_WRITE(Type, Name, member, initial) KXKeyJson<Type>::write(this, #member, member);
#define KX_KEY_READ(Type, Name, member, initial) \
    complete = KXKeyJson<Type>::read(this, #member, member) && complete;
#define KX_KEY_ASSIGN(Type, Name, member, initial)            \
    own->update##Name(member, keys, exclude);                 \
    if (!sourceWatcher.isAlive() || !targetWatcher.isAlive()) \
        return;
#define KX_KEY_PROPERTY(Type, Name, member, initial)                    \
    kxMakeKeyProperty<Self, Type>(                                      \
        #member, [](const Self& object) { return object.get##Name(); }, \
        [](Self& object, const Type& value) { object.update##Name(value); }),

/** Takes one key in a customResetProperties which holds the source of its own class as own, a
 *  UXJsonObjectWatcher on it as sourceWatcher, and ForcedUpdates on itself as forced. */
#define KX_TAKE_KEY(Name)                                \
    do {                                                 \
        if (forced.isAlive() && sourceWatcher.isAlive()) \
            update##Name(own->get##Name());              \
    } while (false)

/** @return the table of a class's parent, null for KXChartPropertyBase, which has no keys */
template <class Base>
const UXPropertyTable* kxObtainParentPropertyTable()
{
    if constexpr (std::is_same_v<Base, KXChartPropertyBase>)
        return nullptr;
    else
        return &Base::obtainPropertyTable();
}

/** @return the access to one key, by name too for an enumeration that has names */
template <class Class, class Value, class Get, class Set>
UXProperty kxMakeKeyProperty(const char* key, Get get, Set set)
{
    if constexpr (KXNamedEnum<Value>)
        return UXProperty::makeEnum<Class, Value>(
            key, get, set, []() -> auto& { return *kxObtainEnumMap<Value>(); });
    else
        return UXProperty::make<Class, Value>(key, get, set);
}
