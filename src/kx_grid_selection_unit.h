#pragma once

/** What a press in a grid chooses. */
enum class KXGridSelectionUnit { Cells, Rows, Columns, All };
