#include "ux/ux_recording.h"

#include "ux/ux_painter_text_writer.h"

namespace {

constexpr std::size_t firstBlock = 4096;

} // namespace

UXRecording::UXRecording(double deviceScale)
    : m_deviceScale(deviceScale), m_memory(std::make_unique<std::pmr::monotonic_buffer_resource>(firstBlock))
{
}

UXRecording::~UXRecording() { clear(); }

void UXRecording::replay(UXPainter& painter) const
{
    for (const Step* step : m_steps)
        step->play(painter);
}

std::vector<std::string> UXRecording::getLines() const
{
    UXPainterTextWriter writer(m_deviceScale);
    replay(writer);
    return writer.takeLines();
}

std::string UXRecording::getText() const
{
    std::string text;
    for (const std::string& line : getLines())
        text.append(line).push_back('\n');
    return text;
}

void UXRecording::clear()
{
    for (Step* step : m_steps)
        step->~Step();
    m_steps.clear();
    m_memory->release();
}
