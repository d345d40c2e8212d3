#pragma once

#include "kx_chart_property_base.h"
#include "kx_export.h"
#include "kx_key_table.h"
#include "kx_key_type.h"
#include "kx_table_chart_options.h"
#include "kx_table_extent.h"
#include "ux/ux_color.h"

#include <optional>
#include <span>
#include <string>

// type, name, member and JSON key, default, reset, effect, meaning
#define KX_TABLE_COLOR_RULE_KEYS(KEY)                                                                       \
    KEY(std::string, MeasureID, m_measureID, std::string(), Any(Table), Layout,                             \
        "the measure whose cells it colours; empty: every one")                                             \
    KEY(KXTableColorRuleKind, Kind, m_kind, KXTableColorRuleKind::Value, Any(Table), Layout,                \
        "what the range is of: values, percent of what the measure reaches from and to, or percent of its " \
        "cells, the least values first; Scale: colours run from one to the other over the values, or over " \
        "all where the range is empty")                                                                     \
    KEY(double, From, m_from, 0, Any(Table), Layout, "where the range begins")                              \
    KEY(double, To, m_to, 0, Any(Table), Layout, "where it ends, which still belongs to it")                \
    KEY(UXColor, FillColor, m_fillColor, UXColor(255, 236, 179), Any(Table), Layout,                        \
        "below the cell; of a scale at its beginning")                                                      \
    KEY(UXColor, MiddleColor, m_middleColor, UXColor(244, 188, 114), Any(Table), Layout,                    \
        "of a scale, halfway")                                                                              \
    KEY(UXColor, ToColor, m_toColor, UXColor(232, 140, 48), Any(Table), Layout, "of a scale at its end")

/** A colour for the cells of a measure in a table whose values are in a range. */
class KX_EXPORT KXTableColorRule : public KXChartPropertyBase {
    KX_DECLARE_KEYS(KXTableColorRule, KXChartPropertyBase, KX_TABLE_COLOR_RULE_KEYS)
public:
    KXTableColorRule();
    KXTableColorRule(const KXTableColorRule&);
    KXTableColorRule& operator=(const KXTableColorRule&);
    ~KXTableColorRule() override;

    /** @param extent of the measure
     *  @param percentiles its values at equal steps from the least to the greatest, as far as they are known
     *  @return the colour of a value, none where the rule does not hold */
    std::optional<UXColor> obtainColor(double value, const KXTableExtent& extent,
                                       std::span<const double> percentiles = {}) const;

    /** Whether all keys are the same. */
    KX_EXPORT friend bool operator==(const KXTableColorRule& a, const KXTableColorRule& b);
};

/** They stand in lists, each an object of its own. */
template <>
struct KXKeyTypeOf<KXTableColorRule> {
    KX_EXPORT static const UXPropertyType& obtain();
};
