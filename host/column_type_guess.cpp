#include "column_type_guess.h"

#include "number_text.h"
#include "temporal_text.h"

namespace {

/** @return whether text is digits behind a zero, as in postal codes, whose zeros a number would lose */
bool isCode(std::string_view text)
{
    if (!text.empty() && (text.front() == '-' || text.front() == '+'))
        text.remove_prefix(1);
    return text.size() > 1 && text[0] == '0' && text[1] >= '0' && text[1] <= '9';
}

} // namespace

void ColumnTypeGuess::addText(std::string_view text)
{
    if (text.empty())
        return;
    m_hasText = true;
    if (m_isInteger || m_isFloat)
        _narrowNumbers(text);
    if (m_isDate || m_isTime || m_isDateTime)
        _narrowTimes(text);
}

void ColumnTypeGuess::_narrowNumbers(std::string_view text)
{
    m_isInteger = m_isInteger && !isCode(text) && obtainInteger(text);
    m_isFloat = m_isFloat && (m_isInteger || (!isCode(text) && obtainFloat(text)));
}

void ColumnTypeGuess::_narrowTimes(std::string_view text)
{
    m_isDate = m_isDate && obtainDateText(text);
    m_isTime = m_isTime && obtainTimeText(text);
    m_isDateTime = m_isDateTime && (m_isDate || obtainDateTimeText(text));
}

KXChartDataType ColumnTypeGuess::obtainType() const
{
    if (!m_hasText)
        return KXChartDataType::String;
    if (m_isInteger)
        return KXChartDataType::Integer;
    if (m_isFloat)
        return KXChartDataType::Float;
    if (m_isDate)
        return KXChartDataType::Date;
    if (m_isTime)
        return KXChartDataType::Time;
    return m_isDateTime ? KXChartDataType::DateTime : KXChartDataType::String;
}
