#pragma once

class UXObject;

/** Draws object in every way that needs no graphics library: recorded, and played into another recording and
 * onto a page of vector graphics. Ends the program where one of them is not what it has to be.
 *  @param deviceScale device pixels per logical unit, above 0 */
void drawEverywhere(UXObject& object, double deviceScale);

/** Draws object into a recording, every coordinate of which has to be finite. */
void drawRecorded(UXObject& object, double deviceScale);
