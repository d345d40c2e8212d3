#include "kx_interaction_user.h"

KXInteractionUser::~KXInteractionUser() = default;

void KXInteractionUser::setInteractionProvider(KXInteractionProvider* provider)
{
    m_interactionProvider = provider;
}

KXInteractionProvider* KXInteractionUser::beginUseInteractionProvider() { return m_interactionProvider; }

void KXInteractionUser::endUseInteractionProvider() {}
