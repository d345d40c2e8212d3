#pragma once

#include "kx_export.h"
#include "kx_interaction_effect.h"
#include "kx_object_id.h"

#include <memory>
#include <vector>

/** What a piece of a chart keeps of itself for interactions: what more it stands for, and how it looks
 * different just now. */
class KX_EXPORT KXInteractionChartObject {
public:
    KXInteractionChartObject();
    KXInteractionChartObject(const KXInteractionChartObject&) = delete;
    KXInteractionChartObject& operator=(const KXInteractionChartObject&) = delete;
    virtual ~KXInteractionChartObject();

    const std::vector<KXObjectID>& getExtraOIDs() const { return m_extraOIDs; }
    virtual void updateExtraOIDs(const std::vector<KXObjectID>& objectIDs);

    /** @return in the order in which they apply, none of them null */
    const std::vector<std::unique_ptr<KXInteractionEffect>>& getInteractionEffects() const
    {
        return m_interactionEffects;
    }
    /** @param effects taken over, as a provider hands them out; they replace, and destroy, those before.
     *  Nulls are left out, and one that is here already stays. */
    virtual void updateInteractionEffects(const std::vector<KXInteractionEffect*>& effects);

private:
    std::vector<KXObjectID> m_extraOIDs;
    std::vector<std::unique_ptr<KXInteractionEffect>> m_interactionEffects;
};
