#pragma once

#include "ux/ux_align.h"
#include "ux/ux_color.h"
#include "ux/ux_cursor.h"
#include "ux/ux_direction.h"
#include "ux/ux_dirty_region.h"
#include "ux/ux_event.h"
#include "ux/ux_event_key.h"
#include "ux/ux_event_responder_type.h"
#include "ux/ux_event_type.h"
#include "ux/ux_export.h"
#include "ux/ux_json_object.h"
#include "ux/ux_padding.h"
#include "ux/ux_point.h"
#include "ux/ux_rect.h"
#include "ux/ux_size.h"
#include "ux/ux_transform.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class UXChildWalk;
class UXObjectWatcher;
class UXPaintConfig;
class UXSpace;

/** How deep objects may stand inside one another: layout, painting and the end of a tree go down all the way.
 */
inline constexpr int uxDeepestObjectNesting = 500;

/**
 * What everything on a diagram is: a rectangle in a tree of such, which is laid out, painted and sent events.
 *
 * Spaces. getRect() is in the parent's space; an object's own space has its origin at the rectangle's top
 * left corner. An object without a parent is the root, and its own space is the space of the whole tree: on a
 * diagram, the diagram's space. Results of translations stop at int's limits.
 *
 * Direction. An object that runs from right to left inside one that does not, or the other way round, has its
 * own space mirrored: its origin is the rectangle's top right corner, and x grows to the left. It is written,
 * laid out and hit as if it were not; what it paints is mirrored except for texts and images, and keys and
 * wheels that go sideways reach it exchanged. A root's own space never is: the direction of a diagram is that
 * of what stands on it.
 *
 * Ownership. An object destroys the children that it still has. An object that is destroyed, or added
 * elsewhere, leaves its parent by itself. A class whose own end makes anything dirty, or that mixes in a
 * UXHintDelegate, leaves first: its destructor begins with setParent(nullptr), so that nobody paints what is
 * half gone.
 *
 * Callbacks. Hooks, filters, handlers and predicates may destroy any object, the one that called included;
 * whoever goes on after one looks at a UXObjectWatcher first. What a control is told comes after all of it:
 * see UXNotificationScope.
 */
class UX_EXPORT UXObject : public UXJsonObject {
public:
    UXObject();
    ~UXObject() override;

    UXObject(const UXObject&) = delete;
    UXObject& operator=(const UXObject&) = delete;

    // From UXJsonObject: an object writes what its class adds, and neither children nor parent nor rectangle.
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    std::string customSerializeVersion() override;
    bool customDeserialize() override;

protected:
    // Layout and painting hooks
    /** Called when the object becomes marked for layout. */
    virtual void requireLayoutMarked();
    /** Places the children. The base places those with an alignment inside the content rectangle. */
    virtual void customLayout();
    /** @return the area that the object paints, in its own space; by default its bounding rectangle */
    virtual UXRect customDirtyRect();
    virtual void highlightChanged();
    virtual void selectionChanged();
    /** @return whether an event that this object took goes on to what lies behind it; not unless overridden
     */
    virtual bool shouldForwardEventToNeighbors(const UXEvent& event);

    // Event filters: true to accept the event, which is the default
    virtual bool shouldTriggerMouseDown(const UXEvent& event);
    virtual bool shouldTriggerMouseMove(const UXEvent& event);
    virtual bool shouldTriggerMouseUp(const UXEvent& event);
    virtual bool shouldTriggerMouseEnter(const UXEvent& event);
    virtual bool shouldTriggerMouseLeave(const UXEvent& event);
    virtual bool shouldTriggerMouseWheel(const UXEvent& event);
    virtual bool shouldTriggerMouseDoubleClick(const UXEvent& event);
    virtual bool shouldTriggerMouseDragging(const UXEvent& event);
    virtual bool shouldTriggerMouseDrop(const UXEvent& event);
    virtual bool shouldTriggerMouseDragEnter(const UXEvent& event);
    virtual bool shouldTriggerMouseDragOver(const UXEvent& event);
    virtual bool shouldTriggerMouseDragLeave(const UXEvent& event);
    virtual bool shouldTriggerKeyDown(const UXEvent& event);
    virtual bool shouldTriggerKeyUp(const UXEvent& event);

    // Event handlers: true when the object handled the event; setting stop ends the dispatch. By default
    // neither.
    virtual bool customMouseDown(const UXEvent& event, bool& stop);
    virtual bool customMouseMove(const UXEvent& event, bool& stop);
    virtual bool customMouseUp(const UXEvent& event, bool& stop);
    virtual bool customMouseEnter(const UXEvent& event, bool& stop);
    virtual bool customMouseLeave(const UXEvent& event, bool& stop);
    virtual bool customMouseWheel(const UXEvent& event, bool& stop);
    virtual bool customMouseDoubleClick(const UXEvent& event, bool& stop);
    virtual bool customMouseDragging(const UXEvent& event, bool& stop);
    virtual bool customMouseDrop(const UXEvent& event, bool& stop);
    virtual bool customMouseDragEnter(const UXEvent& event, bool& stop);
    virtual bool customMouseDragOver(const UXEvent& event, bool& stop);
    virtual bool customMouseDragLeave(const UXEvent& event, bool& stop);
    virtual bool customKeyDown(const UXEvent& event, bool& stop);
    virtual bool customKeyUp(const UXEvent& event, bool& stop);

public:
    // Attributes
    virtual std::string getName() const;
    virtual void setName(const std::string& name);
    virtual UXColor getColor() const;
    virtual void setColor(const UXColor& color);
    virtual UXColor getBorderColor() const;
    virtual void setBorderColor(const UXColor& color);
    /** @return clear unless set */
    virtual UXColor getBackgroundColor() const;
    virtual void setBackgroundColor(const UXColor& color);
    virtual bool getShowBorder() const;
    virtual void setShowBorder(bool showBorder);
    /** @return whether the object is marked for layout; a new one is */
    virtual bool getRequireToVerifyLayout() const;
    virtual void setRequireToVerifyLayout(bool requireToVerifyLayout);
    /** @param repaint on: the object's area is painted anew too */
    virtual void setRequireToVerifyLayout(bool requireToVerifyLayout, bool repaint);
    /** @param space stays its owner's; null for none */
    virtual void setSpace(UXSpace* space);
    /** @return null for a root */
    virtual UXObject* getParent() const;
    /** Moves the object to the end of parent's children; null takes it out of the parent that it has. */
    virtual void setParent(UXObject* parent);
    virtual void setPadding(const UXPadding& padding);
    virtual void setAlign(UXAlign align);
    /** @return whether each layout ends with autoResize; off unless set */
    virtual bool getAutoResize() const;
    virtual void setAutoResize(bool autoResize);
    virtual bool getVisible() const;
    virtual void setVisible(bool visible);
    /** @return whether the object can be highlighted; off unless set */
    virtual bool getHighlightable() const;
    virtual void setHighlightable(bool highlightable);
    virtual bool getHighlighted() const;
    virtual void setHighlighted(bool highlighted);
    /** @return whether the object can be selected; off unless set */
    virtual bool getSelectable() const;
    virtual void setSelectable(bool selectable);
    virtual bool getSelected() const;
    virtual void setSelected(bool selected);

    // Geometry
    /** @return the rectangle in the parent's space */
    virtual UXRect getRect() const;
    /** A changed rectangle marks the object, and a changed size its parents too. */
    virtual void setRect(UXRect rect);
    /** @return the rectangle less the padding, in the parent's space; no extent goes below 0 */
    virtual UXRect getRectExcludePadding() const;
    /** @return (0, 0, width, height), in the own space */
    virtual UXRect getBoundingRect() const;
    /** @return the bounding rectangle enlarged to hold all visible descendants, in the own space */
    virtual UXRect getBoundingRectIncludeChildren() const;
    /** @return the bounding rectangle less the padding; no extent goes below 0 */
    virtual UXRect getContentRect() const;

    // Update and layout
    /** Begins a batch of changes. Until the matching endUpdate, layout, dirty areas and repaints of the
     * object and of all inside it wait; batches nest, and those of parents count. */
    virtual void beginUpdate();
    /** Ends a batch; the outermost then does once what waited. */
    virtual void endUpdate();
    /** @return whether a batch of this object or one of its parents is open */
    virtual bool isUpdating() const;
    /** Marks the object for layout.
     *  @return whether it was not marked before */
    virtual bool requireLayout();
    /** Lays out the object if it is marked, then the visible objects inside it that are, and clears the
     * marks. An object that asks for a layout while its own runs is laid out by that one. What a layout finds
     * missing is asked for after the outermost one, which then goes on for some rounds (UXLayoutRounds). */
    virtual void layout();
    /** Fits width and height to the visible children and the padding; without children it changes nothing. */
    virtual void autoResize();
    /** From here to the matching endLayoutWithFPSControl the object lays itself out once a frame at most,
     * however often it is asked; what was held back is done at the end. Nests. */
    virtual void beginLayoutWithFPSControl();
    virtual void endLayoutWithFPSControl();
    virtual bool isLayoutingWithFPSControl() const;

    // Children, painted in order: the last is in front
    /** @return whether the object is a parent of this one, or a parent of a parent, and so on */
    virtual bool hasParent(UXObject* object) const;
    virtual std::uint64_t getChildrenCount() const;
    /** @return null past the end */
    virtual UXObject* getChild(std::uint64_t index) const;
    /** Takes child, which leaves the parent that it has, to the end. This object, its parents and diagrams,
     *  which stand in nothing, are refused, and so is what would stand deeper than uxDeepestObjectNesting. */
    virtual void addChild(UXObject* child);
    /** @param position the index that child gets, moved into what is possible */
    virtual void addChild(UXObject* child, int position);
    /** Hands child back to the caller; what is no child is left alone. */
    virtual void removeChild(UXObject* child);
    virtual void removeChild(std::uint64_t index);
    /** Hands all children back to whoever knows them. */
    virtual void removeChildren();
    /** Destroys all children. */
    virtual void clearChildren();
    virtual void removeChildAndAddToParent(UXObject* child, UXObject* parent);
    virtual void bringToFront();
    virtual void bringToBack();
    /** One place to the front. */
    virtual void bringUpper();
    /** One place to the back. */
    virtual void bringLower();
    virtual void bringChildToFront(UXObject* child);
    virtual void bringChildToBack(UXObject* child);
    /** Moves child to the place directly in front of other. */
    virtual void bringChildOverChild(UXObject* child, UXObject* other);
    /** Moves child to the place directly behind other. */
    virtual void bringChildUnderChild(UXObject* child, UXObject* other);
    virtual void bringChildUpper(UXObject* child);
    virtual void bringChildLower(UXObject* child);

    // Hit tests, in the own space
    virtual bool inRect(UXRect rect) const;
    virtual bool ptInRect(UXPoint point) const;

    // Translation from the own space of one object to that of another; null is the root of this object's
    // tree. Points and sizes are rounded to the nearest, a rectangle becomes the smallest whole one around
    // the exact one, and a dimension is a length without direction.
    virtual UXPoint translatePointToParent(UXPoint point, UXObject* parent) const;
    virtual UXSize translateSizeToParent(UXSize size, UXObject* parent) const;
    virtual UXRect translateRectToParent(UXRect rect, UXObject* parent) const;
    virtual double translateDimensionToParent(double dimension, UXObject* parent) const;
    virtual UXPoint translatePointToChild(UXPoint point, UXObject* child) const;
    virtual UXSize translateSizeToChild(UXSize size, UXObject* child) const;
    virtual UXRect translateRectToChild(UXRect rect, UXObject* child) const;
    virtual double translateDimensionToChild(double dimension, UXObject* child) const;
    virtual UXPoint translatePoint(UXPoint point, UXObject* to) const;
    virtual UXPoint translatePoint(UXPoint point, UXObject* from, UXObject* to) const;
    virtual UXSize translateSize(UXSize size, UXObject* from, UXObject* to) const;
    virtual UXRect translateRect(UXRect rect, UXObject* from, UXObject* to) const;
    virtual double translateDimension(double dimension, UXObject* from, UXObject* to) const;

    // Events. The filter decides whether this object takes the event; its handler, then the registered
    // handlers act.
    /** @return whether the event was handled */
    virtual bool mouseDown(const UXEvent& event);
    virtual bool mouseMove(const UXEvent& event);
    virtual bool mouseUp(const UXEvent& event);
    virtual bool mouseEnter(const UXEvent& event);
    virtual bool mouseLeave(const UXEvent& event);
    virtual bool mouseWheel(const UXEvent& event);
    virtual bool mouseDoubleClick(const UXEvent& event);
    virtual bool mouseDragging(const UXEvent& event);
    virtual bool mouseDragEnter(const UXEvent& event);
    virtual bool mouseDragOver(const UXEvent& event);
    virtual bool mouseDragLeave(const UXEvent& event);
    virtual bool mouseDrop(const UXEvent& event);
    virtual bool keyDown(const UXEvent& event);
    virtual bool keyUp(const UXEvent& event);
    /** The host's control changed its size. The base tells its visible children. */
    virtual bool controlSize(const UXEvent& event);
    /** Something from outside of the diagram is dragged over the object, or dropped on it. */
    virtual bool externalDragging(const UXEvent& event);
    virtual bool externalDrop(const UXEvent& event);

    // Repaint
    /** Has an area painted anew with the next repaint; rect is in the own space. */
    virtual void addDirtyRect(UXRect rect);
    virtual void clearDirtyRect();
    /** Passes the areas that wait here on to the parent, unless a batch is open. */
    virtual void flushDirtyRect();
    /** Invalidates every visible child. */
    virtual void invalidateChildren();
    /** Has all that the object paints painted anew with the next repaint. */
    virtual void invalidate();
    /** Has the diagram lay out and paint its dirty areas now. Without a diagram it does nothing. */
    virtual void repaintDirtyRect();
    /** The same, with all of this object in the dirty areas. */
    virtual void repaint();
    /** Paints the object where it meets dirtyRect, which is in its own space. The base paints the visible
     * children that meet it, in their order. */
    virtual void paint(UXPaintConfig* config, UXRect dirtyRect);

    // Event registry
    /** Adds a handler that returns whether it handled the event; all of a type run, in their order. */
    virtual void registerEventHandler(UXEventType type, std::function<bool(const UXEvent&)> handler);
    /** Runs the handlers of the event's type.
     *  @return whether one of them handled it */
    virtual bool triggerEventHandler(const UXEvent& event);
    /** Adds a responder, asked when all the keys are in the event; predicate returns whether it responds. */
    virtual void registerEventResponder(UXEventResponderType type, const std::vector<UXEventKey>& keys,
                                        std::function<bool(const UXEvent&)> predicate);
    virtual void registerEventResponder(UXEventResponderType type,
                                        std::function<bool(const UXEvent&)> predicate);
    /** Asks the responders of the type in order.
     *  @return whether one responds; those after it are not asked */
    virtual bool triggerEventResponder(UXEventResponderType type, const UXEvent& event);
    /** @return whether the object has a responder of the type */
    virtual bool getShouldResponse(UXEventResponderType type) const;

    // Not for overriding
    /** @return null for none, and once the space is gone */
    UXSpace* getSpace() const { return m_space.lock().get(); }
    const UXPadding& getPadding() const { return m_padding; }
    UXAlign getAlign() const { return m_align; }
    /** @return as it was set; AsParent unless it was, which for a root is LeftToRight */
    UXDirection getDirection() const { return m_direction; }
    /** Another direction lays out and paints anew, with all inside. */
    void setDirection(UXDirection direction);
    /** @return the direction of the object, or of the next one around it that has one */
    bool isRightToLeft() const;
    /** @return what the pointer looks like over the object */
    UXCursor getCursor() const { return m_cursor; }
    /** A control takes it up with the next event. */
    void setCursor(UXCursor cursor) { m_cursor = cursor; }
    /** @return whether the object shows that keys come to it; it is then painted anew when that changes */
    bool getShowsFocus() const { return m_showsFocus; }
    void setShowsFocus(bool showsFocus) { m_showsFocus = showsFocus; }
    /** @return from back to front */
    const std::vector<UXObject*>& getChildren() const { return m_children; }
    /** @return the areas that wait here, in the own space */
    const UXDirtyRegion& getDirtyRegion() const { return m_dirtyRegion; }
    /** @param parent an object around this one; null for the root
     *  @return the exact map from the own space to that of parent */
    UXTransform obtainTransformToParent(const UXObject* parent) const;
    /** @return the event's mouse point in the own space of object; null is this object */
    UXPoint getTranslatedPointFromEvent(const UXEvent& event, UXObject* object = nullptr) const;

protected:
    bool getMousePressing() const { return m_mousePressing; }
    bool getMouseOvering() const { return m_mouseOvering; }
    bool getMouseDragging() const { return m_mouseDragging; }
    bool getMouseDraggingOver() const { return m_mouseDraggingOver; }

    /** Gives every child with an alignment its rectangle inside area, which is in the own space. */
    void layoutAlignedChildren(UXRect area);
    /** Marks the object and all inside for layout: what they are laid out for has changed. */
    void requireLayoutOfAll();
    /** Stores the selection without telling anyone.
     *  @return whether it changed, which it does not where the object cannot be selected */
    bool storeSelected(bool selected);
    /** Takes all children out without destroying them, for a subclass that owns none. */
    void detachChildren();
    /** Lets this object alone act on an event: filter, handler, registered handlers.
     *  @return whether it was handled */
    bool deliverEvent(UXEventType type, const UXEvent& event, bool& stop);

private:
    friend class UXChildWalk;
    friend class UXEventDispatcher;
    friend class UXObjectWatcher;
    struct EventRegistry;
    class DeliveryScope;
    class LayoutScope;

    // Children
    std::size_t _obtainChildIndex(const UXObject* child) const;
    bool _hasChild(const UXObject* child) const { return child && child->m_parent == this; }
    bool _hasRoomFor(const UXObject& child) const;
    void _takeChild(UXObject* child, std::uint64_t index);
    void _releaseChild(UXObject* child);
    void _moveChild(UXObject* child, std::size_t index);

    // Layout
    UXObject* _obtainOutermostBatch() const;
    void _noteDescendantRequiresLayout();
    void _requireLayoutOfParents();
    bool _shouldWaitForNextFrame();
    void _layoutOnce();
    void _layoutChildren();
    UXRect _obtainAlignedRect(const UXRect& area) const;

    // Translation
    UXTransform _obtainTransformToNextParent() const;
    UXTransform _obtainTransform(const UXObject* from, const UXObject* to) const;
    const UXObject* _obtainRoot() const;
    bool _isMirroredInParent() const;
    static UXPoint _mapPoint(const UXTransform& transform, const UXPoint& point);

    // Events
    bool _dispatchEvent(UXEventType type, const UXEvent& event);
    bool _shouldTriggerEvent(UXEventType type, const UXEvent& event);
    bool _customEvent(UXEventType type, const UXEvent& event, bool& stop);
    void _noteMouseCame(UXEventType type);
    void _noteMouseWent(UXEventType type);

    // Repaint
    UXRect _obtainPaintedPlace();
    void _invalidateInParent(const UXRect& place);
    template <class T>
    void _updateAndInvalidate(T& member, const T& value);

    std::string m_name;
    UXObject* m_parent = nullptr;
    std::vector<UXObject*> m_children;
    std::weak_ptr<UXSpace> m_space;
    UXRect m_rect;
    UXPadding m_padding;
    UXColor m_color;
    UXColor m_borderColor;
    UXColor m_backgroundColor{0, 0, 0, 0};
    UXDirtyRegion m_dirtyRegion;
    // Shared with the handlers that run, which may destroy the object.
    std::shared_ptr<EventRegistry> m_eventRegistry;
    UXObjectWatcher* m_watchers = nullptr;
    UXChildWalk* m_childWalks = nullptr; // those under way
    int m_updateDepth = 0;
    int m_fpsControlDepth = 0;
    std::chrono::steady_clock::time_point m_lastFrame;
    UXAlign m_align = UXAlign::None;
    UXDirection m_direction = UXDirection::AsParent;
    UXCursor m_cursor = UXCursor::AsParent;
    bool m_showBorder = false;
    bool m_requireToVerifyLayout = true;
    bool m_descendantRequiresLayout = false;
    bool m_layouting = false;
    bool m_layoutWaits = false;
    bool m_frameWaits = false;
    bool m_repaintWaits = false;
    bool m_autoResize = false;
    bool m_visible = true;
    bool m_highlightable = false;
    bool m_highlighted = false;
    bool m_selectable = false;
    bool m_selected = false;
    bool m_showsFocus = false;
    bool m_mousePressing = false;
    bool m_mouseOvering = false;
    bool m_mouseDragging = false;
    bool m_mouseDraggingOver = false;
    bool m_tookLastEvent = true; // its filter did
};
