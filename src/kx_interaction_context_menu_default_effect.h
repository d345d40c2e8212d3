#pragma once

#include "kx_interaction_effect.h"

/** The part looks as parts do while their context menu is open. */
class KX_EXPORT KXInteractionContextMenuDefaultEffect : public KXInteractionEffect {
public:
    KXInteractionContextMenuDefaultEffect();
    ~KXInteractionContextMenuDefaultEffect() override;
};
