#pragma once

#include "ux/ux_export.h"
#include "ux/ux_selectable_object.h"
#include "ux/ux_symbol_style.h"

class UXPainter;

/** A small mark of a legend or a line, in one of the symbol styles. It takes the pointer inside its shape
 * only. */
class UX_EXPORT UXSymbol : public UXSelectableObject {
public:
    UXSymbol();
    ~UXSymbol() override;

    UXSymbolStyle getSymbolStyle() const;
    void setSymbolStyle(UXSymbolStyle style);

    /** @param point in the symbol's own space
     *  @return whether the drawn shape lies there; thin lines have some tolerance */
    bool ptInShape(UXPoint point);

    // From UXJsonObject and UXObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

protected:
    bool shouldTriggerMouseDown(const UXEvent& event) override;
    bool shouldTriggerMouseMove(const UXEvent& event) override;
    bool shouldTriggerMouseUp(const UXEvent& event) override;
    bool shouldTriggerMouseEnter(const UXEvent& event) override;
    bool shouldTriggerMouseLeave(const UXEvent& event) override;
    bool shouldTriggerMouseWheel(const UXEvent& event) override;
    bool shouldTriggerMouseDoubleClick(const UXEvent& event) override;
    bool shouldTriggerMouseDragging(const UXEvent& event) override;
    bool shouldTriggerMouseDrop(const UXEvent& event) override;
    bool shouldTriggerMouseDragEnter(const UXEvent& event) override;
    bool shouldTriggerMouseDragOver(const UXEvent& event) override;
    bool shouldTriggerMouseDragLeave(const UXEvent& event) override;
    bool shouldTriggerKeyDown(const UXEvent& event) override;
    bool shouldTriggerKeyUp(const UXEvent& event) override;

private:
    bool _isOverShape(const UXEvent& event);

    UXSymbolStyle m_symbolStyle = UXSymbolStyle::Rectangle;
};
