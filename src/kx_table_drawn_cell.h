#pragma once

#include "kx_chart_item.h"
#include "kx_index_path.h"
#include "ux/ux_color.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_text_align.h"

#include <optional>
#include <string>

/** What a table's panel draws at one place, in the panel's space. */
struct KXTableDrawnCell {
    enum class Mark { None, Open, Closed, Ascending, Descending, Awaited };

    UXDoubleRect rect;
    UXDoubleRect textRect;
    std::string text;
    double textWidth = 0; /**< what the text needs */
    bool isBold = false;
    UXTextAlign align = UXTextAlign::Left;
    UXColor textColor;
    UXColor ground{0, 0, 0, 0};  /**< over the panel's; nothing where its alpha is 0 */
    UXDoubleRect bar;            /**< behind the text; empty for none */
    bool isBarBackwards = false; /**< it begins at its right end */
    UXColor barColor;
    UXDoubleRect fullBar; /**< over that what of it is drawn in full; the same */
    UXColor fullBarColor;
    Mark mark = Mark::None;
    UXDoubleRect markRect;
    KXIndexPath group;               /**< which a mark opens or closes */
    bool isCut = false;              /**< there is more to say than is written */
    std::string wholeText;           /**< of a cell that does not write all of it */
    bool isHighlighted = false;      /**< stands out just now */
    std::optional<KXChartItem> item; /**< what it shows */
};
