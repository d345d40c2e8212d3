#include "ux/ux_text_image_diagram.h"

#include "ux/ux_layout_helper.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

constexpr double gap = 12; // logical units between image and text
constexpr int wrapLineMode = 1;

} // namespace

UXTextImageDiagram::UXTextImageDiagram(UXContext* context) : UXDiagram(context)
{
    m_textProperty.align = UXTextAlign::Center;
    m_textProperty.lineMode = wrapLineMode;
}

UXTextImageDiagram::~UXTextImageDiagram() = default;

void UXTextImageDiagram::setText(const std::string& text)
{
    if (text == m_text)
        return;
    m_text = text;
    setRequireToVerifyLayout(true, true);
}

void UXTextImageDiagram::setTextProperty(const UXTextProperty& property)
{
    if (property == m_textProperty)
        return;
    m_textProperty = property;
    setRequireToVerifyLayout(true, true);
}

void UXTextImageDiagram::setImage(const UXImage& image)
{
    m_image = image;
    setRequireToVerifyLayout(true, true);
}

std::string UXTextImageDiagram::customSerializeTypeID() { return "UXTextImageDiagram"; }

void UXTextImageDiagram::customLayout()
{
    UXDiagram::customLayout();
    const UXDoubleRect area(getContentRect());
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    const double textHeight =
        m_text.empty() ? 0
                       : std::min(std::ceil(helper->getTextSize(m_text, m_textProperty, area.width).height),
                                  area.height);
    const UXSize pixels = m_image.getSize();
    const double between = textHeight > 0 && pixels.height > 0 ? gap : 0;
    const double room = std::max(area.height - textHeight - between, 0.0);
    const double shrink = pixels.width > 0 && pixels.height > 0
                              ? std::min({1.0, area.width / pixels.width, room / pixels.height})
                              : 0.0;
    const UXDoubleSize image{pixels.width * shrink, pixels.height * shrink};

    const double gapHeight = image.height > 0 ? between : 0;
    const double top = area.y +
                       std::max(std::floor((area.height - image.height - gapHeight - textHeight) / 2), 0.0);
    m_imageRect = {area.x + (area.width - image.width) / 2, top, image.width, image.height};
    m_textRect = {area.x, top + image.height + gapHeight, area.width, textHeight};
}

void UXTextImageDiagram::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        if (m_imageRect.width > 0 && m_imageRect.height > 0)
            painter->drawImage(&m_image, m_imageRect, 1);
        if (m_textRect.height > 0)
            painter->drawText(m_text, m_textRect, m_textProperty);
        uxDestroyPainter(painter);
    }
    UXDiagram::paint(config, dirtyRect);
}
