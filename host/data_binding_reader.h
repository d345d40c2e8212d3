#pragma once

#include <string>

#include "data_binding.h"

class JsonCursor;

/** Reads a binding from JSON:
 *  {
 *    "schema": "sales",
 *    "table": "data",
 *    "types": {"date": "date"},
 *    "dimensions": [{"column": "date", "level": "month", "label": "Month", "fillGaps": true,
 *                    "sort": {"measure": 0, "descending": true},
 *                    "top": {"count": 5, "measure": 0, "bottom": false, "others": "Others"}}],
 *    "measures": [{"column": "temp_max", "aggregate": "average", "label": "Mean high", "id": "high"}],
 *    "filters": [{"column": "weather", "is": "in", "value": ["rain", "snow", null]}],
 *    "nullText": "(null)",
 *    "totals": true
 *  }
 *  Only "measures" and the "column" and "aggregate" in them and the "column" in dimensions and filters are
 * needed. A CSV file has no schema. Types are guessed or the database's where none is given: text, integer,
 * float, date, time, datetime. Levels: year, quarter, month, week, day, hour, minute, second, dayOfWeek,
 * hourOfDay.
 * Aggregates: sum, average, count (column optional), distinct, min, max. Filters: equal (where "is" is
 * missing), notEqual, less, lessOrEqual, greater, greaterOrEqual, in, notIn, contains, isNull, isNotNull. */
class DataBindingReader {
public:
    /** @param file what errors call the text */
    explicit DataBindingReader(std::string file);

    /** @return the binding in the file; throws HostError for what cannot be read or is not understood */
    DataBinding readFile() const;
    DataBinding readText(const std::string& text) const;
    /** @param root the binding inside of another document */
    DataBinding read(const JsonCursor& root) const;

private:
    void _readTypes(const JsonCursor& types, DataBinding& binding) const;
    void _readDimension(const JsonCursor& place, DataBinding& binding) const;
    void _readTop(const JsonCursor& place, DimensionBinding& dimension) const;
    void _readMeasure(const JsonCursor& place, DataBinding& binding) const;
    void _readFilter(const JsonCursor& place, DataBinding& binding) const;

    std::string m_file;
};
