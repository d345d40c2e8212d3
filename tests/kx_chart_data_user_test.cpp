#include "kx_chart_data_user.h"

#include "kx_axis_chart_test_provider.h"
#include "kx_bar_chart.h"
#include "kx_gauge_chart.h"
#include "kx_test_chart.h"
#include "kx_test_provider.h"
#include "kx_value_chart.h"
#include "ux/ux_assert.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

/** A chart that notes its hooks among the provider's calls, and is gone after the fatal one. */
class NotingChart : public KXTestChart {
public:
    explicit NotingChart(std::vector<std::string>& calls, std::string fatal = {})
        : m_calls(calls), m_fatal(std::move(fatal))
    {
    }

    void beforePrepareData() override { _note("beforePrepare"); }
    void beforeReloadData() override { _note("beforeReload"); }
    void afterReloadData() override { _note(reloadedData() ? "afterReload, reloaded" : "afterReload"); }
    void reloadChartColors() override { _note("chartColors"); }
    void customPrepareData(KXChartDataProvider*, bool& prepared) override
    {
        _note(preparedData() ? "customPrepare, prepared" : "customPrepare");
        prepared = true;
    }
    void customReloadData() override { _note(reloadedData() ? "customReload, reloaded" : "customReload"); }
    void customReloadColors() override { _note("colors"); }
    void resetData() override
    {
        _note("reset");
        KXChartDataUser::resetData();
    }
    void requestToReloadData() override
    {
        _note("requestToReload");
        KXChartDataUser::requestToReloadData();
    }
    void setRequireToVerifyLayout(bool require, bool repaint) override
    {
        _note(require && repaint ? "verifyLayout" : "other");
        UXObject::setRequireToVerifyLayout(require, repaint);
    }

private:
    void _note(const std::string& call)
    {
        m_calls.push_back(call);
        if (call == m_fatal)
            delete this;
    }

    std::vector<std::string>& m_calls;
    std::string m_fatal;
};

using Calls = std::vector<std::string>;

TEST(KXChartDataUser, PreparesAndReloadsInOneFixedOrder)
{
    KXTestProvider provider;
    NotingChart chart(provider.calls);
    chart.init();
    provider.calls.clear();

    chart.prepareData();
    EXPECT_EQ(provider.calls, (Calls{"beforePrepare", "reset", "requestToReload"})) << "without a provider";
    EXPECT_FALSE(chart.preparedData());

    chart.setDataProvider(&provider);
    EXPECT_EQ(chart.beginUseInteractionProvider(), &provider) << "the data provider answers interactions too";
    provider.calls.clear();
    chart.prepareData();
    EXPECT_EQ(provider.calls,
              (Calls{"beforePrepare", "begin", "reset", "customPrepare", "end", "requestToReload"}));
    EXPECT_TRUE(chart.preparedData());
    EXPECT_FALSE(chart.preparedAndReloadedData());

    for (int i = 0; i < 2; ++i) {
        provider.calls.clear();
        chart.reloadData();
        EXPECT_EQ(provider.calls, (Calls{"beforeReload", "customReload", "afterReload, reloaded", "colors",
                                         "chartColors", "verifyLayout"}));
        EXPECT_TRUE(chart.preparedAndReloadedData());
    }

    provider.calls.clear();
    chart.reloadColors();
    EXPECT_EQ(provider.calls, (Calls{"colors", "chartColors"}));

    chart.prepareData();
    EXPECT_FALSE(chart.reloadedData());
    chart.resetData();
    EXPECT_FALSE(chart.preparedData());
    chart.reloadData();
    EXPECT_TRUE(chart.reloadedData()) << "a chart that was never prepared reloads its empty state";
}

TEST(KXChartDataUser, WhatBeginsEndsThoughAnAnswerThrowsOrTheProviderIsOfAnotherKind)
{
    KXValueChart value;
    KXGaugeChart gauge;
    KXBarChart bars;
    KXTestProvider single;
    KXAxisChartTestProvider axes;
    struct Case {
        const char* name;
        KXChartDataUser& user;
        bool takesAxes;
    };
    int reports = 0;
    uxSetAssertHandler([&](std::source_location) { ++reports; });
    for (const auto& [name, user, takesAxes] :
         {Case{"value", value, false}, {"gauge", gauge, false}, {"bars", bars, true}}) {
        SCOPED_TRACE(name);
        single.calls.clear();
        axes.asked.clear();
        KXChartDataProvider* const own = takesAxes ? static_cast<KXChartDataProvider*>(&axes) : &single;
        KXChartDataProvider* const other = takesAxes ? static_cast<KXChartDataProvider*>(&single) : &axes;
        single.onCall = axes.onCall = [](const std::string& call) {
            if (call == "isEmpty")
                throw std::runtime_error("the host's");
        };
        user.setDataProvider(own);
        EXPECT_THROW(user.prepareData(), std::runtime_error);
        EXPECT_EQ(single.count("end") + axes.asked["end"], 1) << "the first failure is the one to hear of";
        EXPECT_FALSE(user.preparedData());

        single.onCall = axes.onCall = nullptr;
        reports = 0;
        user.setDataProvider(other);
        user.prepareData();
        EXPECT_EQ(reports, 1) << "another kind's";
        EXPECT_EQ(single.count("end") + axes.asked["end"], 2);
        user.setDataProvider(own);
        user.prepareData();
        EXPECT_TRUE(user.preparedData());
        EXPECT_EQ(reports, 1);
        user.setDataProvider(nullptr);
    }
    uxSetAssertHandler({});
}

TEST(KXChartDataUser, AStepOfReloadingMayDestroyTheChart)
{
    for (const char* fatal :
         {"beforeReload", "customReload", "afterReload, reloaded", "colors", "chartColors"}) {
        Calls calls;
        auto* chart = new NotingChart(calls, fatal);
        chart->reloadData();
        EXPECT_EQ(calls.back(), fatal) << "nothing runs on what is gone";
    }
}

} // namespace
