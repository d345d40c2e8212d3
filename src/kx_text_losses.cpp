#include "kx_text_losses.h"

#include "kx_chart_diagnostic.h"
#include "ux/ux_object.h"
#include "ux/ux_rect_functions.h"

#include <utility>

namespace {

constexpr std::size_t greatestKnownCount = 200;

} // namespace

void KXTextLosses::clear()
{
    m_losses.clear();
    m_moreCount = 0;
}

void KXTextLosses::_add(Loss&& loss)
{
    if (m_losses.size() < greatestKnownCount)
        m_losses.push_back(std::move(loss));
    else
        ++m_moreCount;
}

void KXTextLosses::tell(std::vector<KXChartDiagnostic>& diagnostics, const UXObject& space,
                        const UXObject& chart) const
{
    using enum KXChartDiagnosticKind;
    const UXTransform toChart = space.obtainTransformToParent(&chart);
    const char* const reason = "there is no room for it";
    for (const Loss& loss : m_losses) {
        // Nothing of a chart is turned against it, so that two corners say all.
        const UXDoublePoint first = toChart.apply(loss.rect.x, loss.rect.y);
        const UXDoublePoint last = toChart.apply(loss.rect.x + loss.rect.width,
                                                 loss.rect.y + loss.rect.height);
        const UXDoubleRect place(first.x, first.y, last.x - first.x, last.y - first.y);
        diagnostics.push_back(
            {loss.isShortened ? ShortenedText : LeftOutText, loss.text, reason, uxSurroundingRect(place), 1});
    }
    if (m_moreCount > 0)
        diagnostics.push_back({LeftOutText, {}, reason, {}, m_moreCount});
}
