#include "web_page.h"

// NOLINTBEGIN(readability-identifier-naming)
extern "C" {
__attribute__((import_module("page"), import_name("measureText"))) double page_measureText(
    const char* text, std::size_t textSize, const char* family, std::size_t familySize, int size, int style);
__attribute__((import_module("page"), import_name("lineHeight"))) double page_lineHeight(
    const char* family, std::size_t familySize, int size, int style);
__attribute__((import_module("page"), import_name("requestFrame"))) void page_requestFrame(
    std::uint32_t view);
__attribute__((import_module("page"), import_name("showCursor"))) void page_showCursor(std::uint32_t view,
                                                                                       int cursor);
__attribute__((import_module("page"), import_name("notify"))) void page_notify(std::uint32_t view,
                                                                               const char* message,
                                                                               std::size_t size);
__attribute__((import_module("page"), import_name("writeClipboard"))) void page_writeClipboard(
    const char* text, std::size_t size);
}
// NOLINTEND(readability-identifier-naming)

double webMeasureText(const std::string& text, const std::string& family, int size, int style)
{
    return page_measureText(text.data(), text.size(), family.data(), family.size(), size, style);
}

double webObtainLineHeight(const std::string& family, int size, int style)
{
    return page_lineHeight(family.data(), family.size(), size, style);
}

void webRequestFrame(std::uint32_t view) { page_requestFrame(view); }

void webShowCursor(std::uint32_t view, int cursor) { page_showCursor(view, cursor); }

void webNotify(std::uint32_t view, const std::string& message)
{
    page_notify(view, message.data(), message.size());
}

void webWriteClipboard(const std::string& text) { page_writeClipboard(text.data(), text.size()); }
