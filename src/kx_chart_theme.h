#pragma once

#include "kx_chart_property_base.h"
#include "kx_export.h"
#include "kx_key_table.h"
#include "ux/ux_color.h"

#include <memory>
#include <string>
#include <vector>

class KXChart;

// type, name, member and JSON key, default, reset, effect, meaning
#define KX_CHART_THEME_KEYS(KEY)                                                                             \
    KEY(std::string, Name, m_name, std::string(), Never, None, "what the theme is called")                   \
    KEY(UXColor, Ground, m_ground, UXColor(255, 255, 255), Never, Recolor, "behind everything")              \
    KEY(UXColor, StrongText, m_strongText, UXColor(38, 42, 50), Never, Recolor, "titles and large values")   \
    KEY(UXColor, Text, m_text, UXColor(64, 68, 78), Never, Recolor, "texts at marks, and names")             \
    KEY(UXColor, QuietText, m_quietText, UXColor(92, 96, 106), Never, Recolor,                               \
        "texts at ticks and in legends")                                                                     \
    KEY(UXColor, FaintText, m_faintText, UXColor(110, 114, 124), Never, Recolor,                             \
        "what is said without a sign of its own")                                                            \
    KEY(UXColor, GridColor, m_gridColor, UXColor(230, 230, 235), Never, Recolor, "grid lines and borders")   \
    KEY(UXColor, AxisColor, m_axisColor, UXColor(196, 198, 204), Never, Recolor, "axes and lines to labels") \
    KEY(UXColor, TrackColor, m_trackColor, UXColor(239, 239, 244), Never, Recolor,                           \
        "what something moves along: dials, scroll bars, progress")                                          \
    KEY(UXColor, PointerColor, m_pointerColor, UXColor(128, 130, 138), Never, Recolor,                       \
        "what moves there, and targets")                                                                     \
    KEY(std::vector<UXColor>, Palette, m_palette, {}, Never, Recolor, "colours that series take in turn")    \
    KEY(UXColor, LowColor, m_lowColor, UXColor(49, 104, 178), Never, Recolor, "of the least value")          \
    KEY(UXColor, MiddleColor, m_middleColor, UXColor(224, 184, 96), Never, Recolor, "of the middle value")   \
    KEY(UXColor, HighColor, m_highColor, UXColor(196, 48, 43), Never, Recolor, "of the greatest value")      \
    KEY(UXColor, IncreaseColor, m_increaseColor, UXColor(64, 153, 108), Never, Recolor, "of changes up")     \
    KEY(UXColor, DecreaseColor, m_decreaseColor, UXColor(207, 83, 76), Never, Recolor, "of changes down")    \
    KEY(UXColor, TotalColor, m_totalColor, UXColor(98, 112, 133), Never, Recolor, "of totals")               \
    KEY(UXColor, GoodColor, m_goodColor, UXColor(24, 150, 100), Never, Recolor,                              \
        "of what is as it should be")                                                                        \
    KEY(UXColor, FairColor, m_fairColor, UXColor(196, 132, 20), Never, Recolor, "of what is nearly so")      \
    KEY(UXColor, PoorColor, m_poorColor, UXColor(214, 68, 68), Never, Recolor, "of what is not")

/**
 * A look of charts: a colour for each part that they play, as a document of its own. A theme is taken with
 * kxApplyTheme, which leaves what the user has set by hand.
 *
 * The themes that come with the library are held to numbers: texts have a contrast of 4.5 with the ground,
 * colours of series one of 3, and any two of these differ by 10 (CIEDE2000) to normal and to colour-blind
 * eyes.
 */
class KX_EXPORT KXChartTheme : public KXChartPropertyBase {
    KX_DECLARE_KEYS(KXChartTheme, KXChartPropertyBase, KX_CHART_THEME_KEYS)
public:
    KXChartTheme();
    KXChartTheme(const KXChartTheme&);
    KXChartTheme& operator=(const KXChartTheme&);
    ~KXChartTheme() override;

    /** @return the names of the themes that come with the library, the usual one for light grounds first */
    static std::vector<std::string> obtainNames();
    /** @return the theme of that name, null for an unknown one */
    static std::unique_ptr<KXChartTheme> create(const std::string& name);

    /** @return the colour of what is one series alone: the palette's first, the text's without one */
    UXColor obtainFirstColor() const;
    /** @return the same, so faint that texts can be read over it */
    UXColor obtainFaintColor() const;
    /** @return the ground of rows that are to be told from their neighbours */
    UXColor obtainBandColor() const;
};

/** Gives a chart the colours of a theme, where it has those of the former one: what differs from these was
 * set by hand, and stays. A callback on the way may destroy the chart, which ends it.
 *  @param former the theme that the chart has; null for the look that charts are made with
 *  @param theme null for that look */
KX_EXPORT void kxApplyTheme(KXChart& chart, const KXChartTheme* former, const KXChartTheme* theme);

/** @return whether themes have a word about a key that holds colours, be it that they leave it alone */
[[nodiscard]] KX_EXPORT bool kxIsThemeKey(const std::string& key);
