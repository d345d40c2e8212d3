#include "kx_table_databar_info.h"

#include "kx_key_definitions.h"
#include "kx_key_record_type.h"

#include <algorithm>
#include <cmath>
#include <utility>

KX_DEFINE_KEYS(KXTableDatabarInfo, KXChartPropertyBase, KX_TABLE_DATABAR_INFO_KEYS)

KXTableDatabarInfo::KXTableDatabarInfo() = default;
KXTableDatabarInfo::KXTableDatabarInfo(const KXTableDatabarInfo&) = default;
KXTableDatabarInfo& KXTableDatabarInfo::operator=(const KXTableDatabarInfo&) = default;
KXTableDatabarInfo::~KXTableDatabarInfo() = default;

bool operator==(const KXTableDatabarInfo& a, const KXTableDatabarInfo& b) { return kxEqualRecords(a, b); }

const UXPropertyType& KXKeyTypeOf<KXTableDatabarInfo>::obtain()
{
    static constexpr UXPropertyType type = kxMakeRecordKeyType<KXTableDatabarInfo>("KXTableDatabarInfo");
    return type;
}

KXTableDatabarInfo::Bar KXTableDatabarInfo::obtainBar(double value, double least, double greatest) const
{
    // 1. The range holds zero unless the user has given another one.
    const double low = m_hasRange ? m_minimum : std::min(least, 0.0);
    const double high = m_hasRange ? m_maximum : std::max(greatest, 0.0);
    const double length = high - low;
    if (m_style == KXTableDatabarStyle::None || !std::isfinite(value) || !std::isfinite(length) ||
        !(length > 0))
        return {};

    // 2. A bar goes from zero, or from the end next to it, to the value as far as the range reaches.
    const auto obtainShare = [&](double number) { return (std::clamp(number, low, high) - low) / length; };
    Bar bar{obtainShare(0), obtainShare(value), value < 0};
    if (bar.from > bar.to)
        std::swap(bar.from, bar.to);
    if (m_style == KXTableDatabarStyle::RightToLeft)
        bar = {1 - bar.to, 1 - bar.from, bar.isNegative};
    return bar;
}
