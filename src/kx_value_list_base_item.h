#pragma once

#include "kx_control_chart_options.h"
#include "kx_export.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_json_object.h"

#include <cstdint>
#include <string>

/** One item of a value list that is in sight: what it says, and where it stands. */
class KX_EXPORT KXValueListBaseItem : public UXJsonObject {
public:
    KXValueListBaseItem();
    /** @param group the index of its member, or of its measure
     *  @param rect in the chart's own space */
    KXValueListBaseItem(std::uint64_t group, KXValueListBaseItemStyle style, const UXDoubleRect& rect);
    ~KXValueListBaseItem() override;

    std::uint64_t getGroup() const { return static_cast<std::uint64_t>(m_group); }
    KXValueListBaseItemStyle getStyle() const { return m_style; }
    UXDoubleRect getRect() const { return {m_x, m_y, m_width, m_height}; }
    const std::string& getCaption() const { return m_caption; }
    void setCaption(const std::string& caption) { m_caption = caption; }
    const std::string& getValue() const { return m_value; }
    void setValue(const std::string& value) { m_value = value; }

    // From UXJsonObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

private:
    std::int64_t m_group = 0;
    KXValueListBaseItemStyle m_style = KXValueListBaseItemStyle::Left;
    double m_x = 0, m_y = 0, m_width = 0, m_height = 0;
    std::string m_caption, m_value;
};
