#include "kx_chart_data_format.h"
#include "kx_pie_chart.h"
#include "kx_pie_grid.h"
#include "kx_pie_label_columns.h"
#include "ux/ux_layout_helper.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_text_shortening.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <string_view>

namespace {

constexpr double greatestHoleShare = 0.95;
/** Around a pie, as a share of its radius: room for chosen slices and for the lines to the labels. */
constexpr double spread = 1.06;
/** Between a pie and the labels beside it. */
constexpr double columnGap = 16;
/** Labels take no more from a pie than leaves it that share of the radius that it could have. */
constexpr double leastRadiusShare = 0.62;
/** A narrower column holds no word; it is counted in the labels' heights. */
constexpr double leastColumnShare = 4;
/** Of the widest label: where a column holds less, labels that may stand inside do so. */
constexpr double leastReadableShare = 0.5;
/** A pie without a place of this extent is not drawn. */
constexpr double leastPlace = 24;
constexpr double captionGap = 4;
/** Of its height: a caption that is narrower says nothing. */
constexpr double leastCaptionShare = 2;
/** In the hole: what texts keep free of it, and the smallest one. */
constexpr double holeShare = 0.94;
constexpr int leastTotalSize = 9;
/** In bytes: two letters and an ellipsis. */
constexpr std::size_t leastCutLength = 5;
constexpr const char* sampleText = "Ag0";

UXDoubleSize measure(UXLayoutHelper& helper, const std::string& text, const UXTextProperty& property)
{
    const UXDoubleSize size = text.empty() ? UXDoubleSize() : helper.getTextSize(text, property);
    return {std::ceil(size.width), std::ceil(size.height)};
}

std::string joinWords(const std::string& first, const std::string& second)
{
    return first.empty() || second.empty() ? first + second : first + " " + second;
}

/** Shortens the name alone, as numbers that are cut say something else.
 *  @return the numbers alone where nothing of the name is left; empty where these have no room */
std::string shortenName(const std::string& name, const std::string& numbers, double width,
                        const UXTextWidthFunction& widthOf)
{
    const auto widthOfWhole = [&](std::string_view part) {
        return widthOf(joinWords(std::string(part), numbers));
    };
    if (widthOfWhole(name) <= width)
        return joinWords(name, numbers);
    const std::string left = uxShortenText(name, UXTextOption::EllipsisEnd, width, widthOfWhole);
    if (widthOfWhole(left) <= width && left.size() >= leastCutLength)
        return joinWords(left, numbers);
    return widthOf(numbers) <= width ? numbers : std::string();
}

} // namespace

KXPieTurn KXPieChart::_obtainTurn() const
{
    const double start = std::isfinite(m_startAngle) ? std::fmod(m_startAngle, 360) : 0;
    return {start, std::isnan(m_sweep) ? 360 : std::clamp(m_sweep, 1.0, 360.0), m_isClockwise};
}

double KXPieChart::_obtainHoleShare() const
{
    return std::isnan(m_holeRatio) ? 0 : std::clamp(m_holeRatio, 0.0, greatestHoleShare);
}

std::vector<KXPanelItem> KXPieChart::_layoutItems(const UXRect& area)
{
    // 1. The wholes, and what is left out of them.
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    UXDoubleRect room(area);
    _divide(static_cast<std::size_t>(
        std::max(1.0, std::floor(room.width / leastPlace) * std::floor(room.height / leastPlace))));
    _takeNoteRoom(_countLeftOut(), m_labelProperty, room);
    const double lineHeight = measure(*helper, sampleText, m_labelProperty).height;

    // 2. A place for each pie, and all pies as large as the labels of all let them be.
    double captionHeight = getDimensionCount() > 1 || _showsTotalsAbove()
                               ? measure(*helper, sampleText, m_captionProperty).height + captionGap
                               : 0;
    const UXDoubleRect bounds = _obtainTurn().obtainBounds(1);
    const auto makeGrid = [&] {
        return KXPieGrid::divide(room, std::max<std::size_t>(m_pies.size(), 1), {bounds.width, bounds.height},
                                 captionHeight);
    };
    KXPieGrid grid = makeGrid();
    if (grid.obtainPlace(0).width < leastCaptionShare * captionHeight) {
        captionHeight = 0;
        grid = makeGrid();
    }
    const auto obtainPlace = [&](std::size_t pie) {
        const UXDoubleRect place = grid.obtainPlace(pie);
        return UXDoubleRect(place.x, place.y + captionHeight, place.width,
                            std::max(place.height - captionHeight, 0.0));
    };
    _makeSliceLabels(*helper, obtainPlace(0).height);
    const PieRoom pieRoom = _measureRoom(obtainPlace(0), leastColumnShare * lineHeight);

    // 3. The slices, in the order in which one reads them.
    std::vector<KXPanelItem> items;
    for (std::size_t pie = 0; pie < m_pies.size(); ++pie) {
        const UXDoubleRect place = obtainPlace(pie);
        _placePie(pie, place, pieRoom);
        if (captionHeight > 0)
            m_captions.push_back({place.x, place.y - captionHeight, place.width, captionHeight - captionGap});
        for (std::size_t i = 0; i < m_pies[pie].getSegments().size(); ++i)
            items.push_back(
                {KXChartItem{0, m_pies[pie].getSegments()[i].getGroup(), pie},
                 m_pies[pie].obtainSector(i, std::isfinite(m_sliceGap) ? std::max(m_sliceGap, 0.0) : 0)});
        if (pieRoom.columnWidth > 0)
            _placeBeside(*helper, pie, place, pieRoom);
    }
    return items;
}

/** Divides the whole of each pie, of as many as there is room for. */
void KXPieChart::_divide(std::size_t greatestCount)
{
    m_pies.clear();
    m_captions.clear();
    m_sliceLabels.clear();
    m_leaders.clear();
    m_pies.resize(static_cast<std::size_t>(std::min<std::uint64_t>(obtainIndexCount(), greatestCount)));
    bool isEmpty = true;
    for (std::size_t pie = 0; pie < m_pies.size(); ++pie) {
        std::vector<KXPiePart> parts;
        for (const std::uint64_t group : getListedGroups().getAll())
            if (const double value = obtainItemValue({0, group, pie}); isGroupShown(group) && value > 0)
                parts.push_back({group, value});
        m_pies[pie].divide(parts, _obtainTurn());
        isEmpty = isEmpty && parts.empty();
    }
    if (isEmpty)
        m_pies.clear();
}

/** Of two dimensions, members that do not meet have no value, which nobody misses. */
KXLeftOutCounts KXPieChart::_countLeftOut() const
{
    KXLeftOutCounts counts;
    for (const std::uint64_t group : getListedGroups().getAll())
        for (std::uint64_t pie = 0; isGroupShown(group) && pie < m_pies.size(); ++pie)
            counts.add(obtainItemValue({0, group, pie}), getDimensionCount() < 2);
    counts.pies = m_pies.empty() ? 0 : obtainIndexCount() - m_pies.size();
    return counts;
}

/** Makes the texts of the largest slices of each pie, as many as could stand in two columns. */
void KXPieChart::_makeSliceLabels(UXLayoutHelper& helper, double height)
{
    const double lineHeight = measure(helper, sampleText, m_labelProperty).height;
    if (m_labelPosition == KXPieLabelPosition::None || !(lineHeight > 0))
        return;
    const auto most = static_cast<std::size_t>(2 * std::ceil(height / lineHeight));
    std::size_t firstItem = 0;
    for (std::size_t pie = 0; pie < m_pies.size(); ++pie) {
        const std::vector<KXPieSegmentInfo>& segments = m_pies[pie].getSegments();
        std::vector<std::size_t> largest(segments.size());
        for (std::size_t i = 0; i < segments.size(); ++i)
            largest[i] = i;
        std::ranges::stable_sort(largest, std::ranges::greater(),
                                 [&](std::size_t i) { return segments[i].getValue(); });
        largest.resize(std::min(largest.size(), most));
        std::ranges::sort(largest);
        for (const std::size_t i : largest) {
            const KXChartItem item{0, segments[i].getGroup(), pie};
            SliceLabel label{pie, i, firstItem + i, {}, {}, {}, 0, 0, {}, {}};
            if (m_showLabelName)
                label.name = obtainGroupName(_obtainOwnItem(item).group);
            std::ranges::replace(label.name, '\n', ' ');
            if (m_showLabelValue)
                label.numbers = m_dataFormat->formatNumber(segments[i].getValue());
            if (m_showLabelPercentage)
                label.percentage = obtainPercentageText(item);
            const bool hasBoth = !label.numbers.empty() && !label.percentage.empty();
            label.numbers += hasBoth ? " (" + label.percentage + ")" : label.percentage;
            label.numbersWidth = measure(helper, label.numbers, m_labelProperty).width;
            const std::string whole = joinWords(label.name, label.numbers);
            label.nameWidth = measure(helper, whole, m_labelProperty).width - label.numbersWidth;
            if (!whole.empty())
                m_sliceLabels.push_back(std::move(label));
        }
        firstItem += segments.size();
    }
}

/** The labels of all pies have columns of one width, so that pies are equal and stand in the middle. */
KXPieChart::PieRoom KXPieChart::_measureRoom(const UXDoubleRect& place, double leastColumn) const
{
    const UXDoubleRect bounds = _obtainTurn().obtainBounds(spread);
    constexpr double noise = std::numeric_limits<double>::epsilon();
    const double width = std::max(bounds.width, noise), height = std::max(bounds.height, noise);
    const PieRoom alone{std::min(place.width / width, place.height / height), 0};
    const bool mayBeInside = m_labelPosition == KXPieLabelPosition::Auto;
    const bool areSingle = std::ranges::all_of(m_pies,
                                               [](const KXPie& pie) { return pie.getSegments().size() < 2; });
    if (m_labelPosition == KXPieLabelPosition::Inside || m_sliceLabels.empty() || (mayBeInside && areSingle))
        return alone;
    double wanted = 0;
    for (const SliceLabel& label : m_sliceLabels)
        wanted = std::max(wanted, label.nameWidth + label.numbersWidth);
    const double radius = std::clamp((place.width / 2 - columnGap - wanted) * 2 / width,
                                     leastRadiusShare * alone.radius, alone.radius);
    const double column = std::min(wanted, (place.width - radius * width) / 2 - columnGap);
    const double least = std::max(leastColumn, mayBeInside ? leastReadableShare * wanted : 0);
    return column < std::min(wanted, least) ? alone : PieRoom{radius, column};
}

void KXPieChart::_placePie(std::size_t pie, const UXDoubleRect& place, const PieRoom& room)
{
    const UXDoubleRect bounds = _obtainTurn().obtainBounds(room.radius);
    m_pies[pie].setCircle(
        {uxMidDoubleX(place) - uxMidDoubleX(bounds), uxMidDoubleY(place) - uxMidDoubleY(bounds)}, room.radius,
        room.radius * _obtainHoleShare());
}

void KXPieChart::_placeBeside(UXLayoutHelper& helper, std::size_t pie, const UXDoubleRect& place,
                              const PieRoom& room)
{
    const double half = _obtainTurn().obtainBounds(room.radius * spread).width / 2 + columnGap;
    const double lineHeight = measure(helper, sampleText, m_labelProperty).height;
    const double leftEnd = uxMidDoubleX(place) - half, rightStart = uxMidDoubleX(place) + half;
    std::vector<KXPieLabelRequest> requests;
    std::vector<SliceLabel*> labels;
    for (SliceLabel& label : m_sliceLabels) {
        if (label.pie != pie)
            continue;
        label.text = shortenName(label.name, label.numbers, room.columnWidth, [&](std::string_view part) {
            return measure(helper, std::string(part), m_labelProperty).width;
        });
        if (label.text.empty())
            continue;
        const KXPieSegmentInfo& segment = m_pies[pie].getSegments()[label.segment];
        requests.push_back({segment.obtainMiddleDegrees(), segment.getValue(),
                            measure(helper, label.text, m_labelProperty).width});
        labels.push_back(&label);
    }
    const KXPieLabelColumns columns(place, m_pies[pie].getCenter(), room.radius, leftEnd, rightStart);
    for (const KXPieLabelPlace& placed : columns.place(requests, lineHeight)) {
        labels[placed.request]->rect = placed.rect;
        m_leaders.push_back(placed.leader);
    }
}

/** @return what stands above a pie: its member, and its sum where it has no hole for that */
std::string KXPieChart::_writeCaption(const KXLabelPlacer& placer, std::size_t pie) const
{
    const std::string name = getDimensionCount() > 1 ? _findMemberName(1, pie) : std::string();
    if (!_showsTotalsAbove() || m_pies[pie].getSegments().empty())
        return name;
    const std::string total = m_dataFormat->formatNumber(m_pies[pie].getTotal());
    for (const std::string& numbers : {joinWords(m_totalCaption, total), total}) {
        const std::string text = shortenName(
            name, numbers, m_captions[pie].width, [&](std::string_view part) {
                return std::ceil(placer.measure(std::string(part), m_captionProperty).width);
            });
        if (!text.empty())
            return text;
    }
    return name;
}

void KXPieChart::_requestLabels(const KXLabelPlacer& placer, std::vector<KXLabelRequest>& requests) const
{
    const auto request = [&](const std::string& text, const UXTextProperty& property,
                             const UXDoubleRect& rect, UXTextAlign align, std::size_t item) {
        KXLabelRequest made{text, property, -1, true, item, {{rect, {}}}};
        made.property.align = align;
        requests.push_back(std::move(made));
    };
    for (std::size_t pie = 0; pie < m_captions.size(); ++pie)
        request(_writeCaption(placer, pie), m_captionProperty, m_captions[pie], UXTextAlign::Center,
                KXCollisionGrid::noOwner);
    _requestTotals(placer, requests);
    for (const SliceLabel& label : m_sliceLabels) {
        if (label.rect.width > 0)
            request(label.text, m_labelProperty, label.rect, UXTextAlign::Left, label.item);
        else if (m_leaders.empty() && m_labelPosition != KXPieLabelPosition::Outside)
            _requestInside(placer, label, requests);
    }
}

/** Where the whole text does not fit into its slice, the numbers or one of them may. */
void KXPieChart::_requestInside(const KXLabelPlacer& placer, const SliceLabel& label,
                                std::vector<KXLabelRequest>& requests) const
{
    for (const std::string& text : {joinWords(label.name, label.numbers), label.numbers, label.percentage}) {
        if (text.empty())
            continue;
        KXLabelRequest request = _makeLabelInside(placer, label.item, text, m_labelProperty);
        if (request.candidates.empty())
            continue;
        for (KXLabelCandidate& candidate : request.candidates)
            if (!m_autoLabelColor)
                candidate.ground.reset();
        requests.push_back(std::move(request));
        return;
    }
}

/** The sums of all pies are written in the same size, the largest at which each fits into its hole. */
void KXPieChart::_requestTotals(const KXLabelPlacer& placer, std::vector<KXLabelRequest>& requests) const
{
    if (!m_showTotal || _showsTotalsAbove())
        return;
    std::vector<KXLabelRequest> made;
    UXTextProperty property = m_valueProperty;
    property.align = UXTextAlign::Center;
    for (; property.font.size >= leastTotalSize; --property.font.size) {
        made.clear();
        bool fits = true;
        for (const KXPie& pie : m_pies)
            fits = fits && (pie.getSegments().empty() || _requestTotal(placer, pie, property, made));
        if (fits)
            break;
        made.clear();
    }
    requests.insert(requests.end(), made.begin(), made.end());
}

/** @return false where the text does not fit into the hole */
bool KXPieChart::_requestTotal(const KXLabelPlacer& placer, const KXPie& pie, const UXTextProperty& property,
                               std::vector<KXLabelRequest>& requests) const
{
    const KXPieTurn turn = _obtainTurn();
    const double radius = pie.getHoleRadius() * holeShare;
    UXDoubleRect hole = turn.obtainBounds(radius);
    hole = {hole.x + pie.getCenter().x, hole.y + pie.getCenter().y, hole.width, hole.height};
    UXTextProperty captionProperty = m_captionProperty;
    captionProperty.align = UXTextAlign::Center;
    captionProperty.font.size = std::min(captionProperty.font.size, property.font.size);
    const std::string text = m_dataFormat->formatNumber(pie.getTotal());
    const UXDoubleSize size = placer.measure(text, property);
    const UXDoubleSize captionSize = m_totalCaption.empty() ? UXDoubleSize()
                                                            : placer.measure(m_totalCaption, captionProperty);
    const double width = std::max(size.width, captionSize.width), height = size.height + captionSize.height;
    const UXDoubleRect rect(uxMidDoubleX(hole) - width / 2, uxMidDoubleY(hole) - height / 2, width, height);
    for (const double x : {rect.x, rect.x + width})
        for (const double y : {rect.y, rect.y + height})
            if (!uxPointInDoubleRect({x, y}, hole) ||
                std::hypot(x - pie.getCenter().x, y - pie.getCenter().y) > radius)
                return false;
    const auto add = [&](const std::string& line, const UXTextProperty& look, double top, double lineHeight) {
        requests.push_back(
            {line, look, -1, false, KXCollisionGrid::noOwner, {{{rect.x, top, width, lineHeight}, {}}}});
    };
    add(text, property, rect.y, size.height);
    add(m_totalCaption, captionProperty, rect.y + size.height, captionSize.height);
    return true;
}
