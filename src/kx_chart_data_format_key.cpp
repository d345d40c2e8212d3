#include "kx_chart_data_format_key.h"

#include "kx_key_record_type.h"

bool operator==(const KXChartDataFormat& a, const KXChartDataFormat& b) { return kxEqualRecords(a, b); }

const UXPropertyType& KXKeyTypeOf<KXChartDataFormat>::obtain()
{
    static constexpr UXPropertyType type = kxMakeRecordKeyType<KXChartDataFormat>("KXChartDataFormat");
    return type;
}
