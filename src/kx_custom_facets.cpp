#include "kx_custom_facets.h"

#include "kx_number_punctuation.h"

CustomFacets::CustomFacets(KXChartDataFormatThousandsSeparator thousands,
                           KXChartDataFormatDecimalSeparator decimal, std::size_t references)
    : std::numpunct<char>(references), m_thousandsSeparator(thousands), m_decimalSeparator(decimal)
{
}

CustomFacets::~CustomFacets() = default;

char CustomFacets::do_decimal_point() const
{
    return kxObtainNumberPunctuation(m_thousandsSeparator, m_decimalSeparator).decimalPoint;
}

char CustomFacets::do_thousands_sep() const
{
    return kxObtainNumberPunctuation(m_thousandsSeparator, m_decimalSeparator).thousandsSeparator;
}

std::string CustomFacets::do_grouping() const
{
    return kxObtainNumberPunctuation(m_thousandsSeparator, m_decimalSeparator).grouped ? "\3" : "";
}
