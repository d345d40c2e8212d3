#include "ux/ux_clipboard.h"

#include <memory>
#include <utility>

namespace {

struct Clipboard {
    std::function<std::string()> read;
    std::function<void(const std::string&)> write;
};

std::shared_ptr<const Clipboard>& clipboardInUse()
{
    static std::shared_ptr<const Clipboard> clipboard;
    return clipboard;
}

std::string& ownText()
{
    static std::string text;
    return text;
}

} // namespace

std::string uxReadClipboard()
{
    // The host may replace its clipboard meanwhile: this one is kept alive until it returns.
    const std::shared_ptr<const Clipboard> clipboard = clipboardInUse();
    return clipboard ? clipboard->read() : ownText();
}

void uxWriteClipboard(const std::string& text)
{
    const std::shared_ptr<const Clipboard> clipboard = clipboardInUse();
    if (clipboard)
        clipboard->write(text);
    else
        ownText() = text;
}

void uxSetClipboard(std::function<std::string()> read, std::function<void(const std::string&)> write)
{
    clipboardInUse() = read && write
                           ? std::make_shared<const Clipboard>(Clipboard{std::move(read), std::move(write)})
                           : nullptr;
}
