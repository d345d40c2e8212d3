#pragma once

#include "kx_export.h"
#include "kx_highlight_state.h"
#include "kx_interaction_effect.h"
#include "kx_interaction_effect_functions.h"
#include "kx_object_id.h"

#include <memory>
#include <vector>

/** What a piece of a chart keeps of itself for interactions: what it stands for, and how it looks different
 * just now. */
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

    KXHighlightState getHighlightState() const { return m_highlightState; }
    virtual void updateHighlightState(KXHighlightState state);

    // How the piece is drawn, all effects and the highlight together
    [[nodiscard]] UXColor obtainDrawnColor(const UXColor& color, KXInteractionEffectTarget target) const;
    [[nodiscard]] double obtainDrawnSizeRatio() const;
    /** @return whether the piece shows what more it knows */
    bool showsComplementaryInfo() const;
    /** @return whether the host says that the piece looks different, and not only that it tells more */
    bool hasLookEffects() const;
    /** @return whether the piece stands out by itself: it is lit or has the effect of an open menu, and the
     * host says nothing more about its look */
    bool needsDefaultHighlight() const;

private:
    template <class Effect>
    bool _hasEffect() const;

    std::vector<KXObjectID> m_extraOIDs;
    std::vector<std::unique_ptr<KXInteractionEffect>> m_interactionEffects;
    KXHighlightState m_highlightState = KXHighlightState::None;
};
