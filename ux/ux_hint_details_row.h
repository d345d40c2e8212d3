#pragma once

#include "ux/ux_hint_row.h"

/** One row of a hint's table: a symbol, a label and a value. */
class UX_EXPORT UXHintDetailsRow : public UXHintRow {
public:
    UXHintDetailsRow();
    ~UXHintDetailsRow() override;

    // From UXObject
    std::string customSerializeTypeID() override;

protected:
    void drawLine(UXPainter& painter) override;
};
