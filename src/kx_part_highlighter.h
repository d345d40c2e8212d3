#pragma once

#include "kx_export.h"

#include <vector>

class KXChartDataUser;
class KXInteractionChartObject;

/** Keeps which of a chart's pieces the pointer is on and which one another chart highlights, and has the
 *  provider say how these look meanwhile. Without such an answer a highlighted piece shows a default. */
class KX_EXPORT KXPartHighlighter {
public:
    /** @param user of the chart that owns this, not null; the pieces that it is given belong to that chart */
    explicit KXPartHighlighter(KXChartDataUser* user) : m_user(user) {}

    KXInteractionChartObject* getPointed() const { return m_pointed; }
    KXInteractionChartObject* getLit() const { return m_lit; }

    // The provider that is asked may destroy the chart, and this with it.
    /** @param part null where the pointer is on none */
    void pointAt(KXInteractionChartObject* part);
    /** Lights part and dims the others, until endLight(). */
    void light(KXInteractionChartObject* part, const std::vector<KXInteractionChartObject*>& others);
    void endLight();
    /** Leaves every piece as it usually is, before pieces go as well. */
    void clear();

private:
    void _takeEffects(KXInteractionChartObject* part);
    void _dropEffects(KXInteractionChartObject* part);

    KXChartDataUser* m_user;
    KXInteractionChartObject* m_pointed = nullptr;
    KXInteractionChartObject* m_lit = nullptr;
    std::vector<KXInteractionChartObject*> m_dimmed;
};
