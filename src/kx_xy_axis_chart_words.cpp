#include "kx_xy_axis_chart.h"

#include "kx_axis.h"
#include "kx_axis_chart_axis.h"
#include "kx_axis_scale.h"
#include "kx_category_places.h"
#include "kx_chart_data_format.h"
#include "kx_chart_description.h"
#include "ux/ux_object_watcher.h"

// What is on which axis, in words.

void KXXYAxisChart::describe(KXChartDescription& description)
{
    const UXObjectWatcher self(this);
    KXAxisChart::describe(description);
    if (!self.isAlive() || getShownSeries().empty() || obtainShownCategoryCount() == 0)
        return;
    description.isOrdered = m_isContinuous || m_x.cache.isTemporalDimension || m_x.cache.isNumberDimension;
    for (const KXAxisChartAxis* axis : {&m_x, &m_y, &m_secondaryY}) {
        if (!axis->isUsed)
            continue;
        KXChartDescription::Axis told;
        told.isHorizontal = axis->isHorizontal();
        told.name = axis->obtainTitleText();
        told.place = translateRect(axis->axis->getBoundingRect(), axis->axis, this);
        if (axis == &m_x && !hasOwnNumbers())
            _describeCategories(told);
        else
            _describeRange(*axis, told);
        if (!self.isAlive())
            return;
        description.axes.push_back(told);
    }
}

void KXXYAxisChart::_describeCategories(KXChartDescription::Axis& told)
{
    const std::uint64_t count = m_places.isEmpty() ? obtainShownCategoryCount() : m_places.getCount();
    if (count == 0)
        return;
    const UXObjectWatcher self(this);
    const auto obtainCategory = [this](std::uint64_t place) {
        return m_places.isEmpty() ? place : m_places.obtainCategory(place);
    };
    told.memberCount = count;
    told.first = obtainCategoryLabel(obtainCategory(0));
    if (self.isAlive())
        told.last = obtainCategoryLabel(obtainCategory(count - 1));
}

void KXXYAxisChart::_describeRange(const KXAxisChartAxis& axis, KXChartDescription::Axis& told) const
{
    const auto write = [&](double counted) {
        const double value = axis.cache.isLogarithmic ? kxObtainValueOfExponent(counted) : counted;
        return isPercentageAxis(*axis.property) ? kxFormatPercentage(value)
                                                : axis.dataFormat->formatNumber(value);
    };
    const double last = axis.cache.axisMax;
    told.first = axis.cache.isMirrored ? write(last) : write(axis.cache.axisMin);
    told.last = write(last);
}
