#include "json_cursor.h"

#include <algorithm>

#include "host_error.h"

JsonCursor::JsonCursor(std::string file, const nlohmann::json& value) : JsonCursor(std::move(file), "", value)
{
}

JsonCursor::JsonCursor(std::string file, std::string place, const nlohmann::json& value)
    : m_file(std::move(file)), m_place(std::move(place)), m_value(&value)
{
}

HostError JsonCursor::makeError(const std::string& cause) const { return {m_file, m_place, cause}; }

void JsonCursor::requireKeys(std::initializer_list<const char*> known) const
{
    if (!m_value->is_object())
        throw makeError("an object is needed here");
    for (const auto& [key, value] : m_value->items()) {
        if (std::none_of(known.begin(), known.end(), [&](const char* name) { return key == name; }))
            throw makeError("unknown key \"" + key + "\"");
    }
}

bool JsonCursor::hasKey(const char* key) const { return m_value->is_object() && m_value->contains(key); }

JsonCursor JsonCursor::getValue(const char* key) const
{
    if (!hasKey(key))
        throw makeError(std::string("the key \"") + key + "\" is missing");
    return {m_file, m_place + (m_place.empty() ? "" : ".") + key, (*m_value)[key]};
}

void JsonCursor::visitObject(const std::function<void(const std::string&, const JsonCursor&)>& visit) const
{
    if (!m_value->is_object())
        throw makeError("an object is needed here");
    for (const auto& [key, value] : m_value->items())
        visit(key, JsonCursor(m_file, m_place + (m_place.empty() ? "" : ".") + key, value));
}

void JsonCursor::visitList(const std::function<void(const JsonCursor&)>& visit) const
{
    if (!m_value->is_array())
        throw makeError("a list is needed here");
    for (std::size_t i = 0; i < m_value->size(); ++i)
        visit(JsonCursor(m_file, m_place + '[' + std::to_string(i) + ']', (*m_value)[i]));
}

std::string JsonCursor::readText() const
{
    if (!m_value->is_string())
        throw makeError("a text is needed here");
    return m_value->get<std::string>();
}

bool JsonCursor::readFlag() const
{
    if (!m_value->is_boolean())
        throw makeError("true or false is needed here");
    return m_value->get<bool>();
}

std::uint64_t JsonCursor::readCount() const
{
    if (!m_value->is_number_unsigned())
        throw makeError("a whole number from 0 on is needed here");
    return m_value->get<std::uint64_t>();
}

std::string JsonCursor::readTextOrNumber() const
{
    return m_value->is_number() ? m_value->dump() : readText();
}

bool JsonCursor::readMembers(std::vector<std::string>& members) const
{
    bool hasNull = false;
    visitList([&](const JsonCursor& member) {
        if (member.isNull())
            hasNull = true;
        else
            members.push_back(member.readTextOrNumber());
    });
    return hasNull;
}

std::size_t JsonCursor::readName(const std::vector<std::string>& names) const
{
    const std::string text = readText();
    const auto found = std::find(names.begin(), names.end(), text);
    if (found == names.end()) {
        std::string list;
        for (const std::string& name : names)
            list += (list.empty() ? "" : ", ") + name;
        throw makeError("\"" + text + "\" is none of " + list);
    }
    return static_cast<std::size_t>(found - names.begin());
}
