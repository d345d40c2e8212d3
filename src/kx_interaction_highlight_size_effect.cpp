#include "kx_interaction_highlight_size_effect.h"

KXInteractionHighlightSizeEffect::KXInteractionHighlightSizeEffect() = default;

KXInteractionHighlightSizeEffect::~KXInteractionHighlightSizeEffect() = default;
