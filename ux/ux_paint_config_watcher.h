#pragma once

#include "ux/ux_paint_config.h"

#include <memory>

/** Notices that a configuration is gone, for code that goes on after painting what may have destroyed it. */
class UXPaintConfigWatcher {
public:
    /** @param config stays its owner's; where it is null there is nothing that could go */
    explicit UXPaintConfigWatcher(const UXPaintConfig* config) : m_isWatching(config != nullptr)
    {
        if (config)
            m_life = config->getLife();
    }

    bool isGone() const { return m_isWatching && m_life.expired(); }

private:
    bool m_isWatching;
    std::weak_ptr<const bool> m_life;
};
