#pragma once

#include "kx_export.h"

#include <cstddef>
#include <cstdint>
#include <string>

/**
 * Writes cells as they are copied: as text with tabs between columns, and as a table of HTML. A text that a
 * spreadsheet would run as a formula gets an apostrophe in front; a text with tabs, line feeds or quotes
 * stands in quotes, so that it stays one cell. The HTML is well-formed and does nothing.
 */
class KX_EXPORT KXTableClip {
public:
    /** More is refused. */
    static constexpr std::uint64_t greatestCellCount = 1'000'000;
    static constexpr std::size_t greatestSize = std::size_t{64} << 20;

    enum class Cell { Header, Text, Number };

    /** @param greatestCount of cells */
    explicit KXTableClip(std::uint64_t greatestCount = greatestCellCount);

    /** Adds a cell to the row. @param text UTF-8, as it is shown */
    void addCell(const std::string& text, Cell cell);
    void endRow();
    /** There is more than may be copied. */
    void refuse() { m_isTooLarge = true; }

    /** @return whether there is more than may be copied; then there is nothing to copy */
    bool isTooLarge() const { return m_isTooLarge; }
    std::string obtainText() const;
    std::string obtainHtml() const;

private:
    std::string m_text, m_html;
    std::uint64_t m_greatestCount, m_cellCount = 0;
    bool m_isRowEmpty = true, m_isTooLarge = false;
};
