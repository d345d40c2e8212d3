#pragma once

#include "kx_interaction_effect.h"
#include "ux/ux_color.h"

/** The part is drawn in one given colour. */
class KX_EXPORT KXInteractionColorEffect : public KXInteractionEffect {
public:
    KXInteractionColorEffect();
    explicit KXInteractionColorEffect(const UXColor& color);
    ~KXInteractionColorEffect() override;

    const UXColor& getColor() const { return m_color; }
    void setColor(const UXColor& color) { m_color = color; }

private:
    UXColor m_color;
};
