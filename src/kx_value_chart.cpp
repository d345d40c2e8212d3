#include "kx_value_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_items.h"
#include "kx_chart_label.h"
#include "kx_chart_property.h"
#include "kx_drawing_layer.h"
#include "kx_font_fit.h"
#include "kx_highlighted_parts.h"
#include "kx_hint_text.h"
#include "kx_key_definitions.h"
#include "kx_value_chart_data_provider.h"
#include "ux/ux_event.h"
#include "ux/ux_layout_rounds.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"

#include <cmath>
#include <limits>

namespace {

constexpr KXChartItem valueItem{};
/** Of the line that tells a part, and what it takes of the value's room. */
constexpr int partHeight = static_cast<int>(KXHighlightedParts::lineHeight);
constexpr int leastHeightWithPart = 32; // a low one is all the value's
constexpr int partRoom = partHeight + static_cast<int>(KXHighlightedParts::lineGap);

} // namespace

KXValueChart::KXValueChart()
    : KXValueChartDataUser(this), UXPropertyAccessor(this), UXHintDelegate(this), KXChartDataAction(this),
      m_valueLabel(new KXChartLabel), m_partLayer(new KXDrawingLayer)
{
    addChild(m_valueLabel);
    addChild(m_partLayer);
    m_partLayer->setPaintFunction([this](UXPainter& painter, const UXRect&) {
        KXHighlightedParts::paintLine(
            painter, UXDoubleRect(m_partLayer->getDrawingRect()),
            KXHighlightedParts::obtainShare(getHighlightedPart(), getNumber()),
            m_valueLabel->obtainDrawnColor(m_valueLabel->getTextProperty().textColor,
                                           KXInteractionEffectTarget::NonFilled),
            obtainDimmedOpacity());
    });
    _makeItems(*this, *this, *this, *this);
    getItems()->followLabel(m_valueLabel, valueItem);
    UXTextProperty title = getChartProperty()->getTitleProperty();
    title.textColor = UXColor(120, 120, 120, 1.0);
    getChartProperty()->setTitleProperty(title);
}

KXValueChart::~KXValueChart() { _leaveView(); }

KXChartLabel* KXValueChart::getValueLabel() const { return m_valueLabel; }

void KXValueChart::_applyKeyEffect(UXPropertyEffect effect)
{
    if (effect == UXPropertyEffect::Recolor)
        _colorValueLabel();
    else
        KXChart::_applyKeyEffect(effect);
}

void KXValueChart::_colorValueLabel()
{
    UXTextProperty property = m_valueLabel->getTextProperty();
    property.textColor = _isNegativeNumber() ? m_negativeFontColor : m_fontColor;
    m_valueLabel->setTextProperty(property);
}

KXChartDataPath* KXValueChart::createDataPath() { return m_valueLabel->createDataPath(); }

void KXValueChart::afterReloadData()
{
    const UXObjectWatcher self(this);
    KXPanelChart::afterReloadData();
    if (!self.isAlive())
        return;
    const KXObjectID value =
        KXObjectID::instance().path(kxCreateObjectIDPath(KXChartObjectIDProperty::Value)).index(0);
    m_valueLabel->setIdentifier("ValueLabel");
    m_valueLabel->updateExtraOIDs({value});
    m_valueLabel->registerLeftClickAction(this, KXTriggerCondition());
    m_valueLabel->registerInteraction(this, {KXInteractionEventType::LeftClick}, value);
}

KXChartDataPath* KXValueChart::createItemPath(const KXChartItem&) { return m_valueLabel->createDataPath(); }

void KXValueChart::itemLooksChanged() {} // the label says so itself

KXChartLabel* KXValueChart::obtainItemLabel(const KXChartItem&) const { return m_valueLabel; }

std::vector<KXChartItem> KXValueChart::obtainItems() const
{
    return std::vector<KXChartItem>(m_valueLabel->getVisible() ? 1 : 0, valueItem);
}

std::vector<KXChartItem> KXValueChart::findItems(const KXChartDataPath& path)
{
    // What belongs to a member of a dimension is not this value, though it may stand in the same cell.
    const bool namesValue = path.valueIndexPath.empty() ? path.identifier == m_valueLabel->getIdentifier()
                                                        : path.valueIndexPath == KXIndexPath{0, 0};
    return namesValue && path.dimensionIndexPath.empty() ? obtainItems() : std::vector<KXChartItem>();
}

/** @return what the provider says about the value, or else its name and what the label shows */
UXHintInfo KXValueChart::obtainItemHint(const KXChartItem&)
{
    const KXChartDataProviderUse use(*this);
    auto* provider = use.as<KXValueChartDataProvider>();
    KXChartDataProviderHintData data;
    if (provider)
        data = provider->obtainHintData(this, {0, 0});
    if (provider && use.isCurrent() && data.isEmpty()) {
        data.value = m_valueLabel->getText();
        data.title = provider->obtainValueLabel(this, 0);
        if (use.isCurrent() && !std::isnan(getHighlightedPart()))
            data.value = KXHighlightedParts::tellPart(m_dataFormat->formatNumber(getHighlightedPart()),
                                                      data.value);
    }
    return kxMakeHintInfo(data, UXHintInfo());
}

void KXValueChart::_customLayout(UXRect plotArea)
{
    m_valueLabel->setVisible(getValueCount() == 1);
    m_partLayer->setVisible(getValueCount() == 1 && !std::isnan(getHighlightedPart()) &&
                            plotArea.height >= leastHeightWithPart);
    if (getValueCount() != 1)
        return;
    if (m_partLayer->getVisible())
        plotArea.height -= partRoom;

    const std::string text = _obtainValueText();
    m_valueLabel->setText(text);
    UXTextProperty property = m_valueLabel->getTextProperty();
    property.align = UXTextAlign::Center;
    property.textColor = _isNegativeNumber() ? m_negativeFontColor : m_fontColor;
    property.font.familyName = m_fontName;
    property.font.size = m_fontSize;
    const UXDoubleSize size = kxFitFont({&text, 1}, UXDoubleSize(plotArea.width, plotArea.height), property);
    m_valueLabel->setTextProperty(property);

    const int width = uxSaturateToInt(std::ceil(size.width));
    const int height = uxSaturateToInt(std::ceil(size.height));
    const std::int64_t room = std::int64_t{plotArea.width} - width;
    std::int64_t left = plotArea.x;
    if (m_mainLabelAlign == UXTextAlign::Right)
        left += room;
    else if (m_mainLabelAlign != UXTextAlign::Left)
        left += room / 2;
    m_valueLabel->setRect(uxMakeRect(uxSaturateToInt(left), plotArea.y, width, height));
    // It may reach over the plot area; a number that the chart's edge cuts would look like another one.
    m_valueLabel->keepTextInside(getBoundingRect());
    if (m_partLayer->getVisible()) {
        const UXRect& value = m_valueLabel->getRect();
        m_partLayer->setRect(getBoundingRect());
        m_partLayer->setDrawingRect(
            {value.x, value.getBottom() + partRoom - partHeight, value.width, partHeight});
    }
    UXLayoutRounds::postAction([this, self = UXObjectWatcher(this)] {
        if (self.isAlive())
            registerRightClickMenu(this, KXTriggerCondition());
    });
}

std::string KXValueChart::_obtainValueText() const
{
    switch (getDataType()) {
    case KXChartDataType::Integer:
    case KXChartDataType::Float:
        return _customLayout_Number();
    case KXChartDataType::Date:
    case KXChartDataType::Time:
    case KXChartDataType::DateTime:
        return _customLayout_DateTime();
    case KXChartDataType::String:
        break;
    }
    return _customLayout_String();
}

std::string KXValueChart::_customLayout_Number() const
{
    return getIsNull() ? getText() : m_dataFormat->formatNumber(getNumber());
}

std::string KXValueChart::_customLayout_DateTime() const
{
    return getIsNull() ? getText()
                       : m_dataFormat->formatDateTime(getText(), getDataType(), getAggregateType());
}

std::string KXValueChart::_customLayout_String() const { return getText(); }

bool KXValueChart::_isNegativeNumber() const
{
    const bool isNumber = getDataType() == KXChartDataType::Integer ||
                          getDataType() == KXChartDataType::Float;
    return isNumber && getNumber() < 0 && getNumber() > std::numeric_limits<double>::lowest();
}

KX_DEFINE_CHART_KEYS(KXValueChart, KX_VALUE_CHART_KEYS)

const UXPropertyTable& KXValueChart::obtainPropertyTable()
{
    using Self = KXValueChart;
    static constexpr UXProperty rows[] = {
        KX_OBJECT_ROW("m_valueLabel", uxObtainPartType, m_valueLabel, "the label that shows the value")
            KX_OBJECT_ROW("m_dataFormat", uxObtainNestedObjectType, m_dataFormat, "how the value is written")
                KX_VALUE_CHART_KEYS(KX_CHART_KEY_ROW)};
    static const UXPropertyTable table("KXValueChart", &KXChart::obtainPropertyTable(),
                                       kxObtainKeyOwner<Self>, rows);
    return table;
}

std::string KXValueChart::customSerializeTypeID() { return "KXValueChart"; }
