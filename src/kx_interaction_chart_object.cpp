#include "kx_interaction_chart_object.h"

#include "kx_interaction_context_menu_default_effect.h"
#include "kx_interaction_highlight_complementary_info_effect.h"

#include <algorithm>

namespace {

/** A piece that gives way keeps this share of its opacity: it can still be read, but draws no eye. */
constexpr double dimmedShare = 0.35;

} // namespace

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

void KXInteractionChartObject::updateHighlightState(KXHighlightState state) { m_highlightState = state; }

UXColor KXInteractionChartObject::obtainDrawnColor(const UXColor& color,
                                                   KXInteractionEffectTarget target) const
{
    UXColor drawn = kxApplyEffectsToColor(m_interactionEffects, color, target);
    if (m_highlightState == KXHighlightState::Dimmed)
        drawn.alpha *= dimmedShare;
    return drawn;
}

double KXInteractionChartObject::obtainDrawnSizeRatio() const
{
    return kxObtainEffectSizeRatio(m_interactionEffects);
}

template <class Effect>
bool KXInteractionChartObject::_hasEffect() const
{
    return std::any_of(m_interactionEffects.begin(), m_interactionEffects.end(), [](const auto& effect) {
        return dynamic_cast<const Effect*>(effect.get()) != nullptr;
    });
}

bool KXInteractionChartObject::showsComplementaryInfo() const
{
    return _hasEffect<KXInteractionHighlightComplementaryInfoEffect>();
}

bool KXInteractionChartObject::needsDefaultHighlight() const
{
    return (m_highlightState == KXHighlightState::Lit ||
            _hasEffect<KXInteractionContextMenuDefaultEffect>()) &&
           !hasLookEffects();
}

bool KXInteractionChartObject::hasLookEffects() const
{
    return std::any_of(m_interactionEffects.begin(), m_interactionEffects.end(), [](const auto& effect) {
        return !dynamic_cast<const KXInteractionHighlightComplementaryInfoEffect*>(effect.get()) &&
               !dynamic_cast<const KXInteractionContextMenuDefaultEffect*>(effect.get());
    });
}
