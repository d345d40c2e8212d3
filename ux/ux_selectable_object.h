#pragma once

#include "ux/ux_object.h"

/**
 * An object that can be highlighted and selected, with a colour for either. Until they are set, both follow
 * the ordinary colour: the highlight is lighter, the selection darker. The pointer highlights while it is
 * over the object, and a press and release on it turns the selection around.
 */
class UX_EXPORT UXSelectableObject : public UXObject {
public:
    UXSelectableObject();
    ~UXSelectableObject() override;

    // From UXObject
    /** Writes the highlight and the selected colour. */
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;
    void setColor(const UXColor& color) override;
    void setSelected(bool selected) override;

    /** @param notify off: the object is painted anew, but selectionChanged is not called */
    virtual void setSelected(bool selected, bool notify);
    virtual void setHighlightColor(const UXColor& color);
    virtual UXColor getHighlightColor() const;
    virtual void setSelectedColor(const UXColor& color);
    virtual UXColor getSelectedColor() const;

    /** Selects, or no longer, every child that can be. */
    void setSelectionToAllChildren(bool selected);
    /** @return the colour of the object's state: that of a selection before that of a highlight */
    UXColor obtainStateColor() const;

protected:
    void highlightChanged() override;
    void selectionChanged() override;
    bool customMouseDown(const UXEvent& event, bool& stop) override;
    bool customMouseUp(const UXEvent& event, bool& stop) override;
    bool customMouseEnter(const UXEvent& event, bool& stop) override;
    bool customMouseLeave(const UXEvent& event, bool& stop) override;
    bool customMouseDoubleClick(const UXEvent& event, bool& stop) override;

private:
    void _followColor();

    UXColor m_highlightColor;
    UXColor m_selectedColor;
    bool m_hasHighlightColor = false;
    bool m_hasSelectedColor = false;
};
