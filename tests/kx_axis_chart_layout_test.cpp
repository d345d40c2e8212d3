#include "kx_axis.h"
#include "kx_axis_chart_data_view.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_chart_test_provider.h"
#include "kx_axis_property.h"
#include "kx_axis_tick_label_view.h"
#include "kx_bar_chart.h"
#include "kx_bar_chart_property.h"
#include "kx_bar_labels.h"
#include "kx_chart_data_format.h"
#include "kx_chart_property.h"
#include "kx_load_chart.h"
#include "ux/ux_label.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_virtual_scroll_view.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

/** Bars whose layout a test looks at. */
class LaidOutBars : public KXBarChart {
public:
    LaidOutBars(KXAxisChartTestProvider& provider, UXSize size, KXAxisChartOrientation orientation)
    {
        getChartProperty()->setShowLegend(false);
        getAxisChartProperty()->setOrientation(orientation);
        setDataProvider(&provider);
        setRect({0, 0, size.width, size.height});
    }

    /** @return the labels beside an axis that show */
    std::vector<UXLabel*> obtainShownLabels(const KXAxis* axis) const
    {
        std::vector<UXLabel*> shown;
        for (UXObject* child : getPlot()->getChildren()) {
            auto* view = dynamic_cast<KXAxisTickLabelView*>(child);
            if (view && view->getAxis() == axis && view->getVisible())
                shown = view->obtainLabels();
        }
        std::erase_if(shown, [](const UXLabel* label) { return !label->getVisible(); });
        return shown;
    }
    /** @return the place in the plot */
    UXRect obtainPlace(UXLabel* label) const
    {
        return label->translateRectToParent(label->getBoundingRect(), getPlot());
    }
};

KXAxisChartTestProvider makeProvider(std::size_t categories, std::size_t series = 1)
{
    KXAxisChartTestProvider provider;
    provider.categoryCount = categories;
    provider.values.assign(series, {});
    for (std::vector<double>& values : provider.values)
        for (std::size_t i = 0; i < categories; ++i)
            values.push_back(static_cast<double>(i % 7 + 1));
    return provider;
}

void setFontSize(KXAxisProperty* axis, int size)
{
    UXTextProperty property = axis->getTickLabelProperty();
    property.font.size = size;
    axis->setTickLabelProperty(property);
}

} // namespace

TEST(KXAxisChartLayout, CategoriesAreThinnedOutEvenlyAtEveryWidth)
{
    for (const std::size_t categories : {30u, 110u, 750u}) {
        KXAxisChartTestProvider provider = makeProvider(categories);
        for (int width = 250; width < 1100; width += 93) {
            LaidOutBars chart(provider, {width, 400}, KXAxisChartOrientation::Vertical);
            chart.getAxisChartProperty()->setEnableScroll(false);
            kxLoad(chart);
            std::vector<int> indexes;
            for (const UXLabel* label : chart.obtainShownLabels(chart.getXAxis()))
                indexes.push_back(std::atoi(label->getText().c_str() + 1));
            ASSERT_GE(indexes.size(), 2u) << categories << " at " << width;
            for (std::size_t i = 0; i < indexes.size(); ++i)
                EXPECT_EQ(indexes[i], static_cast<int>(i) * indexes[1]) << categories << " at " << width;
        }
    }
}

TEST(KXAxisChartLayout, WhatScrollsHasABarAndWhatHasABarScrolls)
{
    for (const KXAxisChartOrientation orientation :
         {KXAxisChartOrientation::Vertical, KXAxisChartOrientation::Horizontal}) {
        for (int extent = 150; extent < 420; ++extent) {
            KXAxisChartTestProvider provider = makeProvider(11, 2);
            provider.categoryText = [](std::uint64_t i) {
                return "Donaudampfschifffahrt" + std::to_string(i);
            };
            LaidOutBars chart(provider, {extent, 360 - extent / 2}, orientation);
            kxLoad(chart);
            KXAxis& axis = *chart.getXAxis();
            UXVirtualScrollView& plot = *chart.getPlot();
            EXPECT_EQ(axis.isScrollable(), plot.hasScrollBars()) << extent;
            const bool isVertical = chart.isVertical();
            isVertical ? plot.setContentOffsetX(10'000) : plot.setContentOffsetY(10'000);
            chart.layout();
            const UXPoint last = axis.obtainValuePositionInAxis(10);
            const double half = axis.obtainCurrentValueSpacing() / 2;
            const UXRect area = chart.getMarksArea();
            EXPECT_LE(isVertical ? last.x + half : last.y + half,
                      (isVertical ? uxMaxX(area) : uxMaxY(area)) + 1.5)
                << extent << ": the last one can be reached";
        }
    }
}

TEST(KXAxisChartLayout, EachCategoryBesideAScrollingChartHasItsLine)
{
    KXAxisChartTestProvider provider = makeProvider(200);
    for (const int size : {9, 13, 24}) {
        LaidOutBars chart(provider, {400, 300}, KXAxisChartOrientation::Horizontal);
        setFontSize(chart.getXAxisProperty(), size);
        kxLoad(chart);
        ASSERT_TRUE(chart.getPlot()->hasScrollBars());
        const auto [first, end] = chart.obtainVisibleCategories();
        EXPECT_GE(chart.obtainShownLabels(chart.getXAxis()).size() + 1, end - first) << size;
        EXPECT_GE(end - first, 8u) << "no more room than a line takes";
    }
}

TEST(KXAxisChartLayout, TotalsShowWhereAChartScrolls)
{
    for (const KXAxisChartOrientation orientation :
         {KXAxisChartOrientation::Vertical, KXAxisChartOrientation::Horizontal}) {
        for (const bool showsNames : {true, false}) {
            KXAxisChartTestProvider provider = makeProvider(200, 2);
            LaidOutBars chart(provider, {400, 300}, orientation);
            chart.getXAxisProperty()->setShowTickLabels(showsNames);
            chart.getYAxisProperty()->setIsStacked(true);
            chart.getYDataFormat()->setSuffix(" kt");
            chart.getBarChartProperty()->setShowTotals(true);
            kxLoad(chart);
            ASSERT_TRUE(chart.getPlot()->hasScrollBars());
            const auto [first, end] = chart.obtainVisibleCategories();
            EXPECT_GE(end - first, 4u);
            EXPECT_GE(chart.getDataView().getLabels().size() + 1, end - first)
                << "all but one that is partly out of sight";
        }
    }
}

TEST(KXAxisChartLayout, ALongNameLeavesItsNeighboursTheirs)
{
    KXAxisChartTestProvider provider = makeProvider(3);
    struct Case {
        const char* name;
        int longOne, height;
        const char* text;
        const char* expected;
    };
    const char* const kingdom = "United Kingdom of Great Britain and N Ireland";
    const char* const broken = "United Kingdom of Great\nBritain and N Ireland";
    const char* const ship = "Donaudampfschifffahrtsgesellschaft";
    for (const Case& c : {Case{"first", 0, 320, kingdom, broken},
                          {"middle", 1, 320, kingdom, broken},
                          {"last", 2, 320, kingdom, broken},
                          {"first, one word", 0, 320, ship, ship},
                          {"middle, one word", 1, 320, ship, ship},
                          {"last and low", 2, 130, ship, "Donaudampfschifffahrtsgesells\u2026"}}) {
        SCOPED_TRACE(c.name);
        provider.categoryText = [&](std::uint64_t i) {
            return static_cast<int>(i) == c.longOne ? c.text : "Germany";
        };
        LaidOutBars chart(provider, {480, c.height}, KXAxisChartOrientation::Vertical);
        kxLoad(chart);
        const std::vector<UXLabel*> labels = chart.obtainShownLabels(chart.getXAxis());
        ASSERT_EQ(labels.size(), 3u);
        EXPECT_EQ(labels[1]->getRotation(), 0);
        EXPECT_EQ(labels[static_cast<std::size_t>(c.longOne)]->getText(), c.expected);
        EXPECT_LT(uxMaxX(chart.obtainPlace(labels[0])), chart.obtainPlace(labels[1]).x);
        EXPECT_LT(uxMaxX(chart.obtainPlace(labels[1])), chart.obtainPlace(labels[2]).x);
    }
}

TEST(KXAxisChartLayout, ASecondValueAxisKeepsOffTitlesAndLargeNames)
{
    struct Case {
        const char* name;
        KXAxisChartOrientation orientation;
        int fontSize;
        bool titleAtEnd;
    };
    using enum KXAxisChartOrientation;
    for (const Case& c : {Case{"title at the end", Vertical, 13, true},
                          {"large, upright", Vertical, 40, true},
                          {"title above", Horizontal, 13, true},
                          {"large names", Horizontal, 40, false}}) {
        for (const std::size_t categories : {3u, 60u}) {
            SCOPED_TRACE(std::string(c.name) + " " + std::to_string(categories));
            KXAxisChartTestProvider provider = makeProvider(categories, 2);
            LaidOutBars chart(provider, {700, 500}, c.orientation);
            chart.getDataViews().front()->updateIsOnSecondaryAxis(true);
            chart.getXAxisProperty()->setShowTitleAtEndOfAxis(c.titleAtEnd);
            setFontSize(chart.getXAxisProperty(), c.fontSize);
            kxLoad(chart);
            std::vector<UXRect> own, others;
            for (UXLabel* label : chart.obtainShownLabels(chart.getXAxis()))
                own.push_back(chart.obtainPlace(label));
            for (UXObject* child : chart.getPlot()->getChildren())
                if (auto* title = dynamic_cast<UXLabel*>(child); title && title->getText() == "Categories")
                    own.push_back(chart.obtainPlace(title));
            for (UXLabel* label : chart.obtainShownLabels(chart.getSecondaryYAxis()))
                others.push_back(chart.obtainPlace(label));
            ASSERT_GE(own.size(), 2u);
            ASSERT_GE(others.size(), 2u);
            for (const UXRect& a : own)
                EXPECT_TRUE(std::ranges::none_of(others, [&](const UXRect& b) {
                    return uxIntersectsRect(uxInflateRect(a, 0, -1), uxInflateRect(b, 0, -1));
                }));
        }
    }
}
