#pragma once

#include "ux/ux_color.h"
#include "ux/ux_double_point.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_double_size.h"
#include "ux/ux_export.h"
#include "ux/ux_font.h"
#include "ux/ux_paint_function.h"
#include "ux/ux_paint_styles.h"
#include "ux/ux_text_align.h"
#include "ux/ux_text_option.h"
#include "ux/ux_text_property.h"
#include "ux/ux_transform.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

class UXDrawTextResult;
class UXImage;
class UXPaintConfig;
class UXPicture;

/**
 * A path and a drawing state, for one paint pass. Coordinates are logical units, y down; angles are degrees,
 * 0 along +x, growing clockwise on screen. Keeps no reference to its arguments. An empty or non-finite path
 * draws nothing, a null picture or image neither, and any other number that is not finite leaves things as
 * they are.
 *
 * The state is the source (colour or pattern), the pen, fill rule, antialiasing, composition mode, transform
 * and clip. It begins as opaque black, a line one unit wide with butt ends and mitred joins, no dashes, the
 * winding rule, drawn over what is there. The path is not part of the state: its points are fixed by the
 * transform at the time that they are added.
 *
 * A back end answers the pure functions; the others have a body made of those, which a back end replaces only
 * to be faster.
 */
class UX_EXPORT UXPainter {
public:
    UXPainter() = default;
    virtual ~UXPainter();

    UXPainter(const UXPainter&) = delete;
    UXPainter& operator=(const UXPainter&) = delete;

    // Set-up: uxCreatePainter and uxCreatePainterWithObject call the first and third, uxDestroyPainter the
    // others
    /** Readies what is painted on. */
    virtual void preparePaintConfig();
    /** Hands what was drawn over to what is painted on. */
    virtual void finishPaintConfig();
    /** Saves the state, then clips to the dirty area and moves to the painted object. */
    virtual void initializeSpace();
    /** Restores the state that initializeSpace saved. */
    virtual void finalizeSpace();
    virtual void saveState() = 0;
    /** Takes the state saved last; without one it does nothing. */
    virtual void restoreState() = 0;

    // State
    /** Makes color the source in place of the colour or pattern before. Parts outside their range are
     * clamped. */
    virtual void setColor(const UXColor& color) = 0;
    /** @param width in logical units at the time of the stroke; 0 and below strokes nothing */
    virtual void setLineWidth(double width) = 0;
    virtual void setLineCap(UXLineCapStyle cap) = 0;
    virtual void setLineJoin(UXLineJoinStyle join) = 0;
    /** Dashes of a few logical units, whatever the line width is. */
    virtual void setLineDash(UXLineDashStyle dash);
    virtual void setLineDash(const std::vector<double>& lengths);
    /**
     * @param lengths of line and gap by turns, in logical units, repeated from the start; an empty list, a
     * negative length or a sum of 0 draws the line whole
     * @param offset where in the list the line begins
     */
    virtual void setLineDash(const std::vector<double>& lengths, double offset) = 0;
    virtual void setFillRule(UXFillRule rule) = 0;
    virtual void setAntialias(UXAntialiasStyle style) = 0;
    virtual void setCompositionMode(UXCompositionMode mode) = 0;

    // Transform: what comes later is moved, turned or scaled about the origin, before the transform so far
    // applies
    virtual void translate(double dx, double dy) = 0;
    virtual void rotate(double degrees) = 0;
    /** A scale of 0 does nothing. */
    virtual void scale(double sx, double sy) = 0;
    // Moves, turns or scales, about the origin of the present space, the points that the path has so far
    virtual void translatePath(double dx, double dy) = 0;
    virtual void rotatePath(double degrees) = 0;
    virtual void scalePath(double sx, double sy) = 0;

    // Path
    /** Begins a new part of the path at this point. */
    virtual void setStartPoint(double x, double y) = 0;
    /** Without a current point it sets the start point. */
    virtual void addLinePath(double x, double y) = 0;
    /** Begins a new part of the path at the first point and draws a line to the second. */
    virtual void addLinePath(double x1, double y1, double x2, double y2);
    /** Without a current point it does nothing. */
    virtual void addRelativeLinePath(double dx, double dy) = 0;
    /** A closed part of its own, clockwise from the top left; a negative width or height extends to the other
     * side. */
    virtual void addRectanglePath(double x, double y, double width, double height);
    virtual void addRectanglePath(const UXDoubleRect& rect);
    /**
     * Begins a new part of the path at the start angle and runs straight to the end angle, backwards where
     * that is smaller; more than 360 degrees run round more than once. A radius of 0 is the centre, a
     * negative one nothing.
     */
    virtual void addCircleArcPath(double cx, double cy, double radius, double startAngle, double endAngle);
    /** The same with a line from the current point to the arc's first; without a current point it begins
     * there. */
    virtual void joinCircleArcPath(double cx, double cy, double radius, double startAngle, double endAngle);
    /** Without a current point the curve begins at (x1, y1). */
    virtual void addCubicCurvePath(double x1, double y1, double x2, double y2, double x3, double y3) = 0;
    /** Forgets the current point, so that the next operation begins a new part of the path. */
    virtual void startNewSubPath() = 0;
    /** Draws a line to where the current part of the path began and makes that the current point. */
    virtual void closePath() = 0;

    // Use the path; the Preserve forms keep it, the others forget it
    virtual void fill() = 0;
    virtual void fillPreserve() = 0;
    virtual void stroke() = 0;
    virtual void strokePreserve() = 0;
    /** Draws from now on inside the path only; an empty path leaves nothing to draw on. */
    virtual void clip() = 0;
    virtual void clipPreserve() = 0;

    // Gradients: begin, add stops, end; then use as often as wanted. The ended pattern is not part of the
    // state.
    /** The points are in the space that is present when the pattern is used. */
    virtual void beginLinearGradientPattern(double x1, double y1, double x2, double y2,
                                            UXSourceOperator beyond) = 0;
    /** @param offset 0 at the first point to 1 at the second; clamped, and no smaller than the one before */
    virtual void addGradientPatternColorStop(const UXColor& color, double offset) = 0;
    virtual void endPattern() = 0;
    /** Makes the pattern that was ended last the source, until setColor; without one it does nothing. */
    virtual void usePattern() = 0;

    // Text, all sizes as the text measurer answers them
    virtual UXDoubleSize getTextSize(const std::string& text, const UXTextProperty& property);
    virtual UXDoubleSize getTextSize(const std::string& text, const UXTextProperty& property,
                                     double widthLimit);
    virtual UXDoubleSize getTextSize(const std::string& text, const UXFont& font, UXTextOption option,
                                     int lineMode);
    virtual UXDoubleSize getTextSize(const std::string& text, const UXFont& font, UXTextOption option,
                                     int lineMode, double widthLimit);
    /** Draws with the colour of property and leaves the source as it was. */
    virtual void drawText(const std::string& text, const UXDoubleRect& rect, const UXTextProperty& property);
    /**
     * Draws with the source. Lines are wrapped or cut at the width of rect as lineMode and option say,
     * aligned in it by align, and stand together in the middle of its height; lines higher than rect begin at
     * its top. Nothing is clipped. Leaves the path as it was.
     */
    virtual void drawText(const std::string& text, const UXDoubleRect& rect, const UXFont& font,
                          UXTextAlign align, UXTextOption option, int lineMode) = 0;
    /** @return result, which says what became of the text */
    virtual UXDrawTextResult& drawText(const std::string& text, const UXDoubleRect& rect,
                                       const UXTextProperty& property, UXDrawTextResult& result);
    virtual UXDrawTextResult& drawText(const std::string& text, const UXDoubleRect& rect, const UXFont& font,
                                       UXTextAlign align, UXTextOption option, int lineMode,
                                       UXDrawTextResult& result);

    // Images and pictures: stretched to rect, or in their own size with the top left corner at point. An
    // opacity is from 0 to 1 and holds for the whole; what a picture draws outside its size is cut. What
    // draws a picture, mask or layer begins with the present state, drawn over what is there. The path is
    // empty before and after.
    virtual void drawImage(const UXImage* image, const UXDoubleRect& rect, double opacity) = 0;
    virtual void drawImage(const UXImage* image, const UXDoublePoint& point, double opacity);
    virtual void drawPicture(const UXPicture* picture, const UXDoubleRect& rect, double opacity) = 0;
    virtual void drawPicture(const UXPicture* picture, const UXDoublePoint& point, double opacity);
    /** Draws picture as far as the alpha of mask, stretched to the same rectangle, lets it through. */
    virtual void drawMaskedPicture(const UXPicture* picture, const UXImage* mask,
                                   const UXDoubleRect& rect) = 0;
    virtual void drawMaskedPicture(const UXPicture* picture, const UXPicture* mask,
                                   const UXDoubleRect& rect) = 0;
    virtual void drawMaskedPicture(const UXPicture* picture, const UXImage* mask, const UXDoublePoint& point);
    virtual void drawMaskedPicture(const UXPicture* picture, const UXPicture* mask,
                                   const UXDoublePoint& point);
    /**
     * Fills rect with the source as far as the alpha of what mask draws lets it through.
     * @param mask draws in the space of the painter
     * @param config what the layer that mask draws on is made for; null for the painter's own
     */
    virtual void drawMasked(const UXPaintFunction& mask, UXPaintConfig* config, const UXDoubleRect& rect) = 0;
    /** Combines upper with lower by mode on a layer of its own, both stretched to rect, and draws the
     * outcome. */
    virtual void drawCompositedPicture(const UXPicture* upper, const UXPicture* lower,
                                       const UXDoubleRect& rect, UXCompositionMode mode) = 0;
    /**
     * Draws on a layer of its own and combines that, inside rect, with what is there by mode.
     * @param action draws in the space of the painter
     * @param config what the layer is made for; null for the painter's own
     */
    virtual void drawComposited(const UXPaintFunction& action, UXPaintConfig* config,
                                const UXDoubleRect& rect, UXCompositionMode mode) = 0;

    // The device behind
    /** @return device pixels per logical unit of the root's space */
    virtual double getDeviceScale() const { return 1; }
    /** @return the map from the present space to device pixels; the device scale alone where nothing better
     * is known */
    virtual UXTransform getDeviceTransform() const;

    // Many at once. The path is empty before and after, and what is not finite is left out.
    /** Fills each rectangle by itself with the source, its edges on whole device pixels. Empty ones are left
     * out. */
    virtual void drawRects(std::span<const UXDoubleRect> rects);
    /**
     * Fills lines of whole device pixels with the source: grid lines, axis lines.
     * @param thickness in logical units; at least one device pixel, also for 0
     */
    virtual void drawHorizontalLines(std::span<const double> ys, double left, double right, double thickness);
    virtual void drawVerticalLines(std::span<const double> xs, double top, double bottom, double thickness);
    /** Strokes the line through the points; a point that is not finite is a gap in it. */
    virtual void drawPolyline(std::span<const UXDoublePoint> points);
    /** Fills the polygons together with the source; one with a point that is not finite is left out. */
    virtual void drawPolygons(std::span<const std::vector<UXDoublePoint>> polygons);
    /** Fills a disc about each centre with the source, each by itself. */
    virtual void drawMarks(std::span<const UXDoublePoint> centres, double radius);
    /** Fills a polygon about each centre with the source, each by itself: those that are not opaque add up
     * where they lie on each other, in their order.
     *  @param corners of the polygon, from the centre */
    virtual void drawShapes(std::span<const UXDoublePoint> centres, std::span<const UXDoublePoint> corners);
    /**
     * Draws what is drawn often in the same way, a check mark for one, so that a back end may keep its
     * pixels.
     * @param name of all that decides what it looks like, beside the size of bounds
     * @param bounds that nothing is drawn outside of
     * @param draw sets all that it draws with and leaves the state as it was; it may not be called
     */
    virtual void drawStamp(const std::string& name, const UXDoubleRect& bounds, const UXPaintFunction& draw);

private:
    friend class UXPaintConfig;

    UXTransform m_objectToRoot;
    std::optional<UXDoubleRect> m_rootClip;
};
