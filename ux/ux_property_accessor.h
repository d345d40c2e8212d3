#pragma once

#include "ux/ux_export.h"
#include "ux/ux_json_object.h"
#include "ux/ux_json_object_watcher.h"
#include "ux/ux_property_table.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <vector>

/** The types of a property that UXPropertyAccessor reads and writes by value. */
template <class T>
concept UXPropertyValue = std::same_as<T, bool> || std::same_as<T, std::string> || std::same_as<T, int> ||
    std::same_as<T, unsigned int> || std::same_as<T, std::int64_t> || std::same_as<T, std::uint64_t> ||
    std::same_as<T, double> || std::same_as<T, UXPoint> || std::same_as<T, UXSize> ||
    std::same_as<T, UXRect> || std::same_as<T, UXColor> || std::same_as<T, UXFont> ||
    std::same_as<T, UXTextProperty> || std::same_as<T, UXHintInfo>;

template <class T>
concept UXPropertyEnum = std::is_enum_v<T>;

/** Reads and writes the properties of an object by key, without knowing its class.
 *
 *  The object is one whose class binds it to a UXPropertyTable. A write goes through the class's update<Key>,
 * so it marks the key and fires its events; each extra target that has the key receives the value too. Types
 * are exact. Every operation answers false, and changes nothing, for an unknown key, another type, an index
 * past the end, an unknown name, and a target that is null or gone. */
class UX_EXPORT UXPropertyAccessor {
public:
    /** @param target stays its owner's; null for none yet */
    explicit UXPropertyAccessor(UXJsonObject* target);
    virtual ~UXPropertyAccessor();

    // Targets
    void setTargetJsonObject(UXJsonObject* target);
    /** @return null once the target is gone */
    UXJsonObject* getTargetJsonObject() const;
    /** Further objects that receive every update; they stay their owners'. */
    void setExtraTargetJsonObjectsForUpdate(const std::set<UXJsonObject*>& targets);
    /** @return those that are not gone */
    std::set<UXJsonObject*> getExtraTargetJsonObjectsForUpdate() const;

    // Values
    template <UXPropertyValue T>
    bool obtainValue(const std::string& key, T& value) const
    {
        return _obtain(key, typeid(T), &value);
    }
    template <UXPropertyValue T>
    bool updateValue(const std::string& key, T value)
    {
        return _update(key, typeid(T), &value);
    }
    bool updateValue(const std::string& key, const char* value);

    // Enumerations, by value and by name
    template <UXPropertyEnum E>
    bool obtainEnum(const std::string& key, E& value) const
    {
        return _obtain(key, typeid(E), &value);
    }
    template <UXPropertyEnum E>
    bool updateEnum(const std::string& key, E value)
    {
        return _update(key, typeid(E), &value);
    }
    /** Any enumeration with names. */
    bool obtainEnumString(const std::string& key, std::string& name) const;
    bool updateEnumString(const std::string& key, const std::string& name);
    bool obtainUXRectEdgeString(const std::string& key, std::string& name) const;
    bool updateUXRectEdgeString(const std::string& key, const std::string& name);
    bool obtainUXTextOptionString(const std::string& key, std::string& name) const;
    bool updateUXTextOptionString(const std::string& key, const std::string& name);
    bool obtainUXAlignString(const std::string& key, std::string& name) const;
    bool updateUXAlignString(const std::string& key, const std::string& name);
    bool obtainUXPositionString(const std::string& key, std::string& name) const;
    bool updateUXPositionString(const std::string& key, const std::string& name);
    bool obtainUXHintPositionString(const std::string& key, std::string& name) const;
    bool updateUXHintPositionString(const std::string& key, const std::string& name);
    bool obtainUXArrangementString(const std::string& key, std::string& name) const;
    bool updateUXArrangementString(const std::string& key, const std::string& name);
    bool obtainUXSymbolStyleString(const std::string& key, std::string& name) const;
    bool updateUXSymbolStyleString(const std::string& key, const std::string& name);

    // Nested objects
    /** @param object receives the property's object, which stays its owner's and may be null */
    bool obtainObject(const std::string& key, UXJsonObject** object) const;

    // Lists, by element
    template <class T>
    requires UXPropertyValue<T>
    bool obtainVectorValue(const std::string& key, std::uint64_t index, T& value) const
    {
        return _obtainElement(key, index, value);
    }
    template <class T>
    requires UXPropertyValue<T>
    bool updateVectorValue(const std::string& key, std::uint64_t index, T value)
    {
        return _updateElement(key, index, value);
    }
    template <UXPropertyEnum E>
    bool obtainVectorEnum(const std::string& key, std::uint64_t index, E& value) const
    {
        return _obtainElement(key, index, value);
    }
    template <UXPropertyEnum E>
    bool updateVectorEnum(const std::string& key, std::uint64_t index, E value)
    {
        return _updateElement(key, index, value);
    }
    bool obtainUXPointVectorCount(const std::string& key, std::uint64_t& count) const;
    bool obtainUXSizeVectorCount(const std::string& key, std::uint64_t& count) const;
    bool obtainUXRectVectorCount(const std::string& key, std::uint64_t& count) const;
    bool obtainUXColorVectorCount(const std::string& key, std::uint64_t& count) const;
    bool obtainUXFontVectorCount(const std::string& key, std::uint64_t& count) const;
    bool obtainUXTextPropertyVectorCount(const std::string& key, std::uint64_t& count) const;
    bool obtainUXRectEdgeVectorCount(const std::string& key, std::uint64_t& count) const;
    template <class T>
    bool obtainVectorCount(const std::string& key, std::uint64_t& count) const
    {
        std::vector<T> values;
        if (!_obtain(key, typeid(values), &values))
            return false;
        count = values.size();
        return true;
    }

    // Changes
    /** Keeps what the target says now as the state that propertyChanged compares with. */
    void markOldProperty();
    /** @param markAgain on: the state of now is what the next question compares with
     *  @return whether the target writes anything else than when it was marked; false when it never was */
    bool propertyChanged(bool markAgain);

private:
    struct Target {
        UXJsonObject* object;
        UXJsonObjectWatcher watcher;
    };

    /** Makes the value to update a property with; null where the property cannot take it. The value lives
     * until the next call. */
    using MakeValue = std::function<const void*(const UXProperty& property, void* owner)>;

    static UXPropertyTable::Found _find(const Target& target, const std::string& key);
    /** Copies the owner's value if it is of the type. */
    static bool _obtainFrom(const UXProperty& property, void* owner, const std::type_info& type, void* value);
    bool _obtain(const std::string& key, const std::type_info& type, void* value) const;
    bool _update(const std::string& key, const MakeValue& makeValue);
    bool _update(const std::string& key, const std::type_info& type, const void* value);
    template <class T>
    bool _obtainElement(const std::string& key, std::uint64_t index, T& value) const
    {
        std::vector<T> values;
        if (!_obtain(key, typeid(values), &values) || index >= values.size())
            return false;
        value = values[static_cast<std::size_t>(index)];
        return true;
    }
    template <class T>
    bool _updateElement(const std::string& key, std::uint64_t index, T value)
    {
        // Each target keeps its own list but for the element.
        std::vector<T> values;
        return _update(key, [&](const UXProperty& property, void* owner) -> const void* {
            if (!_obtainFrom(property, owner, typeid(values), &values) || index >= values.size())
                return nullptr;
            values[static_cast<std::size_t>(index)] = value;
            return &values;
        });
    }

    Target m_target;
    std::vector<Target> m_extraTargets;
    std::optional<std::string> m_oldProperty;
};
