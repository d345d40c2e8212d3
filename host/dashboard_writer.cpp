#include "dashboard_writer.h"

#include "dashboard_document.h"
#include "data_choice_json.h"
#include "ux/ux_named_enum_map.h"

namespace {

using Json = nlohmann::ordered_json;

Json writePart(const DashboardPart& part)
{
    return part.file.empty() ? Json::parse(part.text) : Json(part.file);
}

Json writeItem(const DashboardItem& item)
{
    Json written;
    written["chart"] = writePart(item.chart);
    written["binding"] = writePart(item.binding);
    if (!item.data.empty())
        written["data"] = item.data;
    written["column"] = item.cells.x;
    written["row"] = item.cells.y;
    written["width"] = item.cells.width;
    written["height"] = item.cells.height;
    if (item.clickFilters)
        written["clickFilters"] = true;
    if (item.effect == ChoiceEffect::Highlight)
        written["effect"] = "highlight";
    if (!item.isFiltered)
        written["isFiltered"] = false;
    if (!item.choice.empty())
        written["choice"] = writeDataChoice(item.choice);
    return written;
}

} // namespace

std::string writeDashboard(const DashboardDocument& document)
{
    Json written;
    written["type"] = "Dashboard";
    if (!document.title.empty())
        written["title"] = document.title;
    if (!document.data.empty())
        written["data"] = document.data;
    if (document.direction != UXDirection::AsParent)
        written["direction"] = uxObtainNamedEnumMap<UXDirection>().obtainName(document.direction);
    written["columns"] = document.columns;
    written["rows"] = document.rows;
    written["items"] = Json::array();
    for (const DashboardItem& item : document.items)
        written["items"].push_back(writeItem(item));
    // A member's text may be no UTF-8 where a database has it so.
    return written.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}
