#pragma once

#include "kx_axis_chart_plot_frame.h"
#include "kx_axis_chart_stacks.h"
#include "kx_export.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

/** Categories that follow each other and fill the same pixel columns, which may lie outside of the area. */
struct KXAxisChartPixelRun {
    std::uint64_t firstCategory = 0, endCategory = 0;
    std::int64_t firstColumn = 0, endColumn = 0;

    friend bool operator==(const KXAxisChartPixelRun&, const KXAxisChartPixelRun&) = default;
};

/** The pixel columns of a frame's area, counted along the categories from 0, and which categories share them:
 * what marks are merged by where they are closer together than pixels. */
class KX_EXPORT KXAxisChartPixelColumns {
public:
    /** @param centre the middle of a category, in columns
     *  @return the first column that it fills and the one after its last, at least one; neither goes back
     * where centre grows */
    using ColumnsOf = std::function<std::pair<std::int64_t, std::int64_t>(double centre)>;

    /** @param frame lent for the life of this */
    explicit KXAxisChartPixelColumns(const KXAxisChartPlotFrame& frame);

    std::size_t getCount() const { return m_count; }
    /** @return the columns from first to end, which is not one of them, as an interval across the plot */
    KXAxisChartInterval obtainAcross(std::size_t first, std::size_t end) const;
    /** @return the column in which a place lies; just below the end of one it is in the next */
    static std::int64_t findColumn(double place);
    /** @return the column at a place across the plot; one beside the area is below 0 or past the count */
    std::int64_t findColumnAt(double across) const;

    /** @return the runs of the categories in sight that touch the area, in the order of the categories. Where
     * their places never go back, the work depends on the runs and not on the categories. */
    std::vector<KXAxisChartPixelRun> findRuns(const KXAxisChartStacks& values,
                                              const ColumnsOf& columnsOf) const;

private:
    const KXAxisChartPlotFrame& m_frame;
    double m_firstPixel = 0;
    std::size_t m_count = 0;
};
