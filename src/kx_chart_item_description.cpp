#include "kx_chart_item_description.h"

#include "kx_chart.h"
#include "kx_chart_description.h"
#include "kx_chart_items.h"
#include "kx_chart_items_delegate.h"
#include "kx_chart_label.h"
#include "kx_sentence.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_hint_words.h"
#include "ux/ux_object_watcher.h"

#include <cmath>
#include <cstddef>
#include <string>
#include <utility>

namespace {

/** So many items are told one by one where they have no numbers, and so many series. */
constexpr std::uint64_t greatestToldCount = 6;

/** The numbers of a series while one goes over them. */
class SeriesSum {
public:
    void add(const KXChartItem& item, double number)
    {
        if (std::isnan(number))
            return;
        m_first = m_count == 0 ? item : m_first;
        m_last = item;
        if (m_count == 0 || number < m_leastNumber) {
            m_least = item;
            m_leastNumber = number;
        }
        if (m_count == 0 || number > m_greatestNumber) {
            m_greatest = item;
            m_greatestNumber = number;
        }
        // The way of Welford, which stays exact for numbers that lie close together far from 0.
        ++m_count;
        const double place = static_cast<double>(m_count), fromPlace = place - m_meanPlace;
        m_meanPlace += fromPlace / place;
        const double fromMean = number - m_mean;
        m_mean += fromMean / place;
        m_together += fromPlace * (number - m_mean);
        m_placeSpread += fromPlace * (place - m_meanPlace);
        m_spread += fromMean * (number - m_mean);
    }

    std::uint64_t getCount() const { return m_count; }
    const KXChartItem& getFirst() const { return m_first; }
    const KXChartItem& getLast() const { return m_last; }
    const KXChartItem& getLeast() const { return m_least; }
    const KXChartItem& getGreatest() const { return m_greatest; }

    double obtainCorrelation() const
    {
        const double spread = std::sqrt(m_placeSpread) * std::sqrt(m_spread);
        return spread > 0 && std::isfinite(spread) ? m_together / spread : 0;
    }

private:
    std::uint64_t m_count = 0;
    KXChartItem m_first, m_last, m_least, m_greatest;
    double m_leastNumber = 0, m_greatestNumber = 0;
    double m_mean = 0, m_meanPlace = 0, m_together = 0, m_spread = 0, m_placeSpread = 0;
};

/** Puts what the items tell into words. Each answer may destroy the chart. */
class ItemsTeller {
public:
    ItemsTeller(KXChart& chart, KXChartItemsDelegate& delegate, KXChartDescription& description)
        : m_chart(&chart), m_items(*chart.getItems()), m_delegate(delegate), m_description(description)
    {
    }

    void tell()
    {
        const std::uint64_t rows = m_delegate.obtainItemRowCount();
        const std::vector<KXChartItem> items = rows == 0 ? m_delegate.obtainItems()
                                                         : std::vector<KXChartItem>();
        const bool isTable = kxHasItemTable(m_delegate);
        m_description.seriesCount = isTable ? 0 : rows;
        const bool tellsEach = !isTable && rows <= greatestToldCount;
        SeriesSum sum;
        for (const KXChartItem& item : items)
            sum.add(item, m_delegate.obtainItemValue(item));
        for (std::uint64_t row = 0; row < rows && m_chart.isAlive(); ++row) {
            for (std::uint64_t place = 0; place < m_delegate.obtainItemRowLength(row); ++place) {
                const KXChartItem item = m_delegate.obtainItemInRow(row, place);
                const bool isCell = !isTable || item.kind == 0;
                sum.add(item, isCell ? m_delegate.obtainItemValue(item) : std::nan(""));
            }
            if (tellsEach) {
                _addSeries(sum, rows > 1 ? m_delegate.obtainItemRowName(row) : std::string());
                sum = {};
            }
        }
        if (m_chart.isAlive())
            _addSeries(sum, {});
        if (m_chart.isAlive() && m_description.series.empty() && isTable)
            m_description.values.push_back(
                kxWriteSentence("%1 rows, %2 columns", {std::to_string(rows - 1),
                                                        std::to_string(m_delegate.obtainItemRowLength(0))}));
        if (m_chart.isAlive() && m_description.series.empty() && items.size() <= greatestToldCount)
            for (std::size_t i = 0; i < items.size() && m_chart.isAlive(); ++i)
                _addValue(items[i]);
    }

private:
    void _addSeries(const SeriesSum& sum, const std::string& name)
    {
        if (sum.getCount() == 0 || !m_chart.isAlive())
            return;
        KXChartDescription::Series series;
        series.name = name;
        series.count = sum.getCount();
        series.correlation = sum.obtainCorrelation();
        series.least = _makeValue(sum.getLeast());
        series.greatest = _makeValue(sum.getGreatest());
        series.first = _makeValue(sum.getFirst());
        series.last = _makeValue(sum.getLast());
        m_description.series.push_back(std::move(series));
    }

    std::optional<KXChartDescription::Value> _makeValue(const KXChartItem& item)
    {
        if (!m_chart.isAlive())
            return std::nullopt;
        KXChartDescription::Value value{
            m_delegate.obtainItemValue(item), m_delegate.obtainItemValueText(item), {}};
        const UXHintInfo hint = m_items.obtainHint(item);
        value.name = hint.enabled ? hint.title : std::string();
        return value;
    }

    void _addValue(const KXChartItem& item)
    {
        const UXHintInfo hint = m_items.obtainHint(item);
        if (!m_chart.isAlive())
            return;
        const KXChartLabel* label = m_delegate.obtainItemLabel(item);
        std::string words = uxWriteHint(hint);
        if (words.empty() && label)
            words = label->getText();
        if (!words.empty())
            m_description.values.push_back(std::move(words));
    }

    UXObjectWatcher m_chart;
    KXChartItems& m_items;
    KXChartItemsDelegate& m_delegate;
    KXChartDescription& m_description;
};

} // namespace

bool kxHasItemTable(const KXChartItemsDelegate& delegate)
{
    return delegate.obtainItemRowCount() > 0 && delegate.obtainItemRowLength(0) > 0 &&
           delegate.obtainItemRole(delegate.obtainItemInRow(0, 0)) != UXAccessibleRole::Mark;
}

void kxDescribeItems(KXChart& chart, KXChartDescription& description)
{
    auto* delegate = dynamic_cast<KXChartItemsDelegate*>(&chart);
    if (delegate && chart.getItems() && description.values.empty())
        ItemsTeller(chart, *delegate, description).tell();
}
