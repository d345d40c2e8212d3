#include "ux/ux_lock.h"

#if defined(__wasi__)

// A page runs on one thread: nobody else could hold the lock.
void uxLock() {}

void uxUnlock() {}

#else

#    include <mutex>

namespace {

// Making one shared table may ask for another, so that the holder takes the lock again.
std::recursive_mutex& theLock()
{
    static std::recursive_mutex lock;
    return lock;
}

} // namespace

void uxLock() { theLock().lock(); }

void uxUnlock() { theLock().unlock(); }

#endif
