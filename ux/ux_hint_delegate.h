#pragma once

#include "ux/ux_export.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_point.h"
#include "ux/ux_rect.h"

class UXControl;
class UXEvent;
class UXObject;

/**
 * Mixed into objects that explain themselves: keeps what the object's hint says, and has it shown on all
 * controls that show the object's diagram, by the first global diagram of that one which works in the
 * control's space. The hint goes with this object and with the owner.
 */
class UX_EXPORT UXHintDelegate {
public:
    /** @param owner the object that is explained, usually the one that this is a part of */
    explicit UXHintDelegate(UXObject* owner);
    virtual ~UXHintDelegate();

    /** @return null once the object is gone */
    UXObject* getHintOwner() const { return m_owner.getObject(); }

    /** @return whether showHint has an effect; it does unless set */
    bool getShowHint() const { return m_showHint; }
    /** Off hides the hint that shows. */
    void setShowHint(bool showHint);

    /** Shows the hint, if hints are on and info is enabled; otherwise hides it.
     *  @param point what is explained, in the owner's space
     *  @param event the event that led here, may be null. An owner with a responder of the type Hint that
     * takes it explains itself: no hint shows then.
     *  @param info copied; null hides */
    virtual void showHint(UXPoint point, UXEvent* event, UXHintInfo* info);
    /** The same on one control alone.
     *  @param control shows the owner's diagram; null is every one that does */
    void showHintOn(UXControl* control, UXPoint point, UXHintInfo* info);
    /** The same as showHint whether or not hints are on. */
    virtual void setHintVisible(UXPoint point, UXEvent* event, UXHintInfo* info);
    virtual void hideHint();
    virtual void setHintHidden();
    /** @param point as it was given to showHint
     *  @return all of what lies there and is explained, which the hint leaves free where it can, in the
     * owner's space; empty, as by default, for the point alone */
    virtual UXRect obtainHintArea(UXPoint point);

    /** @return whether the hint is to be seen; one that was dismissed by the user still is */
    bool getHintVisible() const { return m_hintVisible; }
    /** @return the place and the content of the hint that shows, or showed last */
    const UXPoint& getHintPoint() const { return m_hintPoint; }
    const UXHintInfo& getHintInfo() const { return m_hintInfo; }

private:
    void _showOnScreen();
    void _hideOnScreen();

    UXObjectWatcher m_owner;
    UXObjectWatcher m_screen{nullptr};         // the diagram that the hint stands on
    UXControl* m_askedControl = nullptr;       // for the hint that is about to show; null for all
    const UXControl* m_shownControl = nullptr; // for the one that shows
    UXHintInfo m_hintInfo;
    UXPoint m_hintPoint;
    bool m_showHint = true;
    bool m_hintVisible = false;
};
