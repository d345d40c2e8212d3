#pragma once

#include "ux/ux_double_rect.h"

#include <string>
#include <vector>

class UXRecording;

/**
 * Looks through a drawing for what a reader of the picture would call a fault: two texts over each other,
 * something outside the area, a place that is no number, a rectangle whose edges are not between device
 * pixels. What a clip hides and what has no colour is no fault, and neither are lines of text that meet where
 * they are blank. Pictures and images are taken as the rectangles that they fill.
 * @param area that the drawing has to keep to, in logical units of the root's space
 * @return a sentence for each fault, in the order of drawing; texts are measured as they are now
 */
std::vector<std::string> checkDrawing(const UXRecording& recording, const UXDoubleRect& area);
