#include "ux/ux_json_object.h"

#include "ux/ux_arrangement.h"
#include "ux/ux_color.h"
#include "ux/ux_font.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_hint_position.h"
#include "ux/ux_json_object_factory.h"
#include "ux/ux_point.h"
#include "ux/ux_position.h"
#include "ux/ux_rect.h"
#include "ux/ux_size.h"
#include "ux/ux_symbol_style.h"
#include "ux/ux_text_align.h"
#include "ux/ux_text_property.h"
#include "ux_odd_locale.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

/** Writes and reads whatever a test wants. */
class Scripted : public UXJsonObject {
public:
    void customSerialize() override
    {
        if (onWrite)
            onWrite(*this);
    }
    std::string customSerializeTypeID() override { return "Scripted"; }
    bool customDeserialize() override { return !onRead || onRead(*this); }

    std::function<void(Scripted&)> onWrite;
    std::function<bool(Scripted&)> onRead;
};

/** Answers what one reader says of a text, and the value that it leaves. */
template <class T, class Reader>
std::optional<T> readOne(const std::string& text, T initial, Reader reader)
{
    Scripted object;
    T value = initial;
    object.onRead = [&](Scripted& self) { return (self.*reader)("m_key", value); };
    if (object.deserialize(text))
        return value;
    EXPECT_EQ(value, initial) << "a refused value was stored";
    return std::nullopt;
}

std::string writeOne(const std::function<void(Scripted&)>& write)
{
    Scripted object;
    object.onWrite = write;
    return object.serialize();
}

/** A node with a number, owned children, and a reference to any node. */
class Node : public UXJsonObject {
public:
    void customSerialize() override
    {
        serializeInt64("m_number", number);
        serializeObject("m_first", first.get());
        serializeObjectWeakRef("m_other", other);
        serializeObject("m_second", second.get());
    }
    std::string customSerializeTypeID() override { return "Node"; }
    bool customDeserialize() override
    {
        const auto refer = [this](UXJsonObject* o) { return other = dynamic_cast<Node*>(o), true; };
        const auto own = [](std::unique_ptr<Node>& place) {
            return [&place](UXJsonObject* o) { return place.reset(dynamic_cast<Node*>(o)), true; };
        };
        int read = deserializeInt64("m_number", number);
        read += deserializeObject("m_first", own(first));
        read += deserializeObjectWeakRef("m_other", refer);
        read += deserializeObject("m_second", own(second));
        return read == 4;
    }

    int number = 0;
    std::unique_ptr<Node> first, second;
    Node* other = nullptr;
};

class NodeFactory : public UXJsonObjectFactory {
public:
    UXJsonObject* customCreate(const std::string& typeName) override
    {
        return typeName == "Node" ? new Node : UXJsonObjectFactory::customCreate(typeName);
    }
};

TEST(UXJsonObject, ReadersTakeTheirOwnTypeOnly)
{
    struct Case {
        const char* name;
        std::string literal;
        std::optional<bool> asBool;
        std::optional<int> asInt;
        std::optional<std::int64_t> asInt64;
        std::optional<double> asDouble;
        std::optional<std::string> asString;
    };
    const Case cases[] = {
        {"truth", "true", true, {}, {}, {}, {}},
        {"integer", "-12", {}, -12, -12, -12.0, {}},
        {"an integer is no truth", "1", {}, 1, 1, 1.0, {}},
        {"beyond 32 bits", "5000000000", {}, INT_MAX, 5000000000, 5e9, {}},
        {"below 32 bits", "-5000000000", {}, INT_MIN, -5000000000, -5e9, {}},
        {"64 bits", "9223372036854775807", {}, INT_MAX, INT64_MAX, 9223372036854775807.0, {}},
        {"unsigned 64 bits", "18446744073709551615", {}, INT_MAX, INT64_MAX, 18446744073709551615.0, {}},
        {"beyond 64 bits", "100000000000000000000000", {}, INT_MAX, INT64_MAX, 1e23, {}},
        {"below 64 bits", "-100000000000000000000000", {}, INT_MIN, INT64_MIN, -1e23, {}},
        {"fraction", "1.5", {}, {}, {}, 1.5, {}},
        {"a whole fraction is no integer", "1.0", {}, {}, {}, 1.0, {}},
        {"an exponent is no integer", "1e2", {}, {}, {}, 100.0, {}},
        {"too small", "-1e-400", {}, {}, {}, -0.0, {}},
        {"text", "\"1\"", {}, {}, {}, {}, "1"},
        {"escapes", R"("\u00e9\u0000")", {}, {}, {}, {}, std::string("\xc3\xa9\0", 3)},
        {"null", "null", {}, {}, {}, {}, {}},
        {"list", "[1]", {}, {}, {}, {}, {}},
        {"object", "{}", {}, {}, {}, {}, {}},
    };
    bool (Scripted::*const readInt)(const std::string&, int&) = &Scripted::deserializeInt64;
    bool (Scripted::*const readInt64)(const std::string&, std::int64_t&) = &Scripted::deserializeInt64;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string text = "{\"m_key\":" + c.literal + "}";
        EXPECT_EQ(readOne(text, false, &Scripted::deserializeBool), c.asBool);
        EXPECT_EQ(readOne(text, 77, readInt), c.asInt);
        EXPECT_EQ(readOne(text, std::int64_t{77}, readInt64), c.asInt64);
        EXPECT_EQ(readOne(text, 7.5, &Scripted::deserializeDouble), c.asDouble);
        EXPECT_EQ(readOne(text, std::string("before"), &Scripted::deserializeString), c.asString);
    }
}

TEST(UXJsonObject, DoublesReadBackBitForBitInAnyLocale)
{
    const UXOddLocale locale;
    std::vector<double> values{-0.0,     0.1,    1e22,    123456789, 9007199254740992,
                               2.5e-310, 5e-324, DBL_MAX, -DBL_MAX};
    std::mt19937_64 random(20260);
    while (values.size() < 3000) {
        const double value = std::bit_cast<double>(random());
        if (std::isfinite(value))
            values.push_back(value);
    }
    for (const double value : values) {
        const std::string text = writeOne([&](Scripted& self) { self.serializeDouble("m_key", value); });
        const std::optional<double> read = readOne(text, 7.5, &Scripted::deserializeDouble);
        ASSERT_TRUE(read) << text;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(*read), std::bit_cast<std::uint64_t>(value)) << text;
    }
}

TEST(UXJsonObject, WritesKeysInOrderAndValuesThatJsonCanSay)
{
    const std::string text = writeOne([](Scripted& self) {
        self.serializeString("m_z", "quote \" tab \t");
        self.serializeBool("m_a", true);
        self.serializeInt64("m_m", -5);
        self.serializeInt64("m_l", INT64_MIN);
        self.serializeDouble("m_whole", 2);
        self.serializeDouble("m_nan", NAN);
        self.serializeDouble("m_inf", -INFINITY);
        self.serializeString("m_broken", "a\xff\xc3");
        self.serializeBool("m_a", false);
    });
    EXPECT_EQ(
        text,
        R"({"type":"Scripted","version":"0","m_z":"quote \" tab \t","m_a":false,"m_m":-5,"m_l":-9223372036854775808,)"
        R"("m_whole":2.0,"m_nan":null,"m_inf":null,"m_broken":"a)"
        "\uFFFD\uFFFD\"}");
}

TEST(UXJsonObject, BrokenTextIsRefusedBeforeAnythingIsRead)
{
    const std::string closed(1'000'000, ']');
    const std::pair<const char*, std::string> cases[] = {
        {"nothing", ""},
        {"no object", "[]"},
        {"a bare value", "null"},
        {"cut off", R"({"m_key":1)"},
        {"something behind it", R"({"m_key":1} x)"},
        {"a comment", R"({"m_key":1/**/})"},
        {"no JSON number", R"({"m_key":1,"a":NaN})"},
        {"beyond a double", R"({"m_key":1,"a":1e999})"},
        {"a whole number beyond a double", R"({"m_key":1,"a":1)" + std::string(400, '0') + "}"},
        {"no UTF-8", "{\"m_key\":1,\"a\":\"\xff\"}"},
        {"a zero byte", std::string("{\"m_key\":1}\0", 12)},
        {"as many brackets as fit", std::string(1'000'000, '[')},
        {"as many brackets, closed", R"({"m_key":1,"a":)" + std::string(1'000'000, '[') + closed + "}"},
    };
    for (const auto& [name, text] : cases) {
        SCOPED_TRACE(name);
        Scripted object;
        bool wasRead = false;
        object.onRead = [&](Scripted&) { return wasRead = true; };
        EXPECT_FALSE(object.deserialize(text));
        EXPECT_FALSE(wasRead);
    }
}

TEST(UXJsonObject, NestingAndLengthHaveLimits)
{
    Scripted object;
    const auto nested = [](std::size_t lists) {
        return "{\"a\":" + std::string(lists, '[') + std::string(lists, ']') + "}";
    };
    EXPECT_TRUE(object.deserialize(nested(255)));
    EXPECT_FALSE(object.deserialize(nested(256)));

    std::string longText(std::size_t{64} * 1024 * 1024, ' ');
    longText[0] = '{';
    longText[1] = '}';
    EXPECT_TRUE(object.deserialize(longText));
    longText += ' ';
    EXPECT_FALSE(object.deserialize(longText));
}

template <class T, class Write, class Read>
void expectReadBack(const T& value, Write write, Read read)
{
    const std::string text = writeOne([&](Scripted& self) { (self.*write)("m_key", value); });
    EXPECT_EQ(readOne(text, T{}, read), value) << text;
}

TEST(UXJsonObject, FrameworkValuesReadBack)
{
#define EXPECT_READ_BACK(Type, ...) \
    expectReadBack(Type __VA_ARGS__, &Scripted::serialize##Type, &Scripted::deserialize##Type)
    const UXColor color(9, 10, 11, 0.1);
    const UXFont font{"Serif", 13, true, true, 14};
    const UXTextProperty text{font, UXTextAlign::Right, UXTextOption::EllipsisMiddle, 1,
                              UXColor(1, 2, 3, 0.5)};
    UXHintInfo hint(false);
    hint.title = "T\xc3\xa4";
    hint.titleProperty = text;
    hint.addRow(color, UXSymbolStyle::Line, "label", "value").labelProperty = text;
    hint.addRow(20);
    hint.addFooterRow(color, UXSymbolStyle::Area, "sum", "3");
    hint.position = UXHintPosition::Top;
    hint.maxWidth = 300;
    EXPECT_READ_BACK(UXPoint, {-1, 2});
    EXPECT_READ_BACK(UXSize, {3, 4});
    EXPECT_READ_BACK(UXRect, {5, 6, 7, 8});
    EXPECT_READ_BACK(UXColor, {color});
    EXPECT_READ_BACK(UXFont, {font});
    EXPECT_READ_BACK(UXTextProperty, {text});
    EXPECT_READ_BACK(UXHintInfo, {hint});
    EXPECT_READ_BACK(UXPosition, {UXPosition::BottomRight});
    EXPECT_READ_BACK(UXHintPosition, {UXHintPosition::Top});
    EXPECT_READ_BACK(UXArrangement, {UXArrangement::Column});
    EXPECT_READ_BACK(UXSymbolStyle, {UXSymbolStyle::AssistantLineWithDot});
    EXPECT_READ_BACK(UXTextAlign, {UXTextAlign::Center});
#undef EXPECT_READ_BACK
}

TEST(UXJsonObject, NestedObjectsCarryTypeVersionAndId)
{
    Node root;
    root.first = std::make_unique<Node>();
    root.first->number = 1;
    root.second = std::make_unique<Node>();
    root.other = root.second.get();
    root.first->other = &root;
    root.second->other = root.first.get();
    const std::string text = root.serialize();
    EXPECT_EQ(text,
              R"({"type":"Node","version":"0","m_number":0,)"
              R"("m_first":{"type":"Node","version":"0","id":1,"m_number":1,"m_first":null,"m_other":0,)"
              R"("m_second":null},"m_other":2,)"
              R"("m_second":{"type":"Node","version":"0","id":2,"m_number":0,"m_first":null,"m_other":1,)"
              R"("m_second":null}})");
    EXPECT_EQ(root.serialize(), text);

    // What a reference means must have been read before it, so the root's own is not found.
    NodeFactory factory;
    Node read;
    EXPECT_FALSE(read.deserialize(text, &factory));
    ASSERT_TRUE(read.first && read.second);
    EXPECT_EQ(read.first->number, 1);
    EXPECT_EQ(read.first->other, &read);
    EXPECT_EQ(read.second->other, read.first.get());
    EXPECT_EQ(read.other, nullptr);

    root.other = root.first.get();
    EXPECT_TRUE(read.deserialize(root.serialize(), &factory));
    EXPECT_EQ(read.other, read.first.get());
}

TEST(UXJsonObject, AnObjectThatIsGoneIsNotReferredTo)
{
    Scripted object;
    UXJsonObject* found = nullptr;
    object.onRead = [&](Scripted& self) {
        const bool placed = self.deserializeObject("m_key", [](UXJsonObject* o) { return delete o, true; });
        return self.deserializeObjectWeakRef("m_ref", [&](UXJsonObject* o) { return found = o, true; }) &&
               placed;
    };
    NodeFactory factory;
    EXPECT_FALSE(object.deserialize(
        R"({"m_key":{"type":"Node","id":4,"m_number":1,"m_first":null,"m_other":null,"m_second":null},"m_ref":4})",
        &factory));
    EXPECT_EQ(found, nullptr);
}

} // namespace
