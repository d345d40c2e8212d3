#pragma once

#include "ux/ux_json_object.h"
#include "ux/ux_property_table.h"
#include "ux/ux_property_type.h"

#include <algorithm>
#include <string>
#include <typeinfo>

/** @return whether all keys of two property objects of one class are the same */
template <class Record>
bool kxEqualRecords(const Record& a, const Record& b)
{
    const auto placeOf = [](const UXProperty& key, const Record& record) {
        return key.place(const_cast<Record*>(&record));
    };
    return std::ranges::all_of(Record::obtainPropertyTable().getProperties(), [&](const UXProperty& key) {
        return key.type().equal(placeOf(key, a), placeOf(key, b));
    });
}

/** @return what can be done with the values of a key that are property objects: they stand in lists, each an
 * object of its own in the document */
template <class Record>
constexpr UXPropertyType kxMakeRecordKeyType(const char* name)
{
    return {.info = &typeid(Record),
            .name = name,
            .equal = uxEqualPropertyValues<Record>,
            .assign = uxAssignPropertyValue<Record>,
            .write =
                [](const UXPropertyType&, UXJsonObject& object, const std::string& key, const void* value) {
                    object.serializeObject(key, const_cast<Record*>(static_cast<const Record*>(value)));
                },
            .read =
                [](const UXPropertyType&, UXJsonObject& object, const std::string& key, void* value) {
                    // A key that is missing keeps its default, and makes no element a wrong one.
                    auto* record = static_cast<Record*>(value);
                    return object.deserializeExistingObject(key, record) || !(*record == Record());
                }};
}
