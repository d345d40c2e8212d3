#pragma once

#include "fuzz_provider.h"
#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_property_accessor.h"

#include <cstdint>
#include <string>
#include <vector>

class KXChart;
class KXChartDataUser;

/** A view with charts on it, to which a case does what hosts and users can do. Any step may come while the
 *  charts are in the middle of another one, and may destroy them. */
class FuzzScene {
public:
    explicit FuzzScene(FuzzInput& input);
    ~FuzzScene();

    /** Puts one more chart on the view, of the kind that the case chooses. */
    void addChart();
    /** Does the next thing to the data, the size or the life of a chart. */
    void changeChart();
    /** Sends the next event to the view. */
    void sendEvent();
    void paint();
    /** From now on a question to the host makes it change charts now and then. */
    void makeHostAct();

private:
    KXChart* _pickChart();
    void _changeData(KXChartDataUser& user);
    void _changeProperty(KXChart& chart);
    void _updateByKey(UXPropertyAccessor& accessor, const std::string& document);
    std::string _pickQuoted(const std::string& document);

    FuzzInput& m_input;
    FuzzProvider m_provider;
    UXContext m_context;
    UXControl m_control;
    UXDiagram m_diagram{&m_context};
    std::vector<UXObjectWatcher> m_charts;
    std::int64_t m_now = 0;
    int m_depth = 0;
};
