#include "ux/cairo/ux_cairo_text_cache.h"

#include <cmath>
#include <utility>

namespace {

constexpr std::size_t kMostTexts = 4096;
constexpr std::size_t kMostGlyphs = 1 << 16; // of a few hundred bytes each, with their pixels

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
    m_key.assign(font.familyName).push_back('\0');
    appendBytes(m_key, font.size);
    m_key.push_back(static_cast<char>((font.bold ? 1 : 0) + (font.italic ? 2 : 0) + (lineMode == 1 ? 4 : 0)));
    m_key.push_back(static_cast<char>(option));
    appendBytes(m_key, widthLimit);
    m_key.append(text);

    // 2. A text in use stays: found among the old, it becomes young.
    if (const auto found = m_young.find(m_key); found != m_young.end())
        return *found->second;
    std::shared_ptr<const UXCairoTextLayout> layout;
    if (const auto found = m_old.find(m_key); found != m_old.end())
        layout = found->second;
    else
        layout = std::make_shared<const UXCairoTextLayout>(text, font, option, lineMode, widthLimit);

    // 3. Make room before the new one comes, so that what is returned is never what is forgotten.
    if (m_young.size() >= kMostTexts || m_youngGlyphs >= kMostGlyphs) {
        m_old = std::exchange(m_young, {});
        m_youngGlyphs = 0;
    }
    m_youngGlyphs += layout->getGlyphCount();
    return *m_young.emplace(m_key, std::move(layout)).first->second;
}
