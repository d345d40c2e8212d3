#include "kx_data_column.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

KXDataColumn::KXDataColumn(std::vector<double> numbers) : m_cells(std::move(numbers)) {}

KXDataColumn::KXDataColumn(std::vector<std::string> texts) : m_cells(std::move(texts)) {}

KXDataColumn::KXDataColumn(std::initializer_list<double> numbers) : m_cells(std::vector<double>(numbers)) {}

KXDataColumn::KXDataColumn(std::initializer_list<std::string> texts)
    : m_cells(std::vector<std::string>(texts))
{
}

KXDataColumn KXDataColumn::borrow(std::span<const double> numbers)
{
    KXDataColumn column;
    column.m_cells = numbers;
    return column;
}

KXDataColumn KXDataColumn::borrow(std::span<const std::string> texts)
{
    KXDataColumn column;
    column.m_cells = texts;
    return column;
}

std::size_t KXDataColumn::getCount() const
{
    return std::visit([](const auto& cells) { return cells.size(); }, m_cells);
}

bool KXDataColumn::hasTexts() const
{
    return std::holds_alternative<std::vector<std::string>>(m_cells) ||
           std::holds_alternative<std::span<const std::string>>(m_cells);
}

std::span<const double> KXDataColumn::getNumbers() const
{
    if (const auto* own = std::get_if<std::vector<double>>(&m_cells))
        return *own;
    const auto* borrowed = std::get_if<std::span<const double>>(&m_cells);
    return borrowed ? *borrowed : std::span<const double>();
}

std::span<const std::string> KXDataColumn::getTexts() const
{
    if (const auto* own = std::get_if<std::vector<std::string>>(&m_cells))
        return *own;
    const auto* borrowed = std::get_if<std::span<const std::string>>(&m_cells);
    return borrowed ? *borrowed : std::span<const std::string>();
}

double KXDataColumn::getNumber(std::size_t row) const
{
    const std::span<const double> numbers = getNumbers();
    return row < numbers.size() ? numbers[row] : std::numeric_limits<double>::quiet_NaN();
}

std::string KXDataColumn::obtainText(std::size_t row) const
{
    if (hasTexts()) {
        const std::span<const std::string> texts = getTexts();
        return row < texts.size() ? texts[row] : std::string();
    }
    const double number = getNumber(row);
    if (std::isnan(number))
        return {};
    char digits[32];
    // Adding 0 turns a negative zero into the zero that a reader expects.
    return {digits, std::to_chars(digits, digits + sizeof digits, number + 0.0).ptr};
}
