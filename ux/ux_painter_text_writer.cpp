#include "ux/ux_painter_text_writer.h"

#include "ux/ux_enum_base.h"
#include "ux/ux_image.h"
#include "ux/ux_picture.h"

#include <charconv>
#include <cmath>
#include <initializer_list>

namespace {

std::string number(double value)
{
    char digits[32];
    // Adding 0 turns a negative zero into the zero that a reader expects.
    return {digits, std::to_chars(digits, digits + sizeof digits, value + 0.0).ptr};
}

std::string numbers(std::initializer_list<double> values)
{
    std::string text;
    for (const double value : values)
        text.append(text.empty() ? "" : ",").append(number(value));
    return text;
}

std::string text(const UXDoubleRect& rect) { return numbers({rect.x, rect.y, rect.width, rect.height}); }

std::string text(const UXDoublePoint& point) { return numbers({point.x, point.y}); }

std::string text(const UXColor& color)
{
    return numbers({double(color.red), double(color.green), double(color.blue), color.alpha});
}

template <typename Enum>
std::string name(Enum value)
{
    const std::vector<std::string> names = UXEnum::splitString(uxObtainEnumNames(value));
    const auto index = static_cast<std::size_t>(value);
    return index < names.size() ? names[index] : std::to_string(static_cast<int>(value));
}

/** The text on one line between quotation marks; bytes beyond ASCII stay as they are. */
std::string quoted(const std::string& text)
{
    constexpr char hexDigits[] = "0123456789abcdef";
    std::string line = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\')
            line.append({'\\', c});
        else if (c == '\n')
            line.append("\\n");
        else if (byte < 0x20 || byte == 0x7f)
            line.append({'\\', 'x', hexDigits[byte / 16], hexDigits[byte % 16]});
        else
            line.push_back(c);
    }
    return line + '"';
}

std::string text(const UXFont& font)
{
    std::string line = quoted(font.familyName) + ' ' + std::to_string(font.size);
    line.append(font.bold ? " bold" : "").append(font.italic ? " italic" : "");
    return font.attribute == 0 ? line : line + " attribute " + std::to_string(font.attribute);
}

std::string drawTextLine(const std::string& content, const UXDoubleRect& rect, const UXFont& font,
                         UXTextAlign align, UXTextOption option, int lineMode)
{
    return "drawText " + text(rect) + ' ' + quoted(content) + " font " + text(font) + " align " +
           name(align) + " option " + name(option) + " lineMode " + std::to_string(lineMode);
}

std::string text(const UXImage& image)
{
    return "image " + std::to_string(image.getSize().width) + 'x' + std::to_string(image.getSize().height);
}

template <typename Item>
std::string list(std::span<const Item> items)
{
    std::string line;
    for (const Item& item : items)
        line.append(" ").append(text(item));
    return line;
}

} // namespace

UXPainterTextWriter::UXPainterTextWriter(double deviceScale) : m_deviceScale(deviceScale)
{
    if (deviceScale != 1)
        _write("deviceScale " + number(deviceScale));
}

void UXPainterTextWriter::saveState() { _write("saveState"); }

void UXPainterTextWriter::restoreState() { _write("restoreState"); }

void UXPainterTextWriter::setColor(const UXColor& color) { _write("setColor " + text(color)); }

void UXPainterTextWriter::setLineWidth(double width) { _write("setLineWidth " + number(width)); }

void UXPainterTextWriter::setLineCap(UXLineCapStyle cap) { _write("setLineCap " + name(cap)); }

void UXPainterTextWriter::setLineJoin(UXLineJoinStyle join) { _write("setLineJoin " + name(join)); }

void UXPainterTextWriter::setLineDash(UXLineDashStyle dash) { _write("setLineDash " + name(dash)); }

void UXPainterTextWriter::setLineDash(const std::vector<double>& lengths, double offset)
{
    std::string line = "setLineDash";
    for (const double length : lengths)
        line.append(" ").append(number(length));
    _write(line + " offset " + number(offset));
}

void UXPainterTextWriter::setFillRule(UXFillRule rule) { _write("setFillRule " + name(rule)); }

void UXPainterTextWriter::setAntialias(UXAntialiasStyle style) { _write("setAntialias " + name(style)); }

void UXPainterTextWriter::setCompositionMode(UXCompositionMode mode)
{
    _write("setCompositionMode " + name(mode));
}

void UXPainterTextWriter::translate(double dx, double dy) { _write("translate " + numbers({dx, dy})); }

void UXPainterTextWriter::rotate(double degrees) { _write("rotate " + number(degrees)); }

void UXPainterTextWriter::scale(double sx, double sy) { _write("scale " + numbers({sx, sy})); }

void UXPainterTextWriter::translatePath(double dx, double dy)
{
    _write("translatePath " + numbers({dx, dy}));
}

void UXPainterTextWriter::rotatePath(double degrees) { _write("rotatePath " + number(degrees)); }

void UXPainterTextWriter::scalePath(double sx, double sy) { _write("scalePath " + numbers({sx, sy})); }

void UXPainterTextWriter::setStartPoint(double x, double y) { _write("setStartPoint " + numbers({x, y})); }

void UXPainterTextWriter::addLinePath(double x, double y) { _write("addLinePath " + numbers({x, y})); }

void UXPainterTextWriter::addLinePath(double x1, double y1, double x2, double y2)
{
    _write("addLinePath " + numbers({x1, y1, x2, y2}));
}

void UXPainterTextWriter::addRelativeLinePath(double dx, double dy)
{
    _write("addRelativeLinePath " + numbers({dx, dy}));
}

void UXPainterTextWriter::addRectanglePath(double x, double y, double width, double height)
{
    _write("addRectanglePath " + numbers({x, y, width, height}));
}

void UXPainterTextWriter::addCircleArcPath(double cx, double cy, double radius, double startAngle,
                                           double endAngle)
{
    _write("addCircleArcPath " + numbers({cx, cy, radius, startAngle, endAngle}));
}

void UXPainterTextWriter::joinCircleArcPath(double cx, double cy, double radius, double startAngle,
                                            double endAngle)
{
    _write("joinCircleArcPath " + numbers({cx, cy, radius, startAngle, endAngle}));
}

void UXPainterTextWriter::addCubicCurvePath(double x1, double y1, double x2, double y2, double x3, double y3)
{
    _write("addCubicCurvePath " + numbers({x1, y1, x2, y2, x3, y3}));
}

void UXPainterTextWriter::startNewSubPath() { _write("startNewSubPath"); }

void UXPainterTextWriter::closePath() { _write("closePath"); }

void UXPainterTextWriter::fill() { _write("fill"); }

void UXPainterTextWriter::fillPreserve() { _write("fillPreserve"); }

void UXPainterTextWriter::stroke() { _write("stroke"); }

void UXPainterTextWriter::strokePreserve() { _write("strokePreserve"); }

void UXPainterTextWriter::clip() { _write("clip"); }

void UXPainterTextWriter::clipPreserve() { _write("clipPreserve"); }

void UXPainterTextWriter::beginLinearGradientPattern(double x1, double y1, double x2, double y2,
                                                     UXSourceOperator beyond)
{
    _write("beginLinearGradientPattern " + numbers({x1, y1, x2, y2}) + ' ' + name(beyond));
}

void UXPainterTextWriter::addGradientPatternColorStop(const UXColor& color, double offset)
{
    _write("addGradientPatternColorStop " + text(color) + " at " + number(offset));
}

void UXPainterTextWriter::endPattern() { _write("endPattern"); }

void UXPainterTextWriter::usePattern() { _write("usePattern"); }

void UXPainterTextWriter::drawText(const std::string& content, const UXDoubleRect& rect,
                                   const UXTextProperty& property)
{
    _write(drawTextLine(content, rect, property.font, property.align, property.option, property.lineMode) +
           " color " + text(property.textColor));
}

void UXPainterTextWriter::drawText(const std::string& content, const UXDoubleRect& rect, const UXFont& font,
                                   UXTextAlign align, UXTextOption option, int lineMode)
{
    _write(drawTextLine(content, rect, font, align, option, lineMode));
}

void UXPainterTextWriter::drawImage(const UXImage* image, const UXDoubleRect& rect, double opacity)
{
    _write("drawImage " + text(rect) + " opacity " + number(opacity) + ' ' + text(*image));
}

void UXPainterTextWriter::drawPicture(const UXPicture* picture, const UXDoubleRect& rect, double opacity)
{
    _writePicture("drawPicture " + text(rect) + " opacity " + number(opacity), *picture);
}

void UXPainterTextWriter::drawMaskedPicture(const UXPicture* picture, const UXImage* mask,
                                            const UXDoubleRect& rect)
{
    _writePicture("drawMaskedPicture " + text(rect), *picture);
    _write("mask " + text(*mask));
}

void UXPainterTextWriter::drawMaskedPicture(const UXPicture* picture, const UXPicture* mask,
                                            const UXDoubleRect& rect)
{
    _writePicture("drawMaskedPicture " + text(rect), *picture);
    _writePicture("mask", *mask);
}

void UXPainterTextWriter::drawMasked(const UXPaintFunction& mask, UXPaintConfig*, const UXDoubleRect& rect)
{
    _writeLayer("drawMasked " + text(rect), mask);
}

void UXPainterTextWriter::drawCompositedPicture(const UXPicture* upper, const UXPicture* lower,
                                                const UXDoubleRect& rect, UXCompositionMode mode)
{
    _writePicture("drawCompositedPicture " + text(rect) + ' ' + name(mode), *upper);
    _writePicture("lower", *lower);
}

void UXPainterTextWriter::drawComposited(const UXPaintFunction& action, UXPaintConfig*,
                                         const UXDoubleRect& rect, UXCompositionMode mode)
{
    _writeLayer("drawComposited " + text(rect) + ' ' + name(mode), action);
}

void UXPainterTextWriter::drawRects(std::span<const UXDoubleRect> rects)
{
    _write("drawRects" + list(rects));
}

void UXPainterTextWriter::drawPolyline(std::span<const UXDoublePoint> points)
{
    std::string line = "drawPolyline";
    for (const UXDoublePoint& point : points)
        line.append(" ").append(std::isfinite(point.x) && std::isfinite(point.y) ? text(point) : "gap");
    _write(line);
}

void UXPainterTextWriter::drawMarks(std::span<const UXDoublePoint> centres, double radius)
{
    _write("drawMarks radius " + number(radius) + list(centres));
}

void UXPainterTextWriter::drawShapes(std::span<const UXDoublePoint> centres,
                                     std::span<const UXDoublePoint> corners)
{
    _write("drawShapes corners" + list(corners) + " at" + list(centres));
}

void UXPainterTextWriter::_write(std::string line) { m_lines.push_back(m_indent + std::move(line)); }

void UXPainterTextWriter::_writePicture(const std::string& opening, const UXPicture& picture)
{
    _writeLayer(opening + " size " + numbers({picture.getSize().width, picture.getSize().height}),
                [&picture](UXPainter* painter) { picture.paint(painter); });
}

void UXPainterTextWriter::_writeLayer(const std::string& opening, const UXPaintFunction& action)
{
    _write(opening + " {");
    m_indent.append("  ");
    action(this);
    m_indent.resize(m_indent.size() - 2);
    _write("}");
}
