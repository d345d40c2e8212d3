#pragma once

#include "kx_interaction_effect.h"

/** The part shows what more it knows, such as its value beside it. */
class KX_EXPORT KXInteractionHighlightComplementaryInfoEffect : public KXInteractionEffect {
public:
    KXInteractionHighlightComplementaryInfoEffect();
    ~KXInteractionHighlightComplementaryInfoEffect() override;
};
