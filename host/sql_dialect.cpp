#include "sql_dialect.h"

std::string SqlDialect::obtainQuantiles(const std::string& share) const
{
    const std::string low = "MAX(CASE WHEN n <= place THEN v END)";
    return ", ranked AS (SELECT d, v, ROW_NUMBER() OVER (PARTITION BY d ORDER BY v) - 1 AS n, "
           "(COUNT(*) OVER (PARTITION BY d) - 1) * " +
           share + " AS place FROM named) SELECT d, " + low +
           " + (MAX(place) - MAX(CASE WHEN n <= place THEN n END)) * (MIN(CASE WHEN n >= place THEN v END) "
           "- " +
           low + ") AS q FROM ranked GROUP BY d";
}
