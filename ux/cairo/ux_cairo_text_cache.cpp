#include "ux/cairo/ux_cairo_text_cache.h"

#include "ux/ux_text_bound.h"

#include <utility>

namespace {

constexpr std::size_t kMostTexts = 4096;
constexpr std::size_t kMostBytes = 8 << 20; // the letters of a picture of 4K cover no more
constexpr std::size_t kKeyOverhead = 128;   // about what a text takes beside its key and its layout

void appendBytes(std::string& key, const auto& value)
{
    key.append(reinterpret_cast<const char*>(&value), sizeof value);
}

} // namespace

UXCairoTextCache& UXCairoTextCache::obtainShared()
{
    // Never destroyed: a host's static objects may still paint while the program ends.
    static UXCairoTextCache* shared = new UXCairoTextCache;
    return *shared;
}

const UXCairoTextLayout& UXCairoTextCache::obtainLayout(const std::string& text, const UXFont& font,
                                                        UXTextOption option, int lineMode, double widthLimit)
{
    // A text that fits is laid out without its limit: one layout serves every width, and a text never wraps
    // in the room that it measured.
    const UXCairoTextLayout& natural = _obtainLayout(text, font, UXTextOption::Default, 0, -1);
    const bool limited = (lineMode == 1 || option != UXTextOption::Default) && widthLimit >= 0;
    if (!limited || natural.getSize().width <= widthLimit)
        return natural;
    return _obtainLayout(text, font, lineMode == 1 ? UXTextOption::Default : option, lineMode, widthLimit);
}

const UXCairoTextLayout& UXCairoTextCache::_obtainLayout(const std::string& text, const UXFont& font,
                                                         UXTextOption option, int lineMode, double widthLimit)
{
    // 1. The key is everything that the layout depends on, the two texts last and first with their end
    // marked.
    m_key.assign(uxBoundFamilyName(font.familyName)).push_back('\0');
    appendBytes(m_key, font.size);
    m_key.push_back(static_cast<char>((font.bold ? 1 : 0) + (font.italic ? 2 : 0) + (lineMode == 1 ? 4 : 0)));
    m_key.push_back(static_cast<char>(option));
    appendBytes(m_key, widthLimit);
    m_key.append(uxBoundDrawnText(text, font.size));

    // 2. A text in use stays: found among the old, it becomes young.
    _noteGrowth();
    const auto young = m_young.find(m_key);
    if (young != m_young.end()) {
        m_latest = young->second;
        m_latestBytes = m_latest->getBytes();
        m_isLatestKept = true;
        return *m_latest;
    }
    if (const auto found = m_old.find(m_key); found != m_old.end())
        m_latest = found->second;
    else
        m_latest = std::make_shared<const UXCairoTextLayout>(text, font, option, lineMode, widthLimit);

    // 3. What takes too much room is answered, and forgotten with the next question.
    m_latestBytes = m_latest->getBytes();
    const std::size_t bytes = m_latestBytes + m_key.size() + kKeyOverhead;
    m_isLatestKept = bytes <= kMostBytes / 8;
    if (!m_isLatestKept)
        return *m_latest;

    // 4. Make room, then remember.
    if (m_young.size() >= kMostTexts || m_youngBytes + bytes > kMostBytes) {
        m_old = std::exchange(m_young, {});
        m_youngBytes = 0;
    }
    m_youngBytes += bytes;
    m_young.emplace(m_key, m_latest);
    return *m_latest;
}

void UXCairoTextCache::_noteGrowth()
{
    if (!m_isLatestKept)
        return;
    // A rendering may have made room for a smaller one; too high a count is put right with the generation.
    const std::size_t bytes = m_latest->getBytes();
    if (bytes > m_latestBytes)
        m_youngBytes += bytes - m_latestBytes;
}
