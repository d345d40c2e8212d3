#pragma once

#include "kx_export.h"
#include "kx_panel_shape.h"
#include "kx_pie_segment_info.h"
#include "ux/ux_double_point.h"
#include "ux/ux_json_object.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

struct KXPieTurn;

/** A part of a pie's whole before it has a place. */
struct KXPiePart {
    std::uint64_t group;
    double value; /**< above zero, finite */
};

/** A whole that is divided into slices, drawn as a disc, a ring or a part of one. */
class KX_EXPORT KXPie : public UXJsonObject {
public:
    /** Of the percentages of slices. */
    static constexpr int percentageDecimals = 1;

    KXPie();
    ~KXPie() override;

    /** Divides the whole; the slices follow each other in the parts' order. */
    void divide(std::span<const KXPiePart> parts, const KXPieTurn& turn);
    void setCircle(const UXDoublePoint& center, double radius, double holeRadius);

    const std::vector<KXPieSegmentInfo>& getSegments() const { return m_segments; }
    /** @return the slice of a group, null where it has none */
    const KXPieSegmentInfo* findSegment(std::uint64_t group) const;
    /** @return the sum of the parts, at the limit of a double */
    double getTotal() const { return m_total; }
    UXDoublePoint getCenter() const { return {m_centerX, m_centerY}; }
    double getRadius() const { return m_radius; }
    double getHoleRadius() const { return m_holeRadius; }
    /** @param gap the room between two slices at the edge; a slice alone has none */
    KXSector obtainSector(std::size_t segment, double gap) const;

    // From UXJsonObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

private:
    double m_centerX = 0;
    double m_centerY = 0;
    double m_radius = 0;
    double m_holeRadius = 0;
    double m_total = 0;
    std::vector<KXPieSegmentInfo> m_segments;
};
