#include "opened_sample.h"

#include "chart_data_source.h"
#include "chart_document.h"
#include "chart_sample.h"
#include "dashboard_board.h"
#include "dashboard_reader.h"
#include "host_error.h"
#include "kx_chart_property.h"
#include "kx_chart_theme.h"
#include "sql_data_provider.h"
#include "ux/ux_accessible_object.h"
#include "ux/ux_diagram.h"
#include "view_data_provider.h"

namespace {

/** A picture has no clicks. */
const ViewItemHandlers noHandlers;

} // namespace

OpenedSample::OpenedSample(const ChartSample& sample, const CsvReader::ProgressHandler& progress)
{
    if (sample.isDashboard()) {
        m_board = std::make_unique<DashboardBoard>(DashboardReader(sample.chart).readFile(), noHandlers,
                                                   progress);
        return;
    }
    m_document = std::make_unique<ChartDocument>(sample.chart);
    m_document->tellUnknownKeys();
    m_source = std::make_unique<ChartDataSource>(sample.data, sample.binding, progress);
    m_document->loadData(&m_source->getProvider());
    if (!m_source->getProvider().getError().empty())
        throw HostError(m_source->getProvider().getError(), "", "");
}

OpenedSample::~OpenedSample() = default;

KXChart* OpenedSample::getChart() const { return m_document ? &m_document->getChart() : nullptr; }

std::string OpenedSample::getCaption() const
{
    return m_board ? m_board->getDashboard().getDocument().title
                   : m_document->getChart().getChartProperty()->getRemarks();
}

void OpenedSample::takeTheme(const KXChartTheme& theme) const
{
    if (m_board)
        m_board->takeTheme(&theme);
    else
        kxApplyTheme(m_document->getChart(), nullptr, &theme);
}

void OpenedSample::setRightToLeft() const
{
    UXObject& shown = m_board ? static_cast<UXObject&>(m_board->getDiagram()) : m_document->getChart();
    if (shown.getDirection() == UXDirection::AsParent)
        shown.setDirection(UXDirection::RightToLeft);
}

std::string OpenedSample::save() const
{
    return m_board ? m_board->getDashboard().save() : m_document->save();
}

void OpenedSample::paint(const PictureSetting& setting, UXPaintConfig& config) const
{
    if (m_board)
        m_board->paintPicture(setting, config);
    else
        paintChart(m_document->getChart(), setting, config);
}

std::unique_ptr<UXAccessibleNode> OpenedSample::createAccessibleNode() const
{
    return m_board ? uxCreateAccessibleNode(m_board->getDiagram())
                   : uxCreateAccessibleNode(m_document->getChart());
}

std::vector<KXChart*> OpenedSample::obtainCharts() const
{
    if (!m_board)
        return {getChart()};
    std::vector<KXChart*> charts;
    charts.reserve(m_board->getChartCount());
    for (std::size_t i = 0; i < m_board->getChartCount(); ++i)
        charts.push_back(&m_board->getChart(i));
    return charts;
}

PicturePainter OpenedSample::obtainPainter() const
{
    return [this](const PictureSetting& setting, UXPaintConfig& config) { paint(setting, config); };
}
