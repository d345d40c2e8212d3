#include "kx_legend.h"

#include "kx_key_json.h"
#include "kx_legend_delegate.h"
#include "ux/ux_layout_helper.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>
#include <cmath>
#include <memory>

// type and member, which is its JSON key, in the document's order after m_scrollView
#define KX_LEGEND_KEYS(KEY)                          \
    KEY(double, m_calculatedTextHeight)              \
    KEY(double, m_calculatedCellHeight)              \
    KEY(double, m_calculatedSymbolTop)               \
    KEY(std::vector<double>, m_calculatedCellWidths) \
    KEY(double, m_calculatedMaxCellWidth)            \
    KEY(int, m_cellCount)                            \
    KEY(std::vector<bool>, m_cellVisibles)           \
    KEY(std::vector<int>, m_cellIndexList)           \
    KEY(std::vector<UXColor>, m_colorSeries)         \
    KEY(UXTextProperty, m_textProperty)              \
    KEY(UXArrangement, m_arrangement)                \
    KEY(UXPosition, m_horizontalAlign)               \
    KEY(UXPosition, m_verticalAlign)                 \
    KEY(double, m_columnSpacing)                     \
    KEY(double, m_rowSpacing)                        \
    KEY(double, m_symbolWidth)                       \
    KEY(double, m_symbolHeight)                      \
    KEY(UXSymbolStyle, m_symbolStyle)                \
    KEY(double, m_labelIndent)                       \
    KEY(bool, m_showHint)

namespace {

/** The sample that stands for the height of any label: an ascender and a descender. */
constexpr const char* heightSample = "Wp";
/** A cell is this much higher than its text. */
constexpr double lineSpread = 1.2;

} // namespace

KXLegend::KXLegend() : KXInteraction(this), m_scrollView(new UXVirtualScrollView)
{
    m_textProperty.font.size = 13;
    m_textProperty.textColor = UXColor(120, 120, 120, 1.0);
    addChild(m_scrollView);
}

KXLegend::~KXLegend() = default;

void KXLegend::setDelegate(KXLegendDelegate* delegate)
{
    if (m_delegate == delegate)
        return;
    m_delegate = delegate;
    markDataUpdated();
    markCellVisibleUpdated();
}

void KXLegend::setColorSeries(const std::vector<UXColor>& colors)
{
    if (m_colorSeries == colors)
        return;
    m_colorSeries = colors;
    invalidate();
}

void KXLegend::setArrangement(UXArrangement arrangement)
{
    if (m_arrangement == arrangement)
        return;
    m_arrangement = arrangement;
    requireLayout();
}

UXArrangement KXLegend::getArrangement() const { return m_arrangement; }

void KXLegend::setHorizontalAlign(UXPosition align)
{
    if (m_horizontalAlign == align)
        return;
    m_horizontalAlign = align;
    requireLayout();
}

void KXLegend::setVerticalAlign(UXPosition align)
{
    if (m_verticalAlign == align)
        return;
    m_verticalAlign = align;
    requireLayout();
}

void KXLegend::setTextProperty(const UXTextProperty& property)
{
    if (!(m_textProperty != property))
        return;
    m_textProperty = property;
    markDataUpdated();
    markCellVisibleUpdated();
}

UXTextProperty KXLegend::getTextProperty() const { return m_textProperty; }

void KXLegend::setLabelColor(const UXColor& color)
{
    // A colour changes no measure, so the cells keep theirs.
    if (m_textProperty.textColor == color)
        return;
    m_textProperty.textColor = color;
    invalidate();
}

void KXLegend::setShowHint(bool show) { m_showHint = show; }
bool KXLegend::getShowHint() const { return m_showHint; }
void KXLegend::enableCellClick() { m_cellClickEnabled = true; }
void KXLegend::disableCellClick() { m_cellClickEnabled = false; }

void KXLegend::markDataUpdated()
{
    m_dataUpdated = true;
    requireLayout();
}

void KXLegend::markCellVisibleUpdated()
{
    m_cellVisibleUpdated = true;
    requireLayout();
}

void KXLegend::updateLegendColor() { invalidate(); }

double KXLegend::obtainLegendHeight()
{
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    const double textHeight = helper->getTextSize(heightSample, m_textProperty).height;
    return std::max(m_symbolHeight, lineSpread * textHeight) + m_rowSpacing +
           UXVirtualScrollView::extraExtent;
}

double KXLegend::obtainLegendWidth()
{
    _updateCellCache();
    return m_calculatedMaxCellWidth + UXVirtualScrollView::extraExtent + 2 * m_margin;
}

UXColor KXLegend::obtainLegendCellColor(std::uint64_t index) const
{
    UXColor color;
    if (m_delegate && m_delegate->obtainLegendSymbolColor(index, color))
        return color;
    return m_colorSeries.empty() ? UXColor() : m_colorSeries[index % m_colorSeries.size()];
}

void KXLegend::_updateCellCache()
{
    if (!m_delegate) {
        m_calculatedMaxCellWidth = 0;
        return;
    }
    if (m_dataUpdated)
        _measureCells();
    if (m_cellVisibleUpdated)
        _collectShownCells();
}

void KXLegend::_measureCells()
{
    m_cellCount = uxSaturateToInt(m_delegate->obtainLegendCellSize());
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    m_calculatedTextHeight = helper->getTextSize(heightSample, m_textProperty).height;
    m_calculatedCellHeight = std::max(m_symbolHeight, lineSpread * m_calculatedTextHeight);
    // The symbol is centred on the text itself, not on the spread cell.
    m_calculatedSymbolTop = std::floor((std::max(m_symbolHeight, m_calculatedTextHeight) - m_symbolHeight) /
                                       2);

    m_calculatedCellWidths.clear();
    m_cellObjectIDs.clear();
    for (int i = 0; i < m_cellCount; ++i) {
        const auto index = static_cast<std::uint64_t>(i);
        const double labelWidth =
            helper->getTextSize(m_delegate->obtainLegendLabel(index), m_textProperty).width;
        m_calculatedCellWidths.push_back(
            std::min(m_symbolWidth + m_labelIndent + labelWidth, m_maxCellWidth));
        m_cellObjectIDs.push_back(m_delegate->obtainLegendCellObjectID(index));
    }
    // Until the shown cells are looked up again, those past a smaller count are skipped.
    std::erase_if(m_cellIndexList, [this](int index) { return index >= m_cellCount; });
    m_dataUpdated = false;
}

void KXLegend::_collectShownCells()
{
    m_calculatedMaxCellWidth = 0;
    m_cellVisibles.clear();
    m_cellIndexList.clear();
    for (int i = 0; i < m_cellCount; ++i) {
        const auto index = static_cast<std::size_t>(i);
        m_cellVisibles.push_back(m_delegate->obtainLegendShouldShowCell(index));
        if (!m_cellVisibles.back() || index >= m_calculatedCellWidths.size())
            continue;
        m_cellIndexList.push_back(i);
        m_calculatedMaxCellWidth = std::max(m_calculatedMaxCellWidth, m_calculatedCellWidths[index]);
    }
    m_cellVisibleUpdated = false;
}

void KXLegend::customLayout()
{
    if (!m_delegate)
        return;
    _updateCellCache();
    const UXRect area = getContentRect();
    m_scrollView->setRect(m_arrangement == UXArrangement::Row ? _arrangeRow(area) : _arrangeColumn(area));
    for (UXObject* child : getChildren())
        child->layout();
}

UXRect KXLegend::_arrangeRow(UXRect area)
{
    double rowWidth = 2 * m_margin;
    for (const int index : m_cellIndexList)
        rowWidth += m_calculatedCellWidths[static_cast<std::size_t>(index)];
    if (!m_cellIndexList.empty())
        rowWidth += m_columnSpacing * static_cast<double>(m_cellIndexList.size() - 1);

    const double room = area.width - rowWidth;
    const int width = uxSaturateToInt(std::floor(rowWidth));
    if (room > 0) {
        if (m_horizontalAlign == UXPosition::Right)
            area.x += uxSaturateToInt(std::floor(room));
        else if (m_horizontalAlign == UXPosition::Center)
            area.x += uxSaturateToInt(std::floor(room / 2));
        area.width = width;
    }
    m_scrollView->setContentWidth(width);
    m_scrollView->setContentHeight(area.height);
    return area;
}

int KXLegend::_obtainRowPitch() const
{
    return uxSaturateToInt(std::floor(m_rowSpacing + m_calculatedCellHeight));
}

UXRect KXLegend::_arrangeColumn(UXRect area)
{
    const auto shown = static_cast<std::int64_t>(m_cellIndexList.size());
    std::int64_t height = _obtainRowPitch() * shown + 2 * m_margin;
    if (shown > 0)
        height -= uxSaturateToInt(std::floor(m_rowSpacing));

    const std::int64_t room = area.height - height;
    if (room > 0) {
        if (m_verticalAlign == UXPosition::Center)
            area.y += uxSaturateToInt(room / 2);
        else if (m_verticalAlign == UXPosition::Bottom)
            area.y += uxSaturateToInt(room);
        area.height = uxSaturateToInt(height);
    }
    m_scrollView->setContentWidth(area.width);
    m_scrollView->setContentHeight(height);
    return area;
}

void KXLegend::customSerialize()
{
    UXObject::customSerialize();
    serializeObjectWeakRef("m_scrollView", m_scrollView);
#define KX_LEGEND_WRITE(Type, member) KXKeyJson<Type>::write(this, #member, member);
    KX_LEGEND_KEYS(KX_LEGEND_WRITE)
#undef KX_LEGEND_WRITE
}

std::string KXLegend::customSerializeTypeID() { return "KXLegend"; }

bool KXLegend::customDeserialize()
{
    bool complete = UXObject::customDeserialize();
    complete = deserializeObjectWeakRef("m_scrollView",
                                        [this](UXJsonObject* found) {
                                            auto* view = dynamic_cast<UXVirtualScrollView*>(found);
                                            if (view && view->getParent() == this)
                                                m_scrollView = view;
                                            return view != nullptr;
                                        }) &&
               complete;
#define KX_LEGEND_READ(Type, member) complete = KXKeyJson<Type>::read(this, #member, member) && complete;
    KX_LEGEND_KEYS(KX_LEGEND_READ)
#undef KX_LEGEND_READ
    // The measures of the document are those of another moment and another machine's fonts.
    markDataUpdated();
    markCellVisibleUpdated();
    return complete;
}
