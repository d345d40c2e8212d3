#pragma once

#include "ux/ux_json_object.h"

#include <memory>

/** Notices that an object is gone, for code that goes on after a callback which may have destroyed it. */
class UXJsonObjectWatcher {
public:
    /** @param object stays its owner's; null is one that is gone */
    explicit UXJsonObjectWatcher(const UXJsonObject* object)
    {
        if (object)
            m_life = object->m_state;
    }

    bool isAlive() const { return !m_life.expired(); }

private:
    std::weak_ptr<const void> m_life;
};
