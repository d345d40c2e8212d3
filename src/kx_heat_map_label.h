#pragma once

#include "kx_export.h"
#include "kx_grid_cell.h"
#include "ux/ux_color.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_json_object.h"

#include <cstdint>
#include <string>

/** What is written in one cell of a heat map, and where. */
class KX_EXPORT KXHeatMapLabel : public UXJsonObject {
public:
    KXHeatMapLabel();
    /** @param rect in the space of the panel that shows it
     *  @param color of the text */
    KXHeatMapLabel(const KXGridCell& cell, std::string text, const UXDoubleRect& rect, const UXColor& color);
    ~KXHeatMapLabel() override;

    KXGridCell getCell() const;
    const std::string& getText() const { return m_text; }
    UXDoubleRect getRect() const { return {m_x, m_y, m_width, m_height}; }
    const UXColor& getColor() const { return m_color; }

    // From UXJsonObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

private:
    std::int64_t m_row = 0, m_column = 0;
    std::string m_text;
    double m_x = 0, m_y = 0, m_width = 0, m_height = 0;
    UXColor m_color;
};
