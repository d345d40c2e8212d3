#include "data_binding_reader.h"

#include "date_level_name.h"
#include "host_error.h"
#include "json_cursor.h"
#include "json_document.h"
#include "number_text.h"
#include "text_file.h"

#include <cmath>
#include <optional>

namespace {

const std::vector<std::string> typeNames = {"text", "integer", "float", "date", "time", "datetime"};
const std::vector<std::string> aggregateNames = {"sum", "average", "count", "distinct", "min", "max"};
const std::vector<std::string> filterNames = {"equal",    "notEqual",       "less",     "lessOrEqual",
                                              "greater",  "greaterOrEqual", "in",       "notIn",
                                              "contains", "isNull",         "isNotNull"};

std::string describeMeasure(const MeasureBinding& measure)
{
    if (measure.column.empty())
        return "count";
    return aggregateNames[static_cast<std::size_t>(measure.aggregate)] + " of " + measure.column;
}

/** A count, or a width and where the bins begin. */
NumberBins readBins(const JsonCursor& place)
{
    place.requireKeys({"count", "width", "origin"});
    const auto readNumber = [&](const char* key) {
        const std::optional<double> number = obtainFloat(place.getValue(key).readTextOrNumber());
        if (!number || !std::isfinite(*number))
            throw place.getValue(key).makeError("a number is needed");
        return *number;
    };
    NumberBins bins;
    if (place.hasKey("count"))
        bins.count = place.getValue("count").readCount();
    else
        bins.width = readNumber("width");
    if (place.hasKey("origin"))
        bins.origin = readNumber("origin");
    const bool isCount = bins.count && *bins.count > 0 && *bins.count <= 1'000'000;
    if (!isCount && !(bins.width > 0))
        throw place.makeError("a count from 1 to 1000000 or a width above 0 is needed");
    return bins;
}

} // namespace

DataBindingReader::DataBindingReader(std::string file) : m_file(std::move(file)) {}

DataBinding DataBindingReader::readFile() const { return readText(readTextFile(m_file)); }

DataBinding DataBindingReader::readText(const std::string& text) const
{
    const nlohmann::json document = parseJsonDocument(m_file, text);
    return read(JsonCursor(m_file, document));
}

DataBinding DataBindingReader::read(const JsonCursor& root) const
{
    root.requireKeys({"schema", "table", "types", "dimensions", "measures", "filters", "nullText", "totals"});

    DataBinding binding;
    binding.name = m_file;
    if (root.hasKey("schema"))
        binding.schema = root.getValue("schema").readText();
    if (root.hasKey("table"))
        binding.table = root.getValue("table").readText();
    if (root.hasKey("nullText"))
        binding.nullText = root.getValue("nullText").readText();
    if (root.hasKey("totals"))
        binding.totals = root.getValue("totals").readFlag();
    if (root.hasKey("types"))
        _readTypes(root.getValue("types"), binding);
    root.getValue("measures").visitList([&](const JsonCursor& place) { _readMeasure(place, binding); });
    if (root.hasKey("dimensions"))
        root.getValue("dimensions").visitList([&](const JsonCursor& place) {
            _readDimension(place, binding);
        });
    if (root.hasKey("filters"))
        root.getValue("filters").visitList([&](const JsonCursor& place) { _readFilter(place, binding); });
    return binding;
}

void DataBindingReader::_readTypes(const JsonCursor& types, DataBinding& binding) const
{
    types.visitObject([&](const std::string& column, const JsonCursor& type) {
        binding.columnTypes[column] = static_cast<KXChartDataType>(type.readName(typeNames));
    });
}

void DataBindingReader::_readDimension(const JsonCursor& place, DataBinding& binding) const
{
    place.requireKeys({"column", "level", "label", "bins", "fillGaps", "across", "sort", "top"});
    DimensionBinding dimension;
    dimension.column = place.getValue("column").readText();
    dimension.label = place.hasKey("label") ? place.getValue("label").readText() : dimension.column;
    if (place.hasKey("level"))
        dimension.level = readDateLevel(place.getValue("level"));
    if (place.hasKey("fillGaps"))
        dimension.shouldFillGaps = place.getValue("fillGaps").readFlag();
    if (place.hasKey("across"))
        dimension.isAcross = place.getValue("across").readFlag();
    if (!dimension.isAcross && !binding.dimensions.empty() && binding.dimensions.back().isAcross)
        throw HostError(m_file, "dimensions", "those that are across come last");
    if (place.hasKey("sort")) {
        const JsonCursor sort = place.getValue("sort");
        sort.requireKeys({"measure", "descending"});
        if (sort.hasKey("measure"))
            dimension.order.measure = sort.getValue("measure").readCount();
        dimension.order.isDescending = sort.hasKey("descending") && sort.getValue("descending").readFlag();
    }
    if (place.hasKey("bins"))
        dimension.bins = readBins(place.getValue("bins"));
    if (place.hasKey("top"))
        _readTop(place.getValue("top"), dimension);
    binding.dimensions.push_back(std::move(dimension));
}

void DataBindingReader::_readTop(const JsonCursor& place, DimensionBinding& dimension) const
{
    place.requireKeys({"count", "measure", "bottom", "others"});
    TopMembers top;
    top.count = place.getValue("count").readCount();
    if (place.hasKey("measure"))
        top.measure = place.getValue("measure").readCount();
    top.isBottom = place.hasKey("bottom") && place.getValue("bottom").readFlag();
    if (place.hasKey("others"))
        top.othersLabel = place.getValue("others").readText();
    dimension.top = std::move(top);
}

void DataBindingReader::_readMeasure(const JsonCursor& place, DataBinding& binding) const
{
    place.requireKeys({"column", "aggregate", "label", "id"});
    MeasureBinding measure;
    measure.aggregate = static_cast<SqlAggregate>(place.getValue("aggregate").readName(aggregateNames));
    if (place.hasKey("column") || measure.aggregate != SqlAggregate::Count)
        measure.column = place.getValue("column").readText();
    measure.label = place.hasKey("label") ? place.getValue("label").readText() : describeMeasure(measure);
    if (place.hasKey("id"))
        measure.id = place.getValue("id").readText();
    binding.measures.push_back(std::move(measure));
}

void DataBindingReader::_readFilter(const JsonCursor& place, DataBinding& binding) const
{
    place.requireKeys({"column", "level", "is", "value"});
    FilterBinding filter;
    filter.column = place.getValue("column").readText();
    if (place.hasKey("is"))
        filter.operation = static_cast<FilterOperation>(place.getValue("is").readName(filterNames));
    const bool isNullTest = filter.operation == FilterOperation::IsNull ||
                            filter.operation == FilterOperation::IsNotNull;
    const bool isList = filter.operation == FilterOperation::In || filter.operation == FilterOperation::NotIn;
    if (isNullTest && place.hasKey("value"))
        throw place.makeError("a test for null takes no value");
    if (place.hasKey("level") && !isList)
        throw place.makeError("a level is for a list of members");
    if (place.hasKey("level"))
        filter.level = readDateLevel(place.getValue("level"));
    if (isList)
        filter.hasNull = place.getValue("value").readMembers(filter.values);
    else if (!isNullTest)
        filter.values.push_back(place.getValue("value").readTextOrNumber());
    if (isList && filter.values.empty() && !filter.hasNull)
        throw place.makeError("a value at least is needed");
    binding.filters.push_back(std::move(filter));
}
