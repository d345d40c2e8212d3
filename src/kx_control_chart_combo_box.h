#pragma once

#include "kx_control_part.h"
#include "kx_export.h"

#include <functional>
#include <string>

/** A box that tells what is chosen, and opens a list of what can be. */
class KX_EXPORT KXControlChartComboBox : public KXControlPart {
public:
    KXControlChartComboBox();
    ~KXControlChartComboBox() override;

    const std::string& getText() const { return m_text; }
    void setText(const std::string& text);
    bool isOpen() const { return m_open; }
    void setOpen(bool open);
    /** @param handler called for a click, Enter, Space and Down; may destroy this */
    void setOpenHandler(std::function<void()> handler);

    // From KXControlPart
    void describe(UXAccessibleInfo& info) const override;

    // From UXJsonObject and UXObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;
    /** Takes the height of its text, and leaves the width. */
    void autoResize() override;

protected:
    void _paintPart(UXPainter& painter) const override;
    bool customKeyDown(const UXEvent& event, bool& stop) override;

private:
    void _callHandler();

    std::string m_text;
    std::function<void()> m_openHandler;
    bool m_open = false;
};
