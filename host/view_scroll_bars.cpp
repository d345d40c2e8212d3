#include "view_scroll_bars.h"

#include <cmath>
#include <utility>

ViewScrollBars::ViewScrollBars(std::function<void(double dx, double dy)> scroll) : m_scroll(std::move(scroll))
{
    for (UXScrollBar* bar : {&m_across, &m_down}) {
        bar->setSpace(&m_space);
        bar->setVisible(false);
        addChild(bar);
        _follow(*bar);
    }
}

void ViewScrollBars::_follow(UXScrollBar& bar)
{
    UXScrollBar::Handlers handlers;
    handlers.offsetRequested = [this, &bar](std::int64_t offset, const UXEvent&) {
        const auto distance = static_cast<double>(offset - bar.getRange().offset);
        const bool isAcross = bar.getDirection() == UXArrangement::Row;
        m_scroll(isAcross ? distance : 0, isAcross ? 0 : distance);
    };
    bar.setHandlers(handlers);
}

void ViewScrollBars::update(const UXControlRect& board, const UXControlRect& view, double scale)
{
    const bool showsAcross = board.width > view.width, showsDown = board.height > view.height;
    m_across.setVisible(showsAcross);
    m_down.setVisible(showsDown);
    m_space.setXScale(scale);
    m_space.setYScale(scale);

    // A rectangle begins at a pixel and extends by units; two bars leave the corner free.
    const int thickness = static_cast<int>(std::ceil(UXScrollBar::thickness * scale));
    const auto toLength = [&](int pixels, bool leavesCorner) {
        return static_cast<int>((pixels - (leavesCorner ? thickness : 0)) / scale);
    };
    m_across.setRect(
        UXRect(0, view.height - thickness, toLength(view.width, showsDown), UXScrollBar::thickness));
    m_down.setRect(
        UXRect(view.width - thickness, 0, UXScrollBar::thickness, toLength(view.height, showsAcross)));
    m_across.setRange({board.width, view.width, -std::int64_t{board.x}});
    m_down.setRange({board.height, view.height, -std::int64_t{board.y}});
}
