#pragma once

#include "kx_chart_property_base.h"
#include "kx_export.h"
#include "kx_key_table.h"
#include "ux/ux_color.h"
#include "ux/ux_position.h"
#include "ux/ux_text_property.h"

#include <cstdint>
#include <string>

// type, name, member and JSON key, default, reset, effect, meaning. The lists are cut where the order of the
// virtuals differs.
#define KX_CHART_PROPERTY_KEYS_BEFORE_TITLE_PROPERTY(KEY)                                                   \
    KEY(bool, ShowBorder, m_showBorder, false, Any(Border), Repaint, "a border around the chart")           \
    KEY(UXColor, BorderColor, m_borderColor, UXColor(211, 211, 211, 1.0), Any(Border), Repaint,             \
        "colour of the border")                                                                             \
    KEY(UXColor, BackgroundColor, m_backgroundColor, UXColor(255, 255, 255, 0.0), Any(Background), Repaint, \
        "ground of the whole chart")                                                                        \
    KEY(UXColor, DefaultColor, m_defaultColor, UXColor(51, 212, 217, 1.0), Any(ColorSeries), Recolor,       \
        "colour of the only series")                                                                        \
    KEY(bool, ShowTitle, m_showTitle, true, Any(Title), Layout, "the title")                                \
    KEY(std::string, TitleValue, m_titleValue, std::string(), All(Title), Layout,                           \
        "text of the title; empty: m_titleDefaultValue")

#define KX_CHART_PROPERTY_TITLE_PROPERTY_KEY(KEY)                                                        \
    KEY(UXTextProperty, TitleProperty, m_titleProperty, _makeDefaultTitleProperty(), Any(Title), Layout, \
        "font, colour and lines of the title")

#define KX_CHART_PROPERTY_KEYS_AFTER_TITLE_PROPERTY(KEY)                                                   \
    KEY(UXPosition, TitlePosition, m_titlePosition, UXPosition::Top, Any(Title), Layout,                   \
        "side of the chart that the title takes")                                                          \
    KEY(UXPosition, TitleHorizontalAlign, m_titleHorizontalAlign, UXPosition::Left, Any(Title), Layout,    \
        "Left, Center or Right, of a title at the top or bottom")                                          \
    KEY(UXPosition, TitleVerticalAlign, m_titleVerticalAlign, UXPosition::Top, Any(Title), Layout,         \
        "Top, Center or Bottom, of a title at a side")                                                     \
    KEY(std::string, Remarks, m_remarks, std::string(), Never, None, "free text, kept for the host")       \
    KEY(bool, ShowLegend, m_showLegend, true, Any(Legend), Layout, "the legend")                           \
    KEY(UXPosition, LegendPosition, m_legendPosition, UXPosition::Top, Any(Legend), Layout,                \
        "side of the chart that the legend takes")                                                         \
    KEY(UXPosition, LegendHorizontalAlign, m_legendHorizontalAlign, UXPosition::Left, Any(Legend), Layout, \
        "Left, Center or Right, of the cells of a legend")                                                 \
    KEY(UXPosition, LegendVerticalAlign, m_legendVerticalAlign, UXPosition::Top, Any(Legend), Layout,      \
        "Top, Center or Bottom, of the cells of a legend")                                                 \
    KEY(UXColor, LegendLabelColor, m_legendLabelColor, UXColor(120, 120, 120, 1.0), Any(Legend), Repaint,  \
        "colour of the texts of the legend")                                                               \
    KEY(bool, ShowOnlyTopX, m_showOnlyTopX, false, All(TopX), Reload,                                      \
        "only the first m_topXItemsToShow items")                                                          \
    KEY(std::int64_t, TopXItemsToShow, m_topXItemsToShow, 10, All(TopX), Reload,                           \
        "how many items m_showOnlyTopX keeps")                                                             \
    KEY(bool, EnableTitleClick, m_enableTitleClick, false, Any(Title), None, "the title takes clicks")

/** What the property object writes, in the document's order. */
#define KX_CHART_PROPERTY_KEYS(KEY)                   \
    KX_CHART_PROPERTY_KEYS_BEFORE_TITLE_PROPERTY(KEY) \
    KX_CHART_PROPERTY_TITLE_PROPERTY_KEY(KEY)         \
    KX_CHART_PROPERTY_KEYS_AFTER_TITLE_PROPERTY(KEY)

/** What the chart writes in the object's place. */
#define KX_CHART_PROPERTY_UNWRITTEN_KEYS(KEY)                              \
    KEY(bool, EnableInteraction, m_enableInteraction, true, All(), Layout, \
        "items answer the pointer and the keys")

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

private:
    static UXTextProperty _makeDefaultTitleProperty();
};
