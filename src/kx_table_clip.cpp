#include "kx_table_clip.h"

#include <algorithm>
#include <string_view>

constexpr std::uint64_t KXTableClip::greatestCellCount;
constexpr std::size_t KXTableClip::greatestSize;

namespace {

constexpr std::string_view htmlHead = "<meta charset=\"utf-8\"/><table>";
constexpr std::string_view htmlEnd = "</table>";

/** Spreadsheets look past blanks, too. */
bool isFormula(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(" \t\r\n\v\f\xc2\xa0");
    return first != std::string::npos && std::string_view("=+-@").find(text[first]) != std::string_view::npos;
}

/** @return text as one cell between tabs */
std::string quote(const std::string& text)
{
    if (text.find_first_of("\t\r\n\"") == std::string::npos)
        return text;
    std::string quoted = "\"";
    for (const char character : text) {
        if (character == '"')
            quoted += '"';
        quoted += character;
    }
    return quoted + '"';
}

std::string escape(const std::string& text)
{
    std::string escaped;
    for (const char character : text)
        switch (character) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        case '\n':
            escaped += "<br/>";
            break;
        default:
            // No document may hold other control characters.
            if (static_cast<unsigned char>(character) >= 0x20 || character == '\t')
                escaped += character;
        }
    return escaped;
}

} // namespace

KXTableClip::KXTableClip(std::uint64_t greatestCount) : m_greatestCount(greatestCount) {}

void KXTableClip::addCell(const std::string& text, Cell cell)
{
    m_isTooLarge = m_isTooLarge || ++m_cellCount > m_greatestCount ||
                   std::max(m_text.size(), m_html.size()) + text.size() > greatestSize;
    if (m_isTooLarge)
        return;
    const std::string safe = (cell != Cell::Number && isFormula(text) ? "'" : "") + text;
    const std::string tag = cell == Cell::Header ? "th" : "td";
    m_text += (m_isRowEmpty ? "" : "\t") + quote(safe);
    m_html += (m_isRowEmpty ? "<tr><" : "<") + tag + ">" + escape(safe) + "</" + tag + ">";
    m_isRowEmpty = false;
}

void KXTableClip::endRow()
{
    if (m_isTooLarge)
        return;
    m_text += "\r\n";
    m_html += m_isRowEmpty ? "<tr></tr>" : "</tr>";
    m_isRowEmpty = true;
}

std::string KXTableClip::obtainText() const { return m_isTooLarge ? std::string() : m_text; }

std::string KXTableClip::obtainHtml() const
{
    return m_isTooLarge ? std::string() : std::string(htmlHead) + m_html + std::string(htmlEnd);
}
