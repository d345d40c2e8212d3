#include "kx_chart_property_base.h"

#include "kx_key_definitions.h"
#include "kx_key_table.h"
#include "kx_key_walk.h"
#include "kx_keys.h"
#include "kx_line_chart_options.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

namespace {

#define STRIP_KEYS(KEY)                                                                                     \
    KEY(bool, ShowLabels, m_showLabels, false, Any(Strip), Layout, "the value above the strip")             \
    KEY(double, StripWidth, m_stripWidth, 0.8, Any(Strip), Layout, "share of a category, 0 to 1")           \
    KEY(KXLineLabelPosition, LabelPosition, m_labelPosition, KXLineLabelPosition::Top, All(Strip), Repaint, \
        "where the value stands")                                                                           \
    KEY(std::vector<UXColor>, Colors, m_colors, std::vector<UXColor>(1, UXColor(1, 2, 3, 0.5)), All(),      \
        Recolor, "in turn")

class StripProperty : public KXChartPropertyBase {
    KX_DECLARE_KEYS(StripProperty, KXChartPropertyBase, STRIP_KEYS)
};

KX_DEFINE_KEYS(StripProperty, KXChartPropertyBase, STRIP_KEYS)

#define ROUND_STRIP_KEYS(KEY)                                                                             \
    KEY(int, CornerRadius, m_cornerRadius, 4, Any(Corner), Layout, "logical units")                       \
    KEY(std::int64_t, Limit, m_limit, (std::numeric_limits<std::int64_t>::min)(), Never, Reload, "items") \
    KEY(std::string, Caption, m_caption, "round", Any(), Layout, "below the strip")                       \
    KEY(std::vector<std::string>, Captions, m_captions, {}, Never, None, "kept for the host")

class RoundStripProperty : public StripProperty {
    KX_DECLARE_KEYS(RoundStripProperty, StripProperty, ROUND_STRIP_KEYS)
public:
    /** A subclass's reaction: a wide strip is never round. */
    void updateStripWidth(const double& value) override
    {
        StripProperty::updateStripWidth(value);
        if (value > 1)
            updateCornerRadius(0);
    }
    using StripProperty::updateStripWidth;
};

KX_DEFINE_KEYS(RoundStripProperty, StripProperty, ROUND_STRIP_KEYS)

} // namespace

TEST(KXChartPropertyBase, EveryKeyOfAClass) { KX_WALK_KEYS(StripProperty, STRIP_KEYS); }

TEST(KXChartPropertyBase, EveryKeyOfASubclass) { KX_WALK_KEYS(RoundStripProperty, ROUND_STRIP_KEYS); }

TEST(KXChartPropertyBase, TheKeysOwnCallbackComesBeforeTheOneForEveryKey)
{
    StripProperty object;
    std::vector<std::string> own, every;
    object.registerUpdatedEvents("m_showLabels", [&](const std::string& key) { own.push_back(key); });
    object.registerUpdatedEvents([&](const std::string& key) { every.push_back(key); });
    object.updateShowLabels(true);
    object.updateStripWidth(0.5);
    EXPECT_EQ(own, std::vector<std::string>{"m_showLabels"});
    EXPECT_EQ(every, std::vector<std::string>{"m_stripWidth"});

    object.registerUpdatedEvents({"m_stripWidth", "M_SHOWLABELS"}, nullptr);
    object.updateStripWidth(0.6);
    object.unregisterAllUpdatedEvents();
    object.updateShowLabels(false);
    EXPECT_EQ(own.size() + every.size(), 2u);
}

TEST(KXChartPropertyBase, AssigningTakesTheParentsKeysWhole)
{
    RoundStripProperty source, target;
    source.updateShowLabels(true);
    source.updateCornerRadius(7);
    source.assignTo(&target, {"m_caption"}, false);
    EXPECT_TRUE(target.getShowLabels());
    EXPECT_EQ(target.getCornerRadius(), 4);

    StripProperty parent;
    source.assignTo(&parent, {"m_showLabels"}, true);
    EXPECT_TRUE(parent.getShowLabels()) << "a target of the parent class takes what the parent owns";
    source.assignTo(nullptr, {}, true);
    source.assignUpdatedPropertiesTo(nullptr, {}, true);
}

TEST(KXChartPropertyBase, UpdatedKeysAreFilteredOnEveryLevel)
{
    RoundStripProperty source, target;
    source.setShowLabels(true);
    source.setLimit(1);
    source.updateStripWidth(0.4);
    source.updateCornerRadius(9);
    source.assignUpdatedPropertiesTo(&target, {"m_cornerRadius"}, true);
    EXPECT_EQ(target.getUpdatedKeys(), KXKeys{"m_stripWidth"});
    source.assignUpdatedPropertiesTo(&target, {}, true);
    EXPECT_EQ(target.getUpdatedKeys(), (KXKeys{"m_stripWidth", "m_cornerRadius"}));
    EXPECT_EQ(source.getUpdatedKeys(), (KXKeys{"m_stripWidth", "m_cornerRadius"}));
}

TEST(KXChartPropertyBase, ResettingForcesTheKeysItTakes)
{
    StripProperty object, source;
    source.setStripWidth(0.3);
    source.setLabelPosition(KXLineLabelPosition::Left);
    object.customResetProperties(KXChartResetType::All, &source, {"Strip"});
    EXPECT_EQ(object.getUpdatedKeys(),
              (KXKeys{"m_colors", "m_labelPosition", "m_showLabels", "m_stripWidth"}));
    EXPECT_EQ(object.getStripWidth(), 0.3);
    object.unmarkUpdatedProperties();
    object.updateStripWidth(0.3);
    object.customResetProperties(KXChartResetType::Style, &source, {"strip", ""});
    object.customResetProperties(KXChartResetType::All, nullptr, {"Strip"});
    EXPECT_TRUE(object.getUpdatedKeys().empty()) << "the force ends with the reset";
}

TEST(KXChartPropertyBase, AListLeavesOutWhatItCannotRead)
{
    const std::tuple<const char*, const char*, bool, std::vector<std::string>> cases[] = {
        {"good", R"(["a","b"])", true, {"a", "b"}},     {"one wrong", R"(["a",1,"c"])", false, {"a", "c"}},
        {"all wrong", R"([null,{},[]])", false, {}},    {"empty", "[]", true, {}},
        {"no list", R"({"0":"a"})", false, {"before"}}, {"a text", R"("a")", false, {"before"}},
    };
    for (const auto& [name, list, read, expected] : cases) {
        SCOPED_TRACE(name);
        RoundStripProperty object;
        object.setCaptions({"before"});
        std::string document = object.serialize();
        document.replace(document.find(R"(["before"])"), 10, list);
        EXPECT_EQ(object.deserialize(document), read);
        EXPECT_EQ(object.getCaptions(), expected);
    }
}

TEST(KXChartPropertyBase, ACallbackMayDestroyTheObjectThatCallsIt)
{
    const auto make = [](std::unique_ptr<RoundStripProperty>& owner) {
        owner = std::make_unique<RoundStripProperty>();
        owner->registerUpdatedEvents([&owner](const std::string&) { owner.reset(); });
    };
    std::unique_ptr<RoundStripProperty> object;
    RoundStripProperty other;
    other.updateShowLabels(true);
    make(object);
    object->updateLimit(3);
    make(object);
    object->triggerAllPropertiesUpdatedEvents();
    make(object);
    other.assignUpdatedPropertiesTo(object.get(), {}, true);
    make(object);
    object->customResetProperties(KXChartResetType::All, &other, {"Strip"});
    EXPECT_FALSE(object);

    object = std::make_unique<RoundStripProperty>();
    object->setShowLabels(false);
    other.registerUpdatedEvents([&](const std::string&) { object.reset(); });
    object->assignTo(&other, {}, true);
    EXPECT_FALSE(object) << "the source may go as well";
}
