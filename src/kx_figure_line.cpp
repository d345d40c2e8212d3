#include "kx_figure_line.h"

#include "kx_font_fit.h"
#include "ux/ux_saturate.h"
#include "ux/ux_text_measurer.h"

#include <algorithm>
#include <climits>
#include <cmath>

namespace {

/** Of the height of a line: what lies above the line that its letters stand on. */
constexpr double ascentShare = 0.8;
constexpr double noise = 1e-6;
/** Of the font size of the other lines: how large a value is at least, before they give way. */
constexpr double leastLead = 1.4;
/** Stands for every text of a line that has none yet. */
const std::string sample = "0";

bool hasTexts(const KXFigureLine& line) { return !std::ranges::all_of(line.texts, &std::string::empty); }

bool isInValueRow(const KXFigureLine& line)
{
    return line.rank == 0 || line.place != KXFigureLinePlace::Below;
}

/** Letters of other scripts may come from a font with higher lines. */
bool hasOtherScripts(const std::string& text)
{
    return std::ranges::any_of(text, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

double measureHeight(const KXFigureLine& line, const UXTextProperty& property)
{
    double height = uxMeasureText(sample, property).height;
    for (const std::string& text : line.texts)
        if (hasOtherScripts(text))
            height = std::max(height, uxMeasureText(text, property).height);
    return std::ceil(height);
}

/** @return the height of the lines that are there: the row of the value, and those below each other
 *  @param valueSize the largest font size that the value has here */
double measureLines(std::span<const KXFigureLine> lines, double gap, int valueSize)
{
    double rowHeight = 0, otherHeight = 0;
    for (const KXFigureLine& line : lines) {
        if (!hasTexts(line))
            continue;
        UXTextProperty property = line.property;
        if (line.rank == 0)
            property.font.size = std::min(property.font.size, valueSize);
        const double height = measureHeight(line, property);
        if (isInValueRow(line))
            rowHeight = std::max(rowHeight, height);
        else
            otherHeight += height + gap;
    }
    return rowHeight > 0 ? rowHeight + otherHeight : std::max(otherHeight - gap, 0.0);
}

int obtainLargestOtherSize(std::span<const KXFigureLine> lines)
{
    int size = kxLeastFontSize;
    for (const KXFigureLine& line : lines)
        if (line.rank != 0 && hasTexts(line))
            size = std::max(size, line.property.font.size);
    return size;
}

/** @return whether a line gave way */
bool dropLine(std::span<KXFigureLine> lines)
{
    KXFigureLine* last = nullptr;
    for (KXFigureLine& line : lines)
        if (line.rank > 0 && hasTexts(line) && (!last || line.rank > last->rank))
            last = &line;
    if (last)
        last->texts.clear();
    return last != nullptr;
}

/** Fits the value into what the lines beside and below leave of the room. */
void fitValue(std::span<KXFigureLine> lines, const UXDoubleSize& room, double gap)
{
    UXDoubleSize left = room;
    for (const KXFigureLine& line : lines)
        if (line.rank != 0 && hasTexts(line) && !isInValueRow(line))
            left.height -= measureHeight(line, line.property) + gap;
    left.height += noise; // as what fits is less high and less wide than its room
    left.width += noise;
    for (KXFigureLine& line : lines) {
        if (line.rank != 0)
            continue;
        const UXDoubleSize size = kxFitFont(line.texts, left, line.property);
        line.width = std::min(std::ceil(size.width), room.width);
    }
}

/** Divides the width of the value's row. */
void divideRow(std::span<KXFigureLine> lines, const UXDoubleSize& room, double gap)
{
    const auto value = std::ranges::find(lines, 0, &KXFigureLine::rank);
    const auto beside = std::ranges::find_if(lines, [](const KXFigureLine& line) {
        return line.rank != 0 && isInValueRow(line) && hasTexts(line);
    });
    if (value == lines.end())
        return;
    const double valueWidth = value->width;
    value->left = 0;
    value->width = room.width;
    if (beside == lines.end())
        return;
    beside->width = std::max(room.width - valueWidth - gap, 0.0);
    value->width = std::min(valueWidth, room.width);
    const bool isLeft = beside->place == KXFigureLinePlace::LeftOfValue;
    (isLeft ? *value : *beside).left = room.width - (isLeft ? value->width : beside->width);
    beside->align = isLeft ? UXTextAlign::Left : UXTextAlign::Right;
    value->align = isLeft ? UXTextAlign::Right : UXTextAlign::Left;
}

} // namespace

double kxMeasureFigureHeight(std::span<const KXFigureLine> lines, double gap)
{
    return measureLines(lines, gap, INT_MAX);
}

double kxMeasureLeastFigureHeight(std::span<const KXFigureLine> lines, double gap)
{
    const int size = uxRoundToInt(obtainLargestOtherSize(lines) * leastLead);
    return measureLines(lines, gap, size);
}

double kxStackFigure(std::span<KXFigureLine> lines, const UXDoubleSize& room, double gap)
{
    // 1. Lines give way where the value would be smaller than what belongs to it.
    while (kxMeasureLeastFigureHeight(lines, gap) > room.height && dropLine(lines)) {}
    // 2. The value takes what is left.
    fitValue(lines, room, gap);
    divideRow(lines, room, gap);
    // 3. All in the value's row stand on one line.
    double rowHeight = 0, ascent = 0;
    for (KXFigureLine& line : lines) {
        line.height = hasTexts(line) ? measureHeight(line, line.property) : 0;
        if (!isInValueRow(line)) {
            line.left = 0;
            line.width = line.greatestWidth > 0 ? std::min(room.width, line.greatestWidth) : room.width;
            continue;
        }
        rowHeight = std::max(rowHeight, line.height);
        ascent = std::max(ascent, line.height * ascentShare);
    }
    // 4. From top to bottom.
    double top = 0, rowTop = -1;
    for (KXFigureLine& line : lines) {
        if (line.height <= 0)
            continue;
        if (!isInValueRow(line)) {
            line.top = top;
            top += line.height + gap;
            continue;
        }
        if (rowTop < 0) {
            rowTop = top;
            top += rowHeight + gap;
        }
        line.top = rowTop + ascent - line.height * ascentShare;
    }
    return std::max(top - gap, 0.0);
}
