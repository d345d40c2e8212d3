#pragma once

#include "ux/ux_export.h"

class UXObject;

/**
 * Notices that an object is gone, for code that goes on after a callback which may have destroyed it:
 *     UXObjectWatcher watcher(this);
 *     callback();
 *     if (!watcher.isAlive())
 *         return;
 * A watcher costs two links in the object's list of watchers and no memory of its own.
 */
class UX_EXPORT UXObjectWatcher {
public:
    /** @param object stays its owner's; null is one that is gone */
    explicit UXObjectWatcher(UXObject* object);
    UXObjectWatcher(const UXObjectWatcher& other);
    UXObjectWatcher& operator=(const UXObjectWatcher& other);
    ~UXObjectWatcher();

    bool isAlive() const { return m_object != nullptr; }
    /** @return the object, null once it is gone */
    UXObject* getObject() const { return m_object; }

private:
    friend class UXObject;

    void _watch(UXObject* object);
    void _forget();

    UXObject* m_object = nullptr;
    UXObjectWatcher* m_next = nullptr;
    UXObjectWatcher* m_previous = nullptr;
};
