#pragma once

#include "ux/ux_export.h"
#include "ux/ux_hint_position.h"
#include "ux/ux_hint_row_info.h"
#include "ux/ux_text_property.h"

#include <cstddef>
#include <deque>
#include <string>

/** What a hint says, and where it stands. A text property that is left as it was made leaves the look of its
 * text to the hint. A returned row stays valid until the rows are cleared. */
struct UX_EXPORT UXHintInfo {
    std::string title;
    UXTextProperty titleProperty;
    std::string text;
    UXTextProperty textProperty;
    std::deque<UXHintRowInfo> rows;
    std::deque<UXHintRowInfo> footerRows;
    std::size_t omittedRowCount = 0; /**< rows that there are beside these; the hint says how many it does not
                                          show */
    UXHintPosition position = UXHintPosition::AboveValue;
    int distance = 0;         /**< free room between the hint and what it explains, in logical units; 0 leaves
                                   it to the hint */
    int maxWidth = 0;         /**< of the frame, in logical units; 0 leaves it to the hint */
    bool enabled = true;      /**< whether the hint is shown at all */
    bool followMouse = false; /**< whether the hint stands at the pointer, where there is one */

    UXHintInfo();
    explicit UXHintInfo(bool isEnabled);
    UXHintInfo(const UXHintInfo&);
    UXHintInfo(UXHintInfo&&) noexcept;
    UXHintInfo& operator=(const UXHintInfo&);
    UXHintInfo& operator=(UXHintInfo&&) noexcept;
    ~UXHintInfo();

    UXHintRowInfo& addRow(const UXHintRowInfo& row);
    UXHintRowInfo& addRow(const std::string& label, const std::string& value);
    UXHintRowInfo& addRow(const UXColor& color, UXSymbolStyle style, const std::string& label,
                          const std::string& value);
    /** Adds a row that shows nothing and is blankHeight logical units high. */
    UXHintRowInfo& addRow(int blankHeight);
    UXHintRowInfo& addFooterRow(const UXColor& color, UXSymbolStyle style, const std::string& label,
                                const std::string& value);
    /** The omitted rows are forgotten as well. */
    void clearRows();
    void clearFooterRows();

    bool operator==(const UXHintInfo&) const;
};
