#pragma once

#include "kx_control_part.h"
#include "kx_export.h"

#include <functional>
#include <string>

/** A button with a text: a click, Space or Enter runs what it does. */
class KX_EXPORT KXControlButton : public KXControlPart {
public:
    KXControlButton();
    ~KXControlButton() override;

    const std::string& getText() const { return m_text; }
    void setText(const std::string& text);
    /** @param primary whether it is the one that is meant to be pressed, which is filled */
    void setPrimary(bool primary);
    /** @param quiet whether it has no frame until the pointer is over it */
    void setQuiet(bool quiet);
    /** @param action takes the event that pressed the button; may destroy this */
    void setAction(std::function<void(const UXEvent& event)> action);
    void click(const UXEvent& event);

    // From KXControlPart
    void describe(UXAccessibleInfo& info) const override;

    // From UXJsonObject and UXObject
    std::string customSerializeTypeID() override;
    /** Takes the size of its text. */
    void autoResize() override;

protected:
    void _paintPart(UXPainter& painter) const override;
    bool customKeyDown(const UXEvent& event, bool& stop) override;

private:
    std::string m_text;
    std::function<void(const UXEvent&)> m_action;
    bool m_primary = false;
    bool m_quiet = false;
};
