#pragma once

#include "kx_chart_data_format_options.h"
#include "kx_export.h"

#include <cstddef>
#include <locale>
#include <string>

/** Gives a stream the separators of a data format: std::locale(std::locale::classic(), new
 * CustomFacets(...)). The formats themselves print without a stream, to the same text. */
class KX_EXPORT CustomFacets : public std::numpunct<char> {
public:
    /** @param references as for every facet: 0 leaves the destruction to the locale */
    CustomFacets(KXChartDataFormatThousandsSeparator thousands, KXChartDataFormatDecimalSeparator decimal,
                 std::size_t references = 0);
    ~CustomFacets() override;

protected:
    char do_decimal_point() const override;
    char do_thousands_sep() const override;
    std::string do_grouping() const override;

private:
    KXChartDataFormatThousandsSeparator m_thousandsSeparator;
    KXChartDataFormatDecimalSeparator m_decimalSeparator;
};
