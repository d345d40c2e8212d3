#include "web_item.h"

#include "ux/json/ux_json_text.h"

namespace {

UXJsonValue makeList(const KXIndexPath& path)
{
    UXJsonValue list = UXJsonValue::makeArray();
    for (const std::uint64_t index : path)
        list.append(UXJsonValue::makeInteger(static_cast<std::int64_t>(index)));
    return list;
}

} // namespace

std::string WebItem::obtainMessage(const std::string& event) const
{
    UXJsonValue message = UXJsonValue::makeObject();
    message.append("event", UXJsonValue::makeString(event));
    message.append("chart", UXJsonValue::makeInteger(chart));
    message.append("identifier", UXJsonValue::makeString(path.identifier));
    message.append("dimension", makeList(path.dimensionIndexPath));
    message.append("value", makeList(path.valueIndexPath));
    return uxFormatJson(message);
}
