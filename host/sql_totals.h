#pragma once

#include <array>
#include <vector>

#include "data_binding.h"

class SqlDataSet;
class SqlSession;

/** The totals of the first measure of a binding over two dimensions, which the database works out, as
 * averages cannot be added up. They are over all rows that take part, those of members that are not shown
 * too. */
class SqlTotals {
public:
    /** None. */
    SqlTotals() = default;
    /** Asks the database; throws HostError when it refuses. */
    SqlTotals(SqlSession& session, const DataBinding& binding, const SqlDataSet& data);

    bool isEmpty() const { return m_values[0].empty(); }
    /** @return one for each member of a dimension in its order, NaN for none */
    const std::vector<double>& getValues(std::size_t dimension) const { return m_values[dimension]; }
    double getGrandTotal() const { return m_grandTotal; }

private:
    std::array<std::vector<double>, 2> m_values;
    double m_grandTotal = 0;
};
