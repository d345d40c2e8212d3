#pragma once

#include "ux/ux_double_point.h"
#include "ux/ux_global_event_diagram.h"
#include "ux/ux_timer.h"

/**
 * Moves the diagrams that it serves inside a control that is too small for them: by the wheel, and by
 * dragging where nothing wants the drag for itself. A drag that is let go in motion glides on and comes to
 * rest; a press stops it. The control's timer drives the motion, a step in a frame; where the user wants no
 * motion, the wheel jumps and nothing glides.
 *
 * What stands on a diagram keeps the wheel or a drag by a responder of the type Scroll or Drag.
 */
class UX_EXPORT UXGlobalSmoothScrollingEventDiagram : public UXGlobalEventDiagram {
public:
    explicit UXGlobalSmoothScrollingEventDiagram(UXContext* context = nullptr);
    ~UXGlobalSmoothScrollingEventDiagram() override;

    bool isPanning() const { return m_state == State::Panning; }
    bool isGliding() const { return m_state == State::Gliding || m_state == State::Approaching; }

    // From UXGlobalEventDiagram and UXObject
    /** Ends drag and motion where they are. */
    void endActions() override;
    std::string customSerializeTypeID() override;
    void customAfterEvent(const UXEvent& event) override;

protected:
    bool customMouseDown(const UXEvent& event, bool& stop) override;
    bool customMouseMove(const UXEvent& event, bool& stop) override;
    bool customMouseUp(const UXEvent& event, bool& stop) override;
    bool customMouseWheel(const UXEvent& event, bool& stop) override;
    bool customMouseDoubleClick(const UXEvent& event, bool& stop) override;
    /** What a move is while the press lasts. */
    bool customMouseDragging(const UXEvent& event, bool& stop) override;

private:
    enum class State {
        Resting,
        Pressed,    // a drag may begin
        Panning,    // the drag moves the diagram
        Gliding,    // the drag was let go in motion
        Approaching // the wheel's turns are not all moved yet
    };

    UXEvent _obtainActiveDiagramEvent(const UXEvent& event) const;
    bool _pan(const UXEvent& event);
    void _start(State state, UXControl* control);
    void _frame();
    /** @return what the bounds of the content left of distance; both in the control's pixels */
    UXDoublePoint _move(UXControl& control, const UXDoublePoint& distance);

    State m_state = State::Resting;
    UXTimer m_timer;
    // Read only while the timer runs, which the control's end stops.
    UXControl* m_control = nullptr;
    UXControlPoint m_pressPoint, m_lastPoint;
    bool m_pressedWithButton = false;
    UXDoublePoint m_movedInFrame; // since the last frame
    UXDoublePoint m_velocity;     // pixels in a frame
    UXDoublePoint m_wheelRest;    // pixels still to move
    UXDoublePoint m_unitRest;     // of the diagram, less than a unit, not moved yet
};
