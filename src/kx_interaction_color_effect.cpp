#include "kx_interaction_color_effect.h"

KXInteractionColorEffect::KXInteractionColorEffect() = default;

KXInteractionColorEffect::KXInteractionColorEffect(const UXColor& color) : m_color(color) {}

KXInteractionColorEffect::~KXInteractionColorEffect() = default;
