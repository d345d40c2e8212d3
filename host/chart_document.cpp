#include "chart_document.h"

#include "date_pattern.h"
#include "host_error.h"
#include "json_document.h"
#include "kx_chart_data_format.h"
#include "kx_chart_data_provider.h"
#include "kx_chart_data_user.h"
#include "kx_json_object_factory.h"
#include "kx_xy_axis_chart.h"
#include "refused_key.h"
#include "text_file.h"

#include <cstdio>
#include <nlohmann/json.hpp>

namespace {

/** @return whether a document says how dates and times along its categories read */
bool hasDatePattern(const nlohmann::json& document)
{
    const auto format = document.find("m_xDataFormat");
    return format != document.end() &&
           (format->contains("m_datePresetFormat") || format->contains("m_timePresetFormat") ||
            format->contains("m_customDateTimeFormat"));
}

} // namespace

ChartDocument::ChartDocument(const std::string& path) : ChartDocument(path, readTextFile(path)) {}

ChartDocument::ChartDocument(std::string name, const std::string& text) : m_path(std::move(name))
{
    const nlohmann::json parsed = parseJsonDocument(m_path, text);
    if (!parsed.is_object())
        throw HostError(m_path, "", "holds no JSON object");
    const auto type = parsed.find("type");
    if (type == parsed.end() || !type->is_string())
        throw HostError(m_path, "type", "does not name the kind of chart");

    KXJsonObjectFactory factory;
    std::unique_ptr<UXJsonObject> made(factory.create(type->get<std::string>()));
    auto* chart = dynamic_cast<KXChart*>(made.get());
    if (!chart)
        throw HostError(m_path, "type", "there is no chart called \"" + type->get<std::string>() + "\"");
    made.release();
    m_hasDatePattern = hasDatePattern(parsed);
    m_chart.reset(chart);
    if (!m_chart->deserialize(text, &factory))
        _requireUnderstood(text);
}

ChartDocument::~ChartDocument() = default;

void ChartDocument::_requireUnderstood(const std::string& text) const
{
    // The reader says only that something was amiss. A key that it took is saved as it was read.
    const std::string key = findRefusedKey(nlohmann::json::parse(text), nlohmann::json::parse(save()));
    if (!key.empty())
        throw HostError(m_path, key, "holds a value that the chart does not take");
}

void ChartDocument::tellUnknownKeys() const
{
    for (const std::string& key : m_chart->getDeserializedUnknownKeys())
        std::fprintf(stderr, "%s: %s: is no key of a %s\n", m_path.c_str(), key.c_str(),
                     m_chart->customSerializeTypeID().c_str());
}

void ChartDocument::loadData(KXChartDataProvider* provider)
{
    KXChartDataUser* user = m_chart->obtainLegendDataUser();
    if (!user)
        return;
    user->setDataProvider(provider);
    user->prepareData();
    if (!m_hasDatePattern)
        _takeDatePattern(user, provider);
    user->reloadData();
}

void ChartDocument::reloadData()
{
    if (KXChartDataUser* user = m_chart->obtainLegendDataUser()) {
        user->prepareData();
        user->reloadData();
    }
}

void ChartDocument::_takeDatePattern(KXChartDataUser* user, KXChartDataProvider* provider)
{
    auto* chart = dynamic_cast<KXXYAxisChart*>(m_chart.get());
    const KXChartAggregateType level = provider ? provider->obtainDimensionAggregateType(user, 0)
                                                : KXChartAggregateType::None;
    const std::optional<DatePattern> pattern = obtainDatePattern(static_cast<DateLevel>(level));
    if (!chart || !pattern)
        return;
    chart->getXDataFormat()->updateDatePresetFormat(pattern->date);
    chart->getXDataFormat()->updateTimePresetFormat(pattern->time);
}
