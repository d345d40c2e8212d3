#include "kx_scatter_plot_area.h"

#include "kx_piece_list.h"
#include "kx_scatter_plot_data.h"
#include "ux/ux_painter_state.h"

#include <algorithm>

KXScatterPlotArea::KXScatterPlotArea() = default;
KXScatterPlotArea::~KXScatterPlotArea() = default;

KXScatterPlotData& KXScatterPlotArea::obtainData(const std::string& series)
{
    const auto found = std::ranges::find_if(m_data,
                                            [&](const auto& data) { return data->getSeries() == series; });
    return found != m_data.end() ? **found
                                 : *m_data.emplace_back(std::make_unique<KXScatterPlotData>(series));
}

void KXScatterPlotArea::paint(UXPainter& painter) const
{
    const UXPainterState state(painter);
    for (const std::unique_ptr<KXScatterPlotData>& data : m_data)
        data->paint(painter);
}

void KXScatterPlotArea::customSerialize()
{
    UXJsonObject::customSerialize();
    serializeObjectList("m_data", kxListPieces(m_data));
}

std::string KXScatterPlotArea::customSerializeTypeID() { return "KXScatterPlotArea"; }

bool KXScatterPlotArea::customDeserialize()
{
    const bool complete = UXJsonObject::customDeserialize();
    return kxReadPieces(*this, "m_data", m_data) && complete;
}
