#include "ux/ux_property_accessor.h"

#include "ux/ux_align.h"
#include "ux/ux_color.h"
#include "ux/ux_enum_map.h"
#include "ux/ux_font.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_point.h"
#include "ux/ux_position.h"
#include "ux/ux_property_table.h"
#include "ux/ux_rect.h"
#include "ux/ux_rect_edge.h"
#include "ux/ux_size.h"
#include "ux/ux_text_property.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

/** Which property was updated and how often; a callback can do what it wants. */
class Panel : public UXJsonObject {
public:
    void customSerialize() override { serializeInt64("m_width", width); }
    std::string customSerializeTypeID() override { return "Panel"; }
    bool customDeserialize() override { return deserializeInt64("m_width", width); }

    template <class T>
    void update(const char* key, T& member, const T& value)
    {
        member = value;
        updatedKeys.push_back(key);
        if (onUpdated)
            onUpdated();
    }

    static const UXPropertyTable& obtainPropertyTable();

    std::vector<std::string> updatedKeys;
    std::function<void()> onUpdated;
    bool show = false;
    int width = 1;
    unsigned int count = 2;
    std::int64_t total = 3;
    std::uint64_t bytes = 4;
    double ratio = 0.5;
    std::string title = "title";
    UXColor color;
    UXAlign align = UXAlign::None;
    UXRectEdge edge = UXRectEdge::Left;
    std::vector<UXPoint> points = {{1, 2}, {3, 4}};
    std::vector<bool> flags = {false, false};
    std::vector<UXRectEdge> edges = {UXRectEdge::Left};
    std::unique_ptr<Panel> inner;

private:
    UXPropertyTableBinding m_binding{*this, obtainPropertyTable()};
};

template <class T>
UXProperty makeProperty(const char* key, T Panel::*member)
{
    return UXProperty::make<Panel, T>(
        key, [member](const Panel& panel) { return panel.*member; },
        [key, member](Panel& panel, const T& value) { panel.update(key, panel.*member, value); });
}

const UXPropertyTable& Panel::obtainPropertyTable()
{
    static const UXPropertyTable table(
        nullptr, {makeProperty("m_show", &Panel::show), makeProperty("m_width", &Panel::width),
                  makeProperty("m_count", &Panel::count), makeProperty("m_total", &Panel::total),
                  makeProperty("m_bytes", &Panel::bytes), makeProperty("m_ratio", &Panel::ratio),
                  makeProperty("m_title", &Panel::title), makeProperty("m_color", &Panel::color),
                  makeProperty("m_align", &Panel::align), makeProperty("m_points", &Panel::points),
                  makeProperty("m_flags", &Panel::flags), makeProperty("m_edges", &Panel::edges),
                  UXProperty::makeEnum<Panel, UXRectEdge>(
                      "m_edge", [](const Panel& panel) { return panel.edge; },
                      [](Panel& panel, UXRectEdge value) { panel.update("m_edge", panel.edge, value); },
                      []() -> auto& {
                          static UXEnum::UXEnumMap<UXRectEdge> names("Left, Top");
                          return names;
                      }),
                  UXProperty::make<Panel, int>(
                      "m_area", [](const Panel& panel) { return panel.width * 2; }, nullptr),
                  UXProperty::makeObject<Panel>("m_inner", [](Panel& panel) { return panel.inner.get(); })});
    return table;
}

/** Has one key more, and takes one of its parent's over. */
class ColoredPanel : public Panel {
public:
    static const UXPropertyTable& obtainPropertyTable()
    {
        static const UXPropertyTable table(
            &Panel::obtainPropertyTable(),
            {UXProperty::make<ColoredPanel, UXColor>(
                 "m_shadow", [](const ColoredPanel& panel) { return panel.shadow; },
                 [](ColoredPanel& panel, const UXColor& value) { panel.shadow = value; }),
             UXProperty::make<ColoredPanel, int>(
                 "m_width", [](const ColoredPanel&) { return 99; }, nullptr)});
        return table;
    }

    UXColor shadow;

private:
    UXPropertyTableBinding m_ownBinding{*this, obtainPropertyTable()};
};

template <class T>
void expectReadAndWritten(const char* key, const T& before, const T& after)
{
    SCOPED_TRACE(key);
    Panel panel;
    UXPropertyAccessor accessor(&panel);
    T value{};
    EXPECT_TRUE(accessor.obtainValue(key, value));
    EXPECT_EQ(value, before);
    EXPECT_TRUE(accessor.updateValue(key, after));
    EXPECT_EQ(panel.updatedKeys, std::vector<std::string>{key});
    EXPECT_TRUE(accessor.obtainValue(key, value));
    EXPECT_EQ(value, after);
}

TEST(UXPropertyAccessor, ValuesGoThroughTheUpdateOfTheirKey)
{
    expectReadAndWritten("m_show", false, true);
    expectReadAndWritten("m_width", 1, -5);
    expectReadAndWritten("m_count", 2u, 5u);
    expectReadAndWritten("m_total", std::int64_t{3}, std::int64_t{5'000'000'000});
    expectReadAndWritten("m_bytes", std::uint64_t{4}, (std::numeric_limits<std::uint64_t>::max)());
    expectReadAndWritten("m_ratio", 0.5, 0.25);
    expectReadAndWritten("m_title", std::string("title"), std::string("other"));
    expectReadAndWritten("m_color", UXColor(), UXColor(1, 2, 3));
}

TEST(UXPropertyAccessor, UnknownKeysAndOtherTypesChangeNothing)
{
    Panel panel;
    UXPropertyAccessor accessor(&panel);
    double number = 7;
    std::int64_t whole = 7;
    UXPosition position = UXPosition::Center;
    UXJsonObject* object = &panel;
    std::string name = "before";
    EXPECT_FALSE(accessor.obtainValue("m_Width", number));
    EXPECT_FALSE(accessor.obtainValue("", number));
    EXPECT_FALSE(accessor.obtainValue("m_width", number));
    EXPECT_FALSE(accessor.obtainValue("m_width", whole));
    EXPECT_FALSE(accessor.obtainEnum("m_align", position));
    EXPECT_FALSE(accessor.obtainUXPositionString("m_align", name));
    EXPECT_FALSE(accessor.obtainEnumString("m_align", name)) << "has no names in the table";
    EXPECT_FALSE(accessor.obtainObject("m_width", &object));
    EXPECT_FALSE(accessor.obtainObject("m_inner", nullptr));
    EXPECT_FALSE(accessor.updateValue("m_unknown", 1));
    EXPECT_FALSE(accessor.updateValue("m_ratio", 1));
    EXPECT_FALSE(accessor.updateValue("m_show", "true")) << "a text is no truth value";
    EXPECT_FALSE(accessor.updateValue("m_title", static_cast<const char*>(nullptr)));
    EXPECT_FALSE(accessor.updateValue("m_area", 5)) << "is read only";
    EXPECT_FALSE(accessor.updateEnum("m_align", UXPosition::Left));
    EXPECT_FALSE(accessor.updateUXAlignString("m_align", "client"));
    EXPECT_FALSE(accessor.updateEnumString("m_edge", "Bottom")) << "is not among the names of the table";
    EXPECT_EQ(number, 7);
    EXPECT_EQ(whole, 7);
    EXPECT_EQ(position, UXPosition::Center);
    EXPECT_EQ(object, &panel);
    EXPECT_EQ(name, "before");
    EXPECT_TRUE(panel.updatedKeys.empty());
}

TEST(UXPropertyAccessor, TargetsMayBeMissingOrGo)
{
    UXPropertyAccessor accessor(nullptr);
    EXPECT_FALSE(accessor.updateValue("m_width", 1));
    EXPECT_FALSE(accessor.propertyChanged(true));

    auto panel = std::make_unique<Panel>();
    accessor.setTargetJsonObject(panel.get());
    EXPECT_TRUE(accessor.updateValue("m_width", 2));
    panel.reset();
    int width = 0;
    EXPECT_EQ(accessor.getTargetJsonObject(), nullptr);
    EXPECT_FALSE(accessor.obtainValue("m_width", width));
    EXPECT_FALSE(accessor.updateValue("m_width", 1));
}

TEST(UXPropertyAccessor, AnUpdateMayDestroyEverything)
{
    auto panel = std::make_unique<Panel>();
    auto extra = std::make_unique<Panel>();
    auto accessor = std::make_unique<UXPropertyAccessor>(panel.get());
    accessor->setExtraTargetJsonObjectsForUpdate({extra.get()});
    const std::function<void()> destroyAll = [&] {
        accessor.reset();
        extra.reset();
        panel.reset();
    };
    panel->onUpdated = [&destroyAll] { destroyAll(); };
    UXPropertyAccessor* raw = accessor.get();
    EXPECT_TRUE(raw->updateValue("m_title", "a title too long to be kept in the string itself"));
    EXPECT_FALSE(accessor);
    EXPECT_FALSE(extra);
}

} // namespace
