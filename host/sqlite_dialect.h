#pragma once

#include "sql_dialect.h"

/** SQLite: dates and times are texts, which its own functions understand. */
class SqliteDialect : public SqlDialect {
public:
    std::string quoteIdentifier(const std::string& name) const override;
    std::string obtainTypeName(KXChartDataType type) const override;
    std::string obtainColumnsQuery() const override;
    KXChartDataType obtainDataType(const std::string& declaredType) const override;
    std::string obtainText(const std::string& expression, KXChartDataType type) const override;
    std::string obtainDateBucket(const std::string& expression, KXChartDataType type,
                                 DateLevel level) const override;
    std::string obtainParameter(const std::string& placeholder, KXChartDataType type) const override;
    std::string obtainContains(const std::string& expression, const std::string& part) const override;
};
