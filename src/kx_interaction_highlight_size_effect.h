#pragma once

#include "kx_interaction_effect.h"

/** The part is drawn larger or smaller about its middle. */
class KX_EXPORT KXInteractionHighlightSizeEffect : public KXInteractionEffect {
public:
    KXInteractionHighlightSizeEffect();
    ~KXInteractionHighlightSizeEffect() override;

    /** @return the drawn size divided by the usual one */
    double getSizeRatio() const { return m_sizeRatio; }
    void setSizeRatio(double ratio) { m_sizeRatio = ratio; }

private:
    double m_sizeRatio = 1.0;
};
