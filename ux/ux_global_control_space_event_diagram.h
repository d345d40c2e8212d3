#pragma once

#include "ux/ux_global_event_diagram.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

class UXHint;
struct UXHintInfo;

/**
 * A global diagram whose space is the control's, in pixels: what is on it keeps its size whatever the zoom
 * is. The hints of the diagrams that it serves stand here; a host that wants hints registers one on its
 * diagram.
 *
 * Painting. A control paints its diagram first and then this one over it, on a configuration without zoom and
 * origin. Areas that become dirty wait in getDirtyRegion(), in the control's pixels, until clearDirtyRect();
 * the controls that show a served diagram are told by notifyDirtyRect. Each of them paints the served diagram
 * and then paintOver, in the dirty areas of both. layout() comes before, as the served diagram's does.
 */
class UX_EXPORT UXGlobalControlSpaceEventDiagram : public UXGlobalEventDiagram {
public:
    explicit UXGlobalControlSpaceEventDiagram(UXContext* context = nullptr);
    ~UXGlobalControlSpaceEventDiagram() override;

    // Hints. What is asked during an event shows when its dispatch is over, otherwise at once. The pointer
    // leaving the control and a press hide the hints on it, as Escape does until something else is explained.
    /** Shows a hint, or changes the one that was shown with the same info.
     *  @param info what the hint says, copied; its address tells the hint from others. Not enabled hides.
     *  @param target what explains itself; when it is gone, hidden or on none of the served diagrams, so is
     * the hint
     *  @param point what is explained, in the space of target
     *  @param control where; null for all controls that show the diagram of target
     *  @param area all of what is explained, which the hint leaves free where it can, in the space of target;
     * empty for the point alone */
    virtual void showHint(UXHintInfo* info, UXObject* target, UXPoint point, UXControl* control, UXRect area);
    /** @param info as it was given to showHint, which may be gone; null for all hints
     *  @param control null for all controls */
    virtual void hideHint(UXHintInfo* info, UXControl* control);
    /** @return the hints that are to be seen on control; null for all controls */
    std::vector<UXHint*> getVisibleHints(const UXControl* control = nullptr) const;

    /** Paints what stands over one control. Unlike paint it leaves the hints of the others out.
     *  @param config with the control's pixels as its units
     *  @param dirtyRect in the control's pixels */
    void paintOver(const UXControl* control, UXPaintConfig* config, UXRect dirtyRect);

    // From UXGlobalEventDiagram
    /** @return point itself without a control */
    UXPoint diagramSpaceToGlobalDiagramSpace(UXPoint point, UXControl* control) const override;
    UXPoint globalDiagramSpaceToDiagramSpace(const UXEvent& event) const override;
    bool isInDiagramSpace() const override;

    // From UXObject
    std::string customSerializeTypeID() override;
    /** The hints follow what they explain. */
    void layout() override;
    void flushDirtyRect() override;
    bool mouseDown(const UXEvent& event) override;
    bool mouseMove(const UXEvent& event) override;
    bool mouseEnter(const UXEvent& event) override;
    bool mouseLeave(const UXEvent& event) override;
    /** Escape is handled when it closes a hint. */
    bool keyDown(const UXEvent& event) override;
    bool controlSize(const UXEvent& event) override;

protected:
    void servedDiagramLeft() override;

private:
    struct Pointer {
        std::weak_ptr<const bool> controlLife;
        const UXControl* control;
        UXPoint point;
    };

    UXHint& _obtainHint(const UXHintInfo* key, UXControl* control);
    bool _serves(UXObject* target) const;
    std::optional<UXPoint> _obtainPointer(const UXControl* control) const;
    void _notePointer(const UXEvent& event);
    void _forgetPointer(const UXControl* control);
    void _requireUpdate();
    void _updateHints();

    std::vector<std::unique_ptr<UXHint>> m_hints; // children; those that are over are used again
    std::vector<Pointer> m_pointers;              // of the controls that have the pointer
    std::uint64_t m_updateDispatch = 0;           // the one at whose end the hints are updated; 0 for none
    bool m_updating = false;
};
