#include "kx_kpi_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_data_path.h"
#include "kx_figure_drawing.h"
#include "kx_key_definitions.h"
#include "ux/ux_localize.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_painter.h"
#include "ux/ux_read_double.h"

#include <algorithm>
#include <cmath>
#include <system_error>
#include <utility>

KX_DEFINE_CHART_KEY_TABLE(KXKpiChart, KXFigureChart, KX_KPI_CHART_KEYS)

namespace {

/** The measures, by index. */
enum Measure : std::uint64_t { ActualMeasure, ComparisonMeasure, LowerMeasure, UpperMeasure };

constexpr double greatestBarWidth = 320; // with its percentage
constexpr double barHeight = 6, barGap = 8, targetOverhang = 3, targetWidth = 2;
/** The first version whose documents have m_mainDisplay. */
constexpr double versionOfMainDisplay = 1.1;

/** Versions are decimal numbers, however many digits they are written with. */
bool isBeforeMainDisplay(const std::string& version)
{
    double number = 0;
    const auto [end, error] = uxReadDouble(version.data(), version.data() + version.size(), number);
    return error != std::errc() || number < versionOfMainDisplay;
}

} // namespace

KXKpiChart::KXKpiChart() = default;
KXKpiChart::~KXKpiChart() { _leaveView(); }

std::string KXKpiChart::customSerializeTypeID() { return "KXKpiChart"; }
std::string KXKpiChart::customSerializeVersion() { return "1.1"; }
std::vector<double> KXKpiChart::_makeUsualThresholds() { return {90, 100}; }

/** Up to version 1.0 one switch said whether the percentage is shown beside the actual value. */
bool KXKpiChart::customDeserialize()
{
    const UXObjectWatcher self(this);
    const bool isComplete = KXFigureChart::customDeserialize();
    if (!self.isAlive())
        return false;
    std::string version, display;
    bool showsComparison = false;
    const bool isOlder = !deserializeObjectVersion(version) || isBeforeMainDisplay(version);
    if (isOlder && !deserializeString("m_mainDisplay", display)) {
        static_cast<void>(deserializeBool("m_showComparison", showsComparison));
        setMainDisplay(showsComparison ? KXKpiChartMainDisplay::Both : KXKpiChartMainDisplay::Actual);
    }
    return isComplete;
}

/** The measures belong to one panel. */
std::uint64_t KXKpiChart::obtainGroupCount() const
{
    return std::min<std::uint64_t>(KXFigureChart::obtainGroupCount(),
                                   getDimensionCount() > 0 ? getMemberCount(0) : 1);
}

void KXKpiChart::customReloadData()
{
    const UXObjectWatcher self(this);
    std::array<std::string, 4> words{"", "Off target", "Near target", "On target"};
    for (std::string& word : words)
        if (!word.empty())
            word = uxLocalizeString(word);
    if (!self.isAlive())
        return;
    m_statusWords = std::move(words);
    KXFigureChart::customReloadData();
}

/** A panel is named by each of its measures. */
std::vector<KXChartItem> KXKpiChart::findItems(const KXChartDataPath& path)
{
    KXChartDataPath ofActual = path;
    if (!ofActual.valueIndexPath.empty() && ofActual.valueIndexPath[0] < getMeasureCount())
        ofActual.valueIndexPath[0] = ActualMeasure;
    return KXFigureChart::findItems(ofActual);
}

KXChartKpiPanel KXKpiChart::obtainPanel(std::uint64_t group) const
{
    if (group >= obtainGroupCount())
        return {};
    const std::uint64_t cell = _obtainCell({0, group, 0});
    return {group, getValue(ActualMeasure, cell), getValue(ComparisonMeasure, cell),
            getValue(LowerMeasure, cell), getValue(UpperMeasure, cell)};
}

KXKpiStatus KXKpiChart::obtainStatus(std::uint64_t group) const
{
    return obtainPanel(group).obtainStatus(m_thresholds, m_higherIsBetter);
}

UXColor KXKpiChart::_obtainStatusColor(KXKpiStatus status, const UXColor& other) const
{
    switch (status) {
    case KXKpiStatus::Good:
        return m_goodColor;
    case KXKpiStatus::Fair:
        return m_fairColor;
    case KXKpiStatus::Poor:
        return m_poorColor;
    case KXKpiStatus::None:
        break;
    }
    return other;
}

std::vector<KXFigureLine> KXKpiChart::_makeLines() const
{
    std::vector<KXFigureLine> lines(Progress + 1);
    lines[Caption].property = getCaptionProperty();
    lines[Caption].isCaption = _showsCaptions();
    lines[Caption].rank = 1;
    lines[Value].property = getValueProperty();
    for (const Line line : {Difference, Comparison, Progress}) {
        lines[line].property = getLabelProperty();
        lines[line].rank = static_cast<int>(line);
    }
    lines[Difference].property = m_differenceProperty;
    lines[Progress].rank = 4;
    lines[Comparison].rank = 3;
    lines[Progress].align = UXTextAlign::Right;
    lines[Progress].greatestWidth = greatestBarWidth;
    return lines;
}

std::string KXKpiChart::_obtainValueText(const KXChartKpiPanel& panel) const
{
    const double actual = panel.getActual();
    const std::string value = std::isnan(actual) ? kxNoNumberText : m_dataFormat->formatNumber(actual);
    if (m_mainDisplay == KXKpiChartMainDisplay::Actual)
        return value;
    const std::string ratio = kxFormatFigurePercentage(panel.obtainRatio(), m_percentageDecimals,
                                                       *m_dataFormat);
    return m_mainDisplay == KXKpiChartMainDisplay::Both ? value + " (" + ratio + ")" : ratio;
}

std::string KXKpiChart::_obtainDifferenceText(const KXChartKpiPanel& panel) const
{
    const KXValueChange change = panel.obtainChange();
    const std::string value = kxFormatSignedNumber(change.difference, *m_dataFormat);
    const std::string share = kxFormatSignedPercentage(change.percentage, m_percentageDecimals,
                                                       *m_dataFormat);
    switch (m_differenceDisplay) {
    case KXKpiDifferenceDisplay::None:
        break;
    case KXKpiDifferenceDisplay::Value:
        return value;
    case KXKpiDifferenceDisplay::Percentage:
        return share;
    case KXKpiDifferenceDisplay::Both:
        return std::isnan(change.difference) ? value : value + " (" + share + ")";
    }
    return {};
}

std::string KXKpiChart::_obtainComparisonText(const KXChartKpiPanel& panel) const
{
    const std::string& caption = m_comparisonCaption.empty() ? getMeasureLabel(ComparisonMeasure)
                                                             : m_comparisonCaption;
    const double value = panel.getComparison();
    const std::string text = std::isnan(value) ? kxNoNumberText : m_dataFormat->formatNumber(value);
    return caption.empty() ? text : caption + " " + text;
}

/** @return 1 where the difference is written as one upwards, -1 downwards, 0 for neither */
int KXKpiChart::_obtainDirection(const KXChartKpiPanel& panel) const
{
    const KXValueChange change = panel.obtainChange();
    if (!change.isTold() || m_differenceDisplay == KXKpiDifferenceDisplay::None)
        return 0;
    const int ofShare = kxObtainShownPercentageSign(change.percentage, m_percentageDecimals);
    if (m_differenceDisplay == KXKpiDifferenceDisplay::Percentage)
        return ofShare;
    const int ofValue = kxObtainShownSign(change.difference, *m_dataFormat);
    return m_differenceDisplay == KXKpiDifferenceDisplay::Both && ofValue == 0 ? ofShare : ofValue;
}

std::string KXKpiChart::obtainLineText(std::uint64_t group, Line line)
{
    const KXChartKpiPanel panel = obtainPanel(group);
    const bool isCompared = getMeasureCount() > ComparisonMeasure;
    switch (line) {
    case Caption:
        return _showsCaptions() ? obtainGroupName(group) : std::string();
    case Value:
        return _obtainValueText(panel);
    case Difference: {
        const std::string& word =
            m_statusWords[m_showStatus ? static_cast<std::size_t>(obtainStatus(group)) : 0];
        const std::string text = isCompared ? _obtainDifferenceText(panel) : std::string();
        return text.empty() || word.empty() ? text + word : text + "  " + word;
    }
    case Comparison:
        return isCompared && m_showComparisonValue ? _obtainComparisonText(panel) : std::string();
    case Progress:
        return isCompared && m_showProgress && !std::isnan(panel.obtainProgress())
                   ? kxFormatFigurePercentage(panel.obtainProgress(), m_percentageDecimals, *m_dataFormat)
                   : std::string();
    }
    return {};
}

KXFigureChart::Text KXKpiChart::_obtainText(std::uint64_t group, std::size_t line)
{
    Text said{obtainLineText(group, static_cast<Line>(line))};
    if (line != Difference)
        return said;
    const KXChartKpiPanel panel = obtainPanel(group);
    const KXKpiStatus status = obtainStatus(group);
    // What cannot be told is neither good nor bad, though bounds may say so of the value.
    const bool isUntold = m_differenceDisplay != KXKpiDifferenceDisplay::None &&
                          getMeasureCount() > ComparisonMeasure && !panel.obtainChange().isTold();
    if (status != KXKpiStatus::None && !isUntold)
        said.color = _obtainStatusColor(status, {});
    if (_obtainDirection(panel) != 0)
        said.indent = kxObtainArrowRoom(m_differenceProperty);
    return said;
}

std::vector<KXPanelItem> KXKpiChart::_layoutItems(const UXRect& area)
{
    std::vector<KXPanelItem> items = KXFigureChart::_layoutItems(area);
    m_marks.clear();
    auto panel = items.begin();
    for (const PlacedText& text : getPlacedTexts()) {
        panel = std::ranges::find(panel, items.end(), text.item, &KXPanelItem::item);
        if (panel == items.end())
            break;
        if (text.line == Progress)
            _layoutBar(text, panel->shape.getBounds());
        else if (text.indent > 0)
            _layoutArrow(text);
    }
    return items;
}

void KXKpiChart::_layoutBar(const PlacedText& text, const UXDoubleRect& panel)
{
    const KXFigureLine& line = getLines()[text.line];
    const double right = text.rect.x + text.rect.width, left = right - line.width;
    const double width = std::floor(text.rect.x - barGap - left);
    const double middle = std::round(kxObtainDigitMiddle(text.rect));
    if (width < 1 || left < panel.x - 1)
        return;
    const KXChartKpiPanel numbers = obtainPanel(text.item.group);
    m_marks.push_back({text.item,
                       {std::round(left), middle - barHeight / 2, width, barHeight},
                       std::clamp(numbers.obtainProgress() / 100, 0.0, 1.0),
                       _obtainStatusColor(obtainStatus(text.item.group), m_progressColor)});
}

void KXKpiChart::_layoutArrow(const PlacedText& text)
{
    const int direction = _obtainDirection(obtainPanel(text.item.group));
    m_marks.push_back({text.item, kxPlaceArrow(text.rect, text.property, text.indent),
                       direction > 0 ? 1.0 : -1.0, text.property.textColor, true});
}

KXChartDataProviderHintData KXKpiChart::_describeItem(const KXChartItem& item)
{
    const UXObjectWatcher self(this);
    std::string title = obtainGroupName(item.group);
    if (!self.isAlive())
        return {};
    const KXChartKpiPanel panel = obtainPanel(item.group);
    std::string told;
    const auto add = [&told](const std::string& text) {
        if (!text.empty())
            told += (told.empty() ? "" : ", ") + text;
    };
    if (getMeasureCount() > ComparisonMeasure) {
        add(_obtainComparisonText(panel));
        add(_obtainDifferenceText(panel));
    }
    add(m_statusWords[static_cast<std::size_t>(obtainStatus(item.group))]);
    std::string value = _tellPart(item, _obtainValueText(panel));
    return told.empty() ? KXChartDataProviderHintData(std::move(title), std::move(value))
                        : KXChartDataProviderHintData(std::move(title), std::move(value), told);
}

void KXKpiChart::_paintOverItems(UXPainter& painter) const
{
    for (const Mark& mark : m_marks)
        mark.isArrow ? _paintArrow(painter, mark) : _paintBar(painter, mark);
    KXFigureChart::_paintOverItems(painter);
}

void KXKpiChart::_paintBar(UXPainter& painter, const Mark& mark) const
{
    const auto fill = [&](const UXColor& color, const UXDoubleRect& rect) {
        painter.setColor(_obtainDrawnColor(mark.item, color));
        painter.drawRects({&rect, 1});
    };
    fill(m_trackColor, mark.rect);
    const double width = std::round(mark.rect.width * mark.share);
    if (width > 0)
        fill(mark.color, {mark.rect.x, mark.rect.y, width, mark.rect.height});
    fill(m_targetColor, {mark.rect.x + mark.rect.width - targetWidth, mark.rect.y - targetOverhang,
                         targetWidth, mark.rect.height + 2 * targetOverhang});
}

void KXKpiChart::_paintArrow(UXPainter& painter, const Mark& mark) const
{
    painter.setColor(_obtainDrawnColor(mark.item, mark.color));
    kxDrawArrow(painter, mark.rect, mark.share > 0);
}
