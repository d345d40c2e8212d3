#include "kx_gauge_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_items.h"
#include "kx_chart_label.h"
#include "kx_gauge_measures.h"
#include "kx_key_definitions.h"
#include "ux/ux_object_watcher.h"

#include <algorithm>
#include <typeinfo>

// The gauge's keys and their table, which its document follows.

KX_DEFINE_CHART_KEYS(KXGaugeChart, KX_GAUGE_CHART_KEYS)

const UXPropertyTable& KXGaugeChart::obtainPropertyTable()
{
    using Self = KXGaugeChart;
    static constexpr UXProperty rows[] = {
        KX_OBJECT_ROW("m_mainLabel", uxObtainPartType, m_mainLabel, "the label of the value")
            KX_OBJECT_ROW("m_maxLabel", uxObtainPartType, m_maxLabel, "the label of the maximum")
                KX_OBJECT_ROW("m_minLabel", uxObtainPartType, m_minLabel, "the label of the minimum")
                    KX_OBJECT_ROW("m_targetLabel", uxObtainPartType, m_targetLabel, "the label of the target")
                        UXProperty{.key = "m_partitionLabelsPool",
                                   .type = _obtainPartitionLabelsPoolType,
                                   .place = [](void* owner) { return owner; },
                                   .meaning = "the labels at the bounds of the parts"},
        KX_GAUGE_CHART_KEYS_BEFORE_FORMAT(KX_CHART_KEY_ROW)
            KX_OBJECT_ROW("m_dataFormat", uxObtainNestedObjectType, m_dataFormat,
                          "how every number is written") KX_GAUGE_CHART_KEYS_AFTER_FORMAT(KX_CHART_KEY_ROW)};
    static const UXPropertyTable table("KXGaugeChart", &KXChart::obtainPropertyTable(),
                                       kxObtainKeyOwner<Self>, rows);
    return table;
}

/** The pool's size is the chart's business, so its place is the chart. */
const UXPropertyType& KXGaugeChart::_obtainPartitionLabelsPoolType()
{
    using Pool = std::vector<KXChartLabel*>;
    static constexpr UXPropertyType type{
        .info = &typeid(Pool),
        .name = "list of objects",
        .assign =
            [](void* to, const void* chart) {
                *static_cast<Pool*>(to) = static_cast<const KXGaugeChart*>(chart)->m_partitionLabelsPool;
            },
        .write =
            [](const UXPropertyType&, UXJsonObject& object, const std::string& key, const void* chart) {
                const Pool& pool = static_cast<const KXGaugeChart*>(chart)->m_partitionLabelsPool;
                object.serializeObjectList(key, {pool.begin(), pool.end()});
            },
        .read = [](const UXPropertyType&, UXJsonObject&, const std::string& key,
                   void* chart) { return static_cast<KXGaugeChart*>(chart)->_readPartitionLabelsPool(key); }};
    return type;
}

std::string KXGaugeChart::customSerializeTypeID() { return "KXGaugeChart"; }

bool KXGaugeChart::customDeserialize()
{
    const UXObjectWatcher self(this);
    const bool complete = KXPanelChart::customDeserialize();
    if (self.isAlive())
        _colorLabels();
    return complete;
}

/** Makes as many labels as a document lists, up to what a dial can use. */
bool KXGaugeChart::_readPartitionLabelsPool(const std::string& key)
{
    std::uint64_t count = 0;
    const bool isList = deserializeArrayBegin(key) && deserializePeekArray(count);
    deserializeArrayEnd();
    if (!isList)
        return false;
    const auto kept = static_cast<std::size_t>(
        std::min<std::uint64_t>(count, kxGreatestGaugePartitionCount + 1));
    getItems()->setLinked({}); // which dims the labels that go
    while (m_partitionLabelsPool.size() > kept) {
        delete m_partitionLabelsPool.back();
        m_partitionLabelsPool.pop_back();
    }
    _growPartitionLabelsPool(kept);
    return deserializeExistingObjectList(key, {m_partitionLabelsPool.begin(), m_partitionLabelsPool.end()}) &&
           kept == count;
}
