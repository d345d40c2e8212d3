#include "progress_line.h"

#include <chrono>
#include <cstdio>
#include <unistd.h>
#include <utility>

namespace {

constexpr std::int64_t quietMilliseconds = 500;

std::int64_t readMilliseconds()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

} // namespace

ProgressLine::ProgressLine(std::string title)
    : m_title(std::move(title)), m_isTerminal(isatty(STDERR_FILENO) == 1), m_begun(readMilliseconds())
{
}

ProgressLine::~ProgressLine()
{
    if (m_shownPercent >= 0)
        std::fprintf(stderr, "\r\033[K");
}

void ProgressLine::show(std::uint64_t done, std::uint64_t total)
{
    if (!m_isTerminal || total == 0 || readMilliseconds() - m_begun < quietMilliseconds)
        return;
    const int percent = static_cast<int>(100.0 * static_cast<double>(done) / static_cast<double>(total));
    if (percent == m_shownPercent)
        return;
    m_shownPercent = percent;
    std::fprintf(stderr, "\r%s %d %%", m_title.c_str(), percent);
    std::fflush(stderr);
}
