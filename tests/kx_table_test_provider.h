#pragma once

#include "kx_table_chart_data_provider.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

/** A table that is worked out when it is asked for: groupCount groups of memberCount members down, or one
 * level of memberCount members without groups, columnCount members across, or none. The cell of member m of
 * group g in column c is 100 g + 10 m + c; a total is the sum. */
class KXTableTestProvider : public KXTableChartDataProvider {
public:
    std::uint64_t groupCount = 2, memberCount = 3, columnCount = 2, measureCount = 1;
    bool hasTotals = true;
    bool isReady = true;                                                   // off: "not yet"
    std::function<std::optional<KXTableCell>(const KXTablePlace&)> answer; // in place of the sum
    std::uint64_t askedCells = 0, askedHeaders = 0, askedBlocks = 0;
    std::vector<KXTableSort> order;
    std::string copiedText, copiedHtml;
    std::optional<KXTablePlace> found;

    void beginPrepareData(KXChartDataUser*) override {}
    void endPrepareData(KXChartDataUser*) override {}
    bool obtainDataIsEmpty(KXChartDataUser*) override { return false; }
    std::string obtainDimensionName(KXChartDataUser*, std::uint64_t dimension) override
    {
        return "d" + std::to_string(dimension);
    }
    std::string obtainDimensionLabel(KXChartDataUser*, std::uint64_t dimension) override
    {
        return "D" + std::to_string(dimension);
    }
    std::uint64_t obtainValueCount(KXChartDataUser*) override { return measureCount; }
    std::string obtainValueLabel(KXChartDataUser*, std::uint64_t value) override
    {
        return "M" + std::to_string(value);
    }
    std::string obtainValueID(KXChartDataUser*, std::uint64_t value) override
    {
        return "m" + std::to_string(value);
    }
    KXChartDataType obtainValueDataType(KXChartDataUser*, const KXIndexPath&) override
    {
        return KXChartDataType::Float;
    }

    std::uint64_t obtainRowDimensionCount(KXChartDataUser*) override { return groupCount > 0 ? 2 : 1; }
    std::uint64_t obtainColumnDimensionCount(KXChartDataUser*) override { return columnCount > 0 ? 1 : 0; }
    std::uint64_t obtainHeaderCount(KXChartDataUser*, bool isRow, const KXIndexPath& path) override
    {
        return !isRow ? columnCount : path.empty() && groupCount > 0 ? groupCount : memberCount;
    }
    bool obtainHeaders(KXChartDataUser*, bool isRow, const KXIndexPath& path, std::uint64_t first,
                       std::span<KXTableHeader> headers) override
    {
        askedHeaders += headers.size();
        const bool isGroup = isRow && groupCount > 0 && path.empty();
        for (std::size_t i = 0; i < headers.size(); ++i) {
            headers[i].text = (isGroup ? "g" : isRow ? "r" : "c") + std::to_string(first + i);
            headers[i].hasChildren = isGroup;
        }
        return isReady;
    }
    bool obtainCells(KXChartDataUser*, const KXIndexPath& rowParent, std::uint64_t firstRow,
                     const KXIndexPath& columnParent, std::uint64_t firstColumn, std::uint64_t measure,
                     const KXTableCellSpan& cells) override
    {
        ++askedBlocks;
        askedCells += cells.cells.size();
        for (std::uint64_t row = 0; isReady && row < cells.obtainRowCount(); ++row)
            for (std::uint64_t column = 0; column < cells.columnCount; ++column) {
                KXTablePlace place{rowParent, columnParent, measure};
                if (firstRow != allMembers)
                    place.row.push_back(firstRow + row);
                if (firstColumn != allMembers && columnCount > 0)
                    place.column.push_back(firstColumn + column);
                std::optional<KXTableCell> own = answer ? answer(place) : std::nullopt;
                cells.at(row, column) = own ? *own : KXTableCell{sum(place), "", KXTableCellState::Value};
            }
        return isReady;
    }
    bool obtainHasTotals(KXChartDataUser*, bool, std::uint64_t) override { return hasTotals; }
    void sortRequested(KXChartDataUser*, const std::vector<KXTableSort>& wanted) override { order = wanted; }
    void cellsCopied(KXChartDataUser*, const std::string& text, const std::string& html) override
    {
        copiedText = text;
        copiedHtml = html;
    }
    std::optional<KXTablePlace> findNext(KXChartDataUser*, const std::string&, const KXTablePlace&,
                                         bool) override
    {
        return found;
    }

    /** @return the sum of 100 g + 10 m + c over what a place stands for */
    double sum(const KXTablePlace& place) const
    {
        const std::size_t levels = groupCount > 0 ? 2 : 1;
        KXIndexPath row = place.row;
        if (levels == 1 && !row.empty())
            row.insert(row.begin(), 0);
        const auto range = [](const KXIndexPath& path, std::size_t level, std::uint64_t count) {
            return path.size() > level ? std::pair(path[level], path[level] + 1)
                                       : std::pair(std::uint64_t{0}, count);
        };
        const auto groups = range(row, 0, std::max<std::uint64_t>(groupCount, 1));
        const auto members = range(row, 1, memberCount);
        const auto columns = range(place.column, 0, std::max<std::uint64_t>(columnCount, 1));
        const auto half = [](const std::pair<std::uint64_t, std::uint64_t>& of) {
            return static_cast<double>(of.first + of.second - 1) / 2;
        };
        const auto count = [](const std::pair<std::uint64_t, std::uint64_t>& of) {
            return static_cast<double>(of.second - of.first);
        };
        return (100 * half(groups) + 10 * half(members) + half(columns)) * count(groups) * count(members) *
               count(columns);
    }
};
