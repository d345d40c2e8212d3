#include "ux/ux_label.h"

#include "ux/ux_accessible_leaf.h"
#include "ux/ux_ground.h"
#include "ux/ux_layout_helper.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_painter_state.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>

namespace {

constexpr double cornerRadius = 4; // logical units
constexpr int wrapLineMode = 1;

/** @return the size of the upright rectangle around one of the given size turned by degrees */
UXDoubleSize obtainTurnedSize(const UXDoubleSize& size, double degrees)
{
    const double radians = degrees * std::numbers::pi / 180;
    const double across = std::abs(std::cos(radians));
    const double along = std::abs(std::sin(radians));
    return {size.width * across + size.height * along, size.width * along + size.height * across};
}

} // namespace

UXLabel::UXLabel() = default;

UXLabel::~UXLabel() = default;

std::string UXLabel::getText() const { return m_text; }

void UXLabel::setText(const std::string& text)
{
    if (m_text == text)
        return;
    m_text = text;
    setRequireToVerifyLayout(true, true);
}

const UXTextProperty& UXLabel::getTextProperty() const { return m_textProperty; }

void UXLabel::setTextProperty(const UXTextProperty& property)
{
    if (m_textProperty == property)
        return;
    // A colour moves nothing.
    UXTextProperty recoloured = m_textProperty;
    recoloured.textColor = property.textColor;
    const bool isMeasuredAnew = recoloured != property;
    m_textProperty = property;
    if (isMeasuredAnew)
        setRequireToVerifyLayout(true, true);
    else
        invalidate();
}

double UXLabel::getRotation() const { return m_rotation; }

void UXLabel::setRotation(double degrees)
{
    degrees = std::isfinite(degrees) ? std::fmod(degrees, 360) : 0;
    if (m_rotation == degrees)
        return;
    m_rotation = degrees;
    setRequireToVerifyLayout(true, true);
}

void UXLabel::setRotateByTopLeft(bool byTopLeft)
{
    m_rotateByTopLeft = byTopLeft;
    invalidate();
}

bool UXLabel::getRotateByTopLeft() const { return m_rotateByTopLeft; }

void UXLabel::setDrawRoundRect(bool round)
{
    m_drawRoundRect = round;
    invalidate();
}

bool UXLabel::getDrawRoundRect() const { return m_drawRoundRect; }

std::string UXLabel::customSerializeTypeID() { return "UXLabel"; }

std::string UXLabel::obtainText() { return m_text; }

bool UXLabel::isAccessible() const { return !m_text.empty(); }

std::unique_ptr<UXAccessibleNode> UXLabel::createAccessibleNode()
{
    UXAccessibleInfo info = UXAccessibleObject(*this, UXAccessibleRole::Text).obtainInfo();
    info.name = m_text;
    return std::make_unique<UXAccessibleLeaf>(*this, info);
}

UXDoubleSize UXLabel::_measureText(const std::string& text, const UXTextProperty& property) const
{
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    return property.lineMode == wrapLineMode ? helper->getTextSize(text, property, getRect().width)
                                             : helper->getTextSize(text, property);
}

void UXLabel::autoResize()
{
    const std::string text = obtainText();
    UXRect rect = getRect();
    UXDoubleSize size;
    if (!text.empty())
        size = obtainTurnedSize(_measureText(text, m_textProperty), m_rotation);
    rect.width = uxSaturateToInt(std::ceil(size.width));
    rect.height = uxSaturateToInt(std::ceil(size.height));
    setRect(rect);
}

void UXLabel::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        drawLabel(*painter, UXDoubleRect(getBoundingRect()), m_textProperty);
        uxDestroyPainter(painter);
    }
    UXObject::paint(config, dirtyRect);
}

void UXLabel::drawLabel(UXPainter& painter, const UXDoubleRect& textRect, const UXTextProperty& property)
{
    uxDrawGround(painter, *this, m_drawRoundRect ? cornerRadius : 0);
    const std::string text = obtainText();
    if (text.empty())
        return;
    if (m_rotation == 0) {
        painter.drawText(text, textRect, property);
        return;
    }

    // Turned text is drawn upright in a space that is turned, in a rectangle of its own measure.
    const UXDoubleSize size = _measureText(text, property);
    const UXPainterState state(painter);
    if (m_rotateByTopLeft) {
        painter.translate(textRect.x, textRect.y);
        painter.rotate(m_rotation);
        painter.drawText(text, UXDoubleRect(0, 0, size.width, size.height), property);
    } else {
        painter.translate(textRect.x + textRect.width / 2, textRect.y + textRect.height / 2);
        painter.rotate(m_rotation);
        painter.drawText(text, UXDoubleRect(-size.width / 2, -size.height / 2, size.width, size.height),
                         property);
    }
}
