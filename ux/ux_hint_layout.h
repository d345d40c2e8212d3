#pragma once

#include "ux/ux_color.h"
#include "ux/ux_export.h"
#include "ux/ux_hint_line.h"
#include "ux/ux_size.h"

#include <string>
#include <vector>

struct UXHintInfo;

/** How a hint's lines stand in its frame, in logical units from the frame's top left corner. */
struct UXHintLayout {
    UXSize size;
    std::vector<UXHintLine> lines; /**< from the top; blank rows take their room and have none */
    int separatorY = -1;           /**< top of the line above the footer, one unit high; below 0 for none */

    bool isEmpty() const { return lines.empty(); }

    friend bool operator==(const UXHintLayout&, const UXHintLayout&) = default;
};

/**
 * Measures what a hint says and gives every line its place. Labels and values are columns, values end at the
 * right. Texts that are too long are wrapped or cut; of the rows as many are shown as fit, and a last line
 * tells how many more there are. Where that is not enough the head becomes one line, then text and footer are
 * left out.
 * @param limit the size that the frame has room for
 * @param ground what the texts stand on; colours that cannot be read there are made to
 * @param moreText what that last line says, "%1" standing for the number
 * @return an empty layout where the hint says nothing, or where not even its least part fits
 */
[[nodiscard]] UX_EXPORT UXHintLayout uxLayOutHint(const UXHintInfo& info, const UXSize& limit,
                                                  const UXColor& ground, const std::string& moreText);
