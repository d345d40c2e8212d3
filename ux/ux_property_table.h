#pragma once

#include "ux/ux_export.h"
#include "ux/ux_property.h"

#include <cstddef>
#include <set>
#include <span>
#include <string>
#include <vector>

/** The properties of a class by key: what its parent class has, and its own. What a class does with its
 * properties (writing, reading, assigning, resetting, access by key) is a loop over them. A class has one
 * table for all its objects, and binds each object to it with a member:
 *  @code
 *  const UXPropertyTable& KXStripProperty::obtainPropertyTable()
 *  {
 *      static constexpr UXProperty properties[] = {...};
 *      static const UXPropertyTable table(
 *          "KXStripProperty", nullptr, // or &Parent::obtainPropertyTable()
 *          [](UXJsonObject& object) -> void* { return dynamic_cast<KXStripProperty*>(&object); },
 * properties); return table;
 *  }
 *  UXPropertyTableBinding m_stripPropertyBinding{*this, obtainPropertyTable()};
 *  @endcode
 *  A parent is bound before its subclass, so the most derived table counts. Of two properties with one key
 * the subclass's counts. Where a class shows the properties of a part of it as its own, the part is their
 * owner. */
class UX_EXPORT UXPropertyTable {
public:
    /** @return the owner of the table's properties that belongs to object; null for an object of another
     * class */
    using Owner = void* (*)(UXJsonObject& object);

    /** A property and whose it is. */
    struct Found {
        const UXProperty* property = nullptr;
        void* owner = nullptr;
    };

    /** @param name the class whose properties these are, for documentation
     *  @param parent the parent class's table, which lives as long as this one; null for none
     *  @param properties live as long as the table; what is written of them first, in the document's order
     *  @param unwritten how many of the last ones documents leave out */
    UXPropertyTable(const char* name, const UXPropertyTable* parent, Owner owner,
                    std::span<const UXProperty> properties, std::size_t unwritten = 0);

    /** @return the table that object is bound to, null for none */
    static const UXPropertyTable* obtainTable(const UXJsonObject& object) { return object.m_propertyTable; }

    /** @return whether the document that object is being read from holds the key, whatever its value */
    static bool holdsKey(const UXJsonObject& object, const std::string& key) { return object._find(key); }

    // The parent's properties included
    /** @return no property for an unknown key and for an object of another class */
    Found find(UXJsonObject& object, const std::string& key) const;
    /** @return None for an unknown key */
    UXPropertyEffect obtainEffect(const std::string& key) const;
    /** @return every key, the parent's first, in the order given */
    std::vector<std::string> obtainKeys() const;
    /** @return the tables of the class and its parents, these first
     *  @param ancestor if not null, the parent of which and of whose own parents the tables are left out */
    std::vector<const UXPropertyTable*> obtainTables(const UXPropertyTable* ancestor = nullptr) const;

    // The class's own
    const char* getName() const { return m_name; }
    const UXPropertyTable* getParent() const { return m_parent; }
    std::span<const UXProperty> getProperties() const { return m_properties; }
    /** @return those that documents hold */
    std::span<const UXProperty> getWrittenProperties() const;
    void* obtainOwner(UXJsonObject& object) const { return m_owner(object); }

    /** Writes the properties into the document that object is being written to. */
    void write(UXJsonObject& object) const;
    /** @return whether each of them was read */
    bool read(UXJsonObject& object) const;
    /** Updates the target's properties that pass the list with the source's values. A callback on the way may
     * destroy either, which ends it. */
    void assign(UXJsonObject& source, UXJsonObject& target, const std::set<std::string>& keys,
                bool exclude) const;
    /** Updates the target's properties of the groups with the source's values; callbacks as above. The
     * properties that every reset takes are those of the group without a name.
     *  @param takesAll also those that a reset of the look alone leaves */
    void reset(UXJsonObject& source, UXJsonObject& target, const std::set<std::string>& groups,
               bool takesAll) const;

private:
    const UXProperty* _find(const std::string& key) const;

    const char* m_name;
    const UXPropertyTable* m_parent;
    Owner m_owner;
    std::span<const UXProperty> m_properties;
    std::size_t m_unwritten;
};

/** Binds an object to its class's table, as a member of the class. Copies bind nothing: an object keeps its
 * own. */
class UX_EXPORT UXPropertyTableBinding {
public:
    /** @param table lives as long as the object */
    UXPropertyTableBinding(UXJsonObject& object, const UXPropertyTable& table);
};
