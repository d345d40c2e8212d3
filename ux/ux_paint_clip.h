#pragma once

#include "ux/ux_paint_config_watcher.h"

/** Clips the painters that a configuration makes to a rectangle in the root's space, until the scope ends.
 * What is painted meanwhile may destroy the configuration. */
class UXPaintClip {
public:
    UXPaintClip(UXPaintConfig& config, const UXDoubleRect& rect) : m_config(config), m_watcher(&config)
    {
        m_config.pushClip(rect);
    }
    ~UXPaintClip()
    {
        if (!m_watcher.isGone())
            m_config.popClip();
    }

    UXPaintClip(const UXPaintClip&) = delete;
    UXPaintClip& operator=(const UXPaintClip&) = delete;

private:
    UXPaintConfig& m_config;
    UXPaintConfigWatcher m_watcher;
};
