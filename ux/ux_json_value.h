#pragma once

#include "ux/ux_export.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

/** A value of a JSON document that is being written or read: null, a truth value, a number, a text, a list,
 * or an object of keys and values in the order given. It owns what it holds. Hosts and charts only pass it
 * on. */
class UX_EXPORT UXJsonValue {
public:
    UXJsonValue();
    UXJsonValue(const UXJsonValue&) = delete;
    UXJsonValue(UXJsonValue&& other) noexcept;
    UXJsonValue& operator=(const UXJsonValue&) = delete;
    UXJsonValue& operator=(UXJsonValue&& other) noexcept;
    ~UXJsonValue();

    static UXJsonValue makeBool(bool value);
    static UXJsonValue makeInteger(std::int64_t value);
    /** A whole number beyond 64 bits: as a double its nearest one, as an integer the limit. */
    static UXJsonValue makeBigInteger(double value);
    /** NaN and infinities, which JSON cannot say, become null. */
    static UXJsonValue makeDouble(double value);
    static UXJsonValue makeString(std::string value);
    static UXJsonValue makeArray();
    static UXJsonValue makeObject();

    // Queries; the getters answer false, and leave value as it was, for another kind
    bool isNull() const;
    bool isArray() const;
    bool isObject() const;
    bool getBool(bool& value) const;
    bool getInteger(std::int64_t& value) const;
    /** Integers are numbers too. */
    bool getNumber(double& value) const;
    bool getString(std::string& value) const;

    /** @return how many elements or members there are, 0 for other kinds */
    std::size_t count() const;
    /** @return the element of a list or the value of the member at the index; null past the end */
    UXJsonValue* at(std::size_t index);
    const UXJsonValue* at(std::size_t index) const;
    /** @return the key of an object's member, empty past the end */
    const std::string& keyAt(std::size_t index) const;
    /** @return the value of an object's last member of that key, null for none and for other kinds */
    UXJsonValue* find(const std::string& key);
    const UXJsonValue* find(const std::string& key) const;

    // Changes; each returns the added value, which stays where it is until the next change
    /** Adds an element to a list. */
    UXJsonValue* append(UXJsonValue value);
    /** Adds a member to an object, also when the key is there already. */
    UXJsonValue* append(std::string key, UXJsonValue value);
    /** Replaces the value of an object's key, or adds it. */
    UXJsonValue* set(const std::string& key, UXJsonValue value);

private:
    struct Array;
    struct Object;
    struct BigInteger {
        double value;
    };

    // The large kinds stand behind a pointer: a hostile text holds millions of small values.
    std::variant<std::monostate, bool, std::int64_t, BigInteger, double, std::unique_ptr<std::string>,
                 std::unique_ptr<Array>, std::unique_ptr<Object>>
        m_value;
};
