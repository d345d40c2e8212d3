#pragma once

class FuzzInput;
class UXPainter;

/** Draws the next steps of a case with painter: what a host draws with any numbers and texts. */
void drawAnything(UXPainter& painter, FuzzInput& input);
