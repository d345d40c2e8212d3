#include "ux/ux_hint_frame.h"

#include "ux/ux_color_contrast.h"
#include "ux/ux_hint_details_row.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_pixel_snapping.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_round_rectangle.h"

#include <array>

namespace {

// Logical units
constexpr int shadowReach = 8, shadowDrop = 2;
constexpr double cornerRadius = 6;
/** What each unit of the way out adds to the shadow's alpha; the eye takes the sum for a blur. */
constexpr std::array<double, shadowReach> shadowAlphas{0.004, 0.005, 0.006, 0.007,
                                                       0.009, 0.011, 0.013, 0.015};
constexpr UXColor groundColor(255, 255, 255), borderColor(17, 24, 39, 0.16);
constexpr UXColor separatorColor(17, 24, 39, 0.12);
/** What is as much lighter than a dark ground under the hint as a sheet that lies over it. */
constexpr UXColor liftColor(255, 255, 255, 0.1);
constexpr UXColor darkBorderColor(255, 255, 255, 0.24), darkSeparatorColor(255, 255, 255, 0.16);
constexpr int separatorInset = 12;

} // namespace

UXHintFrame::UXHintFrame()
{
    setBackgroundColor(groundColor);
    setBorderColor(borderColor);
    setShowBorder(true);
}

UXHintFrame::~UXHintFrame() = default;

void UXHintFrame::setHintInfo(const UXHintInfo& info)
{
    if (info == m_hintInfo)
        return;
    m_hintInfo = info;
    m_layoutIsValid = false;
}

void UXHintFrame::standOn(const UXColor& ground)
{
    const bool isDark = uxObtainContrast(groundColor, ground) >= uxReadableContrast;
    const UXColor own = isDark ? uxLayColorOver(liftColor, ground) : groundColor;
    if (own == getBackgroundColor())
        return;
    setBackgroundColor(own);
    setBorderColor(isDark ? darkBorderColor : borderColor);
    m_isDark = isDark;
    m_layoutIsValid = false;
    invalidate();
}

void UXHintFrame::setMoreText(const std::string& text)
{
    if (text == m_moreText)
        return;
    m_moreText = text;
    m_layoutIsValid = false;
}

const UXHintLayout& UXHintFrame::obtainLayout(const UXSize& limit)
{
    if (!m_layoutIsValid || limit != m_limit) {
        m_layout = uxLayOutHint(m_hintInfo, limit, getBackgroundColor(), m_moreText);
        m_limit = limit;
        m_layoutIsValid = true;
    }
    return m_layout;
}

void UXHintFrame::showLayout(const UXHintLayout& layout)
{
    beginUpdate();
    setRect(UXRect(0, 0, layout.size.width, layout.size.height));
    for (std::size_t i = 0; i < layout.lines.size(); ++i)
        _obtainRow(i, layout.lines[i].isDetails)->setLine(layout.lines[i]);
    while (m_rows.size() > layout.lines.size()) {
        removeChild(m_rows.back());
        delete m_rows.back();
        m_rows.pop_back();
    }
    for (const int y : {m_separatorY, layout.separatorY}) {
        if (m_separatorY != layout.separatorY)
            addDirtyRect(UXRect(0, y, layout.size.width, 1));
    }
    m_separatorY = layout.separatorY;
    endUpdate();
}

UXHintRow* UXHintFrame::_obtainRow(std::size_t index, bool isDetails)
{
    if (index == m_rows.size())
        m_rows.push_back(nullptr);
    UXHintRow*& row = m_rows[index];
    if (row && (dynamic_cast<UXHintDetailsRow*>(row) != nullptr) == isDetails)
        return row;
    if (row)
        removeChild(row);
    delete row;
    row = isDetails ? new UXHintDetailsRow : new UXHintRow;
    addChild(row);
    return row;
}

UXRect UXHintFrame::obtainPaintedRect() const
{
    return uxInflateRect(getBoundingRect(), shadowReach, shadowReach - shadowDrop, shadowReach,
                         shadowReach + shadowDrop);
}

void UXHintFrame::customSerialize()
{
    UXObject::customSerialize();
    serializeUXHintInfo("m_hintInfo", m_hintInfo);
}

std::string UXHintFrame::customSerializeTypeID() { return "UXHintFrame"; }

bool UXHintFrame::customDeserialize()
{
    const bool complete = UXObject::customDeserialize();
    UXHintInfo info = m_hintInfo;
    const bool read = deserializeUXHintInfo("m_hintInfo", info);
    setHintInfo(info);
    return read && complete;
}

bool UXHintFrame::inRect(UXRect rect) const { return uxIntersectsRect(obtainPaintedRect(), rect); }

UXRect UXHintFrame::customDirtyRect() { return obtainPaintedRect(); }

void UXHintFrame::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        _drawGround(*painter);
        _drawSeparator(*painter);
        uxDestroyPainter(painter);
    }
    UXObject::paint(config, dirtyRect);
}

void UXHintFrame::_drawGround(UXPainter& painter) const
{
    const UXTransform toDevice = painter.getDeviceTransform();
    const UXDoubleRect frame = uxSnapRect(UXDoubleRect(getBoundingRect()), toDevice);
    UXDoubleRect shadow = frame;
    shadow.y += shadowDrop;
    for (int i = 0; i < shadowReach; ++i) {
        const double reach = shadowReach - i;
        painter.setColor({0, 0, 0, shadowAlphas[static_cast<std::size_t>(i)]});
        uxAddRoundRectanglePath(painter, uxInflateDoubleRect(shadow, reach, reach), cornerRadius + reach);
        painter.fill();
    }
    painter.setColor(getBackgroundColor());
    uxAddRoundRectanglePath(painter, frame, cornerRadius);
    painter.fill();
    if (!getShowBorder())
        return;
    // As thin as whole device pixels allow, with its outer edge on that of the ground.
    const double width = uxSnapHorizontalLine(0, 0, 1, 1, toDevice).height;
    painter.setColor(getBorderColor());
    painter.setLineWidth(width);
    uxAddRoundRectanglePath(painter, uxInflateDoubleRect(frame, -width / 2, -width / 2),
                            cornerRadius - width / 2);
    painter.stroke();
}

void UXHintFrame::_drawSeparator(UXPainter& painter) const
{
    if (m_separatorY < 0)
        return;
    painter.setColor(m_isDark ? darkSeparatorColor : separatorColor);
    const double ys[] = {m_separatorY + 0.5};
    painter.drawHorizontalLines(ys, separatorInset, getRect().width - separatorInset, 1);
}
