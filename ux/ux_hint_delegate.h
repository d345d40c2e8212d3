#pragma once

#include "ux/ux_export.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_point.h"

class UXEvent;
class UXObject;

/** Mixed into objects that explain themselves: keeps what the object's hint says and whether it is to be
 * seen. */
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
     *  @param event the event that led here, may be null
     *  @param info copied; null hides */
    virtual void showHint(UXPoint point, UXEvent* event, UXHintInfo* info);
    /** The same whether or not hints are on. */
    virtual void setHintVisible(UXPoint point, UXEvent* event, UXHintInfo* info);
    virtual void hideHint();
    virtual void setHintHidden();

    bool getHintVisible() const { return m_hintVisible; }
    /** @return the place and the content of the hint that shows, or showed last */
    const UXPoint& getHintPoint() const { return m_hintPoint; }
    const UXHintInfo& getHintInfo() const { return m_hintInfo; }

private:
    UXObjectWatcher m_owner;
    UXHintInfo m_hintInfo;
    UXPoint m_hintPoint;
    bool m_showHint = true;
    bool m_hintVisible = false;
};
