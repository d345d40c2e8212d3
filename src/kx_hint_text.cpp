#include "kx_hint_text.h"

UXHintInfo kxMakeHintInfo(const KXChartDataProviderHintData& data, const UXHintInfo& look)
{
    UXHintInfo info = look;
    info.title = data.title;
    info.text = data.subtitle.empty() ? data.value : data.subtitle;
    info.clearRows();
    if (!data.subtitle.empty())
        info.addRow("", data.value);
    info.enabled = look.enabled && !data.isEmpty();
    return info;
}
