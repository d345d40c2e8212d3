#pragma once

#include "kx_chart_property_base.h"
#include "kx_export.h"
#include "kx_key_table.h"
#include "ux/ux_color.h"
#include "ux/ux_position.h"
#include "ux/ux_text_property.h"

#include <cstdint>
#include <string>

// type, name, member and JSON key, default. The lists are cut where the order of the virtuals differs.
#define KX_CHART_PROPERTY_KEYS_BEFORE_TITLE_PROPERTY(KEY)                         \
    KEY(bool, ShowBorder, m_showBorder, false)                                    \
    KEY(UXColor, BorderColor, m_borderColor, UXColor(211, 211, 211, 1.0))         \
    KEY(UXColor, BackgroundColor, m_backgroundColor, UXColor(255, 255, 255, 0.0)) \
    KEY(UXColor, DefaultColor, m_defaultColor, UXColor(51, 212, 217, 1.0))        \
    KEY(bool, ShowTitle, m_showTitle, true)                                       \
    KEY(std::string, TitleValue, m_titleValue, std::string())

#define KX_CHART_PROPERTY_TITLE_PROPERTY_KEY(KEY) \
    KEY(UXTextProperty, TitleProperty, m_titleProperty, _makeDefaultTitleProperty())

#define KX_CHART_PROPERTY_KEYS_AFTER_TITLE_PROPERTY(KEY)                                       \
    KEY(UXPosition, TitlePosition, m_titlePosition, UXPosition::Top)                           \
    KEY(UXPosition, TitleHorizontalAlign, m_titleHorizontalAlign, UXPosition::Left)            \
    KEY(UXPosition, TitleVerticalAlign, m_titleVerticalAlign, UXPosition::Top)                 \
    KEY(std::string, Remarks, m_remarks, std::string())                                        \
    KEY(bool, ShowLegend, m_showLegend, true)                                                  \
    KEY(UXPosition, LegendPosition, m_legendPosition, UXPosition::Top)                         \
    KEY(UXPosition, LegendHorizontalAlign, m_legendHorizontalAlign, UXPosition::Left)          \
    KEY(UXPosition, LegendVerticalAlign, m_legendVerticalAlign, UXPosition::Top)               \
    KEY(UXColor, LegendLabelColor, m_legendLabelColor, UXColor(120, 120, 120, 1.0))            \
    KEY(bool, ShowOnlyTopX, m_showOnlyTopX, false)                                             \
    KEY(std::int64_t, TopXItemsToShow, m_topXItemsToShow, 10) /* items kept by ShowOnlyTopX */ \
    KEY(bool, EnableTitleClick, m_enableTitleClick, false)

/** What the property object writes, in the document's order. */
#define KX_CHART_PROPERTY_KEYS(KEY)                   \
    KX_CHART_PROPERTY_KEYS_BEFORE_TITLE_PROPERTY(KEY) \
    KX_CHART_PROPERTY_TITLE_PROPERTY_KEY(KEY)         \
    KX_CHART_PROPERTY_KEYS_AFTER_TITLE_PROPERTY(KEY)

/** What the chart writes in the object's place. */
#define KX_CHART_PROPERTY_UNWRITTEN_KEYS(KEY) KEY(bool, EnableInteraction, m_enableInteraction, true)

#define KX_CHART_PROPERTY_ALL_KEYS(KEY) \
    KX_CHART_PROPERTY_KEYS(KEY)         \
    KX_CHART_PROPERTY_UNWRITTEN_KEYS(KEY)

#define KX_CHART_PROPERTY_SLOTS(KEY)                  \
    KX_CHART_PROPERTY_KEYS_BEFORE_TITLE_PROPERTY(KEY) \
    KX_CHART_PROPERTY_KEYS_AFTER_TITLE_PROPERTY(KEY)  \
    KX_CHART_PROPERTY_UNWRITTEN_KEYS(KEY)             \
    KX_CHART_PROPERTY_TITLE_PROPERTY_KEY(KEY)

/** What the user can set about every chart, whatever its type: border, background, title, legend, and how
 *  many items it shows. Each chart owns one beside the property object of its type. */
class KX_EXPORT KXChartProperty : public KXChartPropertyBase {
    KX_DECLARE_KEY_LISTS(KXChartProperty, KXChartPropertyBase, KX_CHART_PROPERTY_SLOTS,
                         KX_CHART_PROPERTY_ALL_KEYS)
public:
    KXChartProperty();
    KXChartProperty(const KXChartProperty&);
    KXChartProperty& operator=(const KXChartProperty&);
    ~KXChartProperty() override;

    // Parts of m_titleProperty: a change counts as one of m_titleProperty
    virtual void updateTitlePropertyWithoutColor(const UXTextProperty& value, const KXKeys& keys,
                                                 bool exclude);
    /** Takes everything but the text colour. */
    virtual void updateTitlePropertyWithoutColor(const UXTextProperty& value);
    virtual void updateTitleColor(const UXColor& value, const KXKeys& keys, bool exclude);
    virtual void updateTitleColor(const UXColor& value);
    /** @return whether the title's line mode is 1, which breaks it into lines */
    virtual bool getTitleValueWrap() const;
    virtual void updateTitleValueWrap(bool wrap);

    /** Knows the groups Background, Border, Title, Legend, ColorSeries and TopX. Only a reset of
     *  everything takes the title's text, the group TopX and, whatever the groups are,
     *  m_enableInteraction. */
    void customResetProperties(KXChartResetType type, KXChartPropertyBase* source,
                               const KXKeys& groups) override;

private:
    static UXTextProperty _makeDefaultTitleProperty();
};
