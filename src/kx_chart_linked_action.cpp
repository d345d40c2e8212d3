#include "kx_chart_linked_action.h"

KXChartLinkedAction::~KXChartLinkedAction() = default;

void KXChartLinkedAction::linkedHighlightRequested(KXChartDataUser*, const KXChartDataPath&, UXObject*,
                                                   const UXEvent&)
{
}

void KXChartLinkedAction::linkedHighlightCleared(KXChartDataUser*, const KXChartDataPath&, UXObject*,
                                                 const UXEvent&)
{
}

KXHighlightResult KXChartLinkedAction::showLinkedHighlight(const KXChartDataPath&, UXControl*)
{
    return KXHighlightResult::TakesNoPart;
}

void KXChartLinkedAction::hideLinkedHighlight(UXControl*) {}
