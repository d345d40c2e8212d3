#include "ux/ux_recording_painter.h"

#include "ux/ux_image.h"
#include "ux/ux_picture.h"
#include "ux/ux_pixel_snapping.h"

#include <cmath>

namespace {

/** A picture that was recorded, to be handed to the painter that the recording is played into. */
struct RecordedPicture {
    std::shared_ptr<const UXRecording> recording;
    UXDoubleSize size;

    /** @return a picture that refers to this one */
    UXPicture asPicture() const
    {
        UXPicture picture;
        picture.registerPaintAction([this](UXPainter* painter) { recording->replay(*painter); }, size);
        return picture;
    }
};

bool isDrawn(const UXPicture* picture)
{
    return picture && picture->getSize().width > 0 && picture->getSize().height > 0;
}

} // namespace

UXRecordingPainter::UXRecordingPainter(double deviceScale)
    : m_ownRecording(std::make_unique<UXRecording>(deviceScale)), m_recording(*m_ownRecording),
      m_transform(UXTransform{}.scaled(deviceScale, deviceScale))
{
}

UXRecordingPainter::UXRecordingPainter(UXRecording& recording)
    : m_recording(recording),
      m_transform(UXTransform{}.scaled(recording.getDeviceScale(), recording.getDeviceScale()))
{
}

UXRecordingPainter::~UXRecordingPainter() = default;

void UXRecordingPainter::saveState()
{
    m_savedTransforms.push_back(m_transform);
    m_recording.add([](UXPainter& painter) { painter.saveState(); });
}

void UXRecordingPainter::restoreState()
{
    if (!m_savedTransforms.empty()) {
        m_transform = m_savedTransforms.back();
        m_savedTransforms.pop_back();
    }
    m_recording.add([](UXPainter& painter) { painter.restoreState(); });
}

void UXRecordingPainter::setColor(const UXColor& color)
{
    m_recording.add([color](UXPainter& painter) { painter.setColor(color); });
}

void UXRecordingPainter::setLineWidth(double width)
{
    m_recording.add([width](UXPainter& painter) { painter.setLineWidth(width); });
}

void UXRecordingPainter::setLineCap(UXLineCapStyle cap)
{
    m_recording.add([cap](UXPainter& painter) { painter.setLineCap(cap); });
}

void UXRecordingPainter::setLineJoin(UXLineJoinStyle join)
{
    m_recording.add([join](UXPainter& painter) { painter.setLineJoin(join); });
}

void UXRecordingPainter::setLineDash(UXLineDashStyle dash)
{
    m_recording.add([dash](UXPainter& painter) { painter.setLineDash(dash); });
}

void UXRecordingPainter::setLineDash(const std::vector<double>& lengths, double offset)
{
    m_recording.add([lengths, offset](UXPainter& painter) { painter.setLineDash(lengths, offset); });
}

void UXRecordingPainter::setFillRule(UXFillRule rule)
{
    m_recording.add([rule](UXPainter& painter) { painter.setFillRule(rule); });
}

void UXRecordingPainter::setAntialias(UXAntialiasStyle style)
{
    m_recording.add([style](UXPainter& painter) { painter.setAntialias(style); });
}

void UXRecordingPainter::setCompositionMode(UXCompositionMode mode)
{
    m_recording.add([mode](UXPainter& painter) { painter.setCompositionMode(mode); });
}

void UXRecordingPainter::translate(double dx, double dy)
{
    _setTransform(m_transform.translated(dx, dy));
    m_recording.add([dx, dy](UXPainter& painter) { painter.translate(dx, dy); });
}

void UXRecordingPainter::rotate(double degrees)
{
    _setTransform(m_transform.rotated(degrees));
    m_recording.add([degrees](UXPainter& painter) { painter.rotate(degrees); });
}

void UXRecordingPainter::scale(double sx, double sy)
{
    _setTransform(m_transform.scaled(sx, sy));
    m_recording.add([sx, sy](UXPainter& painter) { painter.scale(sx, sy); });
}

/** A space without a way back is one that no painter goes into. */
void UXRecordingPainter::_setTransform(const UXTransform& transform)
{
    if (transform.isInvertible())
        m_transform = transform;
}

void UXRecordingPainter::translatePath(double dx, double dy)
{
    m_recording.add([dx, dy](UXPainter& painter) { painter.translatePath(dx, dy); });
}

void UXRecordingPainter::rotatePath(double degrees)
{
    m_recording.add([degrees](UXPainter& painter) { painter.rotatePath(degrees); });
}

void UXRecordingPainter::scalePath(double sx, double sy)
{
    m_recording.add([sx, sy](UXPainter& painter) { painter.scalePath(sx, sy); });
}

void UXRecordingPainter::setStartPoint(double x, double y)
{
    m_recording.add([x, y](UXPainter& painter) { painter.setStartPoint(x, y); });
}

void UXRecordingPainter::addLinePath(double x, double y)
{
    m_recording.add([x, y](UXPainter& painter) { painter.addLinePath(x, y); });
}

void UXRecordingPainter::addLinePath(double x1, double y1, double x2, double y2)
{
    m_recording.add([=](UXPainter& painter) { painter.addLinePath(x1, y1, x2, y2); });
}

void UXRecordingPainter::addRelativeLinePath(double dx, double dy)
{
    m_recording.add([dx, dy](UXPainter& painter) { painter.addRelativeLinePath(dx, dy); });
}

void UXRecordingPainter::addRectanglePath(double x, double y, double width, double height)
{
    m_recording.add([=](UXPainter& painter) { painter.addRectanglePath(x, y, width, height); });
}

void UXRecordingPainter::addCircleArcPath(double cx, double cy, double radius, double startAngle,
                                          double endAngle)
{
    m_recording.add(
        [=](UXPainter& painter) { painter.addCircleArcPath(cx, cy, radius, startAngle, endAngle); });
}

void UXRecordingPainter::joinCircleArcPath(double cx, double cy, double radius, double startAngle,
                                           double endAngle)
{
    m_recording.add(
        [=](UXPainter& painter) { painter.joinCircleArcPath(cx, cy, radius, startAngle, endAngle); });
}

void UXRecordingPainter::addCubicCurvePath(double x1, double y1, double x2, double y2, double x3, double y3)
{
    m_recording.add([=](UXPainter& painter) { painter.addCubicCurvePath(x1, y1, x2, y2, x3, y3); });
}

void UXRecordingPainter::startNewSubPath()
{
    m_recording.add([](UXPainter& painter) { painter.startNewSubPath(); });
}

void UXRecordingPainter::closePath()
{
    m_recording.add([](UXPainter& painter) { painter.closePath(); });
}

void UXRecordingPainter::fill()
{
    m_recording.add([](UXPainter& painter) { painter.fill(); });
}

void UXRecordingPainter::fillPreserve()
{
    m_recording.add([](UXPainter& painter) { painter.fillPreserve(); });
}

void UXRecordingPainter::stroke()
{
    m_recording.add([](UXPainter& painter) { painter.stroke(); });
}

void UXRecordingPainter::strokePreserve()
{
    m_recording.add([](UXPainter& painter) { painter.strokePreserve(); });
}

void UXRecordingPainter::clip()
{
    m_recording.add([](UXPainter& painter) { painter.clip(); });
}

void UXRecordingPainter::clipPreserve()
{
    m_recording.add([](UXPainter& painter) { painter.clipPreserve(); });
}

void UXRecordingPainter::beginLinearGradientPattern(double x1, double y1, double x2, double y2,
                                                    UXSourceOperator beyond)
{
    m_recording.add([=](UXPainter& painter) { painter.beginLinearGradientPattern(x1, y1, x2, y2, beyond); });
}

void UXRecordingPainter::addGradientPatternColorStop(const UXColor& color, double offset)
{
    m_recording.add(
        [color, offset](UXPainter& painter) { painter.addGradientPatternColorStop(color, offset); });
}

void UXRecordingPainter::endPattern()
{
    m_recording.add([](UXPainter& painter) { painter.endPattern(); });
}

void UXRecordingPainter::usePattern()
{
    m_recording.add([](UXPainter& painter) { painter.usePattern(); });
}

void UXRecordingPainter::drawText(const std::string& text, const UXDoubleRect& rect,
                                  const UXTextProperty& property)
{
    m_recording.add([text, rect, property](UXPainter& painter) { painter.drawText(text, rect, property); });
}

void UXRecordingPainter::drawText(const std::string& text, const UXDoubleRect& rect, const UXFont& font,
                                  UXTextAlign align, UXTextOption option, int lineMode)
{
    m_recording.add([=](UXPainter& painter) { painter.drawText(text, rect, font, align, option, lineMode); });
}

void UXRecordingPainter::drawImage(const UXImage* image, const UXDoubleRect& rect, double opacity)
{
    if (!image)
        return;
    m_recording.add(
        [kept = *image, rect, opacity](UXPainter& painter) { painter.drawImage(&kept, rect, opacity); });
}

void UXRecordingPainter::drawPicture(const UXPicture* picture, const UXDoubleRect& rect, double opacity)
{
    if (!isDrawn(picture))
        return;
    const RecordedPicture kept{_recordPicture(*picture, rect), picture->getSize()};
    m_recording.add([kept, rect, opacity](UXPainter& painter) {
        const UXPicture played = kept.asPicture();
        painter.drawPicture(&played, rect, opacity);
    });
}

void UXRecordingPainter::drawMaskedPicture(const UXPicture* picture, const UXImage* mask,
                                           const UXDoubleRect& rect)
{
    if (!isDrawn(picture) || !mask)
        return;
    const RecordedPicture kept{_recordPicture(*picture, rect), picture->getSize()};
    m_recording.add([kept, keptMask = *mask, rect](UXPainter& painter) {
        const UXPicture played = kept.asPicture();
        painter.drawMaskedPicture(&played, &keptMask, rect);
    });
}

void UXRecordingPainter::drawMaskedPicture(const UXPicture* picture, const UXPicture* mask,
                                           const UXDoubleRect& rect)
{
    if (!isDrawn(picture) || !isDrawn(mask))
        return;
    const RecordedPicture kept{_recordPicture(*picture, rect), picture->getSize()};
    const RecordedPicture keptMask{_recordPicture(*mask, rect), mask->getSize()};
    m_recording.add([kept, keptMask, rect](UXPainter& painter) {
        const UXPicture played = kept.asPicture(), playedMask = keptMask.asPicture();
        painter.drawMaskedPicture(&played, &playedMask, rect);
    });
}

void UXRecordingPainter::drawMasked(const UXPaintFunction& mask, UXPaintConfig*, const UXDoubleRect& rect)
{
    if (!mask)
        return;
    m_recording.add([kept = _recordLayer(mask, m_transform), rect](UXPainter& painter) {
        painter.drawMasked([&kept](UXPainter* layer) { kept->replay(*layer); }, nullptr, rect);
    });
}

void UXRecordingPainter::drawCompositedPicture(const UXPicture* upper, const UXPicture* lower,
                                               const UXDoubleRect& rect, UXCompositionMode mode)
{
    if (!isDrawn(upper) || !isDrawn(lower))
        return;
    const RecordedPicture keptUpper{_recordPicture(*upper, rect), upper->getSize()};
    const RecordedPicture keptLower{_recordPicture(*lower, rect), lower->getSize()};
    m_recording.add([keptUpper, keptLower, rect, mode](UXPainter& painter) {
        const UXPicture playedUpper = keptUpper.asPicture(), playedLower = keptLower.asPicture();
        painter.drawCompositedPicture(&playedUpper, &playedLower, rect, mode);
    });
}

void UXRecordingPainter::drawComposited(const UXPaintFunction& action, UXPaintConfig*,
                                        const UXDoubleRect& rect, UXCompositionMode mode)
{
    if (!action)
        return;
    m_recording.add([kept = _recordLayer(action, m_transform), rect, mode](UXPainter& painter) {
        painter.drawComposited([&kept](UXPainter* layer) { kept->replay(*layer); }, nullptr, rect, mode);
    });
}

void UXRecordingPainter::drawRects(std::span<const UXDoubleRect> rects)
{
    std::vector<UXDoubleRect> snapped;
    snapped.reserve(rects.size());
    for (const UXDoubleRect& rect : rects) {
        if (rect.width > 0 && rect.height > 0)
            snapped.push_back(uxSnapRect(rect, m_transform));
    }
    if (!snapped.empty())
        m_recording.add([kept = std::move(snapped)](UXPainter& painter) { painter.drawRects(kept); });
}

void UXRecordingPainter::drawPolyline(std::span<const UXDoublePoint> points)
{
    m_recording.add([kept = std::vector(points.begin(), points.end())](UXPainter& painter) {
        painter.drawPolyline(kept);
    });
}

void UXRecordingPainter::drawPolygons(std::span<const std::vector<UXDoublePoint>> polygons)
{
    m_recording.add([kept = std::vector(polygons.begin(), polygons.end())](UXPainter& painter) {
        painter.drawPolygons(kept);
    });
}

void UXRecordingPainter::drawMarks(std::span<const UXDoublePoint> centres, double radius)
{
    m_recording.add([kept = std::vector(centres.begin(), centres.end()), radius](UXPainter& painter) {
        painter.drawMarks(kept, radius);
    });
}

void UXRecordingPainter::drawShapes(std::span<const UXDoublePoint> centres,
                                    std::span<const UXDoublePoint> corners)
{
    m_recording.add([places = std::vector(centres.begin(), centres.end()),
                     shape = std::vector(corners.begin(), corners.end())](UXPainter& painter) {
        painter.drawShapes(places, shape);
    });
}

std::shared_ptr<const UXRecording> UXRecordingPainter::_recordPicture(const UXPicture& picture,
                                                                      const UXDoubleRect& rect) const
{
    const UXDoubleSize size = picture.getSize();
    const UXTransform toDevice =
        m_transform.translated(rect.x, rect.y).scaled(rect.width / size.width, rect.height / size.height);
    return _recordLayer([&picture](UXPainter* painter) { picture.paint(painter); }, toDevice);
}

std::shared_ptr<const UXRecording> UXRecordingPainter::_recordLayer(const UXPaintFunction& action,
                                                                    const UXTransform& toDevice) const
{
    auto recording = std::make_shared<UXRecording>(m_recording.getDeviceScale());
    UXRecordingPainter painter(*recording);
    painter.m_transform = toDevice;
    painter.m_nesting = m_nesting + 1;
    if (painter.m_nesting <= uxDeepestPictureNesting)
        action(&painter);
    return recording;
}
