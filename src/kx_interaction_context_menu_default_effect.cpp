#include "kx_interaction_context_menu_default_effect.h"

KXInteractionContextMenuDefaultEffect::KXInteractionContextMenuDefaultEffect() = default;

KXInteractionContextMenuDefaultEffect::~KXInteractionContextMenuDefaultEffect() = default;
