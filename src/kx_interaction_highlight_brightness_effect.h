#pragma once

#include "kx_interaction_effect.h"
#include "ux/ux_color.h"

/** The part is drawn in its own colour, with every channel raised. */
class KX_EXPORT KXInteractionHighlightBrightnessEffect : public KXInteractionEffect {
public:
    KXInteractionHighlightBrightnessEffect();
    /** @param brightness 0 changes nothing, 1 is white; below 0 a channel grows by its own (1 - brightness)
     * fold */
    explicit KXInteractionHighlightBrightnessEffect(double brightness);
    ~KXInteractionHighlightBrightnessEffect() override;

    /** @return color with its red, green and blue changed, which may leave 0 to 255; alpha stays */
    [[nodiscard]] UXColor applyEffectToColor(const UXColor& color) const;

private:
    double m_brightness = 0;
};
