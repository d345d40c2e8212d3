#pragma once

#include "ux/ux_path_painter.h"
#include "web_drawing.h"
#include "web_path.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

/** Draws into the commands of a canvas. Paths reach it in pixels, so that its transform is at rest but for
 * texts, images, gradients and pens that are wider in one direction than in another. Smoothing cannot be
 * turned off on a canvas; what has to be sharp stands on whole pixels anyway. */
class WebPainter final : public UXPathPainter {
public:
    /** @param drawing outlives the painter
     *  @param toCanvas maps the painter's space to the canvas */
    WebPainter(WebDrawing& drawing, const UXTransform& toCanvas);
    ~WebPainter() override;

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
    void setLineDash(const std::vector<double>& lengths, double offset) override;
    void setFillRule(UXFillRule rule) override;
    void setAntialias(UXAntialiasStyle style) override;
    void setCompositionMode(UXCompositionMode mode) override;

    void setStartPoint(double x, double y) override;
    void addLinePath(double x, double y) override;
    void addRelativeLinePath(double dx, double dy) override;
    void addCubicCurvePath(double x1, double y1, double x2, double y2, double x3, double y3) override;
    void startNewSubPath() override;
    void closePath() override;

    void fillPreserve() override;
    void strokePreserve() override;
    void clipPreserve() override;

    void beginLinearGradientPattern(double x1, double y1, double x2, double y2,
                                    UXSourceOperator beyond) override;
    void addGradientPatternColorStop(const UXColor& color, double offset) override;
    void endPattern() override;
    void usePattern() override;

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

    UXTransform getDeviceTransform() const override { return m_state.toCanvas; }

    void drawRects(std::span<const UXDoubleRect> rects) override;
    void drawPolyline(std::span<const UXDoublePoint> points) override;
    void drawMarks(std::span<const UXDoublePoint> centres, double radius) override;

protected:
    // From UXPathPainter
    void transformSpace(const UXTransform& change) override;
    void transformPath(const UXTransform& change) override;
    void forgetPath() override { m_path.clear(); }

private:
    struct State {
        UXTransform toCanvas;
        WebSource source;
        WebPen pen;
        UXFillRule fillRule = UXFillRule::Winding;
        UXCompositionMode mode = UXCompositionMode::Over;
        bool isSaved = false; // on the canvas, as something has been clipped since
    };

    bool _drawsNothing() const;
    void _useSource();
    void _usePen();
    void _paintPicture(const UXPicture& picture, const UXDoubleRect& rect);
    /** Runs an action with a painter for a layer that has begun. */
    void _paintLayer(const UXPaintFunction& action, const UXTransform& toCanvas);

    WebDrawing& m_drawing;
    WebPath m_path;
    State m_state;
    std::vector<State> m_savedStates;
    int m_nesting = 0; // of the pictures and layers around this painter
    std::unique_ptr<WebGradient> m_begunGradient;
    std::shared_ptr<const WebGradient> m_endedGradient;
};
