#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

class HostError;

/** A value inside a JSON document with the way to it, so that what is wrong with it can be said with its
 * place. Lends from the document and must not outlive it. */
class JsonCursor {
public:
    JsonCursor(std::string file, const nlohmann::json& value);

    // Objects
    /** Throws HostError when this is no object or has another key: a misspelt key must not go unnoticed. */
    void requireKeys(std::initializer_list<const char*> known) const;
    bool hasKey(const char* key) const;
    bool isList() const { return m_value->is_array(); }
    bool isObject() const { return m_value->is_object(); }
    bool isNull() const { return m_value->is_null(); }
    JsonCursor getValue(const char* key) const;
    /** Calls visit with each value of an object and its key, in the order of the keys. */
    void visitObject(const std::function<void(const std::string& key, const JsonCursor& value)>& visit) const;
    /** Calls visit with each element of a list. */
    void visitList(const std::function<void(const JsonCursor& element)>& visit) const;

    // Values; each throws HostError for another type
    std::string readText() const;
    bool readFlag() const;
    std::uint64_t readCount() const;
    /** @return a text as it is, a number as its text */
    std::string readTextOrNumber() const;
    /** Adds the texts and numbers of a list to members. @return whether the list holds a null as well */
    bool readMembers(std::vector<std::string>& members) const;

    /** @return the index of the text among names */
    std::size_t readName(const std::vector<std::string>& names) const;

    HostError makeError(const std::string& cause) const;

private:
    JsonCursor(std::string file, std::string place, const nlohmann::json& value);

    std::string m_file;
    std::string m_place;
    const nlohmann::json* m_value;
};
