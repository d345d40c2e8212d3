#pragma once

/** Rows, or columns, of a grid that scroll together: only the content does. */
enum class KXGridBand { Header, Content, Totals };

inline constexpr int kxGridBandCount = 3;
