#pragma once

#include "kx_export.h"

class KXInteractionProvider;

/** The side of a chart that asks the interaction provider. Every begin is followed by one end. */
class KX_EXPORT KXInteractionUser {
public:
    KXInteractionUser() = default;
    KXInteractionUser(const KXInteractionUser&) = default;
    KXInteractionUser& operator=(const KXInteractionUser&) = default;
    virtual ~KXInteractionUser();

    /** @param provider the host's, not owned; may be null */
    virtual void setInteractionProvider(KXInteractionProvider* provider);
    /** @return the provider, null when there is none */
    virtual KXInteractionProvider* beginUseInteractionProvider();
    virtual void endUseInteractionProvider();

private:
    KXInteractionProvider* m_interactionProvider = nullptr; // the host's
};
