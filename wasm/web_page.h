#pragma once

#include <cstdint>
#include <string>

// What the page answers to the module. js/kxcharts.js has the other side; all texts are UTF-8.

/** How a font is named to the page. @param style 1 bold + 2 italic */
double webMeasureText(const std::string& text, const std::string& family, int size, int style);
/** @return the height of a line, in the unit of size */
double webObtainLineHeight(const std::string& family, int size, int style);
/** Asks for webDrawFrame when the page is drawn next. @param view as the page knows it */
void webRequestFrame(std::uint32_t view);
void webShowCursor(std::uint32_t view, int cursor);
/** @param message JSON: what happened, in which chart, to which item */
void webNotify(std::uint32_t view, const std::string& message);
void webWriteClipboard(const std::string& text);
