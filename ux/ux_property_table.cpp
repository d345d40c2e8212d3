#include "ux/ux_property_table.h"

#include "ux/ux_json_object_watcher.h"

#include <algorithm>

UXPropertyTable::UXPropertyTable(const char* name, const UXPropertyTable* parent, Owner owner,
                                 std::span<const UXProperty> properties, std::size_t unwritten)
    : m_name(name), m_parent(parent), m_owner(owner), m_properties(properties),
      m_unwritten(std::min(unwritten, properties.size()))
{
}

const UXProperty* UXPropertyTable::_find(const std::string& key) const
{
    const auto found = std::ranges::find_if(m_properties,
                                            [&key](const UXProperty& own) { return key == own.key; });
    return found == m_properties.end() ? nullptr : &*found;
}

UXPropertyTable::Found UXPropertyTable::find(UXJsonObject& object, const std::string& key) const
{
    for (const UXPropertyTable* table = this; table; table = table->m_parent) {
        if (const UXProperty* found = table->_find(key)) {
            void* owner = table->m_owner(object);
            return owner ? Found{found, owner} : Found();
        }
    }
    return {};
}

UXPropertyEffect UXPropertyTable::obtainEffect(const std::string& key) const
{
    for (const UXPropertyTable* table = this; table; table = table->m_parent) {
        if (const UXProperty* found = table->_find(key))
            return found->effect;
    }
    return UXPropertyEffect::None;
}

std::vector<std::string> UXPropertyTable::obtainKeys() const
{
    std::vector<std::string> keys = m_parent ? m_parent->obtainKeys() : std::vector<std::string>();
    for (const UXProperty& own : m_properties)
        keys.emplace_back(own.key);
    return keys;
}

std::vector<const UXPropertyTable*> UXPropertyTable::obtainTables(const UXPropertyTable* ancestor) const
{
    std::vector<const UXPropertyTable*> tables;
    for (const UXPropertyTable* table = this; table && table != ancestor; table = table->m_parent)
        tables.insert(tables.begin(), table);
    return tables;
}

std::span<const UXProperty> UXPropertyTable::getWrittenProperties() const
{
    return m_properties.first(m_properties.size() - m_unwritten);
}

void UXPropertyTable::write(UXJsonObject& object) const
{
    void* owner = m_owner(object);
    if (!owner)
        return;
    for (const UXProperty& own : getWrittenProperties())
        own.type().write(own.type(), object, own.key, own.place(owner));
}

bool UXPropertyTable::read(UXJsonObject& object) const
{
    void* owner = m_owner(object);
    bool isComplete = owner != nullptr;
    if (!owner)
        return isComplete;
    for (const UXProperty& own : getWrittenProperties())
        isComplete = own.type().read(own.type(), object, own.key, own.place(owner)) && isComplete;
    return isComplete;
}

void UXPropertyTable::assign(UXJsonObject& source, UXJsonObject& target, const std::set<std::string>& keys,
                             bool exclude) const
{
    void* from = m_owner(source);
    void* to = m_owner(target);
    const UXJsonObjectWatcher sourceWatcher(&source), targetWatcher(&target);
    for (const UXProperty& own : m_properties) {
        if (!from || !to || !sourceWatcher.isAlive() || !targetWatcher.isAlive())
            return;
        if (own.updateListed)
            own.updateListed(to, own.place(from), keys, exclude);
    }
}

void UXPropertyTable::reset(UXJsonObject& source, UXJsonObject& target, const std::set<std::string>& groups,
                            bool takesAll) const
{
    void* from = m_owner(source);
    void* to = m_owner(target);
    const UXJsonObjectWatcher sourceWatcher(&source), targetWatcher(&target);
    for (const UXProperty& own : m_properties) {
        if (!from || !to || !sourceWatcher.isAlive() || !targetWatcher.isAlive())
            return;
        const UXPropertyReset& reset = own.reset;
        const bool isNamed = reset.group && groups.contains(reset.group);
        if (isNamed && own.update && (takesAll || !reset.onlyByAll))
            own.update(to, own.place(from));
    }
}

UXPropertyTableBinding::UXPropertyTableBinding(UXJsonObject& object, const UXPropertyTable& table)
{
    object.m_propertyTable = &table;
}
