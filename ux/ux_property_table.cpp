#include "ux/ux_property_table.h"

#include <algorithm>

UXPropertyTable::UXPropertyTable(const UXPropertyTable* parent, std::vector<UXProperty> properties)
    : m_parent(parent), m_properties(std::move(properties))
{
}

const UXProperty* UXPropertyTable::find(const std::string& key) const
{
    const auto found = std::find_if(m_properties.begin(), m_properties.end(),
                                    [&](const UXProperty& property) { return property.key == key; });
    if (found != m_properties.end())
        return &*found;
    return m_parent ? m_parent->find(key) : nullptr;
}

std::vector<std::string> UXPropertyTable::obtainKeys() const
{
    std::vector<std::string> keys = m_parent ? m_parent->obtainKeys() : std::vector<std::string>();
    for (const UXProperty& property : m_properties) {
        if (std::find(keys.begin(), keys.end(), property.key) == keys.end())
            keys.push_back(property.key);
    }
    return keys;
}

UXPropertyTableBinding::UXPropertyTableBinding(UXJsonObject& object, const UXPropertyTable& table)
{
    object.m_propertyTable = &table;
}
