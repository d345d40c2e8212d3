#pragma once

#include "ux/ux_json_object.h"

#include <memory>

/** Notices that an object is gone, for code that goes on after a callback which may have destroyed it. */
class UX_EXPORT UXJsonObjectWatcher {
public:
    /** @param object stays its owner's; null is one that is gone */
    explicit UXJsonObjectWatcher(const UXJsonObject* object);

    bool isAlive() const { return m_alive && *m_alive; }

private:
    std::shared_ptr<const bool> m_alive;
};
