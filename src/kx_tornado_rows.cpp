#include "kx_tornado_rows.h"

#include "kx_value_extremes.h"
#include "kx_value_statistics.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace {

constexpr double largest = (std::numeric_limits<double>::max)();
constexpr double none = std::numeric_limits<double>::quiet_NaN();

double saturate(double value) { return std::clamp(value, -largest, largest); }

/** The values of one row. */
class Row {
public:
    Row(const KXTornadoSource& source, std::size_t category)
    {
        for (std::size_t i = 0; i < source.series.size(); ++i)
            (i < source.leftCount ? m_left : m_right).push_back(source.series[i][category]);
    }

    bool isEmpty() const
    {
        const auto isNull = [](double value) { return std::isnan(value); };
        return std::ranges::all_of(m_left, isNull) && std::ranges::all_of(m_right, isNull);
    }
    /** @return by how much the right side is greater */
    double obtainDifference() const { return saturate(kxObtainSum(m_right) - kxObtainSum(m_left)); }
    double obtainMagnitude() const
    {
        double sum = 0;
        for (const std::vector<double>* side : {&m_left, &m_right})
            for (const double value : *side)
                sum += std::isnan(value) ? 0 : std::abs(value);
        return saturate(sum);
    }
    double obtainSpread() const
    {
        KXValueExtremes all = kxFindValueExtremes(m_left);
        all.take(kxFindValueExtremes(m_right));
        return saturate(all.max - all.min);
    }

private:
    std::vector<double> m_left, m_right;
};

double obtainSize(const Row& row, KXTornadoForm form)
{
    if (row.isEmpty())
        return -1;
    switch (form) {
    case KXTornadoForm::Mirrored:
        break;
    case KXTornadoForm::FromCenter:
        return row.obtainSpread();
    case KXTornadoForm::Difference:
        return std::abs(row.obtainDifference());
    }
    return row.obtainMagnitude();
}

std::vector<std::uint64_t> orderRows(const KXTornadoSource& source, KXTornadoForm form, std::size_t count,
                                     bool sorts)
{
    std::vector<std::uint64_t> order(count);
    std::iota(order.begin(), order.end(), std::uint64_t{0});
    if (!sorts)
        return order;
    std::vector<double> sizes;
    sizes.reserve(count);
    for (std::size_t category = 0; category < count; ++category)
        sizes.push_back(obtainSize(Row(source, category), form));
    std::ranges::stable_sort(order, std::ranges::greater(), [&](std::uint64_t category) {
        return sizes[static_cast<std::size_t>(category)];
    });
    return order;
}

} // namespace

KXTornadoRows kxMakeTornadoRows(const KXTornadoSource& source, KXTornadoForm form, bool sorts)
{
    const std::size_t count = source.series.empty() ? 0 : source.series.front().size();
    KXTornadoRows rows;
    rows.leftCount = std::min(source.leftCount, source.series.size());
    rows.categories = orderRows(source, form, count, sorts);
    rows.drawn.assign(source.series.size(), std::vector<double>(count, none));
    for (std::size_t place = 0; place < count; ++place) {
        const auto category = static_cast<std::size_t>(rows.categories[place]);
        if (form == KXTornadoForm::Difference) {
            const Row row(source, category);
            const double difference = row.obtainDifference();
            // In the colour of the greater side, or of the only one that there is.
            const std::size_t greater = difference < 0 || rows.leftCount == rows.drawn.size()
                                            ? 0
                                            : rows.leftCount;
            if (!row.isEmpty())
                rows.drawn[greater][place] = difference;
            continue;
        }
        for (std::size_t i = 0; i < source.series.size(); ++i) {
            const double value = source.series[i][category];
            const double side = i < rows.leftCount ? -1 : 1;
            rows.drawn[i][place] = form == KXTornadoForm::Mirrored ? side * std::abs(value) : value;
        }
    }
    return rows;
}
