#include "web_drawing.h"

#include "ux/ux_text_bound.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace {

double obtainPart(int part) { return std::clamp(part, 0, 255); }

double obtainAlpha(double alpha) { return alpha > 0 ? std::min(alpha, 1.0) : 0; }

} // namespace

void WebDrawing::addCount(std::size_t count) { m_words.push_back(static_cast<std::uint32_t>(count)); }

void WebDrawing::addNumber(double number)
{
    m_words.push_back(std::bit_cast<std::uint32_t>(static_cast<float>(number)));
}

void WebDrawing::addNumbers(std::initializer_list<double> numbers)
{
    for (const double number : numbers)
        addNumber(number);
}

void WebDrawing::addText(std::string_view text)
{
    addCount(text.size());
    const std::size_t begin = m_words.size();
    m_words.resize(begin + (text.size() + 3) / 4);
    if (!text.empty())
        std::memcpy(m_words.data() + begin, text.data(), text.size());
}

void WebDrawing::addTransform(const UXTransform& transform)
{
    addNumbers({transform.xx, transform.yx, transform.xy, transform.yy, transform.dx, transform.dy});
}

void WebDrawing::save()
{
    add(WebCommand::Save);
    m_saved.push_back(m_state);
}

void WebDrawing::restore()
{
    if (m_saved.empty())
        return;
    add(WebCommand::Restore);
    m_state = std::move(m_saved.back());
    m_saved.pop_back();
}

void WebDrawing::use(const WebSource& source)
{
    if (m_state.source == source)
        return;
    m_state.source = source;
    const auto addColor = [this](const UXColor& color) {
        addNumbers({obtainPart(color.red), obtainPart(color.green), obtainPart(color.blue),
                    obtainAlpha(color.alpha)});
    };
    if (!source.gradient) {
        add(WebCommand::Color);
        return addColor(source.color);
    }
    const WebGradient& gradient = *source.gradient;
    add(WebCommand::Gradient);
    addNumbers({gradient.x1, gradient.y1, gradient.x2, gradient.y2});
    addTransform(source.gradientToCanvas);
    addEnum(gradient.beyond);
    addCount(gradient.stops.size());
    for (const WebGradient::Stop& stop : gradient.stops) {
        addColor(stop.color);
        addNumber(stop.offset);
    }
}

void WebDrawing::use(const WebPen& pen, const UXTransform& toCanvas)
{
    if (m_state.pen && m_state.pen->pen == pen && m_state.pen->toCanvas == toCanvas)
        return;
    m_state.pen = Pen{pen, toCanvas};
    add(WebCommand::Pen);
    addNumber(pen.width);
    addEnum(pen.cap);
    addEnum(pen.join);
    addNumbers({toCanvas.xx, toCanvas.yx, toCanvas.xy, toCanvas.yy, pen.dashOffset});
    addCount(pen.dashes.size());
    for (const double length : pen.dashes)
        addNumber(length);
}

void WebDrawing::use(UXCompositionMode mode)
{
    if (mode == m_state.mode)
        return;
    m_state.mode = mode;
    add(WebCommand::Composition);
    addEnum(mode);
}

void WebDrawing::use(const UXFont& font)
{
    if (m_state.font == font)
        return;
    m_state.font = font;
    add(WebCommand::Font);
    addNumber(font.size);
    addCount((font.bold ? 1U : 0U) + (font.italic ? 2U : 0U));
    addText(uxBoundFamilyName(font.familyName));
}

void WebDrawing::addImage(const UXImage& image, double opacity, const UXTransform& toCanvas)
{
    if (!image.getPixels())
        return;
    add(WebCommand::Image);
    // An address is a word on the one machine that has pages.
    m_words.push_back(static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(image.getPixels())));
    addCount(static_cast<std::size_t>(image.getSize().width));
    addCount(static_cast<std::size_t>(image.getSize().height));
    addNumber(obtainAlpha(opacity));
    addTransform(toCanvas);
    m_images.push_back(image);
}

void WebDrawing::beginLayer()
{
    add(WebCommand::BeginLayer);
    m_beneath.push_back(std::exchange(m_state, {}));
}

void WebDrawing::endLayer(UXCompositionMode mode, double opacity)
{
    add(WebCommand::EndLayer);
    addEnum(mode);
    addNumber(obtainAlpha(opacity));
    m_state = std::move(m_beneath.back());
    m_beneath.pop_back();
}

void WebDrawing::clear()
{
    m_words.clear();
    m_state = {};
    m_saved.clear();
    m_beneath.clear();
    m_lastImages = std::exchange(m_images, {});
}
