#include "fuzz_scene.h"

#include "fuzz_documents.h"
#include "fuzz_drawing.h"
#include "fuzz_picture.h"
#include "kx_chart.h"
#include "kx_chart_data_user.h"
#include "kx_chart_property.h"
#include "kx_json_object_factory.h"
#include "svg_check.h"
#include "ux/ux_recording_paint_config.h"
#include "ux/ux_recording_painter.h"
#include "ux/ux_svg_paint_config.h"

#include <iterator>
#include <memory>
#include <string>
#include <vector>

namespace {

const std::vector<std::string>& obtainChartTypes()
{
    static const std::vector<std::string> types = KXJsonObjectFactory::obtainChartTypeNames();
    return types;
}

constexpr double deviceScales[] = {1, 1.25, 1.5, 2};

} // namespace

FuzzScene::FuzzScene(FuzzInput& input, FuzzInput& answers, int chartExtent)
    : m_input(input), m_answers(answers), m_chartExtent(chartExtent), m_provider(answers), m_settings(input),
      m_user(input)
{
    m_context.addDiagram(&m_diagram);
    m_context.setActiveDiagram(&m_control, &m_diagram);
    m_control.setUseCases({1, 2});
    m_control.setControlRect({0, 0, 2 * chartExtent, 2 * chartExtent});
    m_diagram.setRect({0, 0, 2 * chartExtent, 2 * chartExtent});
}

FuzzScene::~FuzzScene()
{
    m_provider.whenAsked = {};
    m_depth = 3;
    for (const UXObjectWatcher& chart : m_charts)
        delete chart.getObject();
}

void FuzzScene::_act(FuzzInput& choices)
{
    if (m_depth >= 3 || m_input.isEmpty() || choices.takeBelow(16) != 15)
        return;
    ++m_depth;
    changeChart();
    --m_depth;
}

void FuzzScene::makeHostAct()
{
    m_provider.whenAsked = [this] { _act(m_answers); };
}

void FuzzScene::addBoard()
{
    m_board.emplace(m_input, m_context, m_diagram, [this] { _act(m_input); });
}

void FuzzScene::changeBoard()
{
    if (m_board)
        m_board->change();
}

void FuzzScene::addChart()
{
    const std::vector<std::string>& types = obtainChartTypes();
    const int typeCount = static_cast<int>(types.size());
    const int choice = m_input.takeBelow(typeCount * static_cast<int>(std::size(fuzzDocuments)));
    if (m_charts.size() >= 4)
        return;
    std::unique_ptr<UXJsonObject> made(
        KXJsonObjectFactory().create(types[static_cast<std::size_t>(choice % typeCount)]));
    auto* chart = dynamic_cast<KXChart*>(made.get());
    require(chart != nullptr, "the factory makes every chart");
    made.release();
    KXJsonObjectFactory factory;
    chart->deserialize(fuzzDocuments[choice / typeCount], &factory);
    m_charts.emplace_back(chart);
    const int place = static_cast<int>(m_charts.size()) - 1;
    chart->setRect({place % 2 * m_chartExtent, place / 2 * m_chartExtent, m_chartExtent, m_chartExtent});
    m_diagram.addChild(chart);
    UXObjectWatcher watcher(chart);
    if (KXChartDataUser* user = chart->obtainLegendDataUser()) {
        user->setDataProvider(&m_provider);
        user->prepareData();
        if (watcher.isAlive())
            user->reloadData();
    }
}

KXChart* FuzzScene::_pickChart()
{
    const std::size_t choice = m_input.takeByte(); // taken also without a chart, so that every case ends
    if (m_charts.empty())
        return nullptr;
    const std::size_t place = choice % m_charts.size();
    return dynamic_cast<KXChart*>(m_charts[place].getObject());
}

void FuzzScene::changeChart()
{
    KXChart* chart = _pickChart();
    if (!chart)
        return;
    switch (m_input.takeBelow(10)) {
    case 0:
        delete chart;
        break;
    case 1:
        chart->setRect({m_input.takeInt(), m_input.takeInt(), m_input.takeInt(), m_input.takeInt()});
        break;
    case 2:
        chart->setVisible(m_input.takeBelow(4) != 0);
        break;
    case 3:
        chart->layout();
        break;
    case 4:
        m_input.takeBool() ? m_diagram.removeChild(chart) : m_diagram.addChild(chart);
        break;
    case 5:
    case 6:
        _changeSettings(*chart);
        break;
    default:
        if (KXChartDataUser* user = chart->obtainLegendDataUser())
            _changeData(*user);
    }
}

void FuzzScene::_changeData(KXChartDataUser& user)
{
    switch (m_input.takeBelow(6)) {
    case 0:
        return user.setDataProvider(m_input.takeBelow(4) != 0 ? &m_provider : nullptr);
    case 1:
        return user.resetData();
    case 2:
        return user.reloadData();
    case 3:
        return user.reloadColors();
    default:
        return user.prepareData();
    }
}

void FuzzScene::_changeSettings(KXChart& chart)
{
    const int choice = m_input.takeByte();
    if (choice >= 192)
        _exchangeSettings(chart);
    else if (choice % 2 != 0)
        m_settings.update(*chart.getChartProperty());
    else
        m_settings.update(chart);
}

void FuzzScene::_exchangeSettings(KXChart& chart)
{
    KXChart* other = _pickChart();
    if (!other)
        return;
    switch (m_input.takeBelow(4)) {
    case 0:
        return m_settings.reload(*other, chart);
    case 1: {
        const auto type = static_cast<KXChartResetType>(m_input.takeBelow(2));
        return chart.customResetProperties(type, other, m_settings.takeGroups());
    }
    default:
        return m_settings.exchange(*other->getChartProperty(), *chart.getChartProperty(),
                                   [this] { _act(m_input); });
    }
}

void FuzzScene::sendEvent()
{
    const bool usesPreview = m_board && m_input.takeBelow(16) == 15;
    m_control.forgetPictures();
    m_user.act(usesPreview ? m_board->getPreviewControl() : m_control);
}

void FuzzScene::paint()
{
    m_diagram.layout();
    UXRecordingPaintConfig config; // nobody reads it: its text would take longer than all else
    m_diagram.paint(&config, m_diagram.getBoundingRect());
    if (m_board)
        m_context.repaint();
}

void FuzzScene::paintEverywhere()
{
    const double scale = deviceScales[m_input.takeBelow(static_cast<int>(std::size(deviceScales)))];
    m_diagram.layout();
    drawEverywhere(m_diagram, scale);
    if (m_board)
        drawRecorded(m_board->getPreview(), scale);
}

void FuzzScene::drawSteps()
{
    UXRecordingPainter recorded;
    drawAnything(recorded, m_input);
    // Edges that odd transforms move may move again when they are played, so nothing is compared here.
    UXRecordingPainter second;
    recorded.replay(second);
    UXSvgPaintConfig page({256, 256});
    UXPainter* painter = uxCreatePainter(&page);
    recorded.replay(*painter);
    uxDestroyPainter(painter);
    require(isWellFormed(page.getSvg()), "a page is well-formed");
}
