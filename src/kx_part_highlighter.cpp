#include "kx_part_highlighter.h"

#include "kx_chart.h"
#include "kx_chart_data_user.h"
#include "kx_interaction_chart_object.h"
#include "ux/ux_object_watcher.h"

#include <utility>

void KXPartHighlighter::pointAt(KXInteractionChartObject* part)
{
    if (m_pointed == part)
        return;
    _dropEffects(std::exchange(m_pointed, part));
    if (part && part != m_lit)
        _takeEffects(part);
}

void KXPartHighlighter::light(KXInteractionChartObject* part,
                              const std::vector<KXInteractionChartObject*>& others)
{
    endLight();
    m_lit = part;
    m_dimmed = others;
    for (KXInteractionChartObject* other : others)
        other->updateHighlightState(KXHighlightState::Dimmed);
    part->updateHighlightState(KXHighlightState::Lit);
    if (part != m_pointed)
        _takeEffects(part);
}

void KXPartHighlighter::endLight()
{
    for (KXInteractionChartObject* other : std::exchange(m_dimmed, {}))
        other->updateHighlightState(KXHighlightState::None);
    KXInteractionChartObject* part = std::exchange(m_lit, nullptr);
    if (part)
        part->updateHighlightState(KXHighlightState::None);
    _dropEffects(part);
}

void KXPartHighlighter::clear()
{
    pointAt(nullptr);
    endLight();
}

void KXPartHighlighter::_takeEffects(KXInteractionChartObject* part)
{
    const UXObjectWatcher chart(m_user->getChart());
    const std::vector<KXInteractionEffect*> effects = m_user->obtainInteractionEffects(part->getExtraOIDs());
    // Meanwhile the chart may have gone, or the piece may stand out no longer.
    if (chart.isAlive() && (part == m_pointed || part == m_lit)) {
        part->updateInteractionEffects(effects);
        return;
    }
    for (KXInteractionEffect* effect : effects)
        delete effect;
}

void KXPartHighlighter::_dropEffects(KXInteractionChartObject* part)
{
    if (part && part != m_pointed && part != m_lit)
        part->updateInteractionEffects({});
}
