#pragma once

#include "kx_export.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_json_object.h"

#include <cstdint>
#include <string>

/** One tile of a tree map: what it stands for, and where it is drawn. */
class KX_EXPORT KXTile : public UXJsonObject {
public:
    KXTile();
    /** @param group the index of the member of dimension 1, else the tile's own
     *  @param index the index of the member of dimension 0 in a group, else 0
     *  @param percentage of all tiles that are shown, rounded as it is told
     *  @param rect in the chart's own space */
    KXTile(std::uint64_t group, std::uint64_t index, double value, double percentage,
           const UXDoubleRect& rect);
    ~KXTile() override;

    std::uint64_t getGroup() const { return static_cast<std::uint64_t>(m_group); }
    std::uint64_t getIndex() const { return static_cast<std::uint64_t>(m_index); }
    double getValue() const { return m_value; }
    double getPercentage() const { return m_percentage; }
    UXDoubleRect getRect() const { return {m_x, m_y, m_width, m_height}; }

    // From UXJsonObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

private:
    std::int64_t m_group = 0, m_index = 0;
    double m_value = 0, m_percentage = 0;
    double m_x = 0, m_y = 0, m_width = 0, m_height = 0;
};
