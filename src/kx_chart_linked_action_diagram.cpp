#include "kx_chart_linked_action_diagram.h"

#include "kx_chart.h"
#include "kx_chart_data_provider.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_data_user.h"
#include "ux/ux_context.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_key_code.h"
#include "ux/ux_layout_rounds.h"
#include "ux/ux_notification_scope.h"

#include <algorithm>
#include <utility>

namespace {

/** Charts do not stand in one another, so the search goes no deeper than the first on each way. */
void collectCharts(UXObject* object, std::vector<UXObjectWatcher>& charts)
{
    if (dynamic_cast<KXChart*>(object)) {
        charts.emplace_back(object);
        return;
    }
    for (UXObject* child : object->getChildren())
        collectCharts(child, charts);
}

KXChart* obtainChart(const UXObjectWatcher& watcher) { return dynamic_cast<KXChart*>(watcher.getObject()); }

} // namespace

KXChartLinkedActionDiagram::KXChartLinkedActionDiagram(UXContext* context) : UXGlobalEventDiagram(context) {}

KXChartLinkedActionDiagram::~KXChartLinkedActionDiagram() { KXChartLinkedActionDiagram::endActions(); }

KXChartLinkedActionDiagram* KXChartLinkedActionDiagram::find(UXObject* object)
{
    const UXDiagram* diagram = uxObtainDiagram(object);
    if (!diagram)
        return nullptr;
    for (UXGlobalEventDiagram* global : diagram->getGlobalEventDiagrams())
        if (auto* linked = dynamic_cast<KXChartLinkedActionDiagram*>(global))
            return linked;
    return nullptr;
}

std::string KXChartLinkedActionDiagram::customSerializeTypeID() { return "KXChartLinkedActionDiagram"; }

void KXChartLinkedActionDiagram::requestHighlight(KXChart* chart, KXChartDataUser* user,
                                                  const KXChartDataPath& path, UXObject* source,
                                                  const UXEvent& event)
{
    const UXNotificationScope scope;
    if (!chart || !user || !source || !_isServed(chart))
        return;
    const bool followsPointer = event.getEventType() == UXEventType::MouseEnter ||
                                event.getEventType() == UXEventType::MouseMove;
    std::erase_if(m_requests, [source](const auto& old) { return old->source.getObject() == source; });
    m_requests.push_back(std::make_shared<const Request>(
        Request{UXObjectWatcher(chart), UXObjectWatcher(source), user, path, followsPointer}));
    _showLastRequest(nullptr);
}

void KXChartLinkedActionDiagram::clearHighlight(UXObject* source)
{
    const UXNotificationScope scope;
    if (!source || !source->getSelected())
        _removeRequests([source](const Request& request) {
            return request.source.getObject() == source || !request.source.isAlive();
        });
}

void KXChartLinkedActionDiagram::joinHighlight(KXChart* chart)
{
    if (!_lacksHighlight(chart))
        return;
    // A layout, from which charts join, asks no host.
    UXLayoutRounds::postAction([self = UXObjectWatcher(this), joining = UXObjectWatcher(chart)] {
        const UXNotificationScope scope;
        auto* diagram = static_cast<KXChartLinkedActionDiagram*>(self.getObject());
        KXChart* newcomer = obtainChart(joining);
        if (diagram && newcomer && diagram->_lacksHighlight(newcomer))
            diagram->_showIn(newcomer, *std::shared_ptr<const Request>(diagram->m_shown));
    });
}

/** @return whether something is highlighted that the chart was not told of */
bool KXChartLinkedActionDiagram::_lacksHighlight(KXChart* chart)
{
    return m_shown && m_shown->chart.isAlive() && m_shown->chart.getObject() != chart && _isServed(chart) &&
           _findReceiver(chart) == m_receivers.end();
}

void KXChartLinkedActionDiagram::leaveHighlight(KXChart* chart)
{
    const UXNotificationScope scope;
    const auto found = _findReceiver(chart);
    if (found == m_receivers.end())
        return;
    const Receiver receiver = *found;
    m_receivers.erase(found);
    _hideIn(receiver);
}

void KXChartLinkedActionDiagram::forgetChart(KXChart* chart)
{
    const UXNotificationScope scope;
    const UXObjectWatcher self(this);
    leaveHighlight(chart);
    if (self.isAlive())
        _removeRequests([chart](const Request& request) { return request.chart.getObject() == chart; },
                        chart);
}

UXObject* KXChartLinkedActionDiagram::getHighlightSource() const
{
    return m_shown ? m_shown->source.getObject() : nullptr;
}

KXHighlightResult KXChartLinkedActionDiagram::obtainHighlightResult(const KXChart* chart) const
{
    for (const Receiver& receiver : m_receivers)
        if (receiver.chart.getObject() == chart)
            return receiver.result;
    return KXHighlightResult::TakesNoPart;
}

void KXChartLinkedActionDiagram::endActions()
{
    const UXNotificationScope scope;
    const UXObjectWatcher self(this);
    // What is selected asks for as long as it is.
    for (const auto& request : std::exchange(m_requests, {})) {
        UXObject* source = request->source.getObject();
        if (source && source->getSelected())
            source->setSelected(false);
        if (!self.isAlive())
            return;
    }
    _removeRequests([](const Request&) { return true; });
}

// It looks at the events that pass and keeps none: nothing stands on it.

bool KXChartLinkedActionDiagram::mouseDown(const UXEvent& event)
{
    _removeStale(&event);
    return false;
}

bool KXChartLinkedActionDiagram::mouseMove(const UXEvent& event)
{
    _removeStale(&event);
    return false;
}

bool KXChartLinkedActionDiagram::mouseUp(const UXEvent& event)
{
    _removeStale(&event);
    return false;
}

bool KXChartLinkedActionDiagram::mouseLeave(const UXEvent&)
{
    _removeRequests([](const Request& request) {
        const UXObject* source = request.source.getObject();
        return !source || (request.followsPointer && !source->getSelected());
    });
    return false;
}

bool KXChartLinkedActionDiagram::keyDown(const UXEvent& event)
{
    if (event.getKeyCode() == static_cast<int>(UXKeyCode::Escape))
        endActions();
    return false;
}

void KXChartLinkedActionDiagram::servedDiagramLeft()
{
    const UXObjectWatcher self(this);
    const std::vector<Receiver> receivers = _removeStale(nullptr) ? m_receivers : std::vector<Receiver>();
    for (const Receiver& receiver : receivers)
        if (KXChart* chart = self.isAlive() ? obtainChart(receiver.chart) : nullptr;
            chart && !_isServed(chart))
            leaveHighlight(chart);
}

bool KXChartLinkedActionDiagram::_isServed(UXObject* object) const
{
    return object && std::ranges::count(getServedDiagrams(), uxObtainDiagram(object)) > 0;
}

bool KXChartLinkedActionDiagram::_isOver(UXObject* chart, const UXEvent& event) const
{
    return uxObtainDiagram(chart) == getActiveDiagram() &&
           chart->ptInRect(chart->getTranslatedPointFromEvent(event));
}

std::vector<KXChartLinkedActionDiagram::Receiver>::iterator KXChartLinkedActionDiagram::_findReceiver(
    const UXObject* chart)
{
    return std::ranges::find_if(
        m_receivers, [chart](const Receiver& receiver) { return receiver.chart.getObject() == chart; });
}

/** @param leavingChart one that is going and shows nothing any more */
template <class Remove>
void KXChartLinkedActionDiagram::_removeRequests(const Remove& remove, const UXObject* leavingChart)
{
    std::erase_if(m_requests, [&remove](const auto& request) { return remove(*request); });
    if (m_shown != (m_requests.empty() ? nullptr : m_requests.back()))
        _showLastRequest(leavingChart);
}

/** Items that have gone, or have been taken off the diagrams, do not say that they no longer ask.
 *  @param pointer where the pointer is now; null when nobody knows
 *  @return whether this is still here */
bool KXChartLinkedActionDiagram::_removeStale(const UXEvent* pointer)
{
    const UXObjectWatcher self(this);
    _removeRequests([this, pointer](const Request& request) {
        UXObject *chart = request.chart.getObject(), *source = request.source.getObject();
        if (!chart || !_isServed(source))
            return true;
        return pointer && request.followsPointer && !source->getSelected() && !_isOver(chart, *pointer);
    });
    return self.isAlive();
}

void KXChartLinkedActionDiagram::_showLastRequest(const UXObject* leavingChart)
{
    const UXObjectWatcher self(this);
    const unsigned generation = ++m_generation;
    const std::shared_ptr<const Request> request = m_requests.empty() ? nullptr : m_requests.back();
    m_shown = request;
    if (!_hideAll() || !request)
        return;
    for (const UXObjectWatcher& watcher : _collectCharts()) {
        if (!self.isAlive() || generation != m_generation || !request->chart.isAlive())
            return;
        KXChart* chart = watcher.isAlive() && watcher.getObject() != leavingChart ? obtainChart(watcher)
                                                                                  : nullptr;
        if (chart && chart != request->chart.getObject() && _findReceiver(chart) == m_receivers.end())
            _showIn(chart, *request);
    }
}

/** @return whether this is still here and no other highlight has come meanwhile */
bool KXChartLinkedActionDiagram::_hideAll()
{
    const UXObjectWatcher self(this);
    const unsigned generation = m_generation;
    while (self.isAlive() && generation == m_generation && !m_receivers.empty()) {
        const Receiver receiver = m_receivers.back();
        m_receivers.pop_back();
        _hideIn(receiver);
    }
    return self.isAlive() && generation == m_generation;
}

void KXChartLinkedActionDiagram::_hideIn(const Receiver& receiver)
{
    KXChart* chart = obtainChart(receiver.chart);
    if (chart && receiver.result == KXHighlightResult::Highlighted)
        chart->hideLinkedHighlight(_obtainControl(chart));
}

void KXChartLinkedActionDiagram::_showIn(KXChart* chart, const Request& request)
{
    const UXObjectWatcher self(this), watcher(chart);
    const unsigned generation = m_generation;
    const KXChartDataUser* user = chart->obtainLegendDataUser();
    const bool takesPart = user && user->isInteractionEnabled();
    // Before the provider is asked: a layout in between must not let the chart join a second time.
    m_receivers.push_back(
        {watcher, takesPart ? KXHighlightResult::NotFound : KXHighlightResult::TakesNoPart});
    if (!takesPart)
        return;
    const auto isKept = [&] {
        return self.isAlive() && watcher.isAlive() && _findReceiver(chart) != m_receivers.end();
    };
    const std::unique_ptr<KXChartDataPath> path = _obtainTargetPath(chart, request);
    if (!path || !isKept() || generation != m_generation)
        return;

    // A highlight that is replaced while the chart shows it has to find it among those to hide.
    _findReceiver(chart)->result = KXHighlightResult::Highlighted;
    const KXHighlightResult result = chart->showLinkedHighlight(*path, _obtainControl(chart));
    if (!isKept()) {
        if (watcher.isAlive())
            chart->hideLinkedHighlight(_obtainControl(chart));
    } else if (generation == m_generation) {
        _findReceiver(chart)->result = result;
    }
}

/** The chart's own provider knows which of its items answers to the one that is highlighted. */
std::unique_ptr<KXChartDataPath> KXChartLinkedActionDiagram::_obtainTargetPath(KXChart* chart,
                                                                               const Request& request)
{
    KXChartDataPath asked = request.path;
    const KXChartDataProviderUse use(*chart->obtainLegendDataUser());
    std::unique_ptr<KXChartDataPath> path;
    if (use.isCurrent() && request.chart.isAlive())
        path.reset(use.get()->obtainDataLinkedHighlightTargetPath(request.user, &asked, use.get()));
    return path;
}

std::vector<UXObjectWatcher> KXChartLinkedActionDiagram::_collectCharts() const
{
    std::vector<UXObjectWatcher> charts;
    for (UXDiagram* diagram : getServedDiagrams())
        collectCharts(diagram, charts);
    return charts;
}

UXControl* KXChartLinkedActionDiagram::_obtainControl(UXObject* chart)
{
    UXDiagram* diagram = uxObtainDiagram(chart);
    const UXContext* context = diagram ? diagram->getContext() : nullptr;
    const std::vector<UXControl*> controls = context ? context->getControlsWithDiagram(diagram)
                                                     : std::vector<UXControl*>();
    return controls.empty() ? nullptr : controls.front();
}
