#include "ux/ux_text_file.h"

#include "ux/ux_whole_file.h"

bool uxReadTextFile(const std::string& fileName, std::string& text)
{
    const UXWholeFile file = uxReadWholeFile(fileName);
    if (!file.bytes)
        return false;
    text.assign(file.bytes.get(), static_cast<std::size_t>(file.size));
    return true;
}

bool uxWriteTextFile(const std::string& fileName, const std::string& text)
{
    return uxWriteWholeFile(fileName, text);
}
