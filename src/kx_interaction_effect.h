#pragma once

#include "kx_export.h"

/** How a highlighted part looks different; the derived classes say in what. */
class KX_EXPORT KXInteractionEffect {
public:
    KXInteractionEffect() = default;
    KXInteractionEffect(const KXInteractionEffect&) = default;
    KXInteractionEffect& operator=(const KXInteractionEffect&) = default;
    virtual ~KXInteractionEffect();
};
