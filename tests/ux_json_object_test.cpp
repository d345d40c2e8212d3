#include "ux/ux_json_object.h"

#include "ux/ux_arrangement.h"
#include "ux/ux_color.h"
#include "ux/ux_font.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_hint_position.h"
#include "ux/ux_json_object_factory.h"
#include "ux/ux_json_object_use_case.h"
#include "ux/ux_json_path_resolver.h"
#include "ux/ux_point.h"
#include "ux/ux_position.h"
#include "ux/ux_rect.h"
#include "ux/ux_size.h"
#include "ux/ux_symbol_style.h"
#include "ux/ux_text_align.h"
#include "ux/ux_text_property.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <functional>
#include <limits>
#include <locale>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr double c_max = (std::numeric_limits<double>::max)();

/** Writes and reads whatever a test wants. */
class Scripted : public UXJsonObject {
public:
    void customSerialize() override
    {
        if (onWrite)
            onWrite(*this);
    }
    std::string customSerializeTypeID() override { return "Scripted"; }
    std::string customSerializeVersion() override { return version; }
    bool customDeserialize() override { return !onRead || onRead(*this); }

    std::function<void(Scripted&)> onWrite;
    std::function<bool(Scripted&)> onRead;
    std::string version = "0";
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

std::string withHead(const std::string& members)
{
    return R"({"type":"Scripted","version":"0")" + (members.empty() ? "" : "," + members) + "}";
}

bool readsNothing(Scripted&) { return true; }

/** A node with a number, owned children, and a reference to any node. */
class Node : public UXJsonObject {
public:
    Node() : UXJsonObject(s_resolver) {}

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
        int read = deserializeInt64("m_number", number);
        read += deserializeObject("m_first", [this](UXJsonObject* o) { return own(first, o); });
        read += deserializeObjectWeakRef("m_other", refer);
        read += deserializeObject("m_second", [this](UXJsonObject* o) { return own(second, o); });
        return read == 4;
    }

    int number = 0;
    std::unique_ptr<Node> first, second;
    Node* other = nullptr;
    std::vector<Node*> parts; // not written; a part's place is its index

private:
    class Resolver : public UXJsonPathResolver {
    public:
        std::string obtainPath(UXJsonObject* object, UXJsonObject* target) const override
        {
            const auto& known = dynamic_cast<Node*>(object)->parts;
            for (std::size_t i = 0; i < known.size(); ++i) {
                if (known[i] == target)
                    return std::to_string(i);
            }
            return {};
        }
        UXJsonObject* obtainObject(UXJsonObject* object, const std::string& path) const override
        {
            for (Node* part : dynamic_cast<Node*>(object)->parts) {
                if (obtainPath(object, part) == path)
                    return part;
            }
            return nullptr;
        }
    };

    static bool own(std::unique_ptr<Node>& place, UXJsonObject* object)
    {
        place.reset(dynamic_cast<Node*>(object));
        return true;
    }

    static inline const Resolver s_resolver;
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
    constexpr int c_intMax = (std::numeric_limits<int>::max)(), c_intMin = (std::numeric_limits<int>::min)();
    constexpr std::int64_t c_longMax = (std::numeric_limits<std::int64_t>::max)();
    constexpr std::int64_t c_longMin = (std::numeric_limits<std::int64_t>::min)();
    const Case cases[] = {
        {"truth", "true", true, {}, {}, {}, {}},
        {"integer", "-12", {}, -12, -12, -12.0, {}},
        {"an integer is no truth", "1", {}, 1, 1, 1.0, {}},
        {"beyond 32 bits", "5000000000", {}, c_intMax, 5000000000, 5e9, {}},
        {"below 32 bits", "-5000000000", {}, c_intMin, -5000000000, -5e9, {}},
        {"64 bits", "9223372036854775807", {}, c_intMax, c_longMax, 9223372036854775807.0, {}},
        {"unsigned 64 bits", "18446744073709551615", {}, c_intMax, c_longMax, 18446744073709551615.0, {}},
        {"beyond 64 bits", "100000000000000000000000", {}, c_intMax, c_longMax, 1e23, {}},
        {"below 64 bits", "-100000000000000000000000", {}, c_intMin, c_longMin, -1e23, {}},
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
    struct CommaPunct : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaPunct));

    std::vector<double> values{-0.0, 0.1, 1e22, 123456789, 9007199254740992, 2.5e-310, 5e-324, c_max, -c_max};
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
    std::locale::global(before);
}

TEST(UXJsonObject, WritesKeysInOrderAndValuesThatJsonCanSay)
{
    const std::string text = writeOne([](Scripted& self) {
        self.serializeString("m_z", "quote \" tab \t");
        self.serializeBool("m_a", true);
        self.serializeInt64("m_m", -5);
        self.serializeInt64("m_l", (std::numeric_limits<std::int64_t>::min)());
        self.serializeDouble("m_whole", 2);
        self.serializeDouble("m_nan", NAN);
        self.serializeDouble("m_inf", -INFINITY);
        self.serializeString("m_broken", "a\xff\xc3");
        self.serializeBool("m_a", false);
    });
    EXPECT_EQ(text, withHead(R"("m_z":"quote \" tab \t","m_a":false,"m_m":-5,"m_l":-9223372036854775808,)"
                             R"("m_whole":2.0,"m_nan":null,"m_inf":null,"m_broken":"a)"
                             "\xef\xbf\xbd\xef\xbf\xbd\""));
}

TEST(UXJsonObject, BrokenTextIsRefusedBeforeAnythingIsRead)
{
    struct Case {
        const char* name;
        std::string text;
    };
    const std::string closed(1'000'000, ']');
    const Case cases[] = {
        {"nothing", ""},
        {"no object", "[]"},
        {"a bare value", "null"},
        {"cut off", R"({"m_key":1)"},
        {"cut off in a text", R"({"m_key":1,"a)"},
        {"something behind it", R"({"m_key":1} x)"},
        {"two documents", R"({"m_key":1}{"m_key":1})"},
        {"a comma too many", R"({"m_key":1,})"},
        {"a comment", R"({"m_key":1/**/})"},
        {"no JSON number", R"({"m_key":1,"a":NaN})"},
        {"a leading zero", R"({"m_key":1,"a":01})"},
        {"beyond a double", R"({"m_key":1,"a":1e999})"},
        {"a whole number beyond a double", R"({"m_key":1,"a":1)" + std::string(400, '0') + "}"},
        {"no UTF-8", "{\"m_key\":1,\"a\":\"\xff\"}"},
        {"overlong UTF-8", "{\"m_key\":1,\"a\":\"\xc0\x80\"}"},
        {"half a pair", R"({"m_key":1,"a":"\ud800"})"},
        {"a control character", "{\"m_key\":1,\"a\":\"\n\"}"},
        {"a zero byte", std::string("{\"m_key\":1}\0", 12)},
        {"as many brackets as fit", std::string(1'000'000, '[')},
        {"as many brackets, closed", R"({"m_key":1,"a":)" + std::string(1'000'000, '[') + closed + "}"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Scripted object;
        bool wasRead = false;
        object.onRead = [&](Scripted&) { return wasRead = true; };
        EXPECT_FALSE(object.deserialize(c.text));
        EXPECT_FALSE(wasRead);
    }
}

TEST(UXJsonObject, NestingAndLengthHaveLimits)
{
    Scripted object;
    object.onRead = readsNothing;
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

/** Writes and reads one member of each structure and enumeration of the framework. */
class Values : public UXJsonObject {
public:
    void customSerialize() override
    {
        serializeUXPoint("m_point", point);
        serializeUXSize("m_size", size);
        serializeUXRect("m_rect", rect);
        serializeUXColor("m_color", color);
        serializeUXFont("m_font", font);
        serializeUXTextProperty("m_text", text);
        serializeUXHintInfo("m_hint", hint);
        serializeUXPosition("m_position", position);
        serializeUXHintPosition("m_hintPosition", hintPosition);
        serializeUXArrangement("m_arrangement", arrangement);
        serializeUXSymbolStyle("m_symbolStyle", symbolStyle);
        serializeUXTextAlign("m_textAlign", textAlign);
    }
    std::string customSerializeTypeID() override { return "Values"; }
    bool customDeserialize() override
    {
        int read = 0;
        read += deserializeUXPoint("m_point", point);
        read += deserializeUXSize("m_size", size);
        read += deserializeUXRect("m_rect", rect);
        read += deserializeUXColor("m_color", color);
        read += deserializeUXFont("m_font", font);
        read += deserializeUXTextProperty("m_text", text);
        read += deserializeUXHintInfo("m_hint", hint);
        read += deserializeUXPosition("m_position", position);
        read += deserializeUXHintPosition("m_hintPosition", hintPosition);
        read += deserializeUXArrangement("m_arrangement", arrangement);
        read += deserializeUXSymbolStyle("m_symbolStyle", symbolStyle);
        read += deserializeUXTextAlign("m_textAlign", textAlign);
        return read == 12;
    }

    UXPoint point;
    UXSize size;
    UXRect rect;
    UXColor color;
    UXFont font;
    UXTextProperty text;
    UXHintInfo hint;
    UXPosition position{};
    UXHintPosition hintPosition{};
    UXArrangement arrangement{};
    UXSymbolStyle symbolStyle{};
    UXTextAlign textAlign{};
};

Values makeValues()
{
    Values values;
    values.point = {-1, 2};
    values.size = {3, 4};
    values.rect = {5, 6, 7, 8};
    values.color = {9, 10, 11, 0.1};
    values.font = {"Serif", 13, true, true, 14};
    values.text = {values.font, UXTextAlign::Right, UXTextOption::EllipsisMiddle, 1, UXColor(1, 2, 3, 0.5)};
    values.hint = UXHintInfo(false);
    values.hint.title = "T\xc3\xa4";
    values.hint.titleProperty = values.text;
    values.hint.addRow(values.color, UXSymbolStyle::Line, "label", "value").labelProperty = values.text;
    values.hint.addRow(20);
    values.hint.addFooterRow(values.color, UXSymbolStyle::Area, "sum", "3");
    values.hint.position = UXHintPosition::Top;
    values.hint.maxWidth = 300;
    values.position = UXPosition::BottomRight;
    values.hintPosition = UXHintPosition::Top;
    values.arrangement = UXArrangement::Column;
    values.symbolStyle = UXSymbolStyle::AssistantLineWithDot;
    values.textAlign = UXTextAlign::Center;
    return values;
}

TEST(UXJsonObject, FrameworkValuesReadBack)
{
    Values values = makeValues();
    const std::string text = values.serialize();
    Values read;
    EXPECT_TRUE(read.deserialize(text));
    EXPECT_EQ(read.rect, values.rect);
    EXPECT_EQ(read.color, values.color);
    EXPECT_EQ(read.text, values.text);
    EXPECT_EQ(read.hint, values.hint);
    EXPECT_EQ(read.symbolStyle, values.symbolStyle);
    EXPECT_EQ(read.serialize(), text);
    EXPECT_EQ(values.serialize(), text);
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

TEST(UXJsonObject, ReferencesToPartsAreTheirPlaces)
{
    Node root, partA, partB, stranger;
    root.parts = {&partA, &partB};
    root.other = &partB;
    EXPECT_NE(root.serialize().find(R"("m_other":"1")"), std::string::npos);

    Node read, readA, readB;
    read.parts = {&readA, &readB};
    EXPECT_TRUE(read.deserialize(root.serialize()));
    EXPECT_EQ(read.other, &readB);

    // A place that is not there, and an object that the document does not hold, leave the reference alone.
    read.parts = {&readA};
    EXPECT_FALSE(read.deserialize(root.serialize()));
    EXPECT_EQ(read.other, &readB);
    root.other = &stranger;
    EXPECT_FALSE(read.deserialize(root.serialize()));
    EXPECT_EQ(read.other, &readB);

    root.other = nullptr;
    EXPECT_TRUE(read.deserialize(root.serialize()));
    EXPECT_EQ(read.other, nullptr);
}

TEST(UXJsonObject, AnObjectThatIsGoneIsNotReferredTo)
{
    Scripted object;
    UXJsonObject* found = nullptr;
    object.onRead = [&](Scripted& self) {
        const bool placed = self.deserializeObject("m_key", [](UXJsonObject* made) {
            delete made;
            return true;
        });
        const bool resolved = self.deserializeObjectWeakRef("m_ref", [&](UXJsonObject* target) {
            found = target;
            return true;
        });
        return placed && resolved;
    };
    NodeFactory factory;
    EXPECT_FALSE(object.deserialize(
        R"({"m_key":{"type":"Node","id":4,"m_number":1,"m_first":null,"m_other":null,"m_second":null},"m_ref":4})",
        &factory));
    EXPECT_EQ(found, nullptr);
}

} // namespace
