#pragma once

#include "ux/ux_export.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_hint_layout.h"
#include "ux/ux_object.h"

#include <string>
#include <vector>

class UXHintRow;
class UXPainter;

/** The box of a hint with its lines: a quiet frame with round corners and a soft shadow, white unless it
 * stands on a dark ground. */
class UX_EXPORT UXHintFrame : public UXObject {
public:
    UXHintFrame();
    ~UXHintFrame() override;

    const UXHintInfo& getHintInfo() const { return m_hintInfo; }
    /** Shows nothing of it before showLayout. */
    void setHintInfo(const UXHintInfo& info);
    /** Takes colours that go with what lies under the hint: dark ones on a dark ground.
     *  @param ground opaque */
    void standOn(const UXColor& ground);
    /** @param text what tells how many rows are left out, see uxLayOutHint */
    void setMoreText(const std::string& text);

    /** @return how the lines would stand in a frame that has room for limit, in logical units */
    const UXHintLayout& obtainLayout(const UXSize& limit);
    /** Takes the layout's size and gives every line an object, those that are there already first. Only what
     * looks different is painted anew. */
    void showLayout(const UXHintLayout& layout);

    /** @return the rectangle that the frame paints, shadow included, in its own space */
    UXRect obtainPaintedRect() const;

    // From UXObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;
    bool inRect(UXRect rect) const override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

protected:
    UXRect customDirtyRect() override;

private:
    UXHintRow* _obtainRow(std::size_t index, bool isDetails);
    void _drawGround(UXPainter& painter) const;
    void _drawSeparator(UXPainter& painter) const;

    UXHintInfo m_hintInfo;
    std::string m_moreText;
    UXHintLayout m_layout; // for m_limit
    UXSize m_limit;
    bool m_layoutIsValid = false;
    bool m_isDark = false;
    std::vector<UXHintRow*> m_rows; // children
    int m_separatorY = -1;
};
