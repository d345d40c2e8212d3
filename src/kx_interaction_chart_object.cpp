#include "kx_interaction_chart_object.h"

#include <algorithm>

KXInteractionChartObject::KXInteractionChartObject() = default;

KXInteractionChartObject::~KXInteractionChartObject() = default;

void KXInteractionChartObject::updateExtraOIDs(const std::vector<KXObjectID>& objectIDs)
{
    m_extraOIDs = objectIDs;
}

void KXInteractionChartObject::updateInteractionEffects(const std::vector<KXInteractionEffect*>& effects)
{
    // An effect that is given again changes hands from the old list to the new one, once.
    for (auto& old : m_interactionEffects)
        if (std::find(effects.begin(), effects.end(), old.get()) != effects.end())
            static_cast<void>(old.release());
    std::vector<std::unique_ptr<KXInteractionEffect>> taken;
    for (KXInteractionEffect* effect : effects) {
        const auto isEffect = [effect](const auto& other) { return other.get() == effect; };
        if (effect && std::none_of(taken.begin(), taken.end(), isEffect))
            taken.emplace_back(effect);
    }
    m_interactionEffects = std::move(taken);
}
