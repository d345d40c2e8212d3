#include "dashboard.h"

#include "chart_document.h"
#include "control_data_provider.h"
#include "dashboard_writer.h"
#include "data_binding_reader.h"
#include "data_opener.h"
#include "host_error.h"
#include "kx_control_chart.h"
#include "sql_session.h"
#include "view_data_provider.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace {

bool hasColumn(const DataBinding& binding, const std::string& column)
{
    const auto isIn = [&](const auto& list) {
        return std::ranges::any_of(list, [&](const auto& part) { return part.column == column; });
    };
    return isIn(binding.dimensions) || isIn(binding.measures);
}

} // namespace

Dashboard::Dashboard(DashboardDocument document, const ViewItemHandlers& handlers,
                     const CsvReader::ProgressHandler& progress)
    : m_document(std::move(document)), m_items(m_document.items.size())
{
    for (std::size_t i = 0; i < m_items.size(); ++i)
        _readParts(i);
    _openData(progress);
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        const DashboardItem& item = m_document.items[i];
        const bool isControl = dynamic_cast<KXControlChart*>(&getChart(i)) != nullptr;
        if (isControl)
            _requireOneCondition(i);
        m_items[i].provider =
            isControl
                ? std::make_unique<ControlDataProvider>(*m_items[i].session, m_items[i].binding, handlers)
                : std::make_unique<ViewDataProvider>(*m_items[i].session, m_items[i].binding, handlers);
        m_items[i].provider->setChoice(item.choice);
        if (item.clickFilters || isControl)
            m_items[i].provider->setChoiceHandler([this, i](const DataChoice& choice) { choose(i, choice); });
    }
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        const Item& item = m_items[i];
        _takeChoices(i);
        item.chart->loadData(item.provider.get());
        if (!item.provider->getError().empty())
            throw HostError(m_document.name, "items[" + std::to_string(i) + ']', item.provider->getError());
    }
}

Dashboard::~Dashboard() = default;

KXChart& Dashboard::getChart(std::size_t item) const { return m_items[item].chart->getChart(); }

/** @return a file that the document names, seen from its own folder */
std::string Dashboard::_obtainPath(const std::string& file) const
{
    if (isConnection(file))
        return file;
    return (std::filesystem::path(m_document.name).parent_path() / file).string();
}

void Dashboard::_readParts(std::size_t index)
{
    const DashboardItem& item = m_document.items[index];
    Item& opened = m_items[index];
    const std::string place = m_document.name + ": items[" + std::to_string(index) + "].";
    opened.data = _obtainPath(item.data.empty() ? m_document.data : item.data);
    opened.binding = item.binding.file.empty()
                         ? DataBindingReader(place + "binding").readText(item.binding.text)
                         : DataBindingReader(_obtainPath(item.binding.file)).readFile();
    opened.chart = item.chart.file.empty() ? std::make_unique<ChartDocument>(place + "chart", item.chart.text)
                                           : std::make_unique<ChartDocument>(_obtainPath(item.chart.file));
    opened.chart->tellUnknownKeys();
    for (const ChosenItem& chosen : item.choice)
        for (const ChoiceCondition& condition : chosen)
            if (!hasColumn(opened.binding, condition.column))
                throw HostError(place + "choice", "",
                                "the binding has no column \"" + condition.column + '"');
}

/** A control shows members that are chosen, or a range, and no more. */
void Dashboard::_requireOneCondition(std::size_t index) const
{
    const DataChoice& choice = m_document.items[index].choice;
    const DataBinding& binding = m_items[index].binding;
    const std::string place = "items[" + std::to_string(index) + "].choice";
    if (choice.size() > 1 || (choice.size() == 1 && choice[0].size() > 1))
        throw HostError(m_document.name, place, "a control has one condition");
    const std::string column = binding.dimensions.empty()
                                   ? (binding.measures.empty() ? "" : binding.measures[0].column)
                                   : binding.dimensions[0].column;
    if (!choice.empty() && choice[0][0].column != column)
        throw HostError(m_document.name, place, "a control chooses from its own column alone");
}

void Dashboard::_openData(const CsvReader::ProgressHandler& progress)
{
    std::map<std::string, std::vector<const DataBinding*>> bindings;
    for (const Item& item : m_items)
        bindings[item.data].push_back(&item.binding);
    for (const auto& [data, users] : bindings)
        m_sessions[data] = openData(data, users, progress);
    for (Item& item : m_items) {
        item.session = m_sessions.at(item.data).get();
        for (const SqlColumn& column : item.session->obtainColumns(item.binding.table, item.binding.schema))
            item.columns.push_back(column.name);
    }
}

bool Dashboard::_reaches(const Item& source, const Item& target, const FilterAlternatives& filters)
{
    return source.session == target.session &&
           std::ranges::all_of(filters, [&](const std::vector<FilterBinding>& all) {
               return std::ranges::all_of(all, [&](const FilterBinding& filter) {
                   return std::ranges::find(target.columns, filter.column) != target.columns.end();
               });
           });
}

/** @return what is chosen in the other items to one effect, as far as it is about the target's rows */
std::vector<FilterAlternatives> Dashboard::_collectChoices(std::size_t target, ChoiceEffect effect) const
{
    std::vector<FilterAlternatives> choices;
    for (std::size_t i = 0; i < m_items.size() && m_document.items[target].isFiltered; ++i) {
        if (i == target || m_document.items[i].choice.empty() || m_document.items[i].effect != effect)
            continue;
        FilterAlternatives filters = obtainChoiceFilters(m_document.items[i].choice);
        if (_reaches(m_items[i], m_items[target], filters))
            choices.push_back(std::move(filters));
    }
    return choices;
}

void Dashboard::choose(std::size_t item, const DataChoice& choice)
{
    m_document.items[item].choice = choice;
    m_items[item].provider->setChoice(choice);
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        if (_takeChoices(i))
            m_items[i].chart->reloadData();
    }
}

/** Gives an item what is chosen in the others. @return whether that is something else than before */
bool Dashboard::_takeChoices(std::size_t target) const
{
    ViewDataProvider& provider = *m_items[target].provider;
    std::vector<FilterAlternatives> choices = _collectChoices(target, ChoiceEffect::Filter), highlights;
    if (!dynamic_cast<KXControlChart*>(&getChart(target))) // which shows members and no parts of them
        highlights = _collectChoices(target, ChoiceEffect::Highlight);
    const DataBinding& binding = provider.getBinding();
    if (choices == binding.choices && highlights == binding.highlights)
        return false;
    provider.setChoices(std::move(choices));
    provider.setHighlights(std::move(highlights));
    return true;
}

std::string Dashboard::save() const
{
    DashboardDocument document = m_document;
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        if (document.items[i].chart.file.empty())
            document.items[i].chart.text = m_items[i].chart->save();
    }
    return writeDashboard(document);
}
