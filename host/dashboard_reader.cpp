#include "dashboard_reader.h"

#include "data_choice_json.h"
#include "host_error.h"
#include "json_cursor.h"
#include "json_document.h"
#include "text_file.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <utility>

namespace {

constexpr const char* typeName = "Dashboard";

int readCells(const JsonCursor& place, const char* key, std::uint64_t least)
{
    constexpr auto most = static_cast<std::uint64_t>(DashboardDocument::mostCells);
    const JsonCursor value = place.getValue(key);
    const std::uint64_t count = value.readCount();
    if (count < least || count > most)
        throw value.makeError("has to be between " + std::to_string(least) + " and " + std::to_string(most));
    return static_cast<int>(count);
}

/** @param written the same item as its author wrote it */
DashboardPart readPart(const JsonCursor& place, const nlohmann::ordered_json& written, const char* key)
{
    const JsonCursor value = place.getValue(key);
    if (value.isObject())
        return {"", written.at(key).dump()};
    DashboardPart part{value.readText(), ""};
    if (part.file.empty())
        throw value.makeError("a file or an object is needed here");
    return part;
}

UXRect readCells(const JsonCursor& place, const DashboardDocument& document)
{
    const UXRect cells(readCells(place, "column", 0), readCells(place, "row", 0),
                       readCells(place, "width", 1), readCells(place, "height", 1));
    if (uxMaxX(cells) > document.columns || uxMaxY(cells) > document.rows)
        throw place.makeError("lies outside of " + std::to_string(document.columns) + " columns and " +
                              std::to_string(document.rows) + " rows");
    for (std::size_t i = 0; i < document.items.size(); ++i) {
        if (uxIntersectsRect(document.items[i].cells, cells))
            throw place.makeError("lies over items[" + std::to_string(i) + ']');
    }
    return cells;
}

UXDirection readDirection(const JsonCursor& place)
{
    return static_cast<UXDirection>(place.readName({"AsParent", "LeftToRight", "RightToLeft"}));
}

} // namespace

DashboardReader::DashboardReader(std::string file) : m_file(std::move(file)) {}

bool DashboardReader::isDashboard() const
{
    const nlohmann::json parsed = parseJsonDocument(m_file, readTextFile(m_file));
    const auto type = parsed.find("type");
    return type != parsed.end() && *type == typeName;
}

DashboardDocument DashboardReader::readFile() const { return readText(readTextFile(m_file)); }

DashboardDocument DashboardReader::readText(const std::string& text) const
{
    const nlohmann::json parsed = parseJsonDocument(m_file, text);
    const JsonCursor root(m_file, parsed);
    root.requireKeys({"type", "title", "data", "direction", "columns", "rows", "items"});
    root.getValue("type").readName({typeName});

    DashboardDocument document;
    document.name = m_file;
    if (root.hasKey("title"))
        document.title = root.getValue("title").readText();
    if (root.hasKey("data"))
        document.data = root.getValue("data").readText();
    if (root.hasKey("direction"))
        document.direction = readDirection(root.getValue("direction"));
    if (root.hasKey("columns"))
        document.columns = readCells(root, "columns", 1);
    if (root.hasKey("rows"))
        document.rows = readCells(root, "rows", 1);
    // Inside of the document keys stand in their author's order, which saving keeps.
    const nlohmann::ordered_json written = nlohmann::ordered_json::parse(text);
    root.getValue("items").visitList([&](const JsonCursor& place) {
        _readItem(place, written.at("items").at(document.items.size()), document);
    });
    return document;
}

void DashboardReader::_readItem(const JsonCursor& place, const nlohmann::ordered_json& written,
                                DashboardDocument& document) const
{
    place.requireKeys({"chart", "binding", "data", "column", "row", "width", "height", "clickFilters",
                       "effect", "isFiltered", "choice"});
    DashboardItem item;
    item.chart = readPart(place, written, "chart");
    item.binding = readPart(place, written, "binding");
    if (place.hasKey("data"))
        item.data = place.getValue("data").readText();
    if (item.data.empty() && document.data.empty())
        throw place.makeError("neither this nor the dashboard names its data");
    item.cells = readCells(place, document);
    item.clickFilters = place.hasKey("clickFilters") && place.getValue("clickFilters").readFlag();
    if (place.hasKey("effect"))
        item.effect = static_cast<ChoiceEffect>(place.getValue("effect").readName({"filter", "highlight"}));
    item.isFiltered = !place.hasKey("isFiltered") || place.getValue("isFiltered").readFlag();
    if (place.hasKey("choice"))
        item.choice = readDataChoice(place.getValue("choice"));
    document.items.push_back(std::move(item));
}
