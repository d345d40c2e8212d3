#pragma once

#include "kx_control_chart_options.h"
#include "kx_control_part.h"
#include "kx_export.h"

#include <functional>
#include <string>

/** Something with a text beside it that is on or off, or neither: a click, Space or Enter switches it, from
 * mixed to on. */
class KX_EXPORT KXSwitchPart : public KXControlPart {
public:
    KXSwitchPart();
    ~KXSwitchPart() override;

    const std::string& getText() const { return m_text; }
    /** @param text UTF-8, one line; what does not fit is cut */
    void setText(const std::string& text);
    KXToggleSwitchState getState() const { return m_state; }
    /** Tells nobody. */
    void setState(KXToggleSwitchState state);
    /** @param handler called when the user has switched; may destroy this */
    void setChangedHandler(std::function<void(KXToggleSwitchState)> handler);
    /** Switches as a click does. */
    void toggle();

    // From KXControlPart
    void describe(UXAccessibleInfo& info) const override;

    // From UXJsonObject and UXObject
    void customSerialize() override;
    bool customDeserialize() override;
    /** Takes the size of mark and text. */
    void autoResize() override;

protected:
    /** @return the width of what is drawn beside the text, in logical units */
    virtual double _obtainMarkWidth() const = 0;
    /** Draws it into rect, which is of that width and as high as a line. */
    virtual void _paintMark(UXPainter& painter, const UXDoubleRect& rect) const = 0;
    /** @return what a click on this state makes of it */
    virtual KXToggleSwitchState _obtainNextState() const;

    void _paintPart(UXPainter& painter) const override;
    bool customKeyDown(const UXEvent& event, bool& stop) override;

private:
    std::string m_text;
    KXToggleSwitchState m_state = KXToggleSwitchState::Off;
    std::function<void(KXToggleSwitchState)> m_changedHandler;
};
