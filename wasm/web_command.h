#pragma once

#include <cstdint>

/**
 * What a page does for one command of a drawing; js/canvas_player.js has the same list. Coordinates are
 * pixels of the canvas, floats like all numbers that are not counts. A text is its number of bytes and then
 * its UTF-8, filled up to whole words.
 */
enum class WebCommand : std::uint32_t {
    Save,     // the state of the canvas
    Restore,  //
    Color,    // red, green, blue, alpha: the source
    Gradient, // x1, y1, x2, y2, map (6), UXSourceOperator, count of stops, each red, green, blue, alpha,
              // offset
    Pen,      // width, UXLineCapStyle, UXLineJoinStyle, map (4), dash offset, count of lengths, the lengths
    Composition, // UXCompositionMode
    BeginPath,   //
    MoveTo,      // x, y
    LineTo,      // x, y
    CurveTo,     // x1, y1, x2, y2, x3, y3
    ClosePath,   //
    Fill,        // UXFillRule
    Stroke,      //
    Clip,        // UXFillRule
    Rects,       // count, each x, y, width, height: filled one by one
    Polyline,    // count, each x, y; a point that is not a number is a gap: stroked
    Marks,       // radius, count, each x, y: discs, filled one by one
    Font,        // size, 1 bold + 2 italic, text of the family
    Text,        // x, top of the line, 0 left 1 middle 2 right, map (6), text: filled with the source
    Image,       // address and width and height of its pixels, opacity, map (6) of the pixels to the canvas
    BeginLayer,  // draws on an empty layer of the canvas's size from now on
    EndLayer // UXCompositionMode, opacity: draws the layer on what is below, as far as the present clip lets
             // it
};
