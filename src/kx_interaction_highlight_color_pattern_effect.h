#pragma once

#include "kx_interaction_effect.h"

#include <memory>

/** The part's filled pieces look different in one way, its lines and texts in another. */
class KX_EXPORT KXInteractionHighlightColorPatternEffect : public KXInteractionEffect {
public:
    KXInteractionHighlightColorPatternEffect();
    /** Takes both effects over; each may be null. */
    KXInteractionHighlightColorPatternEffect(std::unique_ptr<KXInteractionEffect> filled,
                                             std::unique_ptr<KXInteractionEffect> nonFilled);
    ~KXInteractionHighlightColorPatternEffect() override;

    /** @return owned by this effect; null for none */
    KXInteractionEffect* getFilledEffect() const { return m_filledEffect.get(); }
    KXInteractionEffect* getNonFilledEffect() const { return m_nonFilledEffect.get(); }

private:
    std::unique_ptr<KXInteractionEffect> m_filledEffect;
    std::unique_ptr<KXInteractionEffect> m_nonFilledEffect;
};
