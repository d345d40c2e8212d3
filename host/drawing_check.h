#pragma once

#include "drawn_text.h"
#include "ux/ux_double_rect.h"

#include <functional>
#include <string>
#include <vector>

class UXRecording;

/** What the caller knows better than the drawing shows; where empty, nothing. */
struct DrawingExcuses {
    /** @return whether two texts may lie over each other, as those may that the user wants all of */
    std::function<bool(const DrawnText&, const DrawnText&)> mayMeet;
    /** @return whether a text may be cut, as it is where one can scroll to the rest of it */
    std::function<bool(const DrawnText&)> mayBeCut;
};

/**
 * Looks through a drawing for what a reader of the picture would call a fault: two texts over each other, a
 * text of which a clip or the area's edge leaves less than half, something outside the area, a place that is
 * no number, a rectangle whose edges are not between device pixels. A text that a clip inside the area hides
 * altogether is scrolled out of sight and no fault; nor are shapes that a clip hides, what has no colour, and
 * lines of text that meet where they are blank. Pictures and images are taken as the rectangles that they
 * fill.
 * @param area that the drawing has to keep to, in logical units of the root's space
 * @return a sentence for each fault, in the order of drawing; texts are measured as they are now
 */
std::vector<std::string> checkDrawing(const UXRecording& recording, const UXDoubleRect& area,
                                      const DrawingExcuses& excuses = {});
