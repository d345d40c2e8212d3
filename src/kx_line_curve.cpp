#include "kx_line_curve.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace {

constexpr double greatestPieceCount = 512;

double obtainSlope(const KXLineVertex& from, const KXLineVertex& to)
{
    const double across = to.across - from.across;
    return across > 0 ? (to.along - from.along) / across : 0;
}

/** @return the slope at the middle one of three vertices with which a cubic stays between its ends (Steffen,
 * A simple method for monotonic interpolation in one dimension, 1990) */
double obtainTangent(const KXLineVertex& before, const KXLineVertex& at, const KXLineVertex& after)
{
    const double left = at.across - before.across, right = after.across - at.across;
    const double leftSlope = obtainSlope(before, at), rightSlope = obtainSlope(at, after);
    if (!(left > 0) || !(right > 0) || leftSlope * rightSlope <= 0)
        return 0;
    const double mean = (leftSlope * right + rightSlope * left) / (left + right);
    const double size = std::min({2 * std::abs(leftSlope), 2 * std::abs(rightSlope), std::abs(mean)});
    return std::copysign(size, leftSlope);
}

/** @return the slope at an end, from that of the last piece and that at its other end; not so large that the
 * curve would leave the piece */
double obtainEndTangent(double slope, double inner)
{
    const double free = (3 * slope - inner) / 2;
    if (free * slope <= 0)
        return 0;
    return std::copysign(std::min(std::abs(free), 3 * std::abs(slope)), slope);
}

std::vector<double> obtainTangents(std::span<const KXLineVertex> run)
{
    const std::size_t last = run.size() - 1;
    std::vector<double> tangents(run.size());
    if (last == 1)
        tangents[0] = tangents[1] = obtainSlope(run[0], run[1]);
    if (last <= 1)
        return tangents;
    for (std::size_t i = 1; i < last; ++i)
        tangents[i] = obtainTangent(run[i - 1], run[i], run[i + 1]);
    tangents[0] = obtainEndTangent(obtainSlope(run[0], run[1]), tangents[1]);
    tangents[last] = obtainEndTangent(obtainSlope(run[last - 1], run[last]), tangents[last - 1]);
    return tangents;
}

/** Appends the cubic of Hermite by the slopes at its ends. */
void appendCubic(const KXLineVertex& from, const KXLineVertex& to, double fromSlope, double toSlope,
                 double pieceLength, std::vector<UXDoublePoint>& points)
{
    const double width = to.across - from.across, height = to.along - from.along;
    const double count = std::clamp(std::ceil(width / pieceLength), 1.0, greatestPieceCount);
    for (double piece = 1; piece < count; ++piece) {
        const double t = piece / count, rest = 1 - t;
        const double along = from.along + height * t * t * (3 - 2 * t) +
                             width * t * rest * (fromSlope * rest - toSlope * t);
        points.emplace_back(from.across + width * t, along);
    }
    points.emplace_back(to.across, to.along);
}

void appendSmooth(std::span<const KXLineVertex> run, double pieceLength, std::vector<UXDoublePoint>& points)
{
    const std::vector<double> tangents = obtainTangents(run);
    points.emplace_back(run[0].across, run[0].along);
    for (std::size_t i = 1; i < run.size(); ++i)
        appendCubic(run[i - 1], run[i], tangents[i - 1], tangents[i], pieceLength, points);
}

/** @param share of the way to the next vertex at which the step is taken */
void appendSteps(std::span<const KXLineVertex> run, double share, std::vector<UXDoublePoint>& points)
{
    points.emplace_back(run[0].across, run[0].along);
    for (std::size_t i = 1; i < run.size(); ++i) {
        const KXLineVertex &from = run[i - 1], &to = run[i];
        const double across = from.across + share * (to.across - from.across);
        if (share > 0)
            points.emplace_back(across, from.along);
        points.emplace_back(across, to.along);
        if (share < 1)
            points.emplace_back(to.across, to.along);
    }
}

} // namespace

void kxAppendSmoothPiece(std::span<const KXLineVertex> run, std::size_t vertex, double pieceLength,
                         std::vector<UXDoublePoint>& points)
{
    const std::vector<double> tangents = obtainTangents(run);
    appendCubic(run[vertex - 1], run[vertex], tangents[vertex - 1], tangents[vertex], pieceLength, points);
}

void kxAppendCurve(std::span<const KXLineVertex> run, KXLineCurve curve, double pieceLength,
                   std::vector<UXDoublePoint>& points)
{
    if (run.empty())
        return;
    switch (curve) {
    case KXLineCurve::Straight:
        break;
    case KXLineCurve::Smooth:
        appendSmooth(run, pieceLength, points);
        return;
    case KXLineCurve::StepBefore:
        appendSteps(run, 0, points);
        return;
    case KXLineCurve::StepMiddle:
        appendSteps(run, 0.5, points);
        return;
    case KXLineCurve::StepAfter:
        appendSteps(run, 1, points);
        return;
    }
    for (const KXLineVertex& vertex : run)
        points.emplace_back(vertex.across, vertex.along);
}
