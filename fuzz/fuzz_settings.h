#pragma once

#include "fuzz_input.h"
#include "kx_keys.h"

#include <functional>
#include <string>

class KXChartPropertyBase;
class UXJsonObject;
class UXPropertyAccessor;

/** What hosts and users do to the settings of an object: by key, as a whole, and through a document. Whoever
 * hears of a change may destroy the object. */
class FuzzSettings {
public:
    explicit FuzzSettings(FuzzInput& input) : m_input(input) {}

    /** Gives a key that object's document names another value, in object or in one inside it. */
    void update(UXJsonObject& object);
    /** Assigns, copies or resets by lists of keys or groups, or lets act hear of a change. */
    void exchange(KXChartPropertyBase& from, KXChartPropertyBase& to, const std::function<void()>& act);
    /** Reads the document of from, with a byte of it changed, into to. */
    void reload(UXJsonObject& from, UXJsonObject& to);
    /** @return names of settings that are reset together */
    KXKeys takeGroups();

private:
    bool _updateSimple(UXPropertyAccessor& accessor, const std::string& key, const std::string& document);
    bool _updateComposed(UXPropertyAccessor& accessor, const std::string& key);
    void _read(const UXPropertyAccessor& accessor, const std::string& key) const;
    std::string _pickQuoted(const std::string& document);
    UXJsonObject* _pickInner(UXJsonObject& object, const std::string& document);

    FuzzInput& m_input;
};
