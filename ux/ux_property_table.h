#pragma once

#include "ux/ux_export.h"
#include "ux/ux_json_object.h"

#include <cstddef>
#include <functional>
#include <string>
#include <type_traits>
#include <typeindex>
#include <utility>
#include <vector>

/** One property of a class, reached by its key without knowing the class. */
struct UX_EXPORT UXProperty {
    std::string key;
    std::type_index type;
    /** Copies the value to where the pointer says, which is of the property's type; false for another class.
     */
    std::function<bool(UXJsonObject&, void* value)> obtain;
    /** Changes the value the way a caller of the class would, marks and events included. Empty on a read-only
     * one. */
    std::function<bool(UXJsonObject&, const void* value)> update;
    /** The same by the value's name, for an enumeration that has names; empty on other types. */
    std::function<bool(UXJsonObject&, std::string& name)> obtainName;
    std::function<bool(UXJsonObject&, const std::string& name)> updateByName;
    /** The nested object that the property is, which stays its owner's; empty on other types. */
    std::function<UXJsonObject*(UXJsonObject&)> obtainObject;

    /** @param get called as get(const Class&), gives a Value; null where the property cannot be read
     *  @param set called as set(Class&, const Value&), normally calls update<Key> */
    template <class Class, class Value, class Get, class Set>
    static UXProperty make(std::string key, Get get, Set set);

    /** As make, for an enumeration that can also be given by name.
     *  @param names called as names(), gives a reference to the map, which lives as long as the table */
    template <class Class, class Value, class Get, class Set, class Names>
    static UXProperty makeEnum(std::string key, Get get, Set set, Names names);

    /** @param get called as get(Class&), gives a pointer to the nested object */
    template <class Class, class Get>
    static UXProperty makeObject(std::string key, Get get);
};

/** The properties of a class by key, for UXPropertyAccessor: what its parent class has, and its own. A class
 * has one table for all its objects, and binds each object to it with a last member:
 *  @code
 *  static const UXPropertyTable& obtainPropertyTable()
 *  {
 *      using Self = KXStripProperty;
 *      static const UXPropertyTable table(nullptr, {   // or &Parent::obtainPropertyTable()
 *          UXProperty::make<Self, double>(
 *              "m_stripWidth", [](const Self& object) { return object.getStripWidth(); },
 *              [](Self& object, const double& value) { object.updateStripWidth(value); }),
 *      });
 *      return table;
 *  }
 *  UXPropertyTableBinding m_stripPropertyBinding{*this, obtainPropertyTable()};
 *  @endcode
 *  A key table can generate all of it, one make per row. A parent is bound before its subclass, so the most
 * derived table counts. Of two properties with one key the subclass's counts. */
class UX_EXPORT UXPropertyTable {
public:
    /** @param parent the parent class's table, which lives as long as this one; null for none */
    UXPropertyTable(const UXPropertyTable* parent, std::vector<UXProperty> properties);

    /** @return the property; null for an unknown key */
    const UXProperty* find(const std::string& key) const;
    /** @return every key, the parent's first, in the order given */
    std::vector<std::string> obtainKeys() const;

private:
    const UXPropertyTable* m_parent;
    std::vector<UXProperty> m_properties;
};

/** Binds an object to its class's table, as a member of the class. Copies bind nothing: an object keeps its
 * own. */
class UX_EXPORT UXPropertyTableBinding {
public:
    /** @param table lives as long as the object */
    UXPropertyTableBinding(UXJsonObject& object, const UXPropertyTable& table);
};

template <class Class, class Value, class Get, class Set>
UXProperty UXProperty::make(std::string key, Get get, Set set)
{
    UXProperty property{std::move(key), typeid(Value), {}, {}, {}, {}, {}};
    if constexpr (!std::is_same_v<Get, std::nullptr_t>)
        property.obtain = [get](UXJsonObject& object, void* value) {
            const auto* own = dynamic_cast<const Class*>(&object);
            if (own)
                *static_cast<Value*>(value) = get(*own);
            return own != nullptr;
        };
    if constexpr (!std::is_same_v<Set, std::nullptr_t>)
        property.update = [set](UXJsonObject& object, const void* value) {
            auto* own = dynamic_cast<Class*>(&object);
            if (own)
                set(*own, *static_cast<const Value*>(value));
            return own != nullptr;
        };
    return property;
}

template <class Class, class Value, class Get, class Set, class Names>
UXProperty UXProperty::makeEnum(std::string key, Get get, Set set, Names names)
{
    UXProperty property = make<Class, Value>(std::move(key), get, set);
    property.obtainName = [names, obtain = property.obtain](UXJsonObject& object, std::string& name) {
        Value value{};
        if (!obtain || !obtain(object, &value))
            return false;
        name = names().obtainName(value);
        return true;
    };
    property.updateByName = [names, update = property.update](UXJsonObject& object, const std::string& name) {
        Value value{};
        return update && names().obtainValue(name, value) && update(object, &value);
    };
    return property;
}

template <class Class, class Get>
UXProperty UXProperty::makeObject(std::string key, Get get)
{
    UXProperty property{std::move(key), typeid(UXJsonObject*), {}, {}, {}, {}, {}};
    property.obtainObject = [get](UXJsonObject& object) -> UXJsonObject* {
        auto* own = dynamic_cast<Class*>(&object);
        return own ? get(*own) : nullptr;
    };
    return property;
}
