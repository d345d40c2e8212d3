#pragma once

#include "kx_interaction_effect.h"

/** The part looks as parts do while their context menu is open: it stands out as a highlighted one does that
 * has no effect of its own. */
class KX_EXPORT KXInteractionContextMenuDefaultEffect : public KXInteractionEffect {
public:
    KXInteractionContextMenuDefaultEffect();
    ~KXInteractionContextMenuDefaultEffect() override;
};
