#include "kx_data_requests.h"

#include "kx_axis_chart_test_provider.h"
#include "kx_bar_chart.h"
#include "kx_load_chart.h"
#include "ux/ux_layout_rounds.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

/** An object whose layout wants items of a host that a test plays. */
class Wanting : public UXObject {
public:
    std::vector<std::uint64_t> wanted;
    std::string log;
    bool hasData = true;
    int layouts = 0;
    KXDataRequests requests{this,
                            [this](std::uint64_t first, std::uint64_t count) {
                                EXPECT_FALSE(UXLayoutRounds::isLayingOut());
                                log += std::to_string(first) + "+" + std::to_string(count) + " ";
                                return hasData;
                            },
                            [this] { requireLayout(); }};

protected:
    void customLayout() override
    {
        ++layouts;
        for (const std::uint64_t index : wanted)
            requests.want(index);
    }
};

/** A host that has the texts of categories later, or does something else when it is asked for them. */
class LateProvider : public KXAxisChartTestProvider {
public:
    bool hasTexts = false;
    std::string blocks;
    std::function<void()> onTexts;

    bool obtainCategoryTexts(KXChartDataUser* user, std::uint64_t first,
                             std::span<std::string> texts) override
    {
        blocks += std::to_string(first) + "+" + std::to_string(texts.size()) + " ";
        if (onTexts)
            onTexts();
        return hasTexts && KXAxisChartTestProvider::obtainCategoryTexts(user, first, texts);
    }
};

} // namespace

TEST(KXDataRequests, AskInBlocksAfterTheLayoutForSomeRounds)
{
    Wanting object;
    object.wanted = {4, 2, 3, 9};
    object.layout();
    EXPECT_EQ(object.log, "2+3 9+1 2+3 9+1 2+3 9+1 ") << "one that never has enough";
    EXPECT_EQ(object.layouts, UXLayoutRounds::greatestCount);
    EXPECT_TRUE(object.getRequireToVerifyLayout()) << "the rest is for the next frame";
}

TEST(KXDataRequests, WaitForWhatTheHostDoesNotHaveYet)
{
    Wanting object;
    object.hasData = false;
    object.wanted = {2, 3};
    for (int i = 0; i < 2; ++i) {
        object.requireLayout();
        object.layout();
    }
    EXPECT_EQ(object.log, "2+2 ") << "asked for once";
    EXPECT_EQ(object.layouts, 2);
    EXPECT_FALSE(object.requests.arrive(4, 100));
    EXPECT_TRUE(object.requests.arrive(3, ~std::uint64_t{0}));
    EXPECT_TRUE(object.requests.isAwaited(2) && !object.requests.isAwaited(3));
    object.requests.clear();
    EXPECT_FALSE(object.requests.isAwaited(2)) << "other data";
}

TEST(KXDataRequests, BringTheTextsOfCategoriesWhenTheyArrive)
{
    const UXFixedMeasurer measurer;
    LateProvider provider;
    KXBarChart chart;
    kxLoad(chart, provider, {0, 0, 400, 300});
    EXPECT_EQ(provider.blocks, "0+3 ");
    EXPECT_EQ(uxPaintToText(chart).find("c1"), std::string::npos);
    EXPECT_NE(uxPaintToText(chart).find("\u2026"), std::string::npos) << "a place that waits";

    provider.hasTexts = true;
    chart.dataArrived(1, 2);
    chart.layout();
    EXPECT_EQ(provider.blocks, "0+3 1+2 ");
    EXPECT_NE(uxPaintToText(chart).find("c1"), std::string::npos);
    EXPECT_NE(uxPaintToText(chart).find("\u2026"), std::string::npos) << "the rest still does";
}

TEST(KXDataRequests, OutliveWhatTheHostDoesWhenItIsAsked)
{
    const UXFixedMeasurer measurer;
    std::unique_ptr<KXBarChart> chart;
    LateProvider provider, other;
    struct Case {
        const char* name;
        std::function<void()> deed;
        bool isAliveAfter;
    };
    const Case cases[] = {
        {"destroys the chart", [&] { chart.reset(), provider.hasTexts = false; }, false},
        {"takes itself away", [&] { chart->setDataProvider(&other); }, true},
        {"prepares and reloads", [&] { chart->prepareData(), chart->reloadData(); }, true},
        {"tells at once that they are there", [&] { chart->dataArrived(0, 3); }, true},
        {"lays out", [&] { chart->layout(); }, true},
        {"throws", [] { throw 1; }, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        chart = std::make_unique<KXBarChart>();
        provider.hasTexts = true;
        provider.onTexts = [&] { std::exchange(provider.onTexts, nullptr), c.deed(); };
        try {
            kxLoad(*chart, provider, {0, 0, 400, 300});
        } catch (int) {
        }
        ASSERT_EQ(chart != nullptr, c.isAliveAfter);
        EXPECT_FALSE(UXLayoutRounds::isLayingOut());
        if (!chart)
            continue;
        kxLoad(*chart, provider, {0, 0, 400, 300});
        EXPECT_NE(uxPaintToText(*chart).find("c1"), std::string::npos) << "usable";
    }
}
