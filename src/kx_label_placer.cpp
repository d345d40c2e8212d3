#include "kx_label_placer.h"

#include "kx_readable_color.h"
#include "ux/ux_layout_helper.h"
#include "ux/ux_text_shortening.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <string_view>
#include <utility>

namespace {

/** The characters that have to be left of a text, beside the ellipsis. */
constexpr std::size_t fewestCharacters = 2;
/** What the sums that made a candidate may have taken from the text's own size. */
constexpr double noise = 1e-6;

/** @return the number of characters of UTF-8 text */
std::size_t countCharacters(std::string_view text)
{
    return static_cast<std::size_t>(std::ranges::count_if(
        text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }));
}

} // namespace

KXLabelPlacer::KXLabelPlacer(const UXDoubleRect& area, double gap)
    : m_area(area), m_gap(gap), m_grid(area), m_helper(uxCreateLayoutHelper())
{
}

KXLabelPlacer::~KXLabelPlacer() = default;

UXDoubleSize KXLabelPlacer::measure(const std::string& text, const UXTextProperty& property) const
{
    const UXDoubleSize size = m_helper->getTextSize(text, property);
    return {std::ceil(size.width), std::ceil(size.height)};
}

void KXLabelPlacer::addObstacle(const UXDoubleRect& rect, std::size_t mark) { m_grid.add(rect, 0, mark); }

void KXLabelPlacer::addLabel(const UXDoubleRect& rect) { m_grid.add(rect, m_gap); }

bool KXLabelPlacer::_isInside(const UXDoubleRect& rect) const
{
    return rect.x >= m_area.x && rect.y >= m_area.y && rect.x + rect.width <= m_area.x + m_area.width &&
           rect.y + rect.height <= m_area.y + m_area.height;
}

/** @param width of the whole text
 *  @return what of the text stands in rect, empty for none */
std::string KXLabelPlacer::_fit(const KXLabelRequest& request, const UXDoubleRect& rect, double width) const
{
    if (width <= rect.width + noise)
        return request.text;
    if (!request.mayShorten)
        return {};
    std::string text = uxShortenText(
        request.text, UXTextOption::EllipsisEnd, rect.width, [&](std::string_view part) {
            return m_helper->getTextSize(std::string(part), request.property).width;
        });
    return countCharacters(text) > fewestCharacters ? text : std::string();
}

std::optional<KXPlacedLabel> KXLabelPlacer::_placeOne(const KXLabelRequest& request)
{
    if (request.text.empty())
        return std::nullopt;
    const UXDoubleSize size = measure(request.text, request.property);
    for (const KXLabelCandidate& candidate : request.candidates) {
        if (size.height > candidate.rect.height + noise || !_isInside(candidate.rect) ||
            !m_grid.isFree(candidate.rect, request.mark))
            continue;
        KXPlacedLabel label{0, _fit(request, candidate.rect, size.width), candidate.rect, request.property,
                            false};
        if (label.text.empty())
            continue;
        if (candidate.ground) {
            label.property.textColor = kxObtainReadableColor(*candidate.ground);
            label.isOnGround = true;
        }
        m_grid.add(candidate.rect, m_gap);
        return label;
    }
    return std::nullopt;
}

std::vector<KXPlacedLabel> KXLabelPlacer::place(std::span<const KXLabelRequest> requests)
{
    std::vector<std::size_t> order(requests.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {}, [&](std::size_t index) { return requests[index].rank; });
    std::vector<KXPlacedLabel> placed;
    for (const std::size_t index : order) {
        if (std::optional<KXPlacedLabel> label = _placeOne(requests[index])) {
            label->request = index;
            if (label->text != requests[index].text)
                m_losses.shorten(requests[index].text, label->rect);
            placed.push_back(std::move(*label));
        } else if (!requests[index].text.empty() && !requests[index].candidates.empty()) {
            m_losses.leaveOut(requests[index].text, requests[index].candidates.front().rect);
        }
    }
    return placed;
}
