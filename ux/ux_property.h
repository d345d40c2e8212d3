#pragma once

#include "ux/ux_property_type.h"

#include <set>
#include <string>

/** What an object does when a property of it has changed; each effect includes those before it. */
enum class UXPropertyEffect : int {
    None,
    Repaint, // drawn with another value
    Recolor, // colours are decided anew; nothing moves
    Layout,  // places and texts are
    Reload   // what is shown is made anew of the data that there is
};

/** Which reset takes a property: one that names its group. */
struct UXPropertyReset {
    const char* group = nullptr; // null: none does; empty: every one, whatever groups it names
    bool onlyByAll = false;      // a reset of the look alone leaves it
};

/** One property of a class as plain data. An owner is the place of an object of the class. */
struct UXProperty {
    const char* key;
    const UXPropertyType& (*type)();
    void* (*place)(void* owner);
    /** Changes the value the way a caller of the class would, marks and events included; null where it cannot
     * be changed by its key. */
    void (*update)(void* owner, const void* value) = nullptr;
    /** The same if the key passes a list of keys to take, or to leave out; null where there is none. */
    void (*updateListed)(void* owner, const void* value, const std::set<std::string>& keys,
                         bool exclude) = nullptr;
    UXPropertyReset reset{};
    UXPropertyEffect effect = UXPropertyEffect::None;
    /** What the value says, and its unit, for documentation. */
    const char* meaning = "";
};
