#include "ux/svg/ux_svg_document.h"

#include "ux/ux_png_encoder.h"

namespace {

std::string closeGroup(const std::string& openClip) { return openClip.empty() ? "" : "</g>\n"; }

} // namespace

void UXSvgLayer::add(const std::string& clip, const std::string& element)
{
    if (clip != m_openClip) {
        m_content.append(closeGroup(m_openClip));
        if (!clip.empty())
            m_content.append("<g clip-path=\"url(#").append(clip).append(")\">\n");
        m_openClip = clip;
    }
    m_content.append(element).push_back('\n');
}

std::string UXSvgLayer::obtainContent() const { return m_content + closeGroup(m_openClip); }

std::string UXSvgDocument::define(const std::string& tag, const std::string& attributes,
                                  const std::string& content)
{
    const std::string body = tag + attributes + '>' + content;
    const auto [known, isNew] = m_names.try_emplace(body, "d" + std::to_string(m_names.size() + 1));
    if (isNew)
        m_definitions.append("<" + tag + " id=\"" + known->second + '"' + attributes + '>' + content + "</" +
                             tag + ">\n");
    return known->second;
}

std::string UXSvgDocument::defineImage(const UXImage& image)
{
    const auto known = m_images.find(image.getPixels());
    if (known != m_images.end())
        return known->second.second;
    const std::string name = define("image",
                                    " width=\"" + std::to_string(image.getSize().width) + "\" height=\"" +
                                        std::to_string(image.getSize().height) +
                                        "\" preserveAspectRatio=\"none\" href=\"data:image/png;base64," +
                                        uxEncodeBase64(uxEncodePng(image)) + '"',
                                    "");
    m_images.emplace(image.getPixels(), std::pair(image, name));
    return name;
}

void UXSvgDocument::setAccessible(UXSvgAccessible accessible) { m_accessible = std::move(accessible); }

void UXSvgDocument::write(std::ostream& out) const
{
    const std::string width = std::to_string(m_size.width), height = std::to_string(m_size.height);
    // Put together first: a stream may group the digits of a number, but it leaves a text alone.
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" +
               width + "\" height=\"" + height + "\" viewBox=\"0 0 " + width + ' ' + height +
               "\" stroke-miterlimit=\"10\"" + (m_accessible ? m_accessible->attributes : std::string()) +
               ">\n";
    if (m_accessible)
        out << m_accessible->head;
    if (!m_definitions.empty())
        out << "<defs>\n" + m_definitions + "</defs>\n";
    if (m_accessible)
        out << "<g aria-hidden=\"true\">\n" << m_ground.obtainContent() << "</g>\n" << m_accessible->elements;
    else
        out << m_ground.obtainContent();
    out << "</svg>\n";
}
