#pragma once

#include "kx_chart_property_base.h"
#include "kx_export.h"
#include "kx_key_table.h"
#include "kx_key_type.h"
#include "kx_table_chart_options.h"
#include "ux/ux_color.h"

#include <string>

// type, name, member and JSON key, default, reset, effect, meaning
#define KX_TABLE_DATABAR_INFO_KEYS(KEY)                                                                     \
    KEY(std::string, MeasureID, m_measureID, std::string(), Any(Table), Layout,                             \
        "the measure whose cells have bars; empty: every one")                                              \
    KEY(KXTableDatabarStyle, Style, m_style, KXTableDatabarStyle::LeftToRight, Any(Table), Layout,          \
        "where bars begin; None: there are none")                                                           \
    KEY(UXColor, PositiveColor, m_positiveColor, UXColor(178, 206, 238), Any(Table), Layout, "above zero")  \
    KEY(UXColor, NegativeColor, m_negativeColor, UXColor(246, 190, 182), Any(Table), Layout, "below zero")  \
    KEY(bool, HasRange, m_hasRange, false, Any(Table), Layout,                                              \
        "the ends of the range are given; off: those of the values that have been in sight, and zero")      \
    KEY(double, Minimum, m_minimum, 0, Any(Table), Layout, "where bars begin, or the end of negative ones") \
    KEY(double, Maximum, m_maximum, 0, Any(Table), Layout, "what fills a cell")

/** Bars behind the numbers of a measure in a table. */
class KX_EXPORT KXTableDatabarInfo : public KXChartPropertyBase {
    KX_DECLARE_KEYS(KXTableDatabarInfo, KXChartPropertyBase, KX_TABLE_DATABAR_INFO_KEYS)
public:
    KXTableDatabarInfo();
    KXTableDatabarInfo(const KXTableDatabarInfo&);
    KXTableDatabarInfo& operator=(const KXTableDatabarInfo&);
    ~KXTableDatabarInfo() override;

    /** Where the bar of a value lies. */
    struct Bar {
        double from = 0, to = 0; /**< shares of the width, from the left; the same: there is none */
        bool isNegative = false;
    };
    /** @param least, greatest of the values, where the range is not given; zero is in it */
    Bar obtainBar(double value, double least, double greatest) const;

    /** Whether all keys are the same. */
    KX_EXPORT friend bool operator==(const KXTableDatabarInfo& a, const KXTableDatabarInfo& b);
};

/** They stand in lists, each an object of its own. */
template <>
struct KXKeyTypeOf<KXTableDatabarInfo> {
    KX_EXPORT static const UXPropertyType& obtain();
};
