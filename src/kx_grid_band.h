#pragma once

/** Rows, or columns, of a grid that scroll together: only the content does. What is frozen stands between the
 * headers and the content, and counts as the content's first lines. */
enum class KXGridBand { Header, Content, Totals, Frozen };

inline constexpr int kxGridBandCount = 4;
