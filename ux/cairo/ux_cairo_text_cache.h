#pragma once

#include "ux/cairo/ux_cairo_text_layout.h"

#include <memory>
#include <string>
#include <unordered_map>

/**
 * Keeps laid out texts, so that a text drawn again is not shaped again. Bounded: two generations, and when
 * the young one is full the old one is forgotten and the young one becomes old.
 */
class UXCairoTextCache {
public:
    static UXCairoTextCache& obtainShared();

    /**
     * @param widthLimit matters where lineMode wraps or option cuts a text that is wider; below 0 or not a
     * number for none
     * @return the text as it is drawn, this object's, valid until the next call
     */
    const UXCairoTextLayout& obtainLayout(const std::string& text, const UXFont& font, UXTextOption option,
                                          int lineMode, double widthLimit);

private:
    using Generation = std::unordered_map<std::string, std::shared_ptr<const UXCairoTextLayout>>;

    const UXCairoTextLayout& _obtainLayout(const std::string& text, const UXFont& font, UXTextOption option,
                                           int lineMode, double widthLimit);

    Generation m_young, m_old;
    std::size_t m_youngGlyphs = 0;
    std::string m_key; // kept for its memory
};
