#pragma once

#include "ux/ux_paint_config.h"

/** Clips the painters that a configuration makes to a rectangle in the root's space, until the scope ends. */
class UXPaintClip {
public:
    UXPaintClip(UXPaintConfig& config, const UXDoubleRect& rect) : m_config(config)
    {
        m_config.pushClip(rect);
    }
    ~UXPaintClip() { m_config.popClip(); }

    UXPaintClip(const UXPaintClip&) = delete;
    UXPaintClip& operator=(const UXPaintClip&) = delete;

private:
    UXPaintConfig& m_config;
};
