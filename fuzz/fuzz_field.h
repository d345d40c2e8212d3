#pragma once

#include "ux/ux_hint_delegate.h"
#include "ux/ux_input_delegate.h"
#include "ux/ux_label.h"

#include <functional>

/** An object of the host's own: it takes text, explains itself, can be dragged and dropped on, and does
 * anything to its scene whenever it is called. */
class FuzzField : public UXLabel, public UXInputDelegate, public UXHintDelegate {
public:
    explicit FuzzField(std::function<void()> act);

protected:
    // From UXObject
    bool customMouseDown(const UXEvent& event, bool& stop) override;
    bool customMouseMove(const UXEvent& event, bool& stop) override;
    bool customMouseLeave(const UXEvent& event, bool& stop) override;
    bool customKeyDown(const UXEvent& event, bool& stop) override;
    bool customMouseDragging(const UXEvent&, bool&) override { return _act(); }
    bool customMouseDragEnter(const UXEvent&, bool&) override { return _act(); }
    bool customMouseDragOver(const UXEvent&, bool&) override { return _act(); }
    bool customMouseDragLeave(const UXEvent&, bool&) override { return _act(); }
    bool customMouseDrop(const UXEvent&, bool&) override { return _act(); }

    // From UXInputDelegate
    bool shouldAcceptInput(const std::string& candidate) override { return candidate.size() < 100; }
    void inputTextChanged() override;
    void inputFinished() override { _act(); }
    void inputCancelled() override { _act(); }

private:
    /** The object may be gone afterwards. */
    bool _act();

    std::function<void()> m_act;
};
