#pragma once

#include "kx_chart.h"
#include "kx_chart_data_action.h"
#include "kx_part_highlighter.h"
#include "kx_value_chart_data_user.h"
#include "ux/ux_double_size.h"
#include "ux/ux_hint_delegate.h"
#include "ux/ux_property_accessor.h"
#include "ux/ux_text_align.h"
#include "ux/ux_text_property.h"

#include <memory>
#include <string>

class KXChartDataFormat;
class UXLayoutHelper;

/** Shows one value, as large as fits. */
class KX_EXPORT KXValueChart : public KXChart,
                               public KXValueChartDataUser,
                               public UXPropertyAccessor,
                               public UXHintDelegate,
                               public KXChartDataAction {
public:
    KXValueChart();
    ~KXValueChart() override;

    // Properties; each setter lays out or draws anew what it changes
    /** @return how the value is written; made and destroyed by the chart, never null */
    KXChartDataFormat* getDataFormat() const;
    UXColor getFontColor() const;
    void setFontColor(const UXColor& color);
    std::string getFontName() const;
    void setFontName(const std::string& name);
    /** @return the size to start from, in logical units; the value shrinks until it fits */
    int getFontSize() const;
    void setFontSize(int size);
    UXTextAlign getMainLabelAlign() const;
    void setMainLabelAlign(UXTextAlign align);
    UXColor getNegativeFontColor() const;
    void setNegativeFontColor(const UXColor& color);

    /** @return the label that shows the value: a child, never null */
    KXChartLabel* getValueLabel() const;

    /** The chart's properties by key, for UXPropertyAccessor. */
    static const UXPropertyTable& obtainPropertyTable();

    // From UXJsonObject, KXChart and KXChartDataAction
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;
    void afterReloadData() override;
    KXHighlightResult showLinkedHighlight(const KXChartDataPath& path, UXControl* control) override;
    void hideLinkedHighlight(UXControl* control) override;
    KXChartDataPath* createDataPath() override;

protected:
    bool customMouseMove(const UXEvent& event, bool& stop) override;
    bool customMouseLeave(const UXEvent& event, bool& stop) override;
    void _interactionDisabled() override;
    void _customLayout(UXRect plotArea) override;
    void _customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups) override;

private:
    std::string _customLayout_Number() const;
    std::string _customLayout_DateTime() const;
    std::string _customLayout_String() const;
    std::string _obtainValueText() const;
    bool _isNegativeNumber() const;
    void _colorValueLabel();
    UXHintInfo _obtainHintInfo();
    template <class T>
    void _setMember(T& member, const T& value);
    UXDoubleSize _fitFont(const std::string& text, UXTextProperty& property, const UXRect& plotArea) const;

    KXChartLabel* m_valueLabel; // a child
    std::unique_ptr<KXChartDataFormat> m_dataFormat;
    UXColor m_fontColor{64, 64, 64, 1.0};
    std::string m_fontName = UXTextProperty().font.familyName;
    int m_fontSize = 36;
    UXTextAlign m_mainLabelAlign = UXTextAlign::Left;
    UXColor m_negativeFontColor{255, 110, 110, 1.0};
    KXPartHighlighter m_highlighter{this};
    UXPropertyTableBinding m_valuePropertyBinding{*this, obtainPropertyTable()};
};
