#pragma once

#include "kx_key_table.h"
#include "kx_key_type.h"
#include "ux/ux_json_object_watcher.h"
#include "ux/ux_property_table.h"

#include <string>
#include <type_traits>
#include <typeinfo>

/** Defines in a .cpp what KX_DECLARE_KEYS declared in the header. */
#define KX_DEFINE_KEYS(Class, Base, KEYS)     \
    KX_DEFINE_KEY_LISTS(Class, Base, KEYS, 0) \
    KX_DEFINE_KEY_RESET(Class, Base)

/** How a class writes and reads what its table holds beside its parent's. The parent may call out as it
 * reads. */
#define KX_DEFINE_DOCUMENT(Class, Base)                                           \
    void Class::customSerialize()                                                 \
    {                                                                             \
        Base::customSerialize();                                                  \
        obtainPropertyTable().write(*this);                                       \
    }                                                                             \
    std::string Class::customSerializeTypeID() { return #Class; }                 \
    bool Class::customDeserialize()                                               \
    {                                                                             \
        const UXJsonObjectWatcher self(this);                                     \
        const bool isComplete = Base::customDeserialize();                        \
        return self.isAlive() && obtainPropertyTable().read(*this) && isComplete; \
    }

/** All but customResetProperties, for a class whose resets have an order of their own.
 *  @param KEYS every key, in the order of assigning; what documents hold of it first, in their order
 *  @param unwritten how many of the last keys documents leave out */
#define KX_DEFINE_KEY_LISTS(Class, Base, KEYS, unwritten)                               \
    KX_DEFINE_DOCUMENT(Class, Base)                                                     \
    Class* Class::copy(const KXKeys& keys, bool exclude)                                \
    {                                                                                   \
        auto* made = new Class;                                                         \
        assignTo(made, keys, exclude);                                                  \
        return made;                                                                    \
    }                                                                                   \
    void Class::assignTo(KXChartPropertyBase* target, const KXKeys& keys, bool exclude) \
    {                                                                                   \
        const UXJsonObjectWatcher self(this), targetWatcher(target);                    \
        Base::assignTo(target, kxNoKeys, true);                                         \
        if (self.isAlive() && targetWatcher.isAlive())                                  \
            _assignKeys(obtainPropertyTable(), target, keys, exclude);                  \
    }                                                                                   \
    const UXPropertyTable& Class::obtainPropertyTable()                                 \
    {                                                                                   \
        using Self = Class;                                                             \
        static constexpr UXProperty rows[] = {KEYS(KX_KEY_ROW)};                        \
        static const UXPropertyTable table(#Class, kxObtainParentPropertyTable<Base>(), \
                                           kxObtainKeyOwner<Self>, rows, unwritten);    \
        return table;                                                                   \
    }

#define KX_DEFINE_KEY_RESET(Class, Base)                                                  \
    void Class::customResetProperties(KXChartResetType type, KXChartPropertyBase* source, \
                                      const KXKeys& groups)                               \
    {                                                                                     \
        const UXJsonObjectWatcher self(this), sourceWatcher(source);                      \
        Base::customResetProperties(type, source, groups);                                \
        if (self.isAlive() && sourceWatcher.isAlive())                                    \
            _resetKeys(obtainPropertyTable(), type, source, groups);                      \
    }

/** Defines the accessors that KX_DECLARE_CHART_KEYS declared. */
#define KX_DEFINE_CHART_KEYS(Class, KEYS) \
    namespace {                           \
    using KXKeysOwner = Class;            \
    }                                     \
    KEYS(KX_CHART_KEY_DEFINITION)

/** The same, and the table of a chart that has these keys alone beside its parents'. */
#define KX_DEFINE_CHART_KEY_TABLE(Class, Base, KEYS)                                                     \
    KX_DEFINE_CHART_KEYS(Class, KEYS)                                                                    \
    const UXPropertyTable& Class::obtainPropertyTable()                                                  \
    {                                                                                                    \
        using Self = Class;                                                                              \
        static constexpr UXProperty rows[] = {KEYS(KX_CHART_KEY_ROW)};                                   \
        static const UXPropertyTable table(#Class, &Base::obtainPropertyTable(), kxObtainKeyOwner<Self>, \
                                           rows);                                                        \
        return table;                                                                                    \
    }

// What a row stands for in the table of its class, which calls itself Self

/** @param change the operation of the class that a change by key is
 *  @param changeListed the same if the key passes a list, as UXProperty::updateListed; null for none */
#define KX_ROW(Type, member, change, changeListed, reset, effect, meaning)              \
    UXProperty{#member,                                                                 \
               kxObtainKeyType<Type>,                                                   \
               [](void* owner) -> void* { return &static_cast<Self*>(owner)->member; }, \
               [](void* owner, const void* value) {                                     \
                   static_cast<Self*>(owner)->change(*static_cast<const Type*>(value)); \
               },                                                                       \
               changeListed,                                                            \
               KX_RESET_##reset,                                                        \
               UXPropertyEffect::effect,                                                \
               meaning},
#define KX_KEY_ROW(Type, Name, member, initial, reset, effect, meaning)                               \
    KX_ROW(                                                                                           \
        Type, member, update##Name,                                                                   \
        [](void* owner, const void* value, const KXKeys& keys, bool exclude) {                        \
            static_cast<Self*>(owner)->update##Name(*static_cast<const Type*>(value), keys, exclude); \
        },                                                                                            \
        reset, effect, meaning)
#define KX_CHART_KEY_ROW(Type, Name, member, initial, reset, effect, meaning) \
    KX_ROW(Type, member, set##Name, nullptr, reset, effect, meaning)
#define KX_CHART_KEY_DEFINITION(Type, Name, member, initial, reset, effect, meaning) \
    Type KXKeysOwner::get##Name() const { return member; }                           \
    void KXKeysOwner::set##Name(const Type& value)                                   \
    {                                                                                \
        _setKey(kxObtainKeyType<Type>(), &member, &value, UXPropertyEffect::effect); \
    }
/** An object that the class holds for good: nested in the document, or, as a part of the class itself, by its
 * place.
 *  @param obtainType uxObtainNestedObjectType or uxObtainPartType */
#define KX_OBJECT_KEY(name, obtainType, member, says)                               \
    UXProperty                                                                      \
    {                                                                               \
        .key = name, .type = obtainType,                                            \
        .place = [](void* owner) -> void* {                                         \
            return static_cast<UXJsonObject*>(&*static_cast<Self*>(owner)->member); \
        },                                                                          \
        .meaning = says                                                             \
    }
/** The same with the comma behind it. */
#define KX_OBJECT_ROW(name, obtainType, member, says) KX_OBJECT_KEY(name, obtainType, member, says),

#define KX_RESET_Any(group) \
    UXPropertyReset { #group, false }
#define KX_RESET_All(group) \
    UXPropertyReset { #group, true }
#define KX_RESET_Never \
    UXPropertyReset {}

/** @return the table of a class's parent, null for KXChartPropertyBase, which has no keys */
template <class Base>
const UXPropertyTable* kxObtainParentPropertyTable()
{
    if constexpr (std::is_same_v<Base, KXChartPropertyBase>)
        return nullptr;
    else
        return &Base::obtainPropertyTable();
}

/** What a class passes on to its parent: an empty list of keys to leave out. */
inline const KXKeys kxNoKeys;

/** The owner of the keys of a class is its object itself. */
template <class Class>
void* kxObtainKeyOwner(UXJsonObject& object)
{
    return dynamic_cast<Class*>(&object);
}

/** The type of a key that the class keeps nowhere: it works the value out, and takes it apart.
 *  @param Get as T (Class::*)() const
 *  @param Store as void (Class::*)(const T&), without marks and events */
template <class Class, class T, T (Class::*Get)() const, void (Class::*Store)(const T&)>
const UXPropertyType& kxObtainDerivedKeyType()
{
    static const UXPropertyType type{
        .info = &typeid(T),
        .name = kxObtainKeyType<T>().name,
        .assign =
            [](void* to, const void* owner) {
                *static_cast<T*>(to) = (static_cast<const Class*>(owner)->*Get)();
            },
        .write =
            [](const UXPropertyType&, UXJsonObject& object, const std::string& key, const void* owner) {
                kxWriteKey(&object, key, (static_cast<const Class*>(owner)->*Get)());
            },
        .read =
            [](const UXPropertyType&, UXJsonObject& object, const std::string& key, void* owner) {
                T value = (static_cast<Class*>(owner)->*Get)();
                const bool isRead = kxReadKey(&object, key, value);
                (static_cast<Class*>(owner)->*Store)(value);
                return isRead;
            }};
    return type;
}
