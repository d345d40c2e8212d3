#pragma once

#include "ux/ux_painter.h"
#include "ux/ux_recording.h"

#include <memory>

/**
 * Draws into a recording, which can be read as text and played into any painter. Pictures, masks and layers
 * are run at once and kept as recordings of their own; images share their pixels with the one that was drawn.
 */
class UX_EXPORT UXRecordingPainter final : public UXPainter {
public:
    /** Draws into a recording of its own. */
    explicit UXRecordingPainter(double deviceScale = 1);
    /** Appends to recording, which has to outlive the painter. */
    explicit UXRecordingPainter(UXRecording& recording);
    ~UXRecordingPainter() override;

    const UXRecording& getRecording() const { return m_recording; }

    // As the recording answers them
    void replay(UXPainter& painter) const { m_recording.replay(painter); }
    std::vector<std::string> getLines() const { return m_recording.getLines(); }
    std::string getText() const { return m_recording.getText(); }

    // From UXPainter
    using UXPainter::addLinePath;
    using UXPainter::addRectanglePath;
    using UXPainter::drawImage;
    using UXPainter::drawMaskedPicture;
    using UXPainter::drawPicture;
    using UXPainter::drawText;
    using UXPainter::setLineDash;

    void saveState() override;
    void restoreState() override;
    void setColor(const UXColor& color) override;
    void setLineWidth(double width) override;
    void setLineCap(UXLineCapStyle cap) override;
    void setLineJoin(UXLineJoinStyle join) override;
    void setLineDash(UXLineDashStyle dash) override;
    void setLineDash(const std::vector<double>& lengths, double offset) override;
    void setFillRule(UXFillRule rule) override;
    void setAntialias(UXAntialiasStyle style) override;
    void setCompositionMode(UXCompositionMode mode) override;

    void translate(double dx, double dy) override;
    void rotate(double degrees) override;
    void scale(double sx, double sy) override;
    void translatePath(double dx, double dy) override;
    void rotatePath(double degrees) override;
    void scalePath(double sx, double sy) override;

    void setStartPoint(double x, double y) override;
    void addLinePath(double x, double y) override;
    void addLinePath(double x1, double y1, double x2, double y2) override;
    void addRelativeLinePath(double dx, double dy) override;
    void addRectanglePath(double x, double y, double width, double height) override;
    void addCircleArcPath(double cx, double cy, double radius, double startAngle, double endAngle) override;
    void joinCircleArcPath(double cx, double cy, double radius, double startAngle, double endAngle) override;
    void addCubicCurvePath(double x1, double y1, double x2, double y2, double x3, double y3) override;
    void startNewSubPath() override;
    void closePath() override;

    void fill() override;
    void fillPreserve() override;
    void stroke() override;
    void strokePreserve() override;
    void clip() override;
    void clipPreserve() override;

    void beginLinearGradientPattern(double x1, double y1, double x2, double y2,
                                    UXSourceOperator beyond) override;
    void addGradientPatternColorStop(const UXColor& color, double offset) override;
    void endPattern() override;
    void usePattern() override;

    void drawText(const std::string& text, const UXDoubleRect& rect, const UXTextProperty& property) override;
    void drawText(const std::string& text, const UXDoubleRect& rect, const UXFont& font, UXTextAlign align,
                  UXTextOption option, int lineMode) override;

    void drawImage(const UXImage* image, const UXDoubleRect& rect, double opacity) override;
    void drawPicture(const UXPicture* picture, const UXDoubleRect& rect, double opacity) override;
    void drawMaskedPicture(const UXPicture* picture, const UXImage* mask, const UXDoubleRect& rect) override;
    void drawMaskedPicture(const UXPicture* picture, const UXPicture* mask,
                           const UXDoubleRect& rect) override;
    void drawMasked(const UXPaintFunction& mask, UXPaintConfig* config, const UXDoubleRect& rect) override;
    void drawCompositedPicture(const UXPicture* upper, const UXPicture* lower, const UXDoubleRect& rect,
                               UXCompositionMode mode) override;
    void drawComposited(const UXPaintFunction& action, UXPaintConfig* config, const UXDoubleRect& rect,
                        UXCompositionMode mode) override;

    double getDeviceScale() const override { return m_recording.getDeviceScale(); }
    UXTransform getDeviceTransform() const override { return m_transform; }

    /** Keeps the rectangles with their edges moved, the empty ones left out. */
    void drawRects(std::span<const UXDoubleRect> rects) override;
    void drawPolyline(std::span<const UXDoublePoint> points) override;
    void drawPolygons(std::span<const std::vector<UXDoublePoint>> polygons) override;
    void drawMarks(std::span<const UXDoublePoint> centres, double radius) override;
    void drawShapes(std::span<const UXDoublePoint> centres, std::span<const UXDoublePoint> corners) override;

private:
    void _setTransform(const UXTransform& transform);
    std::shared_ptr<const UXRecording> _recordPicture(const UXPicture& picture,
                                                      const UXDoubleRect& rect) const;
    std::shared_ptr<const UXRecording> _recordLayer(const UXPaintFunction& action,
                                                    const UXTransform& toDevice) const;

    std::unique_ptr<UXRecording> m_ownRecording;
    UXRecording& m_recording;
    UXTransform m_transform;
    std::vector<UXTransform> m_savedTransforms;
    int m_nesting = 0; /**< of the pictures and layers around this painter */
};
