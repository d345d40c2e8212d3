#pragma once

#include "fuzz_board.h"
#include "fuzz_control.h"
#include "fuzz_provider.h"
#include "fuzz_settings.h"
#include "fuzz_user.h"
#include "ux/ux_context.h"
#include "ux/ux_diagram.h"
#include "ux/ux_object_watcher.h"

#include <optional>
#include <vector>

class KXChart;
class KXChartDataUser;

/** A view with charts on it, to which a case does what hosts and users can do. Any step may come while the
 *  charts are in the middle of another one, and may destroy them. */
class FuzzScene {
public:
    /** @param answers what the host answers from; may be input as well
     *  @param chartExtent the width and the height of a chart, of which four have room */
    FuzzScene(FuzzInput& input, FuzzInput& answers, int chartExtent);
    ~FuzzScene();

    /** Puts one more chart on the view, of the kind that the case chooses. */
    void addChart();
    /** Does the next thing to the data, the size, the settings or the life of a chart. */
    void changeChart();
    /** Puts all that a host can have beside its charts on the view. */
    void addBoard();
    void changeBoard();
    /** Lets the user do the next thing on one of the controls. */
    void sendEvent();
    void paint();
    /** Paints the view in every way, by a device scale that the case chooses. */
    void paintEverywhere();
    /** Draws the next steps of the case straight with the painters. */
    void drawSteps();
    /** From now on a question to the host makes it change charts now and then. */
    void makeHostAct();

private:
    /** @param choices say whether the host acts now */
    void _act(FuzzInput& choices);
    KXChart* _pickChart();
    void _changeData(KXChartDataUser& user);
    void _changeSettings(KXChart& chart);
    void _exchangeSettings(KXChart& chart);

    FuzzInput& m_input;
    FuzzInput& m_answers;
    int m_chartExtent;
    FuzzProvider m_provider;
    FuzzSettings m_settings;
    FuzzUser m_user;
    UXContext m_context;
    FuzzControl m_control;
    UXDiagram m_diagram{&m_context};
    std::optional<FuzzBoard> m_board;
    std::vector<UXObjectWatcher> m_charts;
    int m_depth = 0;
};
