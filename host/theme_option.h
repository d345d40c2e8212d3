#pragma once

#include <memory>
#include <string>

class KXChartTheme;

/** @param text the name of a theme of the library, or a theme document, a file that ends in .json; empty for
 * none
 *  @return null for none; throws HostError for what is neither, and for a document that holds a value that no
 * theme takes */
std::unique_ptr<KXChartTheme> readThemeOption(const std::string& text);
