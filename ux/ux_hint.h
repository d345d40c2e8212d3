#pragma once

#include "ux/ux_export.h"
#include "ux/ux_object.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_space.h"

#include <memory>
#include <optional>
#include <string>

class UXControl;
class UXHintFrame;
struct UXHintInfo;
struct UXHintPlacement;

/**
 * A hint on one control: knows what is explained and makes the frame stand beside it. Its rectangle is the
 * frame's place in the control's pixels; its own space is in logical units. What is asked of it shows with
 * the next update, so that a hint that ends and begins anew meanwhile stays where it is. The pointer passes
 * through it.
 */
class UX_EXPORT UXHint : public UXObject {
public:
    UXHint();
    ~UXHint() override;

    UXHintFrame* getFrame() const { return m_frame; }

    /** @return null once the control is gone */
    UXControl* getControl() const { return m_controlLife.expired() ? nullptr : m_control; }
    void setControl(UXControl* control);
    /** @return what explains itself, null once it is gone */
    UXObject* getTarget() const { return m_target.getObject(); }
    /** @return what tells the hint from the others of its control, not to be looked into */
    const UXHintInfo* getKey() const { return m_key; }

    // What is asked
    bool isAsked() const { return m_asked; }
    /** Explains what lies at point. A hint that was shown for the pointer, and explains the same still, stays
     * where it is instead of following.
     *  @param info copied
     *  @param point, area in the space of target; an empty area for the point alone
     *  @param pointer in the control's pixels */
    void ask(const UXHintInfo* info, UXObject* target, UXPoint point, UXRect area,
             const std::optional<UXPoint>& pointer);
    void end();
    /** Hides the hint until something else is to be explained, or the same anew. */
    void dismiss();

    /** Lays out the frame, finds its place, and shows or hides it. What looks the same is not painted anew.
     */
    void update(const std::optional<UXPoint>& pointer, const std::string& moreText);

    /** @param shown off: the next paint passes are for another control */
    void setShownInPaint(bool shown) { m_shownInPaint = shown; }

    // From UXObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;
    bool inRect(UXRect rect) const override;
    bool ptInRect(UXPoint point) const override;

protected:
    UXRect customDirtyRect() override;

private:
    bool _isInSight() const;
    bool _place(UXControl& control, const std::optional<UXPoint>& pointer);
    UXHintPlacement _obtainPlacement(const UXControl& control, const std::optional<UXPoint>& pointer) const;

    UXHintFrame* m_frame; // a child
    UXSpace m_ownSpace;   // from logical units to pixels
    UXControl* m_control = nullptr;
    std::weak_ptr<const bool> m_controlLife;
    UXObjectWatcher m_target{nullptr};
    const UXHintInfo* m_key = nullptr;
    UXPoint m_point;
    UXRect m_area;
    bool m_asked = false;
    bool m_dismissed = false;
    bool m_shownInPaint = true;
};
