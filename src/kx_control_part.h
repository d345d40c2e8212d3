#pragma once

#include "kx_export.h"
#include "ux/ux_accessible_source.h"
#include "ux/ux_color.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_object.h"
#include "ux/ux_text_property.h"

class UXPainter;
struct UXAccessibleInfo;

/**
 * What the user operates with pointer and keyboard: knows whether it can be used, whether the pointer is over
 * it or presses it and whether keys come to it, and is drawn anew when any of that changes. A press gives it
 * the keys; a ring shows that it has them where they came from the keyboard.
 */
class KX_EXPORT KXControlPart : public UXObject, public UXAccessibleSource {
public:
    KXControlPart();
    ~KXControlPart() override;

    /** @return whether it can be used; one that cannot is drawn fainter and takes neither pointer nor keys */
    bool isEnabled() const { return m_enabled; }
    void setEnabled(bool enabled);
    /** @return what chosen parts and the ring are drawn in */
    const UXColor& getAccentColor() const { return m_accentColor; }
    void setAccentColor(const UXColor& color);
    const UXTextProperty& getTextProperty() const { return m_textProperty; }
    /** @param property taken for one line: texts do not wrap */
    void setTextProperty(const UXTextProperty& property);

    /** @return whether keys come here */
    bool isFocused() const;
    /** Has the keys come here, as Tab does.
     *  @return false where it stands in no view, or cannot be used */
    bool takeKeys();

    /** Adds to info, which has place and focus, what the part is to those who do not see it: role, texts,
     * states, and what Space and arrows do there. */
    virtual void describe(UXAccessibleInfo& info) const = 0;

    // From UXAccessibleSource and UXObject
    std::unique_ptr<UXAccessibleNode> createAccessibleNode() override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

protected:
    virtual void _paintPart(UXPainter& painter) const = 0;
    bool _isHovered() const { return m_enabled && getMouseOvering(); }
    bool _isPressed() const { return m_enabled && getMousePressing(); }
    bool _showsRing() const { return !m_pressed && isFocused(); }
    /** @return color as a part that cannot be used shows it */
    UXColor _obtainShownColor(UXColor color) const;
    /** Draws the ring around rect where it is to be seen. */
    void _paintRing(UXPainter& painter, const UXDoubleRect& rect, double radius) const;
    /** Keys are used from now on. */
    void _showRing();

    UXRect customDirtyRect() override;
    bool customMouseDown(const UXEvent& event, bool& stop) override;
    bool customMouseUp(const UXEvent& event, bool& stop) override;
    bool customMouseEnter(const UXEvent& event, bool& stop) override;
    bool customMouseLeave(const UXEvent& event, bool& stop) override;

private:
    UXColor m_accentColor{38, 103, 198};
    UXTextProperty m_textProperty;
    bool m_enabled = true;
    bool m_pressed = false; // the keys came with a press
};
