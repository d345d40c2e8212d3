#pragma once

#include "ux/ux_property_table.h"

#include <map>
#include <string>
#include <utility>

/** The keys of charts as a page in Markdown: for each kind whose keys its document holds, and a table for
 * each class that has keys. */
class KeyReference {
public:
    KeyReference();

    /** @return all kinds that the factory makes, then the tables that they name */
    std::string getText() const { return m_kinds + m_tables; }

private:
    void _addKind(const std::string& type);
    /** @param path of the object within its chart, empty or with a dot at the end
     *  @return links to the tables of the object's keys, in the document's order */
    std::string _addObject(UXJsonObject& object, const std::string& path);
    void _addTable(const UXPropertyTable& table, UXJsonObject& object);

    std::string m_kinds, m_tables;
    std::string m_otherDefaults; // of the kind that is being added
    std::map<std::pair<const UXPropertyTable*, std::string>, std::string> m_defaults; // by table and key
};
