#pragma once

#include "ux/cairo/ux_cairo_number_font.h"
#include "ux/ux_font.h"

#include <map>
#include <string>
#include <utility>

struct _PangoContext;
struct _PangoFontDescription;
struct _PangoFontMap;

/**
 * The fonts of this back end, found when the first text is laid out. They come from a configuration of our
 * own, and every option that a machine's settings could change is set here.
 */
class UXCairoFonts {
public:
    /** What all texts in one font share. */
    struct Face {
        _PangoFontDescription* description; /**< owned by this class */
        double ascent;                      /**< from the top of a line to its baseline, in logical units */
        double lineHeight;
        UXCairoNumberFont numbers = {}; /**< how it writes them, as far as it is known */
    };

    static UXCairoFonts& obtainShared();

    /** @return the context that texts are laid out in, this object's */
    _PangoContext* getContext() const { return m_context; }

    /** @return what the font stands for, with its size between 1 and 10000; this object's */
    Face& obtainFace(const UXFont& font);

private:
    UXCairoFonts();

    _PangoFontMap* m_map;
    _PangoContext* m_context;
    std::map<std::pair<std::string, int>, Face> m_faces; // by family, then size and the two flags
};
