#pragma once

#include <string_view>

#include "kx_chart_data_type.h"

/** Narrows down the type of a column, text by text. Whole numbers with leading zeros are codes and stay text.
 */
class ColumnTypeGuess {
public:
    /** Takes one text of the column into account; an empty one says nothing. */
    void addText(std::string_view text);

    /** @return the narrowest type that fits every text so far, String when there was none */
    KXChartDataType obtainType() const;

private:
    void _narrowNumbers(std::string_view text);
    void _narrowTimes(std::string_view text);

    bool m_isInteger = true;
    bool m_isFloat = true;
    bool m_isDate = true;
    bool m_isTime = true;
    bool m_isDateTime = true;
    bool m_hasText = false;
};
