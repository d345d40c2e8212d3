#include "ux/ux_property_accessor.h"

#include "ux/ux_align.h"
#include "ux/ux_enum_map.h"
#include "ux/ux_point.h"
#include "ux/ux_position.h"
#include "ux/ux_property_table.h"
#include "ux/ux_rect_edge.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

/** Which property was updated and how often; a callback can do what it wants. */
class Panel : public UXJsonObject {
public:
    void customSerialize() override {}
    std::string customSerializeTypeID() override { return "Panel"; }
    bool customDeserialize() override { return true; }

    void updated(const void* member)
    {
        for (const UXProperty& own : obtainPropertyTable().getProperties()) {
            if (own.place(this) == member)
                updatedKeys.emplace_back(own.key);
        }
        if (onUpdated)
            onUpdated();
    }

    static const UXPropertyTable& obtainPropertyTable();

    std::vector<std::string> updatedKeys;
    std::function<void()> onUpdated;
    bool show = false;
    int width = 1;
    double ratio = 0.5;
    std::string title = "title";
    UXAlign align = UXAlign::None;
    UXRectEdge edge = UXRectEdge::Left;
    std::vector<UXPoint> points = {{1, 2}, {3, 4}};
    int area = -10;

private:
    UXPropertyTableBinding m_binding{*this, obtainPropertyTable()};
};

UXEnum::UXEnumNames& obtainEdgeNames()
{
    static UXEnum::UXEnumNames names("Left, Top");
    return names;
}

template <auto Member, const UXPropertyType& (*Type)()>
constexpr UXProperty makeProperty(const char* key)
{
    return {.key = key,
            .type = Type,
            .place = [](void* owner) -> void* { return &(static_cast<Panel*>(owner)->*Member); },
            .update =
                [](void* owner, const void* value) {
                    auto& member = static_cast<Panel*>(owner)->*Member;
                    Type().assign(&member, value);
                    static_cast<Panel*>(owner)->updated(&member);
                }};
}

const UXPropertyTable& Panel::obtainPropertyTable()
{
    static constexpr UXProperty properties[] = {
        makeProperty<&Panel::show, uxObtainPropertyType<bool>>("m_show"),
        makeProperty<&Panel::width, uxObtainPropertyType<int>>("m_width"),
        makeProperty<&Panel::ratio, uxObtainPropertyType<double>>("m_ratio"),
        makeProperty<&Panel::title, uxObtainPropertyType<std::string>>("m_title"),
        makeProperty<&Panel::align, uxObtainEnumPropertyType<UXAlign, nullptr>>("m_align"),
        makeProperty<&Panel::edge, uxObtainEnumPropertyType<UXRectEdge, obtainEdgeNames>>("m_edge"),
        makeProperty<&Panel::points, uxObtainListPropertyType<UXPoint, uxObtainPropertyType<UXPoint>>>(
            "m_points"),
        {.key = "m_area",
         .type = uxObtainPropertyType<int>,
         .place = [](void* owner) -> void* { return &static_cast<Panel*>(owner)->area; }},
        {.key = "m_inner",
         .type = uxObtainNestedObjectType,
         .place = [](void* owner) -> void* {
             return static_cast<UXJsonObject*>(static_cast<Panel*>(owner));
         }},
    };
    static const UXPropertyTable table(
        "Panel", nullptr, [](UXJsonObject& object) -> void* { return dynamic_cast<Panel*>(&object); },
        properties);
    return table;
}

TEST(UXPropertyAccessor, ValuesGoThroughTheUpdateOfTheirKey)
{
    Panel panel;
    UXPropertyAccessor accessor(&panel);
    EXPECT_TRUE(accessor.updateValue("m_width", -5));
    EXPECT_TRUE(accessor.updateValue("m_title", "other"));
    EXPECT_TRUE(accessor.updateEnum("m_align", UXAlign::Client));
    EXPECT_TRUE(accessor.updateEnumString("m_edge", "Top"));
    EXPECT_TRUE(accessor.updateVectorValue("m_points", 1, UXPoint(7, 8)));
    EXPECT_FALSE(accessor.updateVectorValue("m_points", 2, UXPoint(7, 8)));
    EXPECT_EQ(panel.updatedKeys,
              (std::vector<std::string>{"m_width", "m_title", "m_align", "m_edge", "m_points"}));
    EXPECT_EQ(panel.title, "other");
    EXPECT_EQ(panel.edge, UXRectEdge::Top);
    int area = 0;
    UXPoint point;
    std::uint64_t count = 0;
    EXPECT_TRUE(accessor.obtainValue("m_area", area) && accessor.obtainVectorValue("m_points", 1, point));
    EXPECT_EQ(area, -10);
    EXPECT_EQ(point, UXPoint(7, 8));
    EXPECT_TRUE(accessor.obtainUXPointVectorCount("m_points", count) && count == 2);
    EXPECT_FALSE(accessor.obtainVectorValue("m_points", 2, point));
}

TEST(UXPropertyAccessor, AnElementIsUpdatedInEachTargetsOwnList)
{
    Panel panel, longer, shorter;
    longer.points = {{0, 0}, {5, 6}, {9, 9}};
    shorter.points = {{0, 0}};
    UXPropertyAccessor accessor(&panel);
    accessor.setExtraTargetJsonObjectsForUpdate({&longer, &shorter});
    EXPECT_TRUE(accessor.updateVectorValue("m_points", 1, UXPoint(7, 8)));
    EXPECT_EQ(panel.points, (std::vector<UXPoint>{{1, 2}, {7, 8}}));
    EXPECT_EQ(longer.points, (std::vector<UXPoint>{{0, 0}, {7, 8}, {9, 9}}));
    EXPECT_EQ(shorter.points, (std::vector<UXPoint>{{0, 0}}));
    EXPECT_FALSE(accessor.updateVectorValue("m_points", 2, UXPoint(7, 8)))
        << "the target has no such element";
    EXPECT_EQ(longer.points.back(), UXPoint(9, 9));
}

TEST(UXPropertyAccessor, UnknownKeysAndOtherTypesChangeNothing)
{
    Panel panel;
    UXPropertyAccessor accessor(&panel);
    double number = 7;
    std::int64_t whole = 7;
    UXPosition position = UXPosition::Center;
    UXJsonObject* object = nullptr;
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
    EXPECT_TRUE(number == 7 && whole == 7 && position == UXPosition::Center && !object && name == "before");
    EXPECT_TRUE(panel.updatedKeys.empty());
    EXPECT_TRUE(accessor.obtainObject("m_inner", &object));
    EXPECT_EQ(object, &panel);
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
    EXPECT_EQ(accessor.getTargetJsonObject(), nullptr);
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
