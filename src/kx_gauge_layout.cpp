#include "kx_gauge_layout.h"

#include "kx_collision_grid.h"
#include "kx_label_placer.h"
#include "ux/ux_layout_helper.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace {

/** Smaller text cannot be read, in logical units; beside others the main text still has to stand out. */
constexpr int leastFontSize = 9;
constexpr int leastMainFontSize = 16;
/** The share to which texts shrink from one try to the next. */
constexpr double shrinkStep = 0.93;
/** Lesser texts need not be smaller than this share of the main one. */
constexpr double lesserShare = 1 / 3.0;
/** However short the room is, the main text stays this much larger than the lesser ones. */
constexpr double standOutShare = 4 / 3.0;
/** The dial keeps this share of the radius that it would have without texts; only texts that cannot shrink
 * any further may press it to the second. */
constexpr double wantedDialShare = 0.66;
constexpr double leastDialShare = 0.5;
/** Free room beside a text, to its neighbours. */
constexpr double textGap = 4;
/** Between the pipe and the texts around it. */
constexpr double pipeGap = 6;
/** How far inside of the dial's outer edge the middle of an end's text stands at most, as a share of the
 * radius. */
constexpr double greatestEndInset = 0.16;
/** A hole below this share of the dial holds no main text. */
constexpr double leastHoleShare = 0.5;
/** Along the pipe the target's text moves no further from its tick than this, in heights of the text. */
constexpr double greatestTargetShift = 1.8;
constexpr double targetStep = 3;
constexpr int targetStepCount = 120;
constexpr int tryCount = 40;
/** Places are sought wherever a text may stand: what sticks out of the area is taken from the dial's room. */
constexpr UXDoubleRect everywhere(-1e9, -1e9, 2e9, 2e9);

// Of the usable height, as in the radius
constexpr double usableShare = 0.95;
constexpr double mainGapShare = 0.028;
constexpr double endGapShare = 0.035;
constexpr double pointerShare = 0.04;

double obtainRight(const UXDoubleRect& rect) { return rect.x + rect.width; }
double obtainBottom(const UXDoubleRect& rect) { return rect.y + rect.height; }

int roundUp(double extent) { return uxSaturateToInt(std::ceil(extent)); }

UXRect shrinkRect(const UXRect& rect, double width, double height)
{
    return {rect.x, rect.y, std::max(uxSaturateToInt(rect.width - width), 0),
            std::max(uxSaturateToInt(rect.height - height), 0)};
}

} // namespace

template <class Self, class Action>
void KXGaugeLayout::_forEachText(Self& self, Action action)
{
    for (auto* text : {&self.main, &self.minimum, &self.maximum, &self.target})
        action(*text);
    for (auto& text : self.boundaries)
        action(text);
}

void KXGaugeLayout::place(const UXRect& area, UXLayoutHelper& helper, const ObtainRadius& obtainRadius)
{
    m_area = area;
    m_helper = &helper;
    m_obtainRadius = &obtainRadius;
    m_wantedSizes.clear();
    _forEachText(*this, [&](KXGaugeText& text) {
        // A line is at least about as high as its font size, so a larger one never fits.
        const int greatest = std::max(area.height, leastFontSize);
        m_wantedSizes.push_back(std::min(text.property.font.size, greatest));
        if (text.property.font.size <= 0)
            text.text.clear();
    });

    const double bareRadius = obtainRadius({area, false, 0, 0, {}, {}});
    for (const Stage stage : {Stage::All, Stage::FewerBoundaries, Stage::NoBoundaries, Stage::NoTarget,
                              Stage::NoEnds, Stage::OnlyMain, Stage::Nothing}) {
        if (!_enter(stage))
            continue;
        const double least = _obtainLeastScale();
        for (double scale = 1; scale > least; scale *= shrinkStep)
            if (_placeScaled(scale, scale, wantedDialShare * bareRadius))
                return;
        if (_placeScaled(least, least, stage == Stage::Nothing ? 0 : leastDialShare * bareRadius)) {
            if (main.shown)
                _growMain(least);
            return;
        }
    }
}

/** The lesser texts stop shrinking before the main one does; it takes back the room that this leaves. */
void KXGaugeLayout::_growMain(double scale)
{
    const KXGaugeLayout found = *this;
    for (double larger = 1; larger > scale; larger *= shrinkStep)
        if (_placeScaled(scale, larger, found.dial.radius))
            return;
    *this = found;
}

/** Chooses the texts of a stage.
 *  @return whether these are others than in the stage before */
bool KXGaugeLayout::_enter(Stage stage)
{
    const auto show = [](KXGaugeText& text, bool wanted) {
        const bool before = text.shown;
        text.shown = wanted && !text.text.empty();
        return text.shown != before;
    };
    m_stage = stage;
    const bool showsEnds = stage < Stage::OnlyMain && stage != Stage::NoEnds;
    bool changed = stage == Stage::All;
    changed |= show(main, stage < Stage::Nothing);
    changed |= show(minimum, showsEnds);
    changed |= show(maximum, showsEnds);
    changed |= show(target, stage < Stage::OnlyMain && stage != Stage::NoTarget);
    for (KXGaugeText& text : boundaries)
        changed |= show(text, stage < Stage::NoBoundaries);
    return changed || (stage == Stage::FewerBoundaries && !boundaries.empty());
}

int KXGaugeLayout::_obtainLeastSize(const KXGaugeText& text) const
{
    return &text == &main && m_stage < Stage::OnlyMain ? leastMainFontSize : leastFontSize;
}

/** @return the scale at which no text that is shown can shrink any further */
double KXGaugeLayout::_obtainLeastScale() const
{
    double least = 1;
    auto wanted = m_wantedSizes.begin();
    _forEachText(*this, [&](const KXGaugeText& text) {
        const double size = *wanted++;
        if (text.shown)
            least = std::min(least, _obtainLeastSize(text) / size);
    });
    return least;
}

bool KXGaugeLayout::_placeScaled(double scale, double mainScale, double leastRadius)
{
    // 1. All texts shrink alike, so that they keep their order of rank, except beside a main text that is far
    //    larger: that one gives way first.
    const double lesserSize = main.shown ? m_wantedSizes.front() * scale * lesserShare : 0;
    auto wanted = m_wantedSizes.begin();
    _forEachText(*this, [&](KXGaugeText& text) {
        const double size = &text == &main ? *wanted * mainScale : std::max(*wanted * scale, lesserSize);
        const int scaled = std::max(uxSaturateToInt(std::round(size)), _obtainLeastSize(text));
        _measure(text, std::min(*wanted++, scaled));
    });

    // 2. What sticks out of the area is taken from the dial's room, until nothing does.
    double extraWidth = 0, extraHeight = 0;
    for (int i = 0; i < tryCount; ++i) {
        const Room room = _obtainRoom(shrinkRect(m_area, extraWidth, extraHeight));
        const double radius = std::max((*m_obtainRadius)(room), 0);
        if (radius < leastRadius)
            return false;
        dial = KXGaugeDial::fromRect({std::round(m_area.x + m_area.width / 2.0) - radius,
                                      static_cast<double>(m_area.y), 2 * radius, radius},
                                     pipeShare);
        _placeAll(room.rect);
        if (main.shown && !_mainFits()) {
            if (!_shrinkMain())
                return false;
            continue;
        }
        const UXDoubleRect bounds = _obtainBounds();
        const double width = _obtainFreeWidth();
        if (bounds.width <= width && bounds.height <= m_area.height) {
            _moveIntoArea();
            return !_anyCollide();
        }
        extraWidth += std::max(std::ceil(bounds.width - width), 0.0);
        extraHeight += std::max(std::ceil(bounds.height - m_area.height), 0.0);
    }
    return m_stage == Stage::Nothing;
}

void KXGaugeLayout::_measure(KXGaugeText& text, int size)
{
    text.property.font.size = size;
    text.rect = {};
    if (!text.shown && m_stage != Stage::FewerBoundaries)
        return;
    const UXDoubleSize measured = m_helper->getTextSize(text.text, text.property);
    text.rect.width = std::ceil(measured.width);
    text.rect.height = std::ceil(measured.height);
}

/** @return the width that texts may take: they keep clear of the area's sides */
double KXGaugeLayout::_obtainFreeWidth() const { return std::max(m_area.width - 2 * textGap, 0.0); }

KXGaugeLayout::Room KXGaugeLayout::_obtainRoom(const UXRect& rect) const
{
    Room room;
    room.rect = rect;
    room.showsEnds = minimum.shown || maximum.shown;
    if (room.showsEnds)
        room.endHeight = roundUp(std::max(minimum.rect.height, maximum.rect.height));
    if (main.shown && showsPointer)
        room.mainHeight = roundUp(main.rect.height);
    if (target.shown)
        room.targetSize = {roundUp(target.rect.width), roundUp(target.rect.height)};
    room.endProperty = minimum.property;
    return room;
}

void KXGaugeLayout::_placeAll(const UXRect& room)
{
    const double usable = std::round(room.height * usableShare);
    const double endGap = std::round(usable * endGapShare);
    _placeEnds(endGap);
    _placeMain(showsPointer ? std::round(usable * pointerShare) + std::round(usable * mainGapShare) : endGap);
    _placeBoundaries();
    _placeTarget();
    if (m_stage == Stage::FewerBoundaries)
        _keepBoundariesWithRoom();
    if (main.shown && !_mainStandsInside() && _collides(main))
        _dropMain();
}

void KXGaugeLayout::_placeEnds(double gap)
{
    for (KXGaugeText* end : {&minimum, &maximum}) {
        const double pipeMiddle = (dial.radius - dial.innerRadius) / 2;
        const double out = dial.radius - std::min(pipeMiddle, greatestEndInset * dial.radius);
        const double middle = dial.center.x + (end == &minimum ? -out : out);
        end->rect.x = std::round(middle - end->rect.width / 2);
        end->rect.y = dial.center.y + gap;
    }
}

void KXGaugeLayout::_placeMain(double gap)
{
    main.rect.x = std::round(dial.center.x - main.rect.width / 2);
    main.rect.y = _mainStandsInside() ? dial.center.y - main.rect.height : dial.center.y + gap;
}

/** Where minimum and maximum stand in its way, the main text moves below them if there is the height. */
void KXGaugeLayout::_dropMain()
{
    const double beside = main.rect.y;
    main.rect.y = std::max(obtainBottom(minimum.rect), obtainBottom(maximum.rect));
    if (_obtainBounds().height > m_area.height)
        main.rect.y = beside;
}

bool KXGaugeLayout::_mainStandsInside() const
{
    return !showsPointer && dial.innerRadius >= leastHoleShare * dial.radius;
}

bool KXGaugeLayout::_mainFits() const
{
    if (main.rect.width > _obtainFreeWidth())
        return false;
    return _mainStandsInside() ? dial.holdsInside(main.rect) : !_collides(main);
}

/** The main text may shrink on its own, as long as it stands out beside the lesser texts. */
bool KXGaugeLayout::_shrinkMain()
{
    int least = leastFontSize;
    for (const KXGaugeText* other : {&minimum, &maximum, &target})
        if (other->shown)
            least = std::max(least, uxSaturateToInt(other->property.font.size * standOutShare));
    const int size = main.property.font.size;
    const int smaller = std::max(uxSaturateToInt(size * shrinkStep), least);
    if (smaller >= size)
        return false;
    _measure(main, smaller);
    return true;
}

void KXGaugeLayout::_placeBoundaries()
{
    const double distance = showsTick ? dial.obtainTickClearance() : pipeGap;
    for (KXGaugeText& boundary : boundaries) {
        boundary.rect = dial.placeOutside({boundary.rect.width, boundary.rect.height}, boundary.degrees,
                                          distance);
        boundary.shown = boundary.shown && m_stage != Stage::FewerBoundaries;
    }
}

void KXGaugeLayout::_addShown(KXLabelPlacer& placer, const KXGaugeText* except) const
{
    _forEachText(*this, [&](const KXGaugeText& text) {
        if (&text != except && text.shown)
            placer.addLabel(text.rect);
    });
}

/** The ends say the most, so they are kept first; then from the left, what still has room. */
void KXGaugeLayout::_keepBoundariesWithRoom()
{
    KXLabelPlacer placer(everywhere, textGap);
    _addShown(placer, nullptr);
    std::vector<KXLabelRequest> requests;
    for (const KXGaugeText& boundary : boundaries) {
        const bool isEnd = &boundary == &boundaries.front() || &boundary == &boundaries.back();
        requests.push_back({boundary.text,
                            boundary.property,
                            isEnd ? 0 : 1,
                            false,
                            KXCollisionGrid::noOwner,
                            {{boundary.rect, std::nullopt}}});
    }
    for (const KXPlacedLabel& kept : placer.place(requests))
        boundaries[kept.request].shown = true;
}

/** Where a boundary's text stands in its way, the target's moves along the pipe as far as it still stands by
 * its tick, and else outwards. */
void KXGaugeLayout::_placeTarget()
{
    if (!target.shown)
        return;
    const UXDoubleSize size(target.rect.width, target.rect.height);
    const double clearance = dial.obtainTickClearance();
    KXLabelRequest request{target.text, target.property, 0, false, KXCollisionGrid::noOwner, {}};
    const auto add = [&](double shift, double distance) {
        const double degrees = std::clamp(target.degrees + shift, 0.0, KXGaugeDial::sweepDegrees);
        request.candidates.push_back({dial.placeOutside(size, degrees, distance), std::nullopt});
    };
    const double arc = greatestTargetShift * size.height / (dial.radius + clearance);
    for (double shift = 0; shift <= arc * 180 / std::numbers::pi; ++shift) {
        add(-shift, clearance);
        add(shift, clearance);
    }
    for (int i = 1; i <= targetStepCount; ++i)
        add(0, clearance + i * targetStep);
    KXLabelPlacer placer(everywhere, textGap);
    _addShown(placer, &target);
    const std::vector<KXPlacedLabel> placed = placer.place({&request, 1});
    target.rect = placed.empty() ? request.candidates.back().rect : placed.front().rect;
}

UXDoubleRect KXGaugeLayout::_obtainBounds() const
{
    UXDoubleRect bounds = dial.obtainRect();
    if (showsPointer)
        bounds.height += dial.obtainHubRadius();
    if (showsTick)
        bounds = uxUnionDoubleRect(bounds, dial.obtainTickBounds(target.degrees));
    _forEachText(*this, [&](const KXGaugeText& text) {
        if (text.shown)
            bounds = uxUnionDoubleRect(bounds, text.rect);
    });
    return bounds;
}

/** Centres the whole from top to bottom; sideways the dial stays in the middle as far as its texts allow. */
void KXGaugeLayout::_moveIntoArea()
{
    const UXDoubleRect bounds = _obtainBounds();
    const double inset = (m_area.width - _obtainFreeWidth()) / 2;
    const double left = m_area.x + inset - bounds.x;
    const double right = uxMaxX(m_area) - inset - obtainRight(bounds);
    const double dx = left > 0 ? left : std::min(right, 0.0);
    const double dy = std::floor(m_area.y + (m_area.height - bounds.height) / 2 - bounds.y);
    dial.center = dial.center + UXDoublePoint(dx, dy);
    _forEachText(*this, [&](KXGaugeText& text) {
        text.rect.x += dx;
        text.rect.y += dy;
    });
}

KXCollisionGrid KXGaugeLayout::_obtainTaken(const KXGaugeText* except) const
{
    KXCollisionGrid taken{UXDoubleRect(m_area)};
    _forEachText(*this, [&](const KXGaugeText& text) {
        if (&text != except && text.shown)
            taken.add(text.rect, textGap);
    });
    return taken;
}

bool KXGaugeLayout::_collides(const KXGaugeText& text) const
{
    return !_obtainTaken(&text).isFree(text.rect);
}

bool KXGaugeLayout::_anyCollide() const
{
    bool collide = false;
    _forEachText(*this,
                 [&](const KXGaugeText& text) { collide = collide || (text.shown && _collides(text)); });
    return collide;
}
