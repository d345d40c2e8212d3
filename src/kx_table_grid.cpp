#include "kx_table_grid.h"

KXTableGrid::KXTableGrid() = default;
KXTableGrid::~KXTableGrid() = default;

bool KXTableGrid::customMouseDown(const UXEvent& event, bool& stop)
{
    KXGrid::customMouseDown(event, stop);
    return false;
}
