#include "kx_tornado_chart.h"

#include "kx_axis_chart_property.h"
#include "kx_key_definitions.h"
#include "kx_tornado_chart_property.h"
#include "kx_value_change.h"
#include "ux/ux_object_watcher.h"

#include <cmath>
#include <utility>

KXTornadoChart::KXTornadoChart() : KXTornadoChart(std::make_unique<KXTornadoChartDataView>()) {}

KXTornadoChart::KXTornadoChart(std::unique_ptr<KXTornadoChartDataView> view)
    : KXDerivedBarChart(std::move(view)), m_tornadoProperty(std::make_unique<KXTornadoChartProperty>()),
      m_tornadoView(static_cast<KXTornadoChartDataView&>(*getDataViews().front()))
{
    getAxisChartProperty()->setOrientation(KXAxisChartOrientation::Horizontal);
    m_tornadoProperty->registerUpdatedEvents([this](const std::string& key) {
        _applyKeyEffect(KXTornadoChartProperty::obtainPropertyTable().obtainEffect(key));
    });
}

KXTornadoChart::~KXTornadoChart() { m_tornadoProperty->unregisterAllUpdatedEvents(); }

KXTornadoForm KXTornadoChart::obtainForm() const
{
    if (m_tornadoProperty->getStackStyle() == KXTornadoChartStackStyle::Difference)
        return KXTornadoForm::Difference;
    return m_tornadoProperty->getIsMirrored() ? KXTornadoForm::Mirrored : KXTornadoForm::FromCenter;
}

void KXTornadoChart::resetData()
{
    KXDerivedBarChart::resetData();
    m_tornadoView.takeRows({}, obtainForm(), m_tornadoProperty->getCenter());
}

KXAxisChartDrawnData KXTornadoChart::_deriveData()
{
    // 1. The sides: the first two measures, or the members of the only one.
    KXTornadoSource source;
    const std::uint64_t count = _getPulledSeriesCount();
    for (std::uint64_t i = 0; i < count && _getPulledMeasure(i) <= 1; ++i)
        source.series.emplace_back(_getPulledValues(i));
    const std::uint64_t shown = source.series.size();
    const bool hasTwoMeasures = shown > 0 && _getPulledMeasure(shown - 1) == 1;
    if (hasTwoMeasures)
        source.leftCount = static_cast<std::size_t>(shown / 2);
    else if (_isPulledDivided())
        source.leftCount = 1;

    m_tornadoView.setLabelsInGap(m_tornadoProperty->getLabelsInCenter());

    // 2. Their rows, in the order in which they are shown.
    KXTornadoRows rows = kxMakeTornadoRows(source, obtainForm(), m_tornadoProperty->getSortBySize());
    KXAxisChartDrawnData drawn;
    drawn.categories = rows.categories;
    for (std::uint64_t i = 0; i < shown; ++i) {
        KXAxisChartDrawnData::Series& series = drawn.series.emplace_back();
        series.label = _getPulledSeriesLabel(i);
        series.id = _getPulledSeriesID(i);
        series.values.reserve(rows.categories.size());
        for (const std::uint64_t category : rows.categories)
            series.values.push_back(_getPulledValues(i)[category]);
        // Only a bar that begins at zero has parts.
        if (hasHighlightedParts() && obtainForm() == KXTornadoForm::Mirrored)
            for (const std::uint64_t category : rows.categories)
                series.parts.push_back(_getPulledPart(i, category));
    }
    m_tornadoView.takeRows(std::move(rows), obtainForm(), m_tornadoProperty->getCenter());
    return drawn;
}

std::string KXTornadoChart::obtainValueText(std::uint64_t series, double value) const
{
    return obtainForm() != KXTornadoForm::Difference || std::isnan(value)
               ? KXDerivedBarChart::obtainValueText(series, value)
               : kxFormatSignedNumber(value, *getYDataFormat());
}

void KXTornadoChart::_customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups)
{
    const UXObjectWatcher self(this), sourceWatcher(source);
    KXDerivedBarChart::_customResetProperties(type, source, groups);
    const bool areThere = self.isAlive() && sourceWatcher.isAlive();
    if (const auto* other = areThere ? dynamic_cast<KXTornadoChart*>(source) : nullptr)
        m_tornadoProperty->customResetProperties(type, other->getTornadoChartProperty(), groups);
}

const UXPropertyTable& KXTornadoChart::obtainPropertyTable()
{
    using Self = KXTornadoChart;
    static constexpr UXProperty rows[] = {KX_OBJECT_ROW("m_tornadoChartProperty", uxObtainNestedObjectType,
                                                        m_tornadoProperty, "the two sides")};
    static const UXPropertyTable table("KXTornadoChart", &KXBarChart::obtainPropertyTable(),
                                       kxObtainKeyOwner<Self>, rows);
    return table;
}

std::string KXTornadoChart::customSerializeTypeID() { return "KXTornadoChart"; }
