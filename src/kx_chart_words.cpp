#include "kx_accessible_chart.h"
#include "kx_chart.h"
#include "kx_chart_description.h"
#include "kx_chart_item_description.h"
#include "kx_chart_kind_name.h"
#include "kx_chart_label.h"
#include "kx_chart_summary.h"
#include "ux/ux_object_watcher.h"

// What a chart says of itself to those who do not see it.

std::string KXChart::obtainTitleText() const
{
    return m_title->getText().empty() ? m_title->getDefaultText() : m_title->getText();
}

void KXChart::describe(KXChartDescription& description)
{
    description.title = obtainTitleText();
    description.kind = kxObtainChartKindName(customSerializeTypeID());
}

std::string KXChart::summary()
{
    const UXObjectWatcher self(this);
    KXChartDescription description;
    describe(description);
    if (self.isAlive())
        kxDescribeItems(*this, description);
    return self.isAlive() ? kxWriteSummary(description) : std::string();
}

std::unique_ptr<UXAccessibleNode> KXChart::createAccessibleNode()
{
    return std::make_unique<KXAccessibleChart>(*this);
}
