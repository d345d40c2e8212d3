#pragma once

#include "chart_sample.h"
#include "kx_chart.h"
#include "ux/cairo/ux_cairo_install.h"
#include "ux/ux_event.h"
#include "ux/ux_image.h"
#include "ux/ux_rect_functions.h"
#include "view_board.h"
#include "view_control.h"
#include "view_data_provider.h"

#include <string>
#include <vector>

/** A value chart and a gauge on a board without a window, as kx_view shows them. */
class ViewModel {
public:
    static inline const std::vector<std::string> charts = {KX_SOURCE_DIR "/samples/employment.chart.json",
                                                           KX_SOURCE_DIR "/samples/gauge-jobs.chart.json"};

    std::string log; // what was clicked and copied
    ViewItemHandlers handlers{[this](const std::string& text) { log += "click " + text + "; "; },
                              [this](const std::string& text) { log += "copy " + text + "; "; }};
    ViewBoard board;
    ViewControl control{board};

    ViewModel(const UXSize& pixels, double scale)
    {
        uxCairoInstall();
        for (const std::string& chart : charts)
            board.openSample(findChartSample(chart), handlers);
        control.resize(pixels, scale);
        control.paintDirtyAreas();
    }

    /** @return the middle of a child of a chart, in the control's pixels */
    UXControlPoint obtainMiddle(std::size_t chart, std::uint64_t child) const
    {
        const UXObject* object = board.getChart(chart).getChild(child);
        const UXRect rect = object->translateRectToParent(object->getBoundingRect(), nullptr);
        return control.diagramSpaceToControlSpace(UXPoint(uxMidX(rect), uxMidY(rect)));
    }
    /** Paints what is dirty. @return all pixels, row by row */
    std::vector<std::uint32_t> paint()
    {
        areas = control.paintDirtyAreas();
        const UXImage image = control.getPicture().obtainImage();
        return {image.getPixels(), image.getPixels() + image.getSize().width * image.getSize().height};
    }

    std::vector<UXRect> areas; // what paint() painted
};

/** Where the charts of the model have the labels that can be clicked. */
enum ViewModelChild : std::uint64_t { ValueLabel = 3, GaugeMainLabel = 3 };
