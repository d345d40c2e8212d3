#include "fuzz_scene.h"

#include "kx_chart.h"
#include "kx_chart_data_user.h"
#include "kx_chart_property.h"
#include "kx_json_object_factory.h"
#include "ux/ux_event.h"
#include "ux/ux_recording_paint_config.h"

#include <memory>

namespace {

// Names that the library has no class for yet give no chart; more names go to the end, as cases count them.
constexpr const char* chartTypes[] = {
    "KXValueChart",   "KXGaugeChart",   "KXBarChart",       "KXLineChart",  "KXAreaChart",
    "KXLineBarChart", "KXScatterChart", "KXPieChart",       "KXTableChart", "KXWaterfallChart",
    "KXTornadoChart", "KXHeatMapChart", "KXValueListChart", "KXTrendChart", "KXTreeMapChart",
    "KXKpiChart",     "KXDensityChart", "KXControlChart"};

/** @return whether a recorded step that is no text names a number that is not finite. The parts of a colour
 * are the host's own, which painters bound. */
bool holdsOddNumber(const std::string& line)
{
    if (line.find("setColor") != std::string::npos || line.find("addGradient") != std::string::npos)
        return false;
    const std::string numbers = line.substr(0, line.find('"'));
    return numbers.find("nan") != std::string::npos || numbers.find("inf") != std::string::npos;
}

} // namespace

FuzzScene::FuzzScene(FuzzInput& input) : m_input(input), m_provider(input)
{
    m_context.addDiagram(&m_diagram);
    m_context.setActiveDiagram(&m_control, &m_diagram);
    m_control.setUseCases({1, 2});
    m_control.setControlRect({0, 0, 256, 256});
    m_diagram.setRect({0, 0, 256, 256});
}

FuzzScene::~FuzzScene()
{
    m_provider.whenAsked = {};
    for (const UXObjectWatcher& chart : m_charts)
        delete chart.getObject();
}

void FuzzScene::makeHostAct()
{
    m_provider.whenAsked = [this] {
        if (m_depth >= 3 || m_input.takeBelow(16) != 15)
            return;
        ++m_depth;
        changeChart();
        --m_depth;
    };
}

void FuzzScene::addChart()
{
    const char* type = chartTypes[m_input.takeBelow(static_cast<int>(std::size(chartTypes)))];
    std::unique_ptr<UXJsonObject> made(KXJsonObjectFactory().create(type));
    auto* chart = dynamic_cast<KXChart*>(made.get());
    if (!chart || m_charts.size() >= 4)
        return;
    made.release();
    m_charts.emplace_back(chart);
    const int place = static_cast<int>(m_charts.size()) - 1;
    chart->setRect({place % 2 * 128, place / 2 * 128, 128, 128});
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
        _changeProperty(*chart);
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

void FuzzScene::_changeProperty(KXChart& chart)
{
    if (m_input.takeBool()) {
        UXPropertyAccessor accessor(chart.getChartProperty());
        _updateByKey(accessor, chart.getChartProperty()->serialize());
    } else if (auto* accessor = dynamic_cast<UXPropertyAccessor*>(&chart)) {
        _updateByKey(*accessor, chart.serialize());
    }
}

std::string FuzzScene::_pickQuoted(const std::string& document)
{
    const std::size_t from = document.size() * m_input.takeByte() / 256;
    const std::size_t begin = document.find('"', from);
    const std::size_t end = begin == std::string::npos ? begin : document.find('"', begin + 1);
    return end == std::string::npos ? std::string() : document.substr(begin + 1, end - begin - 1);
}

void FuzzScene::_updateByKey(UXPropertyAccessor& accessor, const std::string& document)
{
    const std::string key = _pickQuoted(document);
    const bool flag = m_input.takeBool();
    const double number = m_input.takeNumber();
    const int whole = m_input.takeInt();
    const std::string text = m_input.takeBool() ? m_input.takeText() : _pickQuoted(document);
    // One of them is of the key's type.
    if (accessor.updateValue(key, flag) || accessor.updateValue(key, number) ||
        accessor.updateValue(key, whole) || accessor.updateValue(key, std::int64_t{whole}) ||
        accessor.updateEnumString(key, text))
        return;
    if (!accessor.updateValue(key, text))
        accessor.updateValue(key, UXColor(whole, flag, 255, number));
}

void FuzzScene::sendEvent()
{
    using Entry = bool (UXControl::*)(const UXControlPoint&, const UXEvent&);
    static constexpr Entry entries[] = {
        &UXControl::mouseMove,        &UXControl::mouseMove,  &UXControl::mouseMove,
        &UXControl::mouseDown,        &UXControl::mouseUp,    &UXControl::mouseDown,
        &UXControl::mouseUp,          &UXControl::mouseEnter, &UXControl::mouseLeave,
        &UXControl::mouseDoubleClick, &UXControl::mouseWheel, &UXControl::externalDragging,
        &UXControl::externalDrop};
    UXEvent event;
    const int choice = m_input.takeBelow(20);
    const int keys = m_input.takeByte();
    for (const UXEventKey key : {UXEventKey::Shift, UXEventKey::Ctrl, UXEventKey::Alt, UXEventKey::LeftButton,
                                 UXEventKey::RightButton}) {
        if ((keys & static_cast<int>(key)) != 0)
            event.addEventKey(key);
    }
    if (choice < static_cast<int>(std::size(entries))) {
        const UXControlPoint point(m_input.takeByte(), m_input.takeByte());
        event.setWheelDelta({(keys % 5) - 2.0, (keys % 7) - 3.0});
        (m_control.*entries[choice])(point, event);
        return;
    }
    switch (choice) {
    case 13:
        event.setKeyCode(m_input.takeByte());
        m_control.keyDown(event);
        break;
    case 14:
        m_control.keyUp(event);
        break;
    case 15:
        m_control.timer(m_now += keys);
        break;
    case 16:
        m_control.setZoomRatio(m_input.takeNumber());
        break;
    case 17:
        m_control.setControlRect({0, 0, m_input.takeInt(), m_input.takeInt()});
        break;
    case 18:
        m_control.runPostedActions();
        break;
    default:
        m_context.repaint();
    }
}

void FuzzScene::paint()
{
    m_diagram.layout();
    UXRecordingPaintConfig config;
    m_diagram.paint(&config, m_diagram.getBoundingRect());
    for (const std::string& line : config.getRecording().getLines())
        require(!holdsOddNumber(line), "every coordinate is finite");
}
