#include "svg_check.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <vector>

namespace {

/** @return the length of the character that text begins with, 0 for bytes that are none or that XML forbids
 */
std::size_t measureCharacter(std::string_view text)
{
    const auto byte = [text](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u;
    };
    const unsigned first = byte(0);
    if (first < 0x80)
        return first >= 0x20 || first == '\t' || first == '\n' || first == '\r' ? 1 : 0;
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    unsigned code = first & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return 0;
        code = code << 6 | (byte(i) & 0x3F);
    }
    const unsigned least[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool isForbidden = (code >= 0xD800 && code < 0xE000) || code == 0xFFFE || code == 0xFFFF;
    return first < 0xC0 || code < least[length] || code > 0x10FFFF || isForbidden ? 0 : length;
}

bool startsWithEntity(std::string_view text)
{
    const std::string_view entities[] = {"&amp;", "&lt;", "&gt;", "&quot;"};
    return std::ranges::any_of(entities, [&](std::string_view entity) { return text.starts_with(entity); });
}

bool isText(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t length = measureCharacter(text);
        if (length == 0)
            return false;
        if (text[0] == '&' && !startsWithEntity(text))
            return false;
        text.remove_prefix(length);
    }
    return true;
}

/** @return where the tag that page begins with ends, npos where it does not */
std::size_t findTagEnd(std::string_view page)
{
    bool isQuoted = false;
    for (std::size_t i = 1; i < page.size(); ++i) {
        if (page[i] == '<')
            return std::string_view::npos;
        if (page[i] == '"')
            isQuoted = !isQuoted;
        else if (page[i] == '>' && !isQuoted)
            return i;
    }
    return std::string_view::npos;
}

/** @return what stands in page between each start and the next end */
std::vector<std::string_view> collectBetween(std::string_view page, std::string_view start, char end)
{
    std::vector<std::string_view> found;
    for (std::size_t at = page.find(start); at != std::string_view::npos; at = page.find(start)) {
        page.remove_prefix(at + start.size());
        found.push_back(page.substr(0, page.find(end)));
    }
    return found;
}

/** A quote in a text is written as an entity, so only attributes match. */
bool hasRightNames(std::string_view page)
{
    const std::vector<std::string_view> names = collectBetween(page, " id=\"", '"');
    const std::set<std::string_view> known(names.begin(), names.end());
    return known.size() == names.size() &&
           std::ranges::all_of(collectBetween(page, "=\"url(#", ')'),
                               [&](std::string_view name) { return known.contains(name); });
}

} // namespace

bool isWellFormed(std::string_view page)
{
    std::vector<std::string_view> open;
    if (!isText(page) || !hasRightNames(page))
        return false;
    for (std::size_t at = page.find('<'); at != std::string_view::npos; at = page.find('<')) {
        page.remove_prefix(at);
        const std::size_t end = findTagEnd(page);
        if (end == std::string_view::npos)
            return false;
        const std::string_view tag = page.substr(1, end - 1);
        const std::string_view name = tag.substr(0, tag.find_first_of(" /", 1));
        page.remove_prefix(end + 1);
        if (tag.starts_with('/')) {
            if (open.empty() || open.back() != name.substr(1))
                return false;
            open.pop_back();
        } else if (!tag.starts_with('?') && !tag.ends_with('/')) {
            open.push_back(name);
        }
    }
    return open.empty();
}
