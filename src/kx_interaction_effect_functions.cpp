#include "kx_interaction_effect_functions.h"

#include "kx_interaction_color_effect.h"
#include "kx_interaction_highlight_brightness_effect.h"
#include "kx_interaction_highlight_color_pattern_effect.h"
#include "kx_interaction_highlight_size_effect.h"

#include <cmath>

namespace {

UXColor applyEffect(const KXInteractionEffect* effect, const UXColor& color)
{
    if (const auto* flat = dynamic_cast<const KXInteractionColorEffect*>(effect))
        return flat->getColor();
    if (const auto* brightness = dynamic_cast<const KXInteractionHighlightBrightnessEffect*>(effect))
        return brightness->applyEffectToColor(color);
    return color;
}

} // namespace

UXColor kxApplyEffectsToColor(const std::vector<std::unique_ptr<KXInteractionEffect>>& effects, UXColor color,
                              KXInteractionEffectTarget target)
{
    for (const auto& effect : effects) {
        const auto* pattern = dynamic_cast<const KXInteractionHighlightColorPatternEffect*>(effect.get());
        if (!pattern)
            color = applyEffect(effect.get(), color);
        else if (target == KXInteractionEffectTarget::Filled)
            color = applyEffect(pattern->getFilledEffect(), color);
        else
            color = applyEffect(pattern->getNonFilledEffect(), color);
    }
    return color;
}

double kxObtainEffectSizeRatio(const std::vector<std::unique_ptr<KXInteractionEffect>>& effects)
{
    double ratio = 1;
    for (const auto& effect : effects) {
        const auto* size = dynamic_cast<const KXInteractionHighlightSizeEffect*>(effect.get());
        if (size && std::isfinite(size->getSizeRatio()) && size->getSizeRatio() >= 0)
            ratio *= size->getSizeRatio();
    }
    return std::isfinite(ratio) ? ratio : 1;
}
