#pragma once

/** What users have set in the charts of a case: each document has keys of every kind of chart, of which a
 * chart reads its own. More go to the end. */
inline constexpr const char* fuzzDocuments[] = {
    R"({})",
    // Everything that can show shows.
    R"({"m_titleValue": "Title", "m_legendPosition": "Right", "m_enableTitleClick": true, "m_showBorder": true,
        "m_barChartProperty": {"type": "KXBarChartProperty", "m_showLabels": true, "m_showTotals": true,
            "m_labelOverflow": "Visible", "m_labelDisplayOption": "ValueAndPercentage", "m_colorByItem": true},
        "m_xAxisProperty": {"type": "KXAxisProperty", "m_titleValue": "X", "m_showGridLine": true},
        "m_yAxisProperty": {"type": "KXAxisProperty", "m_titleValue": "Y", "m_showTitleAtEndOfAxis": true},
        "m_pipePartition": 8, "m_partitionLabelDisplay": "Actual"})",
    // Stacked to a hundred percent, across, with upright tick labels
    R"({"m_titleValue": "Title", "m_titlePosition": "Left", "m_legendPosition": "Bottom",
        "m_orientation": "Horizontal",
        "m_barChartProperty": {"type": "KXBarChartProperty", "m_showLabels": true, "m_showTotals": true,
            "m_labelPosition": "InsideCenter", "m_labelValueOption": "MinMax"},
        "m_xAxisProperty": {"type": "KXAxisProperty", "m_tickLabelRotationType": "Vertical"},
        "m_yAxisProperty": {"type": "KXAxisProperty", "m_isStacked": true, "m_is100PercentStacked": true},
        "m_showPointer": false, "m_mainDisplay": "Percentage", "m_maxMinDisplay": "Percentage"})",
    // Stacked, with slanted tick labels at an interval, dense
    R"({"m_titleValue": "A title of more than one line that wraps", "m_titleValueWrap": true,
        "m_dataDensity": "Compact",
        "m_barChartProperty": {"type": "KXBarChartProperty", "m_showLabels": true, "m_showTotals": true,
            "m_labelPosition": "InsideEnd", "m_labelValueOption": "LineEnds"},
        "m_xAxisProperty": {"type": "KXAxisProperty", "m_tickLabelRotationType": "Degrees45",
            "m_tickLabelIntervalMode": "Custom", "m_tickLabelInterval": 3},
        "m_yAxisProperty": {"type": "KXAxisProperty", "m_isStacked": true},
        "m_customMaxValue": true, "m_customTargetValue": true, "m_targetDisplay": "Percentage"})",
    // A category axis of numbers, ranges of the user's own, numbers in a format
    R"({"m_showOnlyTopX": true, "m_topXItemsToShow": 3, "m_legendPosition": "Left",
        "m_barChartProperty": {"type": "KXBarChartProperty", "m_showLabels": true, "m_barWidth": 0.5},
        "m_xAxisProperty": {"type": "KXAxisProperty", "m_isContinuous": true,
            "m_isCustomizedIsContinuous": true},
        "m_yAxisProperty": {"type": "KXAxisProperty", "m_autoAxisRange": false, "m_customMinAxisValue": -5,
            "m_customMaxAxisValue": 90, "m_autoAxisTicks": false, "m_customAxisTickInterval": 7},
        "m_yDataFormat": {"type": "KXChartDataFormat", "m_prefix": "<", "m_suffix": "&", "m_decimals": 2},
        "m_dataFormat": {"type": "KXChartDataFormat", "m_negative": "Parentheses", "m_divider": 1000},
        "m_partitionStyle": "Customized", "m_pipePartition": 3})",
    // Not much room: roomy categories, which scroll, and large texts
    R"({"m_titleValue": "T", "m_titleFontSize": 60, "m_fontSize": 200, "m_maxMinFontSize": 0,
        "m_dataDensity": "Loose", "m_orientation": "Horizontal",
        "m_xAxisProperty": {"type": "KXAxisProperty", "m_tickLabelIntervalMode": "All", "m_axisLength": 40},
        "m_yAxisProperty": {"type": "KXAxisProperty", "m_tickLabelIntervalMode": "All",
            "m_autoAxisRange": false, "m_customMinAxisValue": 1e300, "m_customMaxAxisValue": -1e300}})"};
