#include "view_board.h"

#include "chart_data_source.h"
#include "chart_document.h"
#include "chart_sample.h"
#include "host_error.h"
#include "kx_chart.h"
#include "kx_chart_data_action.h"
#include "kx_chart_data_provider.h"
#include "kx_chart_data_user.h"
#include "kx_chart_theme.h"
#include "progress_line.h"
#include "ux/ux_rect_functions.h"
#include "view_data_provider.h"
#include "view_grid.h"

#include <algorithm>
#include <utility>

namespace {

constexpr UXColor usualGround(243, 244, 246), usualCard(255, 255, 255), usualBorder(222, 225, 230);

} // namespace

ViewBoard::ViewBoard() = default;

ViewBoard::~ViewBoard() = default;

void ViewBoard::openSample(const ChartSample& sample, const ViewItemHandlers& handlers)
{
    auto document = std::make_unique<ChartDocument>(sample.chart);
    document->tellUnknownKeys();
    ProgressLine progress("reading " + sample.data);
    auto source = std::make_unique<ChartDataSource>(
        sample.data, sample.binding,
        [&](std::uint64_t done, std::uint64_t total) { progress.show(done, total); },
        [&](SqlSession& session, const DataBinding& binding) {
            return std::make_unique<ViewDataProvider>(session, binding, handlers);
        });
    document->loadData(&source->getProvider());
    if (!source->getProvider().getError().empty())
        throw HostError(source->getProvider().getError(), "", "");
    m_sources.push_back(std::move(source));
    m_documents.push_back(std::move(document));
    addChart(m_documents.back()->getChart());
}

void ViewBoard::addChart(KXChart& chart)
{
    m_cards.push_back(std::make_unique<ViewCard>(chart));
    m_diagram.addChild(m_cards.back().get());
}

void ViewBoard::arrange(const UXSize& room)
{
    const ViewGrid grid = arrangeViewGrid(m_cards.size(), room);
    m_diagram.setRect(UXRect(0, 0, grid.size.width, grid.size.height));
    for (std::size_t i = 0; i < grid.cells.size(); ++i)
        placeCard(i, grid.cells[i]);
}

void ViewBoard::placeCard(std::size_t index, const UXRect& rect)
{
    m_cards[index]->setRect(m_diagram.isRightToLeft() ? uxMirrorRect(rect, m_diagram.getBoundingRect())
                                                      : rect);
}

void ViewBoard::takeTheme(const KXChartTheme* theme)
{
    const UXColor ground = theme ? theme->getGround() : usualCard,
                  border = theme ? theme->getGridColor() : usualBorder;
    for (const std::unique_ptr<ViewCard>& card : m_cards) {
        kxApplyTheme(card->getChart(), m_theme.get(), theme);
        card->setColors(ground, border);
    }
    m_theme = theme ? std::make_unique<KXChartTheme>(*theme) : nullptr;
    m_diagram.invalidate();
}

void ViewBoard::takeNextTheme()
{
    const std::vector<std::string> names = KXChartTheme::obtainNames();
    const auto present = std::ranges::find(names, getThemeName());
    const auto next = present == names.end() ? names.begin() : present + 1;
    takeTheme(next == names.end() ? nullptr : KXChartTheme::create(*next).get());
}

std::string ViewBoard::getThemeName() const { return m_theme ? m_theme->getName() : std::string(); }
UXColor ViewBoard::getGround() const { return m_theme ? m_theme->getTrackColor() : usualGround; }

ViewCard* ViewBoard::getFocusedCard() const
{
    const UXObject* focused = m_diagram.getFocusedObject();
    const auto found = std::ranges::find_if(m_cards, [focused](const std::unique_ptr<ViewCard>& card) {
        return focused && (focused == card.get() || focused->hasParent(card.get()));
    });
    return found == m_cards.end() ? nullptr : found->get();
}

void ViewBoard::moveFocus(bool forwards)
{
    if (m_cards.empty())
        return;
    const auto present = std::ranges::find(m_cards, getFocusedCard(), &std::unique_ptr<ViewCard>::get);
    const std::size_t count = m_cards.size();
    const auto index = static_cast<std::size_t>(present - m_cards.begin());
    std::size_t next = forwards ? 0 : count - 1;
    if (index < count)
        next = (index + (forwards ? 1 : count - 1)) % count;
    hideFocusRing();
    m_diagram.setFocusedObject(&m_cards[next]->getChart());
    m_cards[next]->setShowRing(true);
}

void ViewBoard::hideFocusRing()
{
    for (const std::unique_ptr<ViewCard>& card : m_cards)
        card->setShowRing(false);
}

void ViewBoard::activateFocusedChart()
{
    const ViewCard* card = getFocusedCard();
    // What stands on the chart and has the keys for itself, such as a text, is no click on the chart.
    if (!card || m_diagram.getFocusedObject() != &card->getChart())
        return;
    KXChartDataUser* user = card->getChart().obtainLegendDataUser();
    auto* action = dynamic_cast<KXChartDataAction*>(&card->getChart());
    if (user && action)
        action->triggerLeftClickAction(user);
}
