#include "kx_scatter_plot_data.h"

#include "kx_piece_list.h"
#include "kx_scatter_point.h"

#include <utility>

KXScatterPlotData::KXScatterPlotData(std::string series) : m_series(std::move(series)) {}
KXScatterPlotData::~KXScatterPlotData() = default;

KXScatterPoint& KXScatterPlotData::addPoint()
{
    return *m_points.emplace_back(std::make_unique<KXScatterPoint>());
}

void KXScatterPlotData::paint(UXPainter& painter) const
{
    for (const std::unique_ptr<KXScatterPoint>& point : m_points)
        point->paint(painter);
}

void KXScatterPlotData::customSerialize()
{
    UXJsonObject::customSerialize();
    serializeString("m_series", m_series);
    serializeObjectList("m_points", kxListPieces(m_points));
}

std::string KXScatterPlotData::customSerializeTypeID() { return "KXScatterPlotData"; }

bool KXScatterPlotData::customDeserialize()
{
    bool complete = UXJsonObject::customDeserialize();
    complete = deserializeString("m_series", m_series) && complete;
    return kxReadPieces(*this, "m_points", m_points) && complete;
}
