#pragma once

#include "ux/ux_painter.h"

#include <memory>
#include <vector>

/**
 * Draws with another painter what it is told, with left and right exchanged about the origin of the space:
 * the painter of an object that runs from right to left. Texts, images and pictures keep their own left and
 * right; they stand in the mirrored rectangle, a text aligned to its other side. What is turned is turned the
 * other way. It keeps no state of its own, so whatever moves, turns and scales the space does so mirrored.
 */
class UX_EXPORT UXMirrorPainter final : public UXPainter {
public:
    /** @param painter has to outlive this one, and is ready to be drawn with */
    explicit UXMirrorPainter(UXPainter& painter);
    /** @param painter ends with this one */
    explicit UXMirrorPainter(std::unique_ptr<UXPainter> painter);
    ~UXMirrorPainter() override;

    // From UXPainter
    using UXPainter::addLinePath;
    using UXPainter::addRectanglePath;
    using UXPainter::drawImage;
    using UXPainter::drawMaskedPicture;
    using UXPainter::drawPicture;
    using UXPainter::drawText;
    using UXPainter::getTextSize;
    using UXPainter::setLineDash;

    void preparePaintConfig() override;
    void finishPaintConfig() override;
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

    UXDoubleSize getTextSize(const std::string& text, const UXFont& font, UXTextOption option, int lineMode,
                             double widthLimit) override;
    void drawText(const std::string& text, const UXDoubleRect& rect, const UXTextProperty& property) override;
    void drawText(const std::string& text, const UXDoubleRect& rect, const UXFont& font, UXTextAlign align,
                  UXTextOption option, int lineMode) override;
    UXDrawTextResult& drawText(const std::string& text, const UXDoubleRect& rect, const UXFont& font,
                               UXTextAlign align, UXTextOption option, int lineMode,
                               UXDrawTextResult& result) override;

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

    double getDeviceScale() const override;
    UXTransform getDeviceTransform() const override;

    void drawRects(std::span<const UXDoubleRect> rects) override;
    void drawHorizontalLines(std::span<const double> ys, double left, double right,
                             double thickness) override;
    void drawVerticalLines(std::span<const double> xs, double top, double bottom, double thickness) override;
    void drawPolyline(std::span<const UXDoublePoint> points) override;
    void drawPolygons(std::span<const std::vector<UXDoublePoint>> polygons) override;
    void drawMarks(std::span<const UXDoublePoint> centres, double radius) override;
    void drawShapes(std::span<const UXDoublePoint> centres, std::span<const UXDoublePoint> corners) override;

private:
    std::unique_ptr<UXPainter> m_ownPainter;
    UXPainter& m_painter;
};
