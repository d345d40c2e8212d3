#pragma once

#include "kx_export.h"
#include "ux/ux_object_watcher.h"

class KXInteractionProvider;
class KXInteractionUser;
class UXObject;

/** One use of an interaction user's provider, which ends with the scope, also where the host throws. The
 * answer may destroy the part that asks and leave the chart, whose use has an end all the same. */
class KX_EXPORT KXInteractionProviderUse {
public:
    /** @param owner with which a user goes that serves no chart */
    KXInteractionProviderUse(KXInteractionUser& user, UXObject* owner);
    ~KXInteractionProviderUse();

    KXInteractionProviderUse(const KXInteractionProviderUse&) = delete;
    KXInteractionProviderUse& operator=(const KXInteractionProviderUse&) = delete;

    /** @return the host's, null for none; for one question */
    KXInteractionProvider* get() const { return m_provider; }

private:
    KXInteractionUser& m_user;
    UXObjectWatcher m_owner;
    KXInteractionProvider* m_provider; // the host's
};
