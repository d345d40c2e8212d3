#pragma once

#include "ux/ux_export.h"

/** Takes the one lock of the process. The thread that has it may take it again. */
UX_EXPORT void uxLock();

/** Gives the lock back, once for every uxLock(). */
UX_EXPORT void uxUnlock();

/** Holds the lock until the scope ends, early returns included. */
class UXLockScope {
public:
    UXLockScope() { uxLock(); }
    ~UXLockScope() { uxUnlock(); }
    UXLockScope(const UXLockScope&) = delete;
    UXLockScope& operator=(const UXLockScope&) = delete;
};
