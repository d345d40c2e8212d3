#include "kx_value_list_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_data_path.h"
#include "kx_key_definitions.h"
#include "kx_measure_format.h"
#include "kx_scrollable_value_list.h"
#include "kx_value_change.h"
#include "ux/ux_object_watcher.h"

#include <algorithm>
#include <cmath>
#include <memory>

KX_DEFINE_CHART_KEY_TABLE(KXValueListChart, KXFigureChart, KX_VALUE_LIST_CHART_KEYS)

namespace {

/** The measures below a value are the next ones. */
constexpr std::uint64_t firstFurther = 1, endOfFurther = 3;
/** In widths that show all of an item: captions and values are not to stand farther apart. */
constexpr double usualWidthShare = 1.3;
constexpr int valueFontSize = 20;

} // namespace

KXValueListChart::KXValueListChart() : KXFigureChart(std::make_unique<KXScrollableValueList>())
{
    setValueProperty(_makeTextProperty(valueFontSize, UXColor(64, 64, 64)));
}

KXValueListChart::~KXValueListChart() { _leaveView(); }

std::string KXValueListChart::customSerializeTypeID() { return "KXValueListChart"; }
std::string KXValueListChart::_obtainItemKind() const { return "Item"; }

const KXChartDataFormat& KXValueListChart::_obtainFormat(std::uint64_t measure) const
{
    return kxFindMeasureFormat(m_dataFormats, measure, *m_dataFormat);
}

KXValueListBaseItemStyle KXValueListChart::_obtainStyle() const
{
    return static_cast<KXValueListBaseItemStyle>(
        std::clamp(m_itemStyle, 0, static_cast<int>(KXValueListBaseItemStyle::Right)));
}

/** @return what a line shows: lines stand in their order, the caption above the value or below */
KXValueListChart::Part KXValueListChart::_obtainPart(std::size_t line) const
{
    if (_obtainStyle() == KXValueListBaseItemStyle::Below && line < Further)
        return line == 0 ? Value : Caption;
    return static_cast<Part>(line);
}

/** An item with a dimension is named by each of its measures. */
std::vector<KXChartItem> KXValueListChart::findItems(const KXChartDataPath& path)
{
    KXChartDataPath ofValue = path;
    if (getDimensionCount() > 0 && !ofValue.valueIndexPath.empty() &&
        ofValue.valueIndexPath[0] < getMeasureCount())
        ofValue.valueIndexPath[0] = 0;
    return KXFigureChart::findItems(ofValue);
}

std::vector<KXFigureLine> KXValueListChart::_makeLines() const
{
    std::vector<KXFigureLine> lines(Further + 1);
    for (std::size_t line = 0; line < lines.size(); ++line) {
        const Part part = _obtainPart(line);
        lines[line].rank = part == Value ? 0 : static_cast<int>(line) + 1;
        lines[line].property = part == Caption ? getCaptionProperty()
                               : part == Value ? getValueProperty()
                                               : getLabelProperty();
        lines[line].isCaption = part == Caption && getShowCaption();
    }
    if (_obtainStyle() == KXValueListBaseItemStyle::Left)
        lines[Caption].place = KXFigureLinePlace::LeftOfValue;
    else if (_obtainStyle() == KXValueListBaseItemStyle::Right)
        lines[Caption].place = KXFigureLinePlace::RightOfValue;
    return lines;
}

std::string KXValueListChart::_obtainFurtherText(std::uint64_t group) const
{
    std::string text;
    const std::uint64_t end = getDimensionCount() > 0 ? std::min(getMeasureCount(), endOfFurther) : 0;
    for (std::uint64_t measure = firstFurther; measure < end; ++measure) {
        const double value = getValue(measure, _obtainCell({0, group, 0}));
        const std::string& label = getMeasureLabel(measure);
        text += (text.empty() ? "" : "   ") + label + (label.empty() ? "" : " ") +
                (std::isnan(value) ? kxNoNumberText : _obtainFormat(measure).formatNumber(value));
    }
    return text;
}

std::string KXValueListChart::obtainPartText(std::uint64_t group, Part part)
{
    switch (part) {
    case Caption:
        return getShowCaption() ? obtainGroupName(group) : std::string();
    case Value: {
        const std::string text = obtainItemValueText({0, group, 0});
        return text.empty() ? kxNoNumberText : text;
    }
    case Further:
        return m_showFurther ? _obtainFurtherText(group) : std::string();
    }
    return {};
}

KXFigureChart::Text KXValueListChart::_obtainText(std::uint64_t group, std::size_t line)
{
    const Part part = _obtainPart(line);
    Text said{obtainPartText(group, part)};
    if (part == Value && obtainItemValue({0, group, 0}) < 0)
        said.color = m_negativeFontColor;
    return said;
}

/** Items are as high as their lines; what does not fit scrolls. */
KXFigureChart::Grid KXValueListChart::_arrangePanels(std::uint64_t count, const UXDoubleSize& natural,
                                                     const UXDoubleSize&, const UXDoubleSize& room) const
{
    const double across = (room.width + _obtainGap()) / (natural.width * usualWidthShare + _obtainGap());
    const double wanted = getColumnCount() > 0 ? getColumnCount() : std::max(across, 1.0);
    const double columns = std::min(wanted, static_cast<double>(count));
    return _makeGrid(static_cast<std::uint64_t>(columns), room.width, std::min(natural.height, room.height));
}

std::vector<KXPanelItem> KXValueListChart::_layoutItems(const UXRect& area)
{
    std::vector<KXPanelItem> items = KXFigureChart::_layoutItems(area);
    m_list.clear();
    m_list.setIsScrolled(getScrollView()->getVisible() && getScrollView()->getContentOffsetY() > 0);
    for (const KXPanelItem& item : items) {
        KXValueListBaseItem& added = m_list.addItem(
            {item.item.group, _obtainStyle(), item.shape.getBounds()});
        for (const PlacedText& text : getPlacedTexts()) {
            if (text.item != item.item)
                continue;
            if (_obtainPart(text.line) == Caption)
                added.setCaption(text.text);
            else if (_obtainPart(text.line) == Value)
                added.setValue(text.text);
        }
    }
    return items;
}

KXChartDataProviderHintData KXValueListChart::_describeItem(const KXChartItem& item)
{
    const UXObjectWatcher self(this);
    const std::string title = obtainGroupName(item.group);
    if (!self.isAlive())
        return {};
    const std::string further = _obtainFurtherText(item.group),
                      value = _tellPart(item, obtainPartText(item.group, Value));
    return further.empty() ? KXChartDataProviderHintData(title, value)
                           : KXChartDataProviderHintData(title, value, further);
}

void KXValueListChart::_paintUnderItems(UXPainter& painter) const
{
    if (m_showSeparators)
        m_list.paintSeparators(painter, _getGrid().distance.y - _getGrid().panel.height, m_separatorColor);
}
