#include "ux/ux_object.h"

#include "ux/ux_diagram_lookup.h"
#include "ux/ux_space.h"

#include <algorithm>
#include <cmath>

namespace {

// What lies this close to a whole number is meant to be it: chains of scales leave such traces.
constexpr double roundingTrace = 1e-6;

UXSize mapSize(const UXTransform& transform, const UXSize& size)
{
    return {uxRoundToInt(std::abs(transform.xx) * size.width), uxRoundToInt(transform.yy * size.height)};
}

struct Span {
    int start, length;
};

/** @return the smallest whole span around the exact one; a span without length stays one */
Span mapSpan(double scale, double offset, int start, int length)
{
    const double end = start + 1.0 * length;
    const double low = scale * (scale < 0 ? end : start) + offset, extent = std::abs(scale) * length;
    if (length <= 0)
        return {uxRoundToInt(low), uxRoundToInt(extent)};
    const int from = uxSaturateToInt(std::floor(low + roundingTrace));
    const int to = uxSaturateToInt(std::ceil(low + extent - roundingTrace));
    return {from, uxSaturateToInt(std::int64_t{to} - from)};
}

UXRect mapRect(const UXTransform& transform, const UXRect& rect)
{
    const Span across = mapSpan(transform.xx, transform.dx, rect.x, rect.width);
    const Span down = mapSpan(transform.yy, transform.dy, rect.y, rect.height);
    return {across.start, down.start, across.length, down.length};
}

/** A length without direction grows by the geometric mean of the two scales. */
double mapDimension(const UXTransform& transform, double dimension)
{
    const double across = std::abs(transform.xx);
    return dimension * (across == transform.yy ? across : std::sqrt(across * transform.yy));
}

} // namespace

/** A point is the unit square to its right: where left and right are exchanged, its other edge comes first.
 */
UXPoint UXObject::_mapPoint(const UXTransform& transform, const UXPoint& point)
{
    const UXDoublePoint mapped = transform.apply(transform.xx < 0 ? point.x + 1.0 : point.x, point.y);
    return {uxRoundToInt(mapped.x), uxRoundToInt(mapped.y)};
}

UXPoint UXObject::translatePointToParent(UXPoint point, UXObject* parent) const
{
    return _mapPoint(_obtainTransform(this, parent), point);
}

UXSize UXObject::translateSizeToParent(UXSize size, UXObject* parent) const
{
    return mapSize(_obtainTransform(this, parent), size);
}

UXRect UXObject::translateRectToParent(UXRect rect, UXObject* parent) const
{
    return mapRect(_obtainTransform(this, parent), rect);
}

double UXObject::translateDimensionToParent(double dimension, UXObject* parent) const
{
    return mapDimension(_obtainTransform(this, parent), dimension);
}

UXPoint UXObject::translatePointToChild(UXPoint point, UXObject* child) const
{
    return _mapPoint(_obtainTransform(this, child), point);
}

UXSize UXObject::translateSizeToChild(UXSize size, UXObject* child) const
{
    return mapSize(_obtainTransform(this, child), size);
}

UXRect UXObject::translateRectToChild(UXRect rect, UXObject* child) const
{
    return mapRect(_obtainTransform(this, child), rect);
}

double UXObject::translateDimensionToChild(double dimension, UXObject* child) const
{
    return mapDimension(_obtainTransform(this, child), dimension);
}

UXPoint UXObject::translatePoint(UXPoint point, UXObject* to) const
{
    return translatePointToParent(point, to);
}

UXPoint UXObject::translatePoint(UXPoint point, UXObject* from, UXObject* to) const
{
    return _mapPoint(_obtainTransform(from, to), point);
}

UXSize UXObject::translateSize(UXSize size, UXObject* from, UXObject* to) const
{
    return mapSize(_obtainTransform(from, to), size);
}

UXRect UXObject::translateRect(UXRect rect, UXObject* from, UXObject* to) const
{
    return mapRect(_obtainTransform(from, to), rect);
}

double UXObject::translateDimension(double dimension, UXObject* from, UXObject* to) const
{
    return mapDimension(_obtainTransform(from, to), dimension);
}

UXTransform UXObject::obtainTransformToParent(const UXObject* parent) const
{
    UXTransform transform;
    for (const UXObject* object = this; object != parent && object->m_parent; object = object->m_parent)
        transform = object->_obtainTransformToNextParent().combined(transform);
    return transform;
}

UXTransform UXObject::_obtainTransformToNextParent() const
{
    UXTransform transform;
    if (const UXSpace* space = getSpace()) {
        // A space that an outer object stands in is applied there and not once more here.
        const UXSpace* outer = nullptr;
        for (const UXObject* object = m_parent; object && !outer; object = object->m_parent)
            outer = object->getSpace();
        for (; space && space != outer; space = space->getParent()) {
            const UXPoint& origin = space->getRelativeOrigin();
            const double sx = space->getXScale(), sy = space->getYScale();
            transform =
                UXTransform{sx, 0, 0, sy, static_cast<double>(origin.x), static_cast<double>(origin.y)}
                    .combined(transform);
        }
    }
    transform.dx += m_rect.x;
    transform.dy += m_rect.y;
    if (_isMirroredInParent())
        transform = UXTransform{-1, 0, 0, 1, 2.0 * m_rect.x + m_rect.width, 0}.combined(transform);
    return transform;
}

bool UXObject::isRightToLeft() const
{
    const UXObject* object = this;
    while (object->m_direction == UXDirection::AsParent && object->m_parent)
        object = object->m_parent;
    return object->m_direction == UXDirection::RightToLeft;
}

bool UXObject::_isMirroredInParent() const
{
    // A diagram is not mirrored, only what stands on it: its space is that of the controls that show it.
    const bool isOnRoot = !m_parent->m_parent;
    const bool isOnMirroringDiagram = isOnRoot && m_parent->m_direction == UXDirection::RightToLeft &&
                                      uxObtainDiagram(m_parent);
    if (m_direction == UXDirection::AsParent)
        return isOnMirroringDiagram;
    return isRightToLeft() != (m_parent->isRightToLeft() && !isOnMirroringDiagram);
}

/** Null stands for the root. Objects of two trees meet in their roots, which are taken for the same. */
UXTransform UXObject::_obtainTransform(const UXObject* from, const UXObject* to) const
{
    // Painting asks for every child.
    if (to && from && to->m_parent == from)
        return to->_obtainTransformToNextParent().inverted();
    const UXObject* source = from ? from : _obtainRoot();
    const UXObject* target = to ? to : _obtainRoot();
    if (source == target)
        return {};
    if (source->hasParent(const_cast<UXObject*>(target)))
        return source->obtainTransformToParent(target);
    if (target->hasParent(const_cast<UXObject*>(source)))
        return target->obtainTransformToParent(source).inverted();
    return target->obtainTransformToParent(nullptr).inverted().combined(
        source->obtainTransformToParent(nullptr));
}

const UXObject* UXObject::_obtainRoot() const
{
    const UXObject* root = this;
    while (root->m_parent)
        root = root->m_parent;
    return root;
}
