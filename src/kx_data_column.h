#pragma once

#include "kx_export.h"

#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>
#include <variant>
#include <vector>

/** A column of numbers or of texts in UTF-8, one for each row: its own, or borrowed from a host that keeps
 * them. */
class KX_EXPORT KXDataColumn {
public:
    /** A column without rows. */
    KXDataColumn() = default;
    // What the column owns from now on, moved or copied. A NaN is a null.
    KXDataColumn(std::vector<double> numbers);
    KXDataColumn(std::vector<std::string> texts);
    KXDataColumn(std::initializer_list<double> numbers);
    KXDataColumn(std::initializer_list<std::string> texts);
    /** @param numbers the caller's, who keeps them in their place as long as the column and its copies */
    static KXDataColumn borrow(std::span<const double> numbers);
    static KXDataColumn borrow(std::span<const std::string> texts);

    std::size_t getCount() const;
    bool hasTexts() const;
    /** @return empty for a column of texts */
    std::span<const double> getNumbers() const;
    /** @return empty for a column of numbers */
    std::span<const std::string> getTexts() const;

    /** @return NaN for a null, a text, and past the last row */
    double getNumber(std::size_t row) const;
    /** @return a number with as few digits as tell it from any other; empty for a null and past the last row
     */
    std::string obtainText(std::size_t row) const;

private:
    std::variant<std::vector<double>, std::vector<std::string>, std::span<const double>,
                 std::span<const std::string>>
        m_cells;
};
