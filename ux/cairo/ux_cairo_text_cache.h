#pragma once

#include "ux/cairo/ux_cairo_text_layout.h"

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>

/**
 * Keeps laid out texts with their pixels, so that a text drawn again is not shaped again. Bounded in number
 * and in bytes: two generations, and when the young one is full the old one is forgotten and the young one
 * becomes old. A text that would fill much of a generation is not kept.
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
    using Layout = std::shared_ptr<const UXCairoTextLayout>;
    using Generation = std::unordered_map<std::string, Layout>;

    const UXCairoTextLayout& _obtainLayout(const std::string& text, const UXFont& font, UXTextOption option,
                                           int lineMode, double widthLimit);

    /** Adds what the layout that was answered last has grown by since, when it was drawn. */
    void _noteGrowth();

    Generation m_young, m_old;
    std::size_t m_youngBytes = 0;
    Layout m_latest; // the one answered last
    std::size_t m_latestBytes = 0;
    bool m_isLatestKept = false;
    std::string m_key; // kept for its memory
};
