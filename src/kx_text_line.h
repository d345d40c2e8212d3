#pragma once

#include "kx_control_part.h"
#include "kx_export.h"
#include "ux/ux_input_delegate.h"

#include <cstddef>
#include <functional>
#include <string>

/**
 * A line of text that the user types: with caret, selection, clipboard and undo, scrolled sideways where it
 * is longer than its place. One for searching shows a glass before and, with text, a cross behind, which a
 * click clears it with.
 */
class KX_EXPORT KXTextLine : public KXControlPart, public UXInputDelegate {
public:
    KXTextLine();
    ~KXTextLine() override;

    /** @param text shown fainter while nothing is typed */
    void setPlaceholder(const std::string& text);
    void setForSearch(bool forSearch);
    bool isForSearch() const { return m_forSearch; }
    /** Shows whether what is typed means something. */
    void setValid(bool valid);
    bool isValid() const { return m_valid; }
    /** Replaces the text, tells nobody. */
    void setText(const std::string& text);
    /** @param handler called after each change that the user makes; may destroy this, as the others may */
    void setChangedHandler(std::function<void()> handler);
    /** @param handler called for Enter and Tab, which is not taken, with the event */
    void setFinishedHandler(std::function<void(const UXEvent& event)> handler);
    /** @param handler called for Escape, which is not taken without one; it clears a text that is searched
     * for
     */
    void setCancelledHandler(std::function<void()> handler);

    // From KXControlPart
    void describe(UXAccessibleInfo& info) const override;

    // From UXJsonObject and UXObject
    std::string customSerializeTypeID() override;
    void setRect(UXRect rect) override;
    /** Takes the height of a line, and leaves the width. */
    void autoResize() override;

protected:
    void _paintPart(UXPainter& painter) const override;
    bool customKeyDown(const UXEvent& event, bool& stop) override;
    bool customMouseDown(const UXEvent& event, bool& stop) override;
    bool customMouseDragging(const UXEvent& event, bool& stop) override;
    bool customMouseDoubleClick(const UXEvent& event, bool& stop) override;
    bool customMouseMove(const UXEvent& event, bool& stop) override;

    // From UXInputDelegate
    void inputTextChanged() override;
    void inputCompositionChanged() override;
    void inputCancelled() override;

private:
    UXDoubleRect _obtainTextRect() const;
    UXDoubleRect _obtainClearRect() const;
    UXDoubleRect _obtainSignRect(bool isAtRight) const;
    bool _isOnClear(const UXEvent& event) const;
    bool _beginsAtRight() const;
    double _obtainTextLeft() const;
    double _measure(std::size_t begin, std::size_t end) const;
    double _measureCaret() const;
    std::size_t _obtainPosition(const UXEvent& event) const;
    void _showCaret();
    void _paintText(UXPainter& painter, const UXDoubleRect& rect) const;

    std::string m_placeholder;
    std::function<void()> m_changedHandler, m_cancelledHandler;
    std::function<void(const UXEvent&)> m_finishedHandler;
    double m_scroll = 0; // how far the text is moved to the left
    bool m_forSearch = false;
    bool m_valid = true;
};
