#pragma once

#include "ux/ux_object_watcher.h"

/** Sets a flag of an object while a call of it runs. The flag goes with the scope, also where an exception of
 * the host's ends the call, and is left alone where the object has gone. */
class UXFlagScope {
public:
    /** @param owner the object whose member flag is */
    UXFlagScope(UXObject* owner, bool& flag) : m_owner(owner), m_flag(flag) { m_flag = true; }
    ~UXFlagScope() { end(); }
    UXFlagScope(const UXFlagScope&) = delete;
    UXFlagScope& operator=(const UXFlagScope&) = delete;

    /** Takes the flag back before the scope ends. */
    void end()
    {
        if (m_owner.isAlive())
            m_flag = false;
        m_owner = UXObjectWatcher(nullptr);
    }

private:
    UXObjectWatcher m_owner;
    bool& m_flag;
};
