#pragma once

#include "drawing_check.h"
#include "drawn_text.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_path_painter.h"

#include <array>
#include <initializer_list>
#include <span>
#include <string>
#include <vector>

/** Notes where things are drawn, and what is wrong about it. Draws nothing. */
class CheckingPainter final : public UXPathPainter {
public:
    /** @param area that the drawing has to keep to, in logical units of the root's space */
    CheckingPainter(const UXDoubleRect& area, double deviceScale, const DrawingExcuses& excuses);

    /** @return a sentence for each fault so far; those between texts come last */
    std::vector<std::string> obtainFaults() const;

    // From UXPainter
    using UXPainter::addLinePath;
    using UXPainter::drawImage;
    using UXPainter::drawMaskedPicture;
    using UXPainter::drawPicture;
    using UXPainter::drawText;
    using UXPainter::setLineDash;

    void saveState() override;
    void restoreState() override;
    void setColor(const UXColor& color) override;
    void setLineWidth(double width) override;
    void setLineCap(UXLineCapStyle) override {}
    void setLineJoin(UXLineJoinStyle) override {}
    void setLineDash(const std::vector<double>&, double) override {}
    void setFillRule(UXFillRule) override {}
    void setAntialias(UXAntialiasStyle) override {}
    void setCompositionMode(UXCompositionMode) override {}

    void setStartPoint(double x, double y) override;
    void addLinePath(double x, double y) override;
    void addRelativeLinePath(double dx, double dy) override;
    void addCubicCurvePath(double x1, double y1, double x2, double y2, double x3, double y3) override;
    void startNewSubPath() override {}
    void closePath() override {}

    void fillPreserve() override;
    void strokePreserve() override;
    void clipPreserve() override;

    void beginLinearGradientPattern(double, double, double, double, UXSourceOperator) override {}
    void addGradientPatternColorStop(const UXColor&, double) override {}
    void endPattern() override {}
    void usePattern() override;

    void drawText(const std::string& text, const UXDoubleRect& rect, const UXFont& font, UXTextAlign align,
                  UXTextOption option, int lineMode) override;

    void drawImage(const UXImage* image, const UXDoubleRect& rect, double opacity) override;
    void drawPicture(const UXPicture* picture, const UXDoubleRect& rect, double opacity) override;
    void drawMaskedPicture(const UXPicture*, const UXImage*, const UXDoubleRect& rect) override;
    void drawMaskedPicture(const UXPicture*, const UXPicture*, const UXDoubleRect& rect) override;
    void drawMasked(const UXPaintFunction& mask, UXPaintConfig* config, const UXDoubleRect& rect) override;
    void drawCompositedPicture(const UXPicture*, const UXPicture*, const UXDoubleRect& rect,
                               UXCompositionMode) override;
    void drawComposited(const UXPaintFunction& action, UXPaintConfig* config, const UXDoubleRect& rect,
                        UXCompositionMode mode) override;

    double getDeviceScale() const override { return m_deviceScale; }
    UXTransform getDeviceTransform() const override;
    void drawRects(std::span<const UXDoubleRect> rects) override;

protected:
    // From UXPathPainter
    void transformSpace(const UXTransform& change) override;
    void transformPath(const UXTransform& change) override;
    void forgetPath() override { m_path.clear(); }

private:
    struct State {
        UXTransform toRoot;
        UXDoubleRect clip;
        double lineWidth = 1;
        bool isClear = false; // the source has no colour
    };
    struct Text : DrawnText {
        std::array<UXDoublePoint, 4> corners; // in the root's space
    };

    void _checkSeen(const DrawnText& whole);
    bool _mayMeet(const Text& a, const Text& b) const;
    void _checkFinite(const std::string& what, std::initializer_list<double> numbers);
    void _checkBounds(const std::string& what, const UXDoubleRect& bounds);
    void _checkRect(const std::string& what, const UXDoubleRect& rect);
    void _checkPath(const std::string& what, double margin);

    UXDoubleRect m_area;
    double m_deviceScale;
    DrawingExcuses m_excuses;
    State m_state;
    std::vector<State> m_savedStates;
    std::vector<UXDoublePoint> m_path; // in the root's space
    std::vector<Text> m_texts;
    std::vector<std::string> m_faults;
};
