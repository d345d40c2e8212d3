#pragma once

#include "sql_dialect.h"

/** PostgreSQL. */
class PostgresqlDialect : public SqlDialect {
public:
    std::vector<std::string> obtainSetUp() const override;
    std::string quoteIdentifier(const std::string& name) const override;
    std::string obtainTypeName(KXChartDataType type) const override;
    std::string obtainColumnsQuery() const override;
    KXChartDataType obtainDataType(const std::string& declaredType) const override;
    std::string obtainCast(const std::string& expression, const SqlColumn& column) const override;
    std::string obtainComparable(const std::string& expression, const SqlColumn& column) const override;
    std::string obtainGroupKey(const std::string& expression, const SqlColumn& column,
                               std::optional<DateLevel> level) const override;
    std::string obtainText(const std::string& expression, KXChartDataType type) const override;
    std::string obtainDateBucket(const std::string& expression, KXChartDataType type,
                                 DateLevel level) const override;
    std::string obtainByteOrder(const std::string& expression) const override;
    std::string obtainAnalysis(const std::string& table) const override { return "ANALYZE " + table; }
    bool hasGroupingSets() const override { return true; }
    std::string obtainQuantiles(const std::string& share) const override;
    bool findsDistinctFasterAsGroups() const override { return true; }
    std::string obtainParameter(const std::string& placeholder, KXChartDataType type,
                                const SqlColumn& column) const override;
    std::string obtainIsInList(const std::string& value, const std::string& placeholder,
                               const SqlColumn& column) const override;
    std::string obtainListText(const std::vector<std::string>& values) const override;
    std::string obtainContains(const std::string& expression, const std::string& part) const override;
};
