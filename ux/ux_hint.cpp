#include "ux/ux_hint.h"

#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_ground.h"
#include "ux/ux_hint_frame.h"
#include "ux/ux_hint_placement.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

// Logical units
constexpr int margin = 4, ownDistance = 8;
/** What an arrow covers from the point that it points with. */
constexpr UXRect pointerShape(-2, -2, 14, 20);
/** A point that is no further than this from the pointer is the pointer's own, rounded on its way. */
constexpr int pointerTolerance = 2;

int toPixels(double units, double scale) { return uxRoundToInt(units * scale); }

int toUnits(int pixels, double scale) { return uxSaturateToInt(std::floor(pixels / scale)); }

UXSize toUnits(const UXSize& pixels, double scale)
{
    return {toUnits(pixels.width, scale), toUnits(pixels.height, scale)};
}

UXSize toPixels(const UXSize& units, double scale)
{
    return {uxSaturateToInt(std::ceil(units.width * scale)),
            uxSaturateToInt(std::ceil(units.height * scale))};
}

UXRect toPixels(const UXObject& object, const UXRect& rect, const UXControl& control)
{
    const UXControlRect found = control.diagramSpaceToControlSpace(
        object.translateRectToParent(rect, nullptr));
    return {found.x, found.y, found.width, found.height};
}

UXPoint toPixels(const UXObject& object, const UXPoint& point, const UXControl& control)
{
    const UXDoubleControlPoint found = control.diagramSpaceToControlSpace(
        object.obtainTransformToParent(nullptr).apply(point.x, point.y));
    return {uxSaturateToInt(std::floor(found.x)), uxSaturateToInt(std::floor(found.y))};
}

bool isNear(const UXPoint& a, const UXPoint& b, double reach)
{
    return std::abs(double{1} * a.x - b.x) <= reach && std::abs(double{1} * a.y - b.y) <= reach;
}

} // namespace

UXHint::UXHint() : m_frame(new UXHintFrame)
{
    addChild(m_frame);
    setSpace(&m_ownSpace);
    setVisible(false);
}

UXHint::~UXHint() = default;

void UXHint::setControl(UXControl* control)
{
    m_control = control;
    m_controlLife = control ? control->getLife() : std::weak_ptr<const bool>();
}

void UXHint::ask(const UXHintInfo* info, UXObject* target, UXPoint point, UXRect area,
                 const std::optional<UXPoint>& pointer)
{
    const bool isSame = m_asked && m_key == info && m_target.getObject() == target &&
                        m_frame->getHintInfo() == *info;
    const UXControl* control = getControl();
    const bool isAtPointer = control && pointer &&
                             isNear(toPixels(*target, point, *control), *pointer,
                                    pointerTolerance + control->getZoomRatioWithScalingFactor());
    const bool stays = isSame && m_area == area && (isAtPointer || !uxIsEmptyRect(area));
    m_dismissed = m_dismissed && isSame;
    m_asked = true;
    m_key = info;
    m_target = UXObjectWatcher(target);
    m_area = area;
    if (!stays)
        m_point = point;
    m_frame->setHintInfo(*info);
}

void UXHint::end()
{
    m_asked = false;
    m_dismissed = false;
}

void UXHint::dismiss() { m_dismissed = true; }

void UXHint::update(const std::optional<UXPoint>& pointer, const std::string& moreText)
{
    m_frame->setMoreText(moreText);
    UXControl* control = getControl();
    const bool shows = m_asked && !m_dismissed && control && _isInSight() && _place(*control, pointer);
    setVisible(shows);
}

/** @return whether the target is on the diagram that the control shows, and not hidden there */
bool UXHint::_isInSight() const
{
    UXObject* target = m_target.getObject();
    if (!target || !uxObtainDiagram(target) || m_control->getActiveDiagram() != uxObtainDiagram(target))
        return false;
    while (target && target->getVisible())
        target = target->getParent();
    return !target;
}

bool UXHint::_place(UXControl& control, const std::optional<UXPoint>& pointer)
{
    const UXHintPlacement placement = _obtainPlacement(control, pointer);
    const UXControlRect whole = control.getControlRect();
    const UXRect inControl(0, 0, whole.width, whole.height);
    if (!uxPointInRect(placement.point, inControl) && !uxIntersectsRect(placement.area, inControl))
        return false;

    m_frame->standOn(uxObtainGroundColor(*m_target.getObject()));
    const double scale = control.getScalingFactor();
    const UXRect& bounds = placement.bounds;
    UXHintLayout layout = m_frame->obtainLayout(toUnits(UXSize(bounds.width, bounds.height), scale));
    UXRect place = placement.place(toPixels(layout.size, scale));
    if (uxIsEmptyRect(place)) {
        layout = m_frame->obtainLayout(toUnits(placement.obtainRoom(), scale));
        place = placement.place(toPixels(layout.size, scale));
    }
    if (layout.isEmpty() || uxIsEmptyRect(place))
        return false;
    m_frame->setDirection(m_target.getObject()->isRightToLeft() ? UXDirection::RightToLeft
                                                                : UXDirection::LeftToRight);
    m_ownSpace.setXScale(scale);
    m_ownSpace.setYScale(scale);
    setRect(place);
    m_frame->showLayout(layout);
    return true;
}

UXHintPlacement UXHint::_obtainPlacement(const UXControl& control,
                                         const std::optional<UXPoint>& pointer) const
{
    const UXHintInfo& info = m_frame->getHintInfo();
    const UXObject& target = *m_target.getObject();
    const UXControlRect whole = control.getControlRect();
    const double scale = control.getScalingFactor();
    const int inset = std::min({toPixels(margin, scale), whole.width / 8, whole.height / 8});

    UXHintPlacement placement;
    placement.bounds = uxInflateRect(UXRect(0, 0, whole.width, whole.height), -inset, -inset);
    placement.object = toPixels(target, target.getBoundingRect(), control);
    placement.distance = toPixels(info.distance > 0 ? info.distance : ownDistance, scale);
    placement.position = info.position;
    placement.isRightToLeft = target.isRightToLeft();
    if (pointer) {
        placement.pointer = UXRect(
            uxSaturateToInt(std::int64_t{pointer->x} + toPixels(pointerShape.x, scale)),
            uxSaturateToInt(std::int64_t{pointer->y} + toPixels(pointerShape.y, scale)),
            toPixels(pointerShape.width, scale), toPixels(pointerShape.height, scale));
    }
    if (info.followMouse && pointer) {
        placement.point = *pointer;
        return placement;
    }
    placement.point = toPixels(target, m_point, control);
    if (!uxIsEmptyRect(m_area))
        placement.area = toPixels(target, m_area, control);
    return placement;
}

void UXHint::customSerialize()
{
    UXObject::customSerialize();
    serializeObject("m_frame", m_frame);
}

std::string UXHint::customSerializeTypeID() { return "UXHint"; }

bool UXHint::customDeserialize()
{
    const bool complete = UXObject::customDeserialize();
    return deserializeExistingObject("m_frame", m_frame) && complete;
}

bool UXHint::inRect(UXRect rect) const
{
    return m_shownInPaint && uxIntersectsRect(m_frame->obtainPaintedRect(), rect);
}

bool UXHint::ptInRect(UXPoint) const { return false; }

UXRect UXHint::customDirtyRect() { return m_frame->obtainPaintedRect(); }
