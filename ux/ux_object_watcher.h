#pragma once

#include "ux/ux_export.h"
#include "ux/ux_json_object_watcher.h"

class UXObject;

/**
 * Notices that an object is gone, for code that goes on after a callback which may have destroyed it:
 *     UXObjectWatcher watcher(this);
 *     callback();
 *     if (!watcher.isAlive())
 *         return;
 */
class UX_EXPORT UXObjectWatcher {
public:
    /** @param object stays its owner's; null is one that is gone */
    explicit UXObjectWatcher(UXObject* object);

    bool isAlive() const { return m_watcher.isAlive(); }
    /** @return the object, null once it is gone */
    UXObject* getObject() const { return isAlive() ? m_object : nullptr; }

private:
    UXObject* m_object;
    UXJsonObjectWatcher m_watcher;
};
