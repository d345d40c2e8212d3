#include "kx_interaction_highlight_color_pattern_effect.h"

#include <utility>

KXInteractionHighlightColorPatternEffect::KXInteractionHighlightColorPatternEffect() = default;

KXInteractionHighlightColorPatternEffect::KXInteractionHighlightColorPatternEffect(
    std::unique_ptr<KXInteractionEffect> filled, std::unique_ptr<KXInteractionEffect> nonFilled)
    : m_filledEffect(std::move(filled)), m_nonFilledEffect(std::move(nonFilled))
{
}

KXInteractionHighlightColorPatternEffect::~KXInteractionHighlightColorPatternEffect() = default;
