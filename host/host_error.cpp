#include "host_error.h"

namespace {

/** @return text on one line: runs of blanks and control characters become one blank */
std::string joinLines(const std::string& text)
{
    std::string line;
    for (const char c : text) {
        const bool blank = static_cast<unsigned char>(c) <= ' ' || c == '\x7f';
        if (!blank)
            line += c;
        else if (!line.empty() && line.back() != ' ')
            line += ' ';
    }
    while (!line.empty() && line.back() == ' ')
        line.pop_back();
    return line;
}

std::string describe(const std::string& file, const std::string& place, const std::string& cause)
{
    std::string line;
    for (const std::string* part : {&file, &place, &cause}) {
        const std::string text = joinLines(*part);
        if (!text.empty())
            line += (line.empty() ? "" : ": ") + text;
    }
    return line;
}

} // namespace

HostError::HostError(const std::string& file, const std::string& place, const std::string& cause)
    : std::runtime_error(describe(file, place, cause))
{
}
