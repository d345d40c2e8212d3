#pragma once

#include "kx_bar_labels.h"
#include "kx_bar_layout.h"
#include "kx_bar_plane.h"
#include "kx_value_label_texts.h"
#include "ux/ux_color.h"
#include "ux/ux_double_point.h"

#include <vector>

/** What a view of bars makes, step by step, of the data and of its place. */
struct KXBarChartRecords {
    KXValueLabelTexts texts;

    // By the layout
    KXBarPlane plane;
    KXBarLayout layout;
    double widestSlot = 0;
    bool areBarsInOrder = true; /**< of the slots */
    std::vector<KXBarLabel> labels;
    std::vector<double> shares; /**< what is drawn in full, one a bar; empty where all are drawn so */
    std::vector<UXDoublePoint> whiskers; /**< one line with gaps */

    // By the look
    std::vector<UXColor> barColors; /**< one a bar */
};
