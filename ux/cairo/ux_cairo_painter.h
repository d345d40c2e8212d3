#pragma once

#include "ux/cairo/ux_cairo_handles.h"
#include "ux/cairo/ux_cairo_pixels.h"
#include "ux/ux_path_painter.h"
#include "ux/ux_transform.h"

#include <functional>
#include <optional>
#include <span>
#include <vector>

/** Draws with Cairo on one surface. Everything that would put a Cairo context into its error state is kept
 * out. */
class UXCairoPainter final : public UXPathPainter {
public:
    /**
     * @param surface kept alive as long as the painter
     * @param scale units of the surface per logical unit, beside the surface's device scale
     * @param origin of the logical units, in units of the surface
     */
    UXCairoPainter(UXCairoSurface* surface, double scale, const UXDoublePoint& origin);
    ~UXCairoPainter() override;

    // From UXPainter: set-up
    void finishPaintConfig() override;
    void saveState() override;
    void restoreState() override;

    // State
    void setColor(const UXColor& color) override;
    void setLineWidth(double width) override;
    void setLineCap(UXLineCapStyle cap) override;
    void setLineJoin(UXLineJoinStyle join) override;
    using UXPainter::setLineDash;
    void setLineDash(const std::vector<double>& lengths, double offset) override;
    void setFillRule(UXFillRule rule) override;
    void setAntialias(UXAntialiasStyle style) override;
    void setCompositionMode(UXCompositionMode mode) override;

    // Path
    void setStartPoint(double x, double y) override;
    using UXPainter::addLinePath;
    void addLinePath(double x, double y) override;
    void addRelativeLinePath(double dx, double dy) override;
    using UXPainter::addRectanglePath;
    void addRectanglePath(double x, double y, double width, double height) override;
    void addCubicCurvePath(double x1, double y1, double x2, double y2, double x3, double y3) override;
    void startNewSubPath() override;
    void closePath() override;

    // Use the path
    void fillPreserve() override;
    void strokePreserve() override;
    void clipPreserve() override;

    // Gradients
    void beginLinearGradientPattern(double x1, double y1, double x2, double y2,
                                    UXSourceOperator beyond) override;
    void addGradientPatternColorStop(const UXColor& color, double offset) override;
    void endPattern() override;
    void usePattern() override;

    // Text
    using UXPainter::drawText;
    void drawText(const std::string& text, const UXDoubleRect& rect, const UXFont& font, UXTextAlign align,
                  UXTextOption option, int lineMode) override;
    UXDrawTextResult& drawText(const std::string& text, const UXDoubleRect& rect, const UXFont& font,
                               UXTextAlign align, UXTextOption option, int lineMode,
                               UXDrawTextResult& result) override;

    // Images and pictures
    using UXPainter::drawImage;
    using UXPainter::drawMaskedPicture;
    using UXPainter::drawPicture;
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

    // Many at once
    void drawRects(std::span<const UXDoubleRect> rects) override;
    void drawPolyline(std::span<const UXDoublePoint> points) override;
    void drawPolygons(std::span<const std::vector<UXDoublePoint>> polygons) override;
    void drawMarks(std::span<const UXDoublePoint> centres, double radius) override;
    void drawShapes(std::span<const UXDoublePoint> centres, std::span<const UXDoublePoint> corners) override;
    void drawStamp(const std::string& name, const UXDoubleRect& bounds, const UXPaintFunction& draw) override;

    // The device behind
    double getDeviceScale() const override { return m_deviceScale; }
    UXTransform getDeviceTransform() const override { return m_toDevice; }

protected:
    // From UXPathPainter
    void transformSpace(const UXTransform& change) override { _transform(change); }
    void transformPath(const UXTransform& change) override;
    void forgetPath() override;

private:
    /** An empty path and a state to go back to, for one operation and what the host draws in it. */
    class Scope;
    enum class Layer { Colours, AlphaOnly };

    bool _transform(const UXTransform& change);
    bool _acceptPoint(double& x, double& y);
    bool _isPathDrawable() const { return m_hasPath && !m_pathBroken; }
    bool _clipToRect(const UXDoubleRect& rect);
    bool _isReachable(const UXDoubleRect& rect) const;
    UXCairoPixels* _obtainPixels();
    void _runNested(const std::function<void()>& action);
    bool _writePolyline(std::span<const UXDoublePoint> points);
    bool _writeBands(std::span<const std::vector<UXDoublePoint>> polygons);
    std::vector<UXDoublePoint> _toPixels(std::span<const UXDoublePoint> points) const;
    bool _stamp(std::span<const UXDoublePoint> centres, double reach,
                const std::function<void(UXCairoContext*)>& addPath);
    std::vector<UXDoublePoint> _leaveOutHidden(std::span<const UXDoublePoint> centres) const;
    void _placePicture(const UXPicture& picture, const UXDoubleRect& rect);
    UXCairoPatternHandle _drawLayer(Layer kind, const std::function<void()>& action);
    void _combineLayer(const UXCairoPatternHandle& layer, UXCompositionMode mode);
    void _drawText(const std::string& text, const UXDoubleRect& rect, const UXFont& font, UXTextAlign align,
                   UXTextOption option, int lineMode, UXDrawTextResult* result);

    UXCairoContext* m_context;
    UXTransform m_ground;   // from the surface's own units to device pixels
    UXTransform m_toDevice; // from the present space to device pixels
    double m_deviceScale;

    int m_depth = 0;       // states saved
    int m_lowestDepth = 0; // what the function that draws a layer may not restore below
    int m_nesting = 0;     // of pictures, masks and layers

    bool m_hasPath = false;    // whether anything was added to the path
    bool m_pathBroken = false; // whether anything of it was not finite

    std::optional<UXCairoPixels> m_pixels; // for the present clip
    bool m_isSourceTaken = false;          // by m_pixels

    UXCairoPatternHandle m_begunPattern, m_endedPattern;
    double m_lastOffset = 0; // of the pattern that was begun
};
