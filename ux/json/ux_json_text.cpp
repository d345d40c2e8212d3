#include "ux/json/ux_json_text.h"

// The parser hands a number's digits to strtod and asserts that it takes all of them, which fails where the
// locale's decimal point has more than one byte. Doubles are read from the digits below, so that nothing
// depends on it.
#define JSON_ASSERT(condition) static_cast<void>(0)
#include <nlohmann/json.hpp>

#include "ux/ux_exceptions.h"
#include "ux/ux_read_double.h"

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t c_longestText = std::size_t{64} * 1024 * 1024;

/** Builds the value while the parser goes through the text; false from any step ends the parsing there. */
class Builder {
public:
    Builder() : m_root(std::make_unique<UXJsonValue>()) {}

    std::unique_ptr<UXJsonValue> takeRoot() { return std::move(m_root); }

    bool null() { return add(UXJsonValue()); }
    bool boolean(bool value) { return add(UXJsonValue::makeBool(value)); }
    bool number_integer(std::int64_t value) { return add(UXJsonValue::makeInteger(value)); }
    bool number_unsigned(std::uint64_t value);
    bool number_float(double value, const std::string& digits);
    bool string(std::string& value) { return add(UXJsonValue::makeString(std::move(value))); }
    bool binary(nlohmann::json::binary_t&) { return false; }
    bool start_object(std::size_t) { return open(UXJsonValue::makeObject()); }
    bool start_array(std::size_t) { return open(UXJsonValue::makeArray()); }
    bool end_object() { return close(); }
    bool end_array() { return close(); }
    bool key(std::string& value)
    {
        m_key = std::move(value);
        return true;
    }
    bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception&) { return false; }

private:
    bool open(UXJsonValue container);
    bool close()
    {
        m_open.pop_back();
        return true;
    }
    bool add(UXJsonValue value) { return place(std::move(value)) != nullptr; }
    UXJsonValue* place(UXJsonValue value);

    std::unique_ptr<UXJsonValue> m_root;
    std::vector<UXJsonValue*> m_open; // the innermost last; the others do not change meanwhile
    std::string m_key;
};

bool Builder::number_unsigned(std::uint64_t value)
{
    if (value > static_cast<std::uint64_t>((std::numeric_limits<std::int64_t>::max)()))
        return add(UXJsonValue::makeBigInteger(static_cast<double>(value)));
    return add(UXJsonValue::makeInteger(static_cast<std::int64_t>(value)));
}

bool Builder::number_float(double value, const std::string& digits)
{
    // 1. The parser has put the first byte of the locale's decimal point where the text has a point.
    std::string plain = digits;
    bool isWhole = true;
    for (char& c : plain) {
        if (std::string_view("+-0123456789").find(c) != std::string_view::npos)
            continue;
        isWhole = false;
        if (c != 'e' && c != 'E')
            c = '.';
    }

    // 2. What is too small for a double is zero, what is too large ends the parsing.
    double exact = 0;
    const auto [end, error] = uxReadDouble(plain.data(), plain.data() + plain.size(), exact);
    if (error == std::errc::result_out_of_range) {
        if (std::abs(value) >= 1)
            return false;
        exact = std::copysign(0.0, value);
    }
    return add(isWhole ? UXJsonValue::makeBigInteger(exact) : UXJsonValue::makeDouble(exact));
}

bool Builder::open(UXJsonValue container)
{
    if (m_open.size() >= static_cast<std::size_t>(uxDeepestJsonNesting))
        return false;
    m_open.push_back(place(std::move(container)));
    return true;
}

UXJsonValue* Builder::place(UXJsonValue value)
{
    if (m_open.empty()) {
        *m_root = std::move(value);
        return m_root.get();
    }
    UXJsonValue& container = *m_open.back();
    return container.isArray() ? container.append(std::move(value))
                               : container.append(std::move(m_key), std::move(value));
}

nlohmann::ordered_json makeTree(const UXJsonValue& value)
{
    bool truth = false;
    std::int64_t integer = 0;
    double number = 0;
    std::string text;
    if (value.getBool(truth))
        return truth;
    if (value.getInteger(integer))
        return integer;
    if (value.getNumber(number))
        return number;
    if (value.getString(text))
        return text;

    nlohmann::ordered_json tree;
    if (value.isArray()) {
        tree = nlohmann::ordered_json::array();
        for (std::size_t i = 0; i < value.count(); ++i)
            tree.push_back(makeTree(*value.at(i)));
    } else if (value.isObject()) {
        tree = nlohmann::ordered_json::object();
        auto& members = tree.get_ref<nlohmann::ordered_json::object_t&>();
        for (std::size_t i = 0; i < value.count(); ++i)
            members.emplace_back(value.keyAt(i), makeTree(*value.at(i)));
    }
    return tree;
}

} // namespace

std::unique_ptr<UXJsonValue> uxParseJson(const std::string& text)
{
    // The parser takes a zero byte for the end of the text.
    if (text.size() > c_longestText || text.find('\0') != std::string::npos)
        return nullptr;
    UX_TRY
    {
        Builder builder;
        if (nlohmann::json::sax_parse(text.begin(), text.end(), &builder))
            return builder.takeRoot();
    }
    UX_CATCH_ALL
    {
        // A text can ask for more memory than there is; it is then as good as broken.
    }
    return nullptr;
}

std::string uxFormatJson(const UXJsonValue& value)
{
    return makeTree(value).dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}
