#include "ux/ux_hint_words.h"

#include "ux/ux_hint_info.h"
#include "ux/ux_localize.h"

#include <algorithm>

namespace {

void append(std::string& words, const char* separator, const std::string& text)
{
    if (!text.empty())
        words.append(words.empty() ? "" : separator).append(text);
}

void appendRows(std::string& words, const std::deque<UXHintRowInfo>& rows)
{
    for (const UXHintRowInfo& row : rows) {
        std::string told = row.label;
        append(told, ": ", row.value);
        append(words, ", ", told);
    }
}

} // namespace

std::string uxWriteHint(const UXHintInfo& info)
{
    std::string words;
    if (!info.enabled)
        return words;
    append(words, "", info.title);
    append(words, ": ", info.text);
    appendRows(words, info.rows);
    if (info.omittedRowCount > 0) {
        std::string more = uxLocalizeString("and %1 more");
        if (const std::size_t place = more.find("%1"); place != std::string::npos)
            more.replace(place, 2, std::to_string(info.omittedRowCount));
        append(words, ", ", more);
    }
    appendRows(words, info.footerRows);
    std::ranges::replace_if(
        words, [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return words;
}
