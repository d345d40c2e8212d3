#include "kx_interaction_effect.h"

KXInteractionEffect::~KXInteractionEffect() = default;
