#pragma once

#include "kx_export.h"
#include "kx_interaction_event_info.h"
#include "kx_interaction_operation.h"
#include "kx_object_id.h"

#include <vector>

class KXInteractionEffect;

/** The host's say in what pointing at and clicking on a chart's pieces means. */
class KX_EXPORT KXInteractionProvider {
public:
    /** @return what to do about an event on the pieces; by default nothing */
    virtual KXInteractionOperation obtainInteractionOperation(const std::vector<KXObjectID>& objectIDs,
                                                              const KXInteractionEventInfo& info);
    /** @return the effects that the pieces are drawn with, owned by the caller; by default none */
    virtual std::vector<KXInteractionEffect*> obtainInteractionEffects(
        const std::vector<KXObjectID>& objectIDs);
    virtual ~KXInteractionProvider();
};
