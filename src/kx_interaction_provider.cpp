#include "kx_interaction_provider.h"

KXInteractionProvider::~KXInteractionProvider() = default;

KXInteractionOperation KXInteractionProvider::obtainInteractionOperation(const std::vector<KXObjectID>&,
                                                                         const KXInteractionEventInfo&)
{
    return {};
}

std::vector<KXInteractionEffect*> KXInteractionProvider::obtainInteractionEffects(
    const std::vector<KXObjectID>&)
{
    return {};
}
