#pragma once

#include <cstdint>
#include <string>

/** One line on stderr that says how far a long work is, on a terminal only, and is gone when the work is
 * over. */
class ProgressLine {
public:
    explicit ProgressLine(std::string title);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    /** Work that is over within a moment shows nothing. */
    void show(std::uint64_t done, std::uint64_t total);

private:
    std::string m_title;
    bool m_isTerminal;
    std::int64_t m_begun;
    int m_shownPercent = -1;
};
