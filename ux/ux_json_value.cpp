#include "ux/ux_json_value.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <utility>

struct UXJsonValue::Array {
    std::vector<UXJsonValue> elements;
};

struct UXJsonValue::Object {
    struct Member {
        std::string key;
        UXJsonValue value;
    };

    /** @return the index of the last member of that key, the number of members for none */
    std::size_t find(const std::string& key);

    std::vector<Member> members;
    // Made on demand, for an object so large that going through it for every key would take too long.
    std::unique_ptr<std::map<std::string, std::size_t>> indexes;
};

std::size_t UXJsonValue::Object::find(const std::string& key)
{
    constexpr std::size_t c_largeObject = 256;
    if (members.size() < c_largeObject) {
        const auto found = std::find_if(members.rbegin(), members.rend(),
                                        [&](const Member& member) { return member.key == key; });
        return found == members.rend() ? members.size()
                                       : static_cast<std::size_t>(members.rend() - found) - 1;
    }

    if (!indexes) {
        indexes = std::make_unique<std::map<std::string, std::size_t>>();
        for (std::size_t i = 0; i < members.size(); ++i)
            (*indexes)[members[i].key] = i;
    }
    const auto found = indexes->find(key);
    return found == indexes->end() ? members.size() : found->second;
}

UXJsonValue::UXJsonValue() = default;
UXJsonValue::UXJsonValue(UXJsonValue&& other) noexcept = default;
UXJsonValue& UXJsonValue::operator=(UXJsonValue&& other) noexcept = default;
UXJsonValue::~UXJsonValue() = default;

UXJsonValue UXJsonValue::makeBool(bool value)
{
    UXJsonValue made;
    made.m_value = value;
    return made;
}

UXJsonValue UXJsonValue::makeInteger(std::int64_t value)
{
    UXJsonValue made;
    made.m_value = value;
    return made;
}

UXJsonValue UXJsonValue::makeBigInteger(double value)
{
    UXJsonValue made;
    made.m_value = BigInteger{value};
    return made;
}

UXJsonValue UXJsonValue::makeDouble(double value)
{
    UXJsonValue made;
    if (std::isfinite(value))
        made.m_value = value;
    return made;
}

UXJsonValue UXJsonValue::makeString(std::string value)
{
    UXJsonValue made;
    made.m_value = std::make_unique<std::string>(std::move(value));
    return made;
}

UXJsonValue UXJsonValue::makeArray()
{
    UXJsonValue made;
    made.m_value = std::make_unique<Array>();
    return made;
}

UXJsonValue UXJsonValue::makeObject()
{
    UXJsonValue made;
    made.m_value = std::make_unique<Object>();
    return made;
}

bool UXJsonValue::isNull() const { return std::holds_alternative<std::monostate>(m_value); }
bool UXJsonValue::isArray() const { return std::holds_alternative<std::unique_ptr<Array>>(m_value); }
bool UXJsonValue::isObject() const { return std::holds_alternative<std::unique_ptr<Object>>(m_value); }

bool UXJsonValue::getBool(bool& value) const
{
    const bool* own = std::get_if<bool>(&m_value);
    if (own)
        value = *own;
    return own != nullptr;
}

bool UXJsonValue::getInteger(std::int64_t& value) const
{
    using Limits = std::numeric_limits<std::int64_t>;
    if (const auto* own = std::get_if<std::int64_t>(&m_value))
        value = *own;
    else if (const auto* big = std::get_if<BigInteger>(&m_value))
        value = big->value < 0 ? (Limits::min)() : (Limits::max)();
    else
        return false;
    return true;
}

bool UXJsonValue::getNumber(double& value) const
{
    if (const auto* own = std::get_if<double>(&m_value))
        value = *own;
    else if (const auto* integer = std::get_if<std::int64_t>(&m_value))
        value = static_cast<double>(*integer);
    else if (const auto* big = std::get_if<BigInteger>(&m_value))
        value = big->value;
    else
        return false;
    return true;
}

bool UXJsonValue::getString(std::string& value) const
{
    const auto* own = std::get_if<std::unique_ptr<std::string>>(&m_value);
    if (own)
        value = **own;
    return own != nullptr;
}

std::size_t UXJsonValue::count() const
{
    if (const auto* array = std::get_if<std::unique_ptr<Array>>(&m_value))
        return (*array)->elements.size();
    if (const auto* object = std::get_if<std::unique_ptr<Object>>(&m_value))
        return (*object)->members.size();
    return 0;
}

UXJsonValue* UXJsonValue::at(std::size_t index)
{
    if (index >= count())
        return nullptr;
    if (auto* array = std::get_if<std::unique_ptr<Array>>(&m_value))
        return &(*array)->elements[index];
    return &std::get<std::unique_ptr<Object>>(m_value)->members[index].value;
}

const UXJsonValue* UXJsonValue::at(std::size_t index) const
{
    return const_cast<UXJsonValue*>(this)->at(index);
}

const std::string& UXJsonValue::keyAt(std::size_t index) const
{
    static const std::string none;
    const auto* object = std::get_if<std::unique_ptr<Object>>(&m_value);
    return object && index < (*object)->members.size() ? (*object)->members[index].key : none;
}

UXJsonValue* UXJsonValue::find(const std::string& key)
{
    auto* object = std::get_if<std::unique_ptr<Object>>(&m_value);
    return object ? at((*object)->find(key)) : nullptr;
}

const UXJsonValue* UXJsonValue::find(const std::string& key) const
{
    return const_cast<UXJsonValue*>(this)->find(key);
}

UXJsonValue* UXJsonValue::append(UXJsonValue value)
{
    auto* array = std::get_if<std::unique_ptr<Array>>(&m_value);
    return array ? &(*array)->elements.emplace_back(std::move(value)) : nullptr;
}

UXJsonValue* UXJsonValue::append(std::string key, UXJsonValue value)
{
    auto* object = std::get_if<std::unique_ptr<Object>>(&m_value);
    if (!object)
        return nullptr;
    if ((*object)->indexes)
        (*(*object)->indexes)[key] = (*object)->members.size();
    (*object)->members.push_back({std::move(key), std::move(value)});
    return &(*object)->members.back().value;
}

UXJsonValue* UXJsonValue::set(const std::string& key, UXJsonValue value)
{
    UXJsonValue* found = find(key);
    if (!found)
        return append(key, std::move(value));
    *found = std::move(value);
    return found;
}
