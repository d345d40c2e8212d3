#pragma once

#include "ux/ux_export.h"
#include "ux/ux_hint_line.h"
#include "ux/ux_object.h"

class UXPainter;

/** One line of text in a hint. */
class UX_EXPORT UXHintRow : public UXObject {
public:
    UXHintRow();
    ~UXHintRow() override;

    const UXHintLine& getLine() const { return m_line; }
    /** Takes the line's place in the frame, too. What is as before is not painted anew. */
    void setLine(const UXHintLine& line);

    // From UXObject
    std::string customSerializeTypeID() override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

protected:
    /** @param painter in the row's own space */
    virtual void drawLine(UXPainter& painter);

private:
    UXHintLine m_line;
};
