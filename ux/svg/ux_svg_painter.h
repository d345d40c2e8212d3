#pragma once

#include "ux/svg/ux_svg_path.h"
#include "ux/ux_path_painter.h"

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

class UXSvgDocument;
struct UXSvgGradient;
class UXSvgLayer;

/** Draws onto a layer of a page of scalable vector graphics. */
class UXSvgPainter final : public UXPathPainter {
public:
    /**
     * @param document the page; it and the layer have to outlive the painter
     * @param toPage where the painter's space lies on the page
     */
    UXSvgPainter(UXSvgDocument& document, UXSvgLayer& layer, const UXTransform& toPage);
    ~UXSvgPainter() override;

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

    UXTransform getDeviceTransform() const override { return m_state.toPage; }

    void drawRects(std::span<const UXDoubleRect> rects) override;
    void drawMarks(std::span<const UXDoublePoint> centres, double radius) override;
    void drawShapes(std::span<const UXDoublePoint> centres, std::span<const UXDoublePoint> corners) override;

protected:
    // From UXPathPainter
    void transformSpace(const UXTransform& change) override;
    void transformPath(const UXTransform& change) override;
    void forgetPath() override { m_path.clear(); }

private:
    struct State {
        UXTransform toPage;
        UXColor color;
        std::shared_ptr<const UXSvgGradient>
            gradient; /**< the source in place of the colour, where there is one */
        UXTransform gradientToPage;
        double lineWidth = 1;
        UXLineCapStyle cap = UXLineCapStyle::Butt;
        UXLineJoinStyle join = UXLineJoinStyle::Miter;
        std::vector<double> dashes;
        double dashOffset = 0;
        UXFillRule fillRule = UXFillRule::Winding;
        UXAntialiasStyle antialias = UXAntialiasStyle::Default;
        UXCompositionMode mode = UXCompositionMode::Over;
        std::string clip;
    };

    void _add(const std::string& element);
    bool _drawsNothing() const;
    UXSvgPath _obtainRectPath(const UXDoubleRect& rect) const;
    std::string _obtainRegion(const UXDoubleRect& rect) const;
    std::string _obtainPaint(const std::string& property, const UXTransform& elementToPage) const;
    std::string _obtainStroke(double scale) const;
    std::string _obtainFillElement(const UXSvgPath& path) const;
    bool _useShape(std::span<const UXDoublePoint> centres, const std::function<void()>& addPath);
    std::string _obtainImageElement(const UXImage& image, const UXDoubleRect& rect) const;
    void _drawTextLine(const std::string& line, const UXDoubleRect& rect, double baseline, const UXFont& font,
                       UXTextAlign align);
    std::string _paintPicture(const UXPicture* picture, const UXDoubleRect& rect) const;
    std::string _paintLayer(const UXPaintFunction& action, const UXTransform& toPage) const;
    void _drawMasked(const std::string& content, const std::string& mask, const UXDoubleRect& rect);

    UXSvgDocument& m_document;
    UXSvgLayer& m_layer;
    UXSvgPath m_path;
    State m_state;
    std::vector<State> m_savedStates;
    int m_nesting = 0; /**< of the pictures and layers around this painter */
    std::unique_ptr<UXSvgGradient> m_begunGradient;
    std::shared_ptr<const UXSvgGradient> m_endedGradient;
};
