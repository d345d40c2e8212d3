#pragma once

#include "ux/ux_accessible_change.h"
#include "ux/ux_control_dimension.h"
#include "ux/ux_control_point.h"
#include "ux/ux_control_rect.h"
#include "ux/ux_control_size.h"
#include "ux/ux_cursor.h"
#include "ux/ux_double_control_point.h"
#include "ux/ux_double_control_rect.h"
#include "ux/ux_double_control_size.h"
#include "ux/ux_double_point.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_export.h"
#include "ux/ux_point.h"
#include "ux/ux_rect.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class UXContext;
class UXDiagram;
class UXEvent;
class UXObject;
class UXPaintConfig;
class UXTimer;
struct UXMessageRightClickParam;

/**
 * The place on the host's screen where one diagram is shown. A host derives its own control, tells it its
 * rectangle, and overrides what it wants to hear about.
 *
 * A diagram's point lies at diagram origin + point x zoom in the control's space, which counts the screen's
 * pixels from the control's top left corner. The zoom is the product of the user's ratio and the screen's
 * scaling factor.
 */
class UX_EXPORT UXControl {
public:
    UXControl();
    virtual ~UXControl();

    UXControl(const UXControl&) = delete;
    UXControl& operator=(const UXControl&) = delete;

    /** @return the context that the control was added to, null for none */
    UXContext* getContext() const { return m_context; }
    /** @return the diagram that the control shows, null for none */
    UXDiagram* getActiveDiagram() const { return m_activeDiagram; }
    /** @return what expires with the control, for whoever keeps its address */
    std::weak_ptr<const bool> getLife() const { return m_life; }

    // Use cases, such as 1 to present and 2 to interact
    const std::vector<int>& getUseCases() const { return m_useCases; }
    void setUseCases(const std::vector<int>& useCases);
    bool containUseCase(int useCase) const;

    // Place, in the screen's pixels
    virtual UXControlRect getControlRect() const;
    /** A changed size is given on to a diagram that is aligned to the control, and told to all on it. */
    virtual void setControlRect(const UXControlRect& rect);
    /** @return the rectangle as it would be on a screen with the scaling factor 1 */
    virtual UXControlRect getControlRectWithoutScalingFactor() const;
    double getScalingFactor() const { return m_scalingFactor; }
    /** A factor that is not above 0, or not finite, is refused. */
    virtual void setScalingFactor(double factor);

    // Zoom
    /** @return the user's ratio, 1 at first, from minZoomRatio to maxZoomRatio */
    double getZoomRatio() const { return m_zoomRatio; }
    virtual double getZoomRatioWithScalingFactor() const;
    /** The diagram's origin stays where it is on the screen. */
    virtual void setZoomRatio(double ratio);
    /** One step, a quarter of the ratio, unless something under the event's point has a responder that takes
     * the zoom for itself.
     *  @param keepMousePoint on: what lies under the event's point stays there; off: the middle of the
     * control does */
    virtual void zoomIn(bool keepMousePoint, const UXEvent& event);
    virtual void zoomOut(bool keepMousePoint, const UXEvent& event);
    /** Back to the ratio 1 and the origin (0, 0). */
    virtual void zoomReset();

    // Origin: where the diagram's (0, 0) lies, in the diagram's units or in the control's space
    virtual UXPoint getDiagramOrigin() const;
    virtual void setDiagramOrigin(UXPoint origin);
    virtual UXControlPoint getDiagramOriginInControlSpace() const;
    virtual void setDiagramOriginInControlSpace(const UXControlPoint& origin);
    virtual UXDoubleControlPoint getDiagramDoubleOriginInControlSpace() const;
    /** An origin that is not finite is refused. */
    virtual void setDiagramDoubleOriginInControlSpace(const UXDoubleControlPoint& origin);
    /** @return whether the diagram is larger than the control on a side, or not quite inside */
    virtual bool getCanScrollDiagram() const;

    // Conversions. Points and dimensions are rounded to the nearest, rectangles to the smallest whole one
    // around.
    UXPoint controlSpaceToDiagramSpace(const UXControlPoint& point) const;
    UXRect controlSpaceToDiagramSpace(const UXControlRect& rect) const;
    UXDoublePoint controlSpaceToDiagramSpace(const UXDoubleControlPoint& point) const;
    UXDoubleRect controlSpaceToDiagramSpace(const UXDoubleControlRect& rect) const;
    double controlSpaceToDiagramSpace(const UXControlDimension& dimension) const;
    UXControlPoint diagramSpaceToControlSpace(const UXPoint& point) const;
    UXControlRect diagramSpaceToControlSpace(const UXRect& rect) const;
    UXDoubleControlPoint diagramSpaceToControlSpace(const UXDoublePoint& point) const;
    UXDoubleControlRect diagramSpaceToControlSpace(const UXDoubleRect& rect) const;
    UXControlDimension diagramSpaceToControlSpace(double dimension) const;

    // Input, for the host to call. Each sends a copy of event to the active diagram, with point in both
    // spaces, this control and its use cases. When the dispatch is over, the cursor follows what lies under
    // the pointer, and customEvent is called. Each returns whether the diagram handled the event; a callback
    // may have destroyed the control by then.
    bool mouseDown(const UXControlPoint& point, const UXEvent& event);
    bool mouseMove(const UXControlPoint& point, const UXEvent& event);
    /** The right button let go over something that handles nothing, but responds to a context menu, asks the
     * host for it. */
    bool mouseUp(const UXControlPoint& point, const UXEvent& event);
    bool mouseEnter(const UXControlPoint& point, const UXEvent& event);
    /** The pointer left the control. */
    bool mouseLeave(const UXControlPoint& point, const UXEvent& event);
    bool mouseWheel(const UXControlPoint& point, const UXEvent& event);
    bool mouseDoubleClick(const UXControlPoint& point, const UXEvent& event);
    /** Something from outside of the diagram is dragged over the control, or dropped on it. */
    bool externalDragging(const UXControlPoint& point, const UXEvent& event);
    bool externalDrop(const UXControlPoint& point, const UXEvent& event);
    bool keyDown(const UXEvent& event);
    bool keyUp(const UXEvent& event);
    /** @return the cursor that the host was told last */
    UXCursor getCursor() const { return m_cursor; }

    // What the host calls
    /** Runs the timers that are due and the actions posted so far.
     *  @param nowMilliseconds on a clock of the host's that does not go back */
    virtual void timer(std::int64_t nowMilliseconds);
    /** @return how many milliseconds from now timer() has something to do: 0 where a timer is due or has yet
     * to begin to count, or an action waits; nothing while there is nothing to wait for, so that a host may
     * sleep
     *  @param nowMilliseconds on the clock of timer() */
    std::optional<std::int64_t> obtainNextTimer(std::int64_t nowMilliseconds) const;
    /** Makes a diagram that is aligned to the control as large as the control shows it. */
    virtual void resizeDiagramAlignClient();
    /** Keeps action until the present event has been dispatched, or until the next timer without one. */
    virtual void postAction(const std::function<void()>& action);
    /** Runs the posted actions in order, those included that they post themselves. */
    void runPostedActions();

    // What the host overrides. Notifications without an event come when the outermost call of the framework
    // ends: whoever is told may paint at once and destroy anything.
    /** @return what diagram is painted on now, the host's: with the control's zoom and origin applied, or
     * without them for a global diagram in the control's own space; null when the control paints later, when
     * its system asks it to */
    virtual UXPaintConfig* obtainPaintConfig(UXDiagram* diagram);
    /** Called after an event has been dispatched through this control. */
    virtual void customEvent();
    /** @return whether the control paints a background of its own behind the diagram, whose own is then left
     * out */
    virtual bool hasDefaultBackground() const;
    /** @return whether the user wants no motion: what would glide jumps then */
    virtual bool shouldReduceMotion() const;
    /** Areas of diagram wait to be painted: the control asks its system for a paint, once for all that come
     * until then, and calls the diagram's repaintDirtyRect in it. */
    virtual void notifyDirtyRect(UXDiagram* diagram);
    /** All that the control shows has moved or is new. The diagram has no dirty areas for it: the control
     * paints anew as a whole. */
    virtual void notifyFullScreenDirtyRect(UXDiagram* diagram);
    /** @param cursor the number of a UXCursor, never AsParent, or one of the host's own */
    virtual void notifyCursorChange(int cursor);
    virtual void notifyDiagramAlignChanged(UXDiagram* diagram);
    virtual void notifyDiagramSizeChanged(UXDiagram* diagram);
    /** Moves what the control shows of diagram by distance, in the diagram's space. */
    virtual void notifyDiagramMove(UXDiagram* diagram, UXPoint distance);
    /** Someone on the diagram hands an event on to the host. */
    virtual void notifyEvent(const UXEvent& event);
    /** @param object what the event is about
     *  @param point where, as the sender and the host agree */
    virtual void notifyEvent(const UXEvent& event, UXObject* object, UXPoint point);
    /** The user asks for a context menu.
     *  @param param valid during the call
     *  @param point in the diagram's space */
    virtual void notifyRightClickMenu(UXMessageRightClickParam* param, UXPoint point);
    /** The origin, the zoom or an extent changed, and with it what scroll bars show. */
    virtual void notifyResetScroller();
    /** Something that is read instead of seen is different: the host's adapter reads object's node anew
     *  (uxCreateAccessibleNode) and tells its system.
     *  @param object on what the control shows */
    virtual void notifyAccessibleChange(UXObject* object, UXAccessibleChange change);

    static constexpr double minZoomRatio = 0.1;
    static constexpr double maxZoomRatio = 10;

private:
    friend class UXContext;
    friend class UXDiagram;
    friend class UXEvent;
    friend class UXTimer;

    using Entry = bool (UXObject::*)(const UXEvent&);

    bool _sendAt(Entry entry, const UXControlPoint& point, const UXEvent& event);
    UXEvent _locate(const UXControlPoint& point, const UXEvent& event);
    bool _send(Entry entry, const UXEvent& event);
    void _addOwn(UXEvent& event);
    void _updateCursor();
    void _zoomStep(double factor, bool keepMousePoint, const UXEvent& event);
    void _setZoomRatioAround(double ratio, const UXDoubleControlPoint& fixedPoint);
    void _tellDevice();
    void _originChanged();

    // Lets those who call the control back notice that it is gone.
    std::shared_ptr<const bool> m_life;
    UXContext* m_context = nullptr;
    UXDiagram* m_activeDiagram = nullptr;
    std::vector<int> m_useCases;
    UXControlRect m_controlRect;
    double m_scalingFactor = 1;
    double m_zoomRatio = 1;
    UXDoubleControlPoint m_origin;
    UXCursor m_cursor = UXCursor::Arrow;
    bool m_hasPointer = false; // as far as the host has told
    std::vector<UXTimer*> m_timers;
    std::deque<std::function<void()>> m_postedActions;
};
