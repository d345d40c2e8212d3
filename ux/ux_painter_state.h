#pragma once

#include "ux/ux_painter.h"

/** Saves the state and restores it when the scope ends, early returns included. */
class UXPainterState {
public:
    explicit UXPainterState(UXPainter& painter) : m_painter(painter) { m_painter.saveState(); }
    ~UXPainterState() { m_painter.restoreState(); }

    UXPainterState(const UXPainterState&) = delete;
    UXPainterState& operator=(const UXPainterState&) = delete;

private:
    UXPainter& m_painter;
};
