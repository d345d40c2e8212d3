#include "ux/ux_pixel_snapping.h"

#include <algorithm>
#include <cmath>

namespace {

/** Where an axis of the space lies on the device: device = position * scale + offset. */
struct Axis {
    double scale, offset;

    double toDevice(double position) const { return position * scale + offset; }
    double fromDevice(double pixel) const { return (pixel - offset) / scale; }
};

/** An interval of an axis, from start over length. */
struct Interval {
    double start, length;
};

double nearestEdge(double device) { return std::floor(device + 0.5); }

Interval fromDeviceEdges(double low, double high, const Axis& axis)
{
    const double first = axis.fromDevice(low), second = axis.fromDevice(high);
    return {std::min(first, second), std::abs(second - first)};
}

Interval snapInterval(const Interval& interval, const Axis& axis)
{
    const double first = axis.toDevice(interval.start),
                 second = axis.toDevice(interval.start + interval.length);
    const double low = nearestEdge(std::min(first, second)), high = nearestEdge(std::max(first, second));
    return fromDeviceEdges(low, interval.length > 0 ? std::max(high, low + 1) : high, axis);
}

/** The whole pixels of a line about position. A line between two pixels takes the upper or left one. */
Interval snapLine(double position, double thickness, const Axis& axis)
{
    const double pixels = std::max(1.0, std::round(thickness * std::abs(axis.scale)));
    const double low = std::ceil(axis.toDevice(position) - pixels / 2 - 0.5);
    return fromDeviceEdges(low, low + pixels, axis);
}

Axis horizontal(const UXTransform& toDevice) { return {toDevice.xx, toDevice.dx}; }
Axis vertical(const UXTransform& toDevice) { return {toDevice.yy, toDevice.dy}; }

/** The thickness of a line that cannot be snapped: no thinner than a device pixel. */
double atLeastOnePixel(double thickness, const UXTransform& toDevice)
{
    const double pixelArea = std::abs(toDevice.xx * toDevice.yy - toDevice.xy * toDevice.yx);
    return pixelArea > 0 ? std::max(thickness, 1 / std::sqrt(pixelArea)) : thickness;
}

/** Whether the rectangle lies where a device could have pixels, and double tells one from the next. */
bool canSnap(const UXDoubleRect& rect, const UXTransform& toDevice)
{
    constexpr double lastPixel = 1e9;
    const auto isOnDevice = [](double low, double high, const Axis& axis) {
        return std::abs(axis.toDevice(low)) <= lastPixel && std::abs(axis.toDevice(high)) <= lastPixel;
    };
    return toDevice.isUpright() && toDevice.isInvertible() &&
           isOnDevice(rect.x, rect.x + rect.width, horizontal(toDevice)) &&
           isOnDevice(rect.y, rect.y + rect.height, vertical(toDevice));
}

} // namespace

UXDoubleRect uxSnapRect(const UXDoubleRect& rect, const UXTransform& toDevice)
{
    if (!canSnap(rect, toDevice))
        return rect;
    const Interval across = snapInterval({rect.x, rect.width}, horizontal(toDevice));
    const Interval down = snapInterval({rect.y, rect.height}, vertical(toDevice));
    return {across.start, down.start, across.length, down.length};
}

UXDoubleRect uxSnapHorizontalLine(double y, double left, double right, double thickness,
                                  const UXTransform& toDevice)
{
    const double height = atLeastOnePixel(thickness, toDevice);
    const UXDoubleRect line{std::min(left, right), y - height / 2, std::abs(right - left), height};
    if (!canSnap(line, toDevice))
        return line;
    const Interval across = snapInterval({line.x, line.width}, horizontal(toDevice));
    const Interval down = snapLine(y, thickness, vertical(toDevice));
    return {across.start, down.start, across.length, down.length};
}

UXDoubleRect uxSnapVerticalLine(double x, double top, double bottom, double thickness,
                                const UXTransform& toDevice)
{
    const double width = atLeastOnePixel(thickness, toDevice);
    const UXDoubleRect line{x - width / 2, std::min(top, bottom), width, std::abs(bottom - top)};
    if (!canSnap(line, toDevice))
        return line;
    const Interval across = snapLine(x, thickness, horizontal(toDevice));
    const Interval down = snapInterval({line.y, line.height}, vertical(toDevice));
    return {across.start, down.start, across.length, down.length};
}
