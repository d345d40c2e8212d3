#include "kx_trend_chart.h"

#include "kx_axis_chart_property.h"
#include "kx_axis_property.h"
#include "kx_chart_data_format.h"
#include "kx_chart_property.h"
#include "kx_figure_drawing.h"
#include "kx_key_definitions.h"
#include "kx_line_chart_property.h"
#include "kx_trend_steps.h"
#include "ux/ux_layout_rounds.h"
#include "ux/ux_localize.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>
#include <cmath>
#include <utility>

KX_DEFINE_CHART_KEY_TABLE(KXTrendChart, KXLineChart, KX_TREND_CHART_KEYS)

namespace {

/** The one series that is drawn. */
constexpr std::uint64_t toldSeries = 0;
constexpr double lineGap = 4;
/** Of the height: what the line has at least, where the chart is high enough for one. */
constexpr double leastSparklineShare = 0.35;
constexpr int leastSparklineHeight = 24;
/** Room of the points beyond the line's ends, in logical units. */
constexpr int pointRoom = 6;
constexpr double toldRadius = 4, extremeRadius = 3;
/** Points are no wider than the line, so that those are seen alone that have no neighbours. */
constexpr double lineWidth = 2;

} // namespace

KXTrendChart::KXTrendChart()
{
    for (KXAxisProperty* property : {getXAxisProperty(), getYAxisProperty(), getSecondaryYAxisProperty()}) {
        property->setShowAxis(false);
        property->setShowTickLabels(false);
        property->setShowGridLine(false);
        property->setShowTitle(false);
    }
    getAxisChartProperty()->setShowZeroLine(false);
    getAxisChartProperty()->setEnableZoom(false);
    getLineChartProperty()->setLineWidth(lineWidth);
    getLineChartProperty()->setPointSize(lineWidth);
}

KXTrendChart::~KXTrendChart() { _leaveView(); }

std::string KXTrendChart::customSerializeTypeID() { return "KXTrendChart"; }
std::uint64_t KXTrendChart::obtainLegendCellSize() { return 0; }

UXTextProperty KXTrendChart::_makeTextProperty(int fontSize, const UXColor& color)
{
    UXTextProperty property;
    property.font.size = fontSize;
    property.textColor = color;
    return property;
}

KXAxisChartDataView* KXTrendChart::obtainViewOfSeries(std::uint64_t series) const
{
    return series == toldSeries ? KXLineChart::obtainViewOfSeries(series) : nullptr;
}

void KXTrendChart::_customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups)
{
    const UXObjectWatcher self(this), sourceWatcher(source);
    KXLineChart::_customResetProperties(type, source, groups);
    if (self.isAlive() && sourceWatcher.isAlive() && dynamic_cast<KXTrendChart*>(source))
        _resetKeys(obtainPropertyTable(), type, *source, groups);
}

/** The host is asked for the numbers of the steps here, as a layout asks nothing. */
void KXTrendChart::customReloadData()
{
    const UXObjectWatcher self(this);
    m_toldStep.reset();
    m_baseStep.reset();
    m_markedSteps.clear();
    std::string word = uxLocalizeString("since");
    if (!self.isAlive())
        return;
    m_sinceWord = std::move(word);
    static_cast<void>(obtainCategoryNumbers());
    if (!self.isAlive())
        return;
    _findSteps();
    KXLineChart::customReloadData();
}

void KXTrendChart::_findSteps()
{
    const std::vector<double>& values = getSeriesValues(toldSeries);
    const std::uint64_t count = std::min<std::uint64_t>(values.size(), obtainShownCategoryCount());
    std::optional<std::uint64_t> least, greatest;
    for (std::uint64_t step = count; step-- > 0;) {
        if (std::isnan(values[step]))
            continue;
        if (!least || values[step] <= values[*least])
            least = step;
        if (!greatest || values[step] >= values[*greatest])
            greatest = step;
    }
    // The period that still runs is the last one, whether or not it has a value already.
    for (std::uint64_t step = m_omitLast && count > 0 ? count - 1 : count; step-- > 0 && !m_toldStep;)
        if (!std::isnan(values[step]))
            m_toldStep = step;
    if (least && values[*least] < values[*greatest])
        m_markedSteps = {*least, *greatest};
    if (!m_toldStep)
        return;
    m_markedSteps.push_back(*m_toldStep);
    const KXTrendSteps steps{obtainCategoryNumbers(), count, getCategoryDataType(),
                             getCategoryAggregateType()};
    switch (m_compareTo) {
    case KXTrendComparison::Previous:
        m_baseStep = steps.findBack(*m_toldStep, 1);
        break;
    case KXTrendComparison::StepsBack:
        m_baseStep = steps.findBack(*m_toldStep, m_compareBack);
        break;
    case KXTrendComparison::YearBefore:
        m_baseStep = steps.findYearBefore(*m_toldStep);
        break;
    }
}

KXValueChange KXTrendChart::obtainChange() const
{
    return m_toldStep && m_baseStep
               ? kxObtainValueChange(getValue(toldSeries, *m_toldStep), getValue(toldSeries, *m_baseStep))
               : KXValueChange();
}

/** @return 1 where the change is written as one upwards, -1 downwards, 0 for neither */
int KXTrendChart::_obtainDirection() const
{
    const KXValueChange change = obtainChange();
    if (!change.isTold())
        return 0;
    return m_diffDisplay == KXTrendChartDiffDisplay::Percentage
               ? kxObtainShownPercentageSign(change.percentage, m_percentageDecimals)
               : kxObtainShownSign(change.difference, *getYDataFormat());
}

UXColor KXTrendChart::_obtainChangeColor() const
{
    if (m_direction == 0)
        return m_differenceProperty.textColor;
    return (m_direction > 0) == m_higherIsBetter ? m_goodColor : m_poorColor;
}

std::string KXTrendChart::obtainLineText(Line line)
{
    if (!m_toldStep)
        return {};
    switch (line) {
    case Caption:
        return m_showCaption && !getChartProperty()->getShowTitle() ? getSeriesLabel(toldSeries)
                                                                    : std::string();
    case Value:
        return obtainValueText(toldSeries, getValue(toldSeries, *m_toldStep));
    case Period:
        return m_showPeriod ? obtainCategoryLabel(*m_toldStep) : std::string();
    case Change: {
        if (!m_showChange)
            return {};
        const KXValueChange change = obtainChange();
        std::string text = m_diffDisplay == KXTrendChartDiffDisplay::Percentage
                               ? kxFormatSignedPercentage(change.percentage, m_percentageDecimals,
                                                          *getYDataFormat())
                               : kxFormatSignedNumber(change.difference, *getYDataFormat());
        if (!m_baseStep)
            return text;
        const UXObjectWatcher self(this);
        const std::string since = m_sinceWord;
        return text + " " + since + " " + obtainCategoryLabel(*m_baseStep);
    }
    }
    return {};
}

UXDoubleRect KXTrendChart::obtainLineRect(Line line) const
{
    const auto found = std::ranges::find(m_texts, line, &Text::line);
    return found == m_texts.end() ? UXDoubleRect() : found->rect;
}

std::vector<KXFigureLine> KXTrendChart::_makeLines()
{
    const std::pair<const UXTextProperty*, int> looks[] = {
        {&m_captionProperty, 3}, {&m_valueProperty, 0}, {&m_differenceProperty, 1}, {&m_labelProperty, 2}};
    std::vector<KXFigureLine> lines(std::size(looks));
    for (std::size_t i = 0; i < lines.size(); ++i) {
        lines[i].property = *looks[i].first;
        lines[i].rank = looks[i].second;
        std::string text = obtainLineText(static_cast<Line>(i));
        std::ranges::replace_if(
            text, [](char c) { return c == '\n' || c == '\r'; }, ' ');
        lines[i].texts = {std::move(text)};
    }
    return lines;
}

/** @return the height that the texts take */
double KXTrendChart::_layoutTexts(const UXRect& area)
{
    m_texts.clear();
    m_textLosses.clear();
    m_arrow = {};
    m_direction = _obtainDirection();
    if (!m_toldStep || !preparedAndReloadedData() || uxIsEmptyRect(area))
        return 0;
    std::vector<KXFigureLine> lines = _makeLines();
    const double least = m_showSparkline ? area.height * leastSparklineShare : 0;
    const double room = least >= leastSparklineHeight ? area.height - least : area.height;
    const double height = kxStackFigure(lines, UXDoubleSize(area.width, room), lineGap);
    for (std::size_t i = 0; i < lines.size(); ++i)
        // Of a line that is higher than the chart nothing could be read.
        if (lines[i].height > 0 && lines[i].top + lines[i].height <= area.height)
            _placeText(lines[i], static_cast<Line>(i), area);
        else if (!lines[i].texts.empty() && !lines[i].texts.front().empty())
            m_textLosses.leaveOut(lines[i].texts.front(), UXDoubleRect(area));
    return height;
}

void KXTrendChart::_diagnose(std::vector<KXChartDiagnostic>& diagnostics) const
{
    KXLineChart::_diagnose(diagnostics);
    m_textLosses.tell(diagnostics, *this, *this);
}

void KXTrendChart::_placeText(const KXFigureLine& line, Line kind, const UXRect& area)
{
    Text placed{kind, line.texts.front(), {}, line.property};
    placed.property.align = UXTextAlign::Left;
    placed.property.option = UXTextOption::Default;
    placed.property.lineMode = 2;
    const bool hasArrow = kind == Change && m_direction != 0;
    const double indent = hasArrow ? kxObtainArrowRoom(line.property) : 0;
    if (hasArrow)
        placed.property.textColor = _obtainChangeColor();
    placed.rect = kxPlaceFigureText(placed.text, placed.property,
                                    {area.x + line.left, area.y + line.top, line.width, line.height}, indent,
                                    m_mainLabelAlign);
    const std::string& whole = line.texts.front();
    if (placed.rect.width <= 0) {
        m_textLosses.leaveOut(whole, UXDoubleRect(area));
        return;
    }
    if (placed.text != whole)
        m_textLosses.shorten(whole, placed.rect);
    if (hasArrow)
        m_arrow = kxPlaceArrow(placed.rect, placed.property, indent);
    m_texts.push_back(std::move(placed));
}

void KXTrendChart::_customLayout(UXRect plotArea)
{
    const UXObjectWatcher self(this);
    const double height = _layoutTexts(plotArea);
    if (!self.isAlive())
        return;
    m_textArea = uxMakeRect(plotArea.x, plotArea.y, plotArea.width, static_cast<int>(std::ceil(height)));
    UXRect line = plotArea;
    if (height > 0) {
        line.y += m_textArea.height + pointRoom;
        line.height = std::max(plotArea.height - m_textArea.height - 2 * pointRoom, 0);
        line.x += pointRoom;
        line.width = std::max(plotArea.width - 2 * pointRoom, 0);
        if (!m_showSparkline || line.height < leastSparklineHeight / 2)
            line.height = 0;
    }
    getPlot()->setVisible(line.height > 0);
    KXLineChart::_customLayout(line);
}

/** The names of steps stand among the texts above the line. */
void KXTrendChart::_categoryTextsArrived(bool areFirst)
{
    const UXLayoutRounds layout;
    const UXObjectWatcher self(this);
    KXLineChart::_categoryTextsArrived(areFirst);
    if (self.isAlive())
        _layoutAnew();
}

void KXTrendChart::_layoutMarks()
{
    const UXObjectWatcher self(this);
    KXLineChart::_layoutMarks();
    if (!self.isAlive())
        return;
    m_points.clear();
    if (!getPlot()->getVisible())
        return;
    const KXAxisChartPlotFrame frame = obtainPlotFrame(isSeriesOnSecondaryAxis(toldSeries));
    const UXRect plot = getPlot()->getRect();
    if (std::min(plot.width, plot.height) < 2 * toldRadius)
        return;
    for (const std::uint64_t step : m_markedSteps) {
        const KXAxisChartMark mark{toldSeries, step};
        const bool isTold = step == m_toldStep && step == m_markedSteps.back();
        if (!isPlaced(mark) || (!isTold && !m_showExtremes))
            continue;
        const UXDoublePoint place = frame.makePoint(
            frame.categories.obtainPosition(obtainCategoryValue(step)),
            frame.values.obtainPosition(getValue(toldSeries, step)));
        if (!uxPointInDoubleRect(place, UXDoubleRect(uxInflateRect(frame.area, 1, 1))))
            continue; // scrolled, or beyond a range that the user set
        m_points.push_back({{plot.x + place.x, plot.y + place.y}, isTold});
    }
    invalidate();
}

/** The value stands for the step that it is of. */
std::optional<KXChartItem> KXTrendChart::obtainItemAt(UXPoint point) const
{
    if (m_toldStep && !m_texts.empty() && uxPointInRect(point, m_textArea))
        return KXChartItem{0, toldSeries, *m_toldStep};
    return KXLineChart::obtainItemAt(point);
}

void KXTrendChart::_paintUnderChildren(UXPainter& painter)
{
    KXLineChart::_paintUnderChildren(painter);
    for (const Text& text : m_texts)
        painter.drawText(text.text, text.rect, text.property);
    if (m_arrow.width > 0) {
        painter.setColor(_obtainChangeColor());
        kxDrawArrow(painter, m_arrow, m_direction > 0);
    }
    for (const Point& point : m_points) {
        painter.setColor(point.isTold ? obtainSeriesColor(toldSeries) : m_extremeColor);
        painter.addCircleArcPath(point.place.x, point.place.y, point.isTold ? toldRadius : extremeRadius, 0,
                                 360);
        painter.fill();
    }
}
