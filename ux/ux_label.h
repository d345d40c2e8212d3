#pragma once

#include "ux/ux_accessible_source.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_double_size.h"
#include "ux/ux_export.h"
#include "ux/ux_object.h"
#include "ux/ux_text_property.h"

#include <string>

class UXPainter;

/** Shows one text inside its rectangle, turned by an angle where wanted. */
class UX_EXPORT UXLabel : public UXObject, public UXAccessibleSource {
public:
    UXLabel();
    ~UXLabel() override;

    std::string getText() const;
    void setText(const std::string& text);
    const UXTextProperty& getTextProperty() const;
    void setTextProperty(const UXTextProperty& property);
    /** @return the text's angle in degrees, 0 = to the right, growing clockwise */
    double getRotation() const;
    /** @param degrees any finite angle; another one counts as 0 */
    void setRotation(double degrees);
    /** @param byTopLeft true turns the text about the rectangle's top left corner, false about its centre */
    void setRotateByTopLeft(bool byTopLeft);
    bool getRotateByTopLeft() const;
    /** @param round whether background and border have round corners */
    void setDrawRoundRect(bool round);
    bool getDrawRoundRect() const;

    // From UXAccessibleSource: a text where there is one
    std::unique_ptr<UXAccessibleNode> createAccessibleNode() override;
    bool isAccessible() const override;

    // From UXJsonObject and UXObject
    std::string customSerializeTypeID() override;
    /** Gives the label the size of its text, rounded up, and keeps its left and top. Wrapped text (line mode
     * 1) keeps the present width as its limit; turned text takes the rectangle that it covers. */
    void autoResize() override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

protected:
    /** @return the text to show; what a subclass returns must not change between layout and paint */
    virtual std::string obtainText();
    /** Draws the ground and the text. A subclass that draws its text otherwise calls this with what it wants.
     *  @param textRect in the own space; the label's bounding rectangle when the label paints itself */
    virtual void drawLabel(UXPainter& painter, const UXDoubleRect& textRect, const UXTextProperty& property);

private:
    UXDoubleSize _measureText(const std::string& text, const UXTextProperty& property) const;

    std::string m_text;
    UXTextProperty m_textProperty;
    double m_rotation = 0;
    bool m_rotateByTopLeft = false;
    bool m_drawRoundRect = false;
};
