#pragma once

#include "chart_picture.h"
#include "csv_reader.h"

#include <memory>
#include <string>
#include <vector>

class ChartDataSource;
class ChartDocument;
class DashboardBoard;
class KXChart;
class KXChartTheme;
class UXAccessibleNode;
class UXPaintConfig;
struct ChartSample;

/** A chart over its data, or a dashboard, read and loaded to become a picture. */
class OpenedSample {
public:
    /** Throws HostError for what cannot be opened, read or understood, and where a database refuses.
     *  @param progress may be empty */
    explicit OpenedSample(const ChartSample& sample, const CsvReader::ProgressHandler& progress = {});
    ~OpenedSample();

    /** @return the chart; null for a dashboard */
    KXChart* getChart() const;
    /** @return what the sample shows: a dashboard's title, a chart's remarks */
    std::string getCaption() const;
    /** Gives every chart the theme's colours, but for those that its document sets. */
    void takeTheme(const KXChartTheme& theme) const;
    /** Mirrors what does not say itself to which side it runs. */
    void setRightToLeft() const;
    /** @return the document as it is saved now */
    std::string save() const;
    /** Lays out at the setting's size and paints ground and sample. */
    void paint(const PictureSetting& setting, UXPaintConfig& config) const;
    /** @return what the sample says to those who do not see it, as it was painted last */
    std::unique_ptr<UXAccessibleNode> createAccessibleNode() const;
    /** @return all charts, that of the sample or those of the dashboard */
    std::vector<KXChart*> obtainCharts() const;
    /** @return paint() of this object, which outlives it */
    PicturePainter obtainPainter() const;

private:
    std::unique_ptr<ChartDataSource> m_source; // outlives the chart that asks it
    std::unique_ptr<ChartDocument> m_document;
    std::unique_ptr<DashboardBoard> m_board;
};
