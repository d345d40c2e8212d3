#pragma once

#include "kx_chart_data_action.h"
#include "kx_key_table.h"
#include "kx_panel_chart.h"
#include "kx_value_chart_data_user.h"
#include "ux/ux_hint_delegate.h"
#include "ux/ux_property_accessor.h"
#include "ux/ux_text_align.h"
#include "ux/ux_text_property.h"

#include <string>
#include <vector>

// type, name, member and JSON key, default, reset, effect, meaning; a part and the data format stand before
#define KX_VALUE_CHART_KEYS(KEY)                                                                          \
    KEY(UXColor, FontColor, m_fontColor, UXColor(64, 64, 64), Any(Value), Recolor, "colour of the value") \
    KEY(std::string, FontName, m_fontName, UXTextProperty().font.familyName, Any(Value), Layout,          \
        "font family of the value")                                                                       \
    KEY(int, FontSize, m_fontSize, 36, Any(Value), Layout,                                                \
        "font size to start from, in logical units; the value shrinks until it fits")                     \
    KEY(UXTextAlign, MainLabelAlign, m_mainLabelAlign, UXTextAlign::Left, Any(Value), Layout,             \
        "where the value stands")                                                                         \
    KEY(UXColor, NegativeFontColor, m_negativeFontColor, UXColor(255, 110, 110), Any(Value), Recolor,     \
        "colour of a number below zero")

class KXDrawingLayer;

/** Shows one value, as large as fits. */
class KX_EXPORT KXValueChart : public KXPanelChart,
                               public KXValueChartDataUser,
                               public UXPropertyAccessor,
                               public UXHintDelegate,
                               public KXChartDataAction {
    KX_DECLARE_CHART_KEYS(KX_VALUE_CHART_KEYS)
public:
    KXValueChart();
    ~KXValueChart() override;

    // Properties
    /** @return the label that shows the value: a child, never null */
    KXChartLabel* getValueLabel() const;

    // From UXJsonObject, KXChart and KXChartDataAction
    std::string customSerializeTypeID() override;
    void afterReloadData() override;
    KXChartDataPath* createDataPath() override;

    // From KXChartItemsDelegate: the value is the one item
    std::vector<KXChartItem> obtainItems() const override;
    KXChartDataPath* createItemPath(const KXChartItem& item) override;
    std::vector<KXChartItem> findItems(const KXChartDataPath& path) override;
    UXHintInfo obtainItemHint(const KXChartItem& item) override;
    KXChartLabel* obtainItemLabel(const KXChartItem& item) const override;
    void itemLooksChanged() override;

protected:
    void _applyKeyEffect(UXPropertyEffect effect) override;
    void _customLayout(UXRect plotArea) override;

private:
    std::string _customLayout_Number() const;
    std::string _customLayout_DateTime() const;
    std::string _customLayout_String() const;
    std::string _obtainValueText() const;
    bool _isNegativeNumber() const;
    void _colorValueLabel();

    KXChartLabel* m_valueLabel;  // a child
    KXDrawingLayer* m_partLayer; // a child; draws the line below the value
};
