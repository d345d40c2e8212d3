#include "kx_chart_theme.h"

#include "kx_key_definitions.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace {

constexpr double faintOpacity = 0.2, bandOpacity = 0.4;

/** Grey texts and lines of a theme, from the ground to what stands out most. */
struct Greys {
    UXColor ground, track, grid, axis, pointer, faintText, quietText, text, strongText;
};

struct Look {
    const char* name;
    Greys greys;
    std::vector<UXColor> palette;
    std::array<UXColor, 3> gradient;
    /** Increase and good, fair, decrease and poor, total. */
    std::array<UXColor, 4> status;
};

const Greys darkOnWhite{{255, 255, 255}, {239, 239, 244}, {230, 230, 235}, {196, 198, 204}, {128, 130, 138},
                        {110, 114, 124}, {92, 96, 106},   {64, 68, 78},    {38, 42, 50}};
const Greys whiteOnDark{{28, 31, 38},    {44, 48, 58},    {52, 57, 68},    {92, 98, 112},  {140, 146, 160},
                        {150, 156, 168}, {172, 178, 190}, {214, 218, 226}, {240, 242, 246}};
const Greys whiteOnBlack{{0, 0, 0},       {48, 48, 48},    {72, 72, 72},    {190, 190, 190}, {220, 220, 220},
                         {225, 225, 225}, {240, 240, 240}, {255, 255, 255}, {255, 255, 255}};

/** The palettes were found by search: from wanted hues to what keeps the least difference for all eyes. */
const std::vector<Look>& obtainLooks()
{
    static const std::vector<Look> looks{
        {"light",
         darkOnWhite,
         {{16, 120, 159},
          {224, 117, 21},
          {44, 157, 100},
          {212, 5, 26},
          {129, 4, 120},
          {198, 122, 153},
          {107, 113, 61},
          {63, 67, 194},
          {79, 45, 3},
          {82, 103, 116}},
         {{{49, 104, 178}, {224, 184, 96}, {196, 48, 43}}},
         {{{24, 140, 92}, {186, 118, 8}, {206, 62, 62}, {98, 112, 133}}}},
        {"dark",
         whiteOnDark,
         {{75, 118, 190},
          {225, 153, 72},
          {75, 180, 137},
          {196, 130, 232},
          {231, 98, 104},
          {68, 210, 225},
          {176, 104, 45},
          {169, 113, 151},
          {217, 219, 96},
          {169, 163, 178}},
         {{{70, 130, 210}, {214, 190, 130}, {226, 92, 84}}},
         {{{76, 190, 134}, {226, 176, 74}, {236, 110, 104}, {146, 160, 182}}}},
        {"high-contrast",
         whiteOnBlack,
         {{98, 176, 181},
          {208, 249, 57},
          {238, 163, 255},
          {255, 255, 255},
          {237, 124, 123},
          {135, 132, 200},
          {178, 185, 39},
          {81, 148, 55}},
         {{{90, 170, 255}, {255, 255, 255}, {255, 140, 60}}},
         {{{90, 230, 150}, {255, 210, 90}, {255, 120, 110}, {255, 255, 255}}}},
        {"color-blind-light",
         darkOnWhite,
         {{5, 112, 173},
          {228, 119, 0},
          {123, 153, 115},
          {131, 98, 88},
          {54, 154, 214},
          {73, 42, 120},
          {87, 84, 21},
          {63, 71, 73}},
         {{{5, 84, 150}, {190, 190, 190}, {200, 96, 0}}},
         {{{5, 112, 173}, {120, 108, 96}, {200, 96, 0}, {63, 71, 73}}}},
        {"color-blind-dark",
         whiteOnDark,
         {{66, 117, 149},
          {229, 158, 0},
          {131, 164, 115},
          {240, 171, 238},
          {253, 240, 74},
          {209, 88, 27},
          {35, 172, 173},
          {118, 125, 255}},
         {{{86, 160, 230}, {120, 124, 132}, {240, 168, 40}}},
         {{{98, 176, 240}, {200, 196, 190}, {240, 158, 20}, {170, 176, 190}}}}};
    return looks;
}

} // namespace

KX_DEFINE_KEYS(KXChartTheme, KXChartPropertyBase, KX_CHART_THEME_KEYS)

KXChartTheme::KXChartTheme() = default;
KXChartTheme::KXChartTheme(const KXChartTheme&) = default;
KXChartTheme& KXChartTheme::operator=(const KXChartTheme&) = default;
KXChartTheme::~KXChartTheme() = default;

std::vector<std::string> KXChartTheme::obtainNames()
{
    std::vector<std::string> names;
    std::ranges::transform(obtainLooks(), std::back_inserter(names), &Look::name);
    return names;
}

std::unique_ptr<KXChartTheme> KXChartTheme::create(const std::string& name)
{
    const auto look = std::ranges::find(obtainLooks(), name, &Look::name);
    if (look == obtainLooks().end())
        return nullptr;
    auto theme = std::make_unique<KXChartTheme>();
    theme->m_name = name;
    theme->m_ground = look->greys.ground;
    theme->m_trackColor = look->greys.track;
    theme->m_gridColor = look->greys.grid;
    theme->m_axisColor = look->greys.axis;
    theme->m_pointerColor = look->greys.pointer;
    theme->m_faintText = look->greys.faintText;
    theme->m_quietText = look->greys.quietText;
    theme->m_text = look->greys.text;
    theme->m_strongText = look->greys.strongText;
    theme->m_palette = look->palette;
    theme->m_lowColor = look->gradient[0];
    theme->m_middleColor = look->gradient[1];
    theme->m_highColor = look->gradient[2];
    theme->m_increaseColor = theme->m_goodColor = look->status[0];
    theme->m_fairColor = look->status[1];
    theme->m_decreaseColor = theme->m_poorColor = look->status[2];
    theme->m_totalColor = look->status[3];
    return theme;
}

UXColor KXChartTheme::obtainFirstColor() const { return m_palette.empty() ? m_text : m_palette.front(); }

UXColor KXChartTheme::obtainFaintColor() const
{
    const UXColor color = obtainFirstColor();
    return {color.red, color.green, color.blue, faintOpacity};
}

UXColor KXChartTheme::obtainBandColor() const
{
    return {m_trackColor.red, m_trackColor.green, m_trackColor.blue, bandOpacity};
}
