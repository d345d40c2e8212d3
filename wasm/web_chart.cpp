#include "web_chart.h"

#include "kx_json_object_factory.h"
#include "ux/json/ux_json_text.h"
#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_paint_picture.h"
#include "ux/ux_svg_paint_config.h"
#include "web_page.h"
#include "web_view.h"

#include <utility>

namespace {

/** A value takes 32 bytes and more: a longer text could ask for more than a page has, which nothing catches.
 */
constexpr std::size_t longestDocument = std::size_t{8} << 20;

} // namespace

std::unique_ptr<WebChart> WebChart::create(const std::string& document)
{
    const std::unique_ptr<UXJsonValue> parsed = document.size() <= longestDocument ? uxParseJson(document)
                                                                                   : nullptr;
    const UXJsonValue* type = parsed ? parsed->find("type") : nullptr;
    std::string name;
    if (!type || !type->getString(name))
        return nullptr;
    KXJsonObjectFactory factory;
    std::unique_ptr<UXJsonObject> made(factory.create(name));
    auto* chart = dynamic_cast<KXChart*>(made.get());
    if (!chart)
        return nullptr;
    made.release();
    std::unique_ptr<KXChart> owned(chart);
    owned->deserialize(document, &factory);
    return std::unique_ptr<WebChart>(new WebChart(std::move(owned)));
}

WebChart::WebChart(std::unique_ptr<KXChart> chart) : m_chart(std::move(chart)) { _takeChart(); }

WebChart::~WebChart() { detachChildren(); }

void WebChart::_takeChart()
{
    m_chart->setAlign(UXAlign::Client);
    addChild(m_chart.get());
}

std::string WebChart::obtainSvg(const UXSize& size)
{
    UXSvgPaintConfig page(size);
    if (!page.isPaintConfigValid())
        return {};
    uxPaintPicture(*m_chart, page, {size, 12, UXColor(255, 255, 255)});
    _takeChart();
    return page.getSvg();
}

std::uint32_t WebChart::findNumber(const KXChart* chart)
{
    const auto* own = chart ? dynamic_cast<const WebChart*>(chart->getParent()) : nullptr;
    return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(own));
}

void WebChart::tell(const WebItem& item, const std::string& event)
{
    if (item.chart != 0)
        WebView::tell(item.chart, item.obtainMessage(event));
}
