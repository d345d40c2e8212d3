#pragma once

#include "kx_export.h"
#include "kx_gradient_scale.h"
#include "ux/ux_color.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_object.h"
#include "ux/ux_position.h"
#include "ux/ux_text_property.h"

#include <functional>
#include <string>
#include <vector>

class KXChartProperty;
class UXPainter;

/** Shows which colours stand for which values: a strip of all colours, and beside it the values of its ends
 * and of what is between them, as many as there is room for. */
class KX_EXPORT KXGradientLegend : public UXObject {
public:
    KXGradientLegend();
    ~KXGradientLegend() override;

    /** @param format words a value; it is called at once and asks nobody */
    void setScale(const KXGradientScale& scale, const std::function<std::string(double)>& format);
    /** The same with texts in that colour. */
    void setScale(const KXGradientScale& scale, const UXColor& textColor,
                  const std::function<std::string(double)>& format);
    const KXGradientScale& getScale() const { return m_scale; }
    const UXTextProperty& getTextProperty() const { return m_textProperty; }
    void setTextProperty(const UXTextProperty& property);

    /**
     * Takes its place at one side of an area, where that is large enough for both: along the top and the
     * bottom values grow to the right, along the others upwards.
     * @param align where it lies along that side: Left, Center or Right; Top, Center or Bottom
     * @return what is left of the area, in which the legend's own rectangle is not
     */
    [[nodiscard]] UXRect takeRoom(const UXRect& area, UXPosition side, UXPosition align);
    /** Takes the place and the colour of texts that the user wants a chart's legend to have, or hides where
     * the user wants none.
     *  @param isWanted whether colours stand for values
     *  @return what is left of the area */
    [[nodiscard]] UXRect takeRoom(const UXRect& area, const KXChartProperty& property, bool isWanted);

    /** @return where the strip of colours lies, in the own space */
    UXDoubleRect obtainStrip() const;
    /** @return how far along the strip a value lies, 0 to 1; not finite for one that is not */
    double obtainShare(double value) const;

    // From UXObject
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

private:
    struct Value {
        double share = 0; // of the way along the strip
        std::string text;
        UXDoubleRect rect; // without extent where there is no room
    };

    void _placeTexts();
    void _placeText(Value& value);
    void _paintStrip(UXPainter& painter) const;

    KXGradientScale m_scale;
    UXTextProperty m_textProperty;
    bool m_isUpright = false;
    std::vector<Value> m_values;
};
