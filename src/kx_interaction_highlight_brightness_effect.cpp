#include "kx_interaction_highlight_brightness_effect.h"

#include "ux/ut.h"
#include "ux/ux_saturate.h"

#include <cmath>

KXInteractionHighlightBrightnessEffect::KXInteractionHighlightBrightnessEffect() = default;

KXInteractionHighlightBrightnessEffect::KXInteractionHighlightBrightnessEffect(double brightness)
    : m_brightness(brightness)
{
}

KXInteractionHighlightBrightnessEffect::~KXInteractionHighlightBrightnessEffect() = default;

UXColor KXInteractionHighlightBrightnessEffect::applyEffectToColor(const UXColor& color) const
{
    const int order = utCompareDoubles(m_brightness, 0);
    if (order == 0 || std::isnan(m_brightness))
        return color;
    // A negative brightness raises the channel too, on purpose: highlighting never darkens.
    const auto apply = [this, order](int channel) {
        const double added = order > 0 ? (255.0 - channel) * m_brightness : channel * (1 - m_brightness);
        return std::isnan(added) ? channel : uxSaturateToInt(channel + std::floor(added));
    };
    return {apply(color.red), apply(color.green), apply(color.blue), color.alpha};
}
