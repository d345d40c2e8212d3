#pragma once

#include "kx_export.h"
#include "ux/ux_color.h"

#include <memory>
#include <vector>

class KXInteractionEffect;

/** What of a part is drawn: its filled pieces, or its lines and texts. */
enum class KXInteractionEffectTarget : int { Filled, NonFilled };

/** @param effects in the order in which they apply; those that say nothing about colour change nothing
 *  @return color as the effects have it drawn */
[[nodiscard]] KX_EXPORT UXColor
kxApplyEffectsToColor(const std::vector<std::unique_ptr<KXInteractionEffect>>& effects, UXColor color,
                      KXInteractionEffectTarget target);

/** @return the drawn size divided by the usual one, all effects together; ratios that are negative or not
 * finite count as 1 */
[[nodiscard]] KX_EXPORT double kxObtainEffectSizeRatio(
    const std::vector<std::unique_ptr<KXInteractionEffect>>& effects);
