#pragma once

#include "kx_circle.h"
#include "kx_export.h"
#include "kx_scatter_layout.h"
#include "ux/ux_color.h"
#include "ux/ux_double_point.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_double_size.h"
#include "ux/ux_object.h"
#include "ux/ux_text_property.h"

#include <functional>
#include <string>
#include <vector>

class KXChartProperty;

/** Shows which sizes stand for which values: circles of a few round ones, and these beside them. */
class KX_EXPORT KXSizeLegend : public UXObject {
public:
    KXSizeLegend();
    ~KXSizeLegend() override;

    /** @param form says how large a value is drawn
     *  @param format words a value; it is called at once and asks nobody */
    void setSizes(const KXScatterForm& form, const UXColor& color,
                  const std::function<std::string(double)>& format);
    /** @return the values that it shows, the greatest one first */
    std::vector<double> getValues() const;
    void setTextColor(const UXColor& color);

    /** Takes the place that the user wants a chart's legend to have, or hides where the user wants none.
     *  @param isWanted whether points have sizes
     *  @return what is left of the area */
    [[nodiscard]] UXRect takeRoom(const UXRect& area, const KXChartProperty& property, bool isWanted);

    // From UXObject
    std::string customSerializeTypeID() override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

private:
    struct Size {
        double value = 0, diameter = 0;
        std::string text;
        UXDoubleSize textSize;
        UXDoublePoint centre; // in the own space
        UXDoubleRect rect;    // of the text
    };

    void _measure();
    void _placeUpright();
    void _placeInRow();

    std::vector<Size> m_sizes;
    UXColor m_color;
    UXTextProperty m_textProperty;
};
