#pragma once

#include "kx_export.h"
#include "ux/ux_json_object.h"

#include <memory>
#include <string>
#include <vector>

class KXLinePoint;
class KXLineSegment;
class UXPainter;

/** Pieces of lines and points that are drawn together, the points on the lines: what stands out of a chart,
 * what its legend shows of a series. */
class KX_EXPORT KXLines : public UXJsonObject {
public:
    KXLines();
    ~KXLines() override;

    /** @return a new piece, the last one of all */
    KXLineSegment& addSegment();
    KXLinePoint& addPoint();
    const std::vector<std::unique_ptr<KXLineSegment>>& getSegments() const { return m_segments; }
    const std::vector<std::unique_ptr<KXLinePoint>>& getPoints() const { return m_points; }
    void clear();

    void paint(UXPainter& painter) const;

    // From UXJsonObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

private:
    std::vector<std::unique_ptr<KXLineSegment>> m_segments;
    std::vector<std::unique_ptr<KXLinePoint>> m_points;
};
