#pragma once

#include "kx_chart_data_action.h"
#include "kx_export.h"
#include "kx_interaction.h"
#include "kx_interaction_chart_object.h"
#include "ux/ux_label.h"

#include <optional>
#include <string>

/** A label of a chart: it shows a default text while its own is empty, and as a piece of data it can be
 * clicked, look different and stand out. Where it is selectable, a click selects it or no longer; what is
 * selected highlights its matches in the linked charts for as long. */
class KX_EXPORT KXChartLabel : public UXLabel,
                               public KXChartDataAction,
                               public KXInteraction,
                               public KXInteractionChartObject {
public:
    KXChartLabel();
    ~KXChartLabel() override;

    /** @return the text shown while the label's own text is empty */
    std::string getDefaultText() const;
    void setDefaultText(const std::string& text);
    /** @return what the label is called in the data paths that it makes */
    std::string getIdentifier() const;
    void setIdentifier(const std::string& identifier);

    /** Keeps what is drawn of a label that is larger than area inside it: whole lines, with an ellipsis for
     * the rest of the text, and nothing where no line has room. The rectangle stays as it is.
     *  @param area in the parent's space, for the present rectangle, text and font; until autoResize() */
    void keepTextInside(const UXRect& area);

    // From UXJsonObject, UXObject, UXLabel and KXChartDataAction
    std::string customSerializeTypeID() override;
    void setSelectable(bool selectable) override;
    bool inRect(UXRect rect) const override;
    void autoResize() override;
    KXChartDataPath* createDataPath() override;

    // From KXInteractionChartObject
    void updateInteractionEffects(const std::vector<KXInteractionEffect*>& effects) override;
    void updateHighlightState(KXHighlightState state) override;

protected:
    std::string obtainText() override;
    void selectionChanged() override;
    UXRect customDirtyRect() override;
    void drawLabel(UXPainter& painter, const UXDoubleRect& textRect, const UXTextProperty& property) override;

private:
    bool _showsGlow() const;
    UXDoubleRect _obtainDrawnRect() const;
    UXRect _obtainPaintedRect() const;

    // Of a label that is larger than the area that it keeps to
    std::optional<UXRect> m_textRoom; // in the own space
    std::optional<std::string> m_cutText;

    std::string m_defaultText;
    std::string m_identifier;
    bool m_togglesSelection = false; // the handler is installed
};
