#pragma once

#include "kx_grid.h"

/** The grid of a table: a press that chooses cells is also one on the table, which acts on clicks. */
class KX_EXPORT KXTableGrid : public KXGrid {
public:
    KXTableGrid();
    ~KXTableGrid() override;

protected:
    bool customMouseDown(const UXEvent& event, bool& stop) override;
};
