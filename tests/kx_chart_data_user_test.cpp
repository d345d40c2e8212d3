#include "kx_chart_data_user.h"

#include "kx_test_chart.h"
#include "kx_test_provider.h"

#include <gtest/gtest.h>

namespace {

/** A chart that notes its hooks among the provider's calls. */
class NotingChart : public KXTestChart {
public:
    explicit NotingChart(std::vector<std::string>& calls) : m_calls(calls) {}

    void beforePrepareData() override { m_calls.push_back("beforePrepare"); }
    void beforeReloadData() override { m_calls.push_back("beforeReload"); }
    void afterReloadData() override
    {
        m_calls.push_back(reloadedData() ? "afterReload, reloaded" : "afterReload");
    }
    void reloadChartColors() override { m_calls.push_back("chartColors"); }
    void customPrepareData(KXChartDataProvider*, bool& prepared) override
    {
        m_calls.push_back(preparedData() ? "customPrepare, prepared" : "customPrepare");
        prepared = true;
    }
    void customReloadData() override
    {
        m_calls.push_back(reloadedData() ? "customReload, reloaded" : "customReload");
    }
    void customReloadColors() override { m_calls.push_back("colors"); }
    void resetData() override
    {
        m_calls.push_back("reset");
        KXChartDataUser::resetData();
    }
    void requestToReloadData() override
    {
        m_calls.push_back("requestToReload");
        KXChartDataUser::requestToReloadData();
    }
    void setRequireToVerifyLayout(bool require, bool repaint) override
    {
        m_calls.push_back(require && repaint ? "verifyLayout" : "other");
        UXObject::setRequireToVerifyLayout(require, repaint);
    }

private:
    std::vector<std::string>& m_calls;
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

TEST(KXChartDataUser, AStepOfReloadingMayDestroyTheChart)
{
    /** A chart that is gone after one of its steps. */
    class DoomedChart : public KXTestChart {
    public:
        DoomedChart(std::vector<std::string>& calls, std::string lastStep)
            : m_calls(calls), m_lastStep(std::move(lastStep))
        {
        }
        void beforeReloadData() override { _step("beforeReload"); }
        void customReloadData() override { _step("customReload"); }
        void afterReloadData() override { _step("afterReload"); }
        void customReloadColors() override { _step("colors"); }
        void reloadChartColors() override { _step("chartColors"); }

    private:
        void _step(const std::string& step)
        {
            m_calls.push_back(step);
            if (step == m_lastStep)
                delete this;
        }

        std::vector<std::string>& m_calls;
        std::string m_lastStep;
    };
    for (const char* lastStep : {"beforeReload", "customReload", "afterReload", "colors", "chartColors"}) {
        Calls calls;
        auto* chart = new DoomedChart(calls, lastStep);
        chart->reloadData();
        ASSERT_FALSE(calls.empty());
        EXPECT_EQ(calls.back(), lastStep) << "nothing runs on what is gone";
    }
}

} // namespace
