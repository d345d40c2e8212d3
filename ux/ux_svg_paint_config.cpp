#include "ux/ux_svg_paint_config.h"

#include "ux/svg/ux_svg_document.h"
#include "ux/svg/ux_svg_painter.h"

#include <ostream>
#include <sstream>

UXSvgPaintConfig::UXSvgPaintConfig(const UXSize& size) : m_document(std::make_unique<UXSvgDocument>(size)) {}

UXSvgPaintConfig::~UXSvgPaintConfig() = default;

void UXSvgPaintConfig::describe(UXAccessibleNode& node, UXPoint origin, std::uint64_t greatestChildCount)
{
    m_document->setAccessible(uxMakeSvgAccessible(node, origin, greatestChildCount));
}

std::string UXSvgPaintConfig::getSvg() const
{
    std::ostringstream out;
    m_document->write(out);
    return std::move(out).str();
}

bool UXSvgPaintConfig::write(std::ostream& out) const
{
    m_document->write(out);
    return out.good();
}

UXPainter* UXSvgPaintConfig::createPainter(UXObject*)
{
    return new UXSvgPainter(*m_document, m_document->getGround(), UXTransform{});
}

bool UXSvgPaintConfig::isPaintConfigValid() const
{
    return m_document->getSize().width > 0 && m_document->getSize().height > 0;
}
