#include "kx_interaction_chart_object.h"
#include "kx_interaction_color_effect.h"
#include "kx_interaction_effect_functions.h"
#include "kx_interaction_highlight_brightness_effect.h"
#include "kx_interaction_highlight_color_pattern_effect.h"
#include "kx_interaction_highlight_size_effect.h"

#include <climits>
#include <cmath>
#include <gtest/gtest.h>
#include <tuple>

namespace {

/** Counts those that live. */
class CountedEffect : public KXInteractionEffect {
public:
    explicit CountedEffect(int& alive) : m_alive(alive) { ++m_alive; }
    CountedEffect(const CountedEffect&) = delete;
    CountedEffect& operator=(const CountedEffect&) = delete;
    ~CountedEffect() override { --m_alive; }

private:
    int& m_alive;
};

} // namespace

TEST(KXInteractionEffect, BrightnessRaisesEveryChannel)
{
    const std::tuple<const char*, double, UXColor, UXColor> cases[] = {
        {"half way to white", 0.5, {100, 0, 255, 0.5}, {177, 127, 255, 0.5}},
        {"all the way", 1, {1, 2, 3}, {255, 255, 255}},
        {"beyond white is not clamped", 2, {100, 0, 255}, {410, 510, 255}},
        {"a rise below one unit", 0.001, {100, 0, 250}, {100, 0, 250}},
        {"below 0 raises too", -0.5, {100, 1, 0, 0.25}, {250, 2, 0, 0.25}},
        {"below 0 is not clamped", -1, {200, 100, 255}, {600, 300, 765}},
        {"nothing", 0, {100, 300, -7, 0.1}, {100, 300, -7, 0.1}},
        {"as good as nothing", -1e-9, {100, 20, 3}, {100, 20, 3}},
        {"a channel above white goes down", 0.5, {256, 300, 255}, {255, 277, 255}},
        {"not a number", NAN, {100, 20, 3}, {100, 20, 3}},
        {"without end", INFINITY, {100, 255, 256}, {INT_MAX, 255, INT_MIN}},
    };
    for (const auto& [name, brightness, color, expected] : cases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(KXInteractionHighlightBrightnessEffect(brightness).applyEffectToColor(color), expected);
    }
    EXPECT_EQ(KXInteractionHighlightBrightnessEffect().applyEffectToColor({9, 8, 7}), UXColor(9, 8, 7));
}

TEST(KXInteractionChartObject, TakesEffectsOverAndLetsGoOfThoseBefore)
{
    int alive = 0;
    {
        KXInteractionChartObject object;
        auto* kept = new CountedEffect(alive);
        object.updateInteractionEffects({new CountedEffect(alive), nullptr, kept, kept});
        ASSERT_EQ(object.getInteractionEffects().size(), 2u);

        object.updateInteractionEffects({kept});
        EXPECT_EQ(alive, 1);
        EXPECT_EQ(object.getInteractionEffects().front().get(), kept);

        object.updateExtraOIDs({KXObjectID()});
        object.updateExtraOIDs({KXObjectID(), KXObjectID()});
        EXPECT_EQ(object.getExtraOIDs().size(), 2u);
    }
    EXPECT_EQ(alive, 0);
}

TEST(KXInteractionEffect, EffectsApplyOneAfterTheOtherToWhatTheyAreFor)
{
    std::vector<std::unique_ptr<KXInteractionEffect>> effects;
    effects.push_back(std::make_unique<KXInteractionColorEffect>(UXColor(100, 0, 0)));
    effects.push_back(std::make_unique<KXInteractionHighlightColorPatternEffect>(
        std::make_unique<KXInteractionHighlightBrightnessEffect>(0.5), nullptr));
    using enum KXInteractionEffectTarget;
    EXPECT_EQ(kxApplyEffectsToColor(effects, {1, 2, 3}, Filled), UXColor(177, 127, 127));
    EXPECT_EQ(kxApplyEffectsToColor(effects, {1, 2, 3}, NonFilled), UXColor(100, 0, 0));
    for (const double ratio : {1.5, 2.0, -1.0, static_cast<double>(NAN), static_cast<double>(INFINITY)}) {
        auto size = std::make_unique<KXInteractionHighlightSizeEffect>();
        size->setSizeRatio(ratio);
        effects.push_back(std::move(size));
    }
    EXPECT_EQ(kxObtainEffectSizeRatio(effects), 3);
}
