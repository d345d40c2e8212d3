#include "ux/ux_text_measure_cache.h"

#include <functional>
#include <iterator>

UXTextMeasureCache::UXTextMeasureCache(std::size_t maximumCount, std::size_t maximumBytes)
    : m_maximumCount(maximumCount), m_maximumBytes(maximumBytes)
{
}

UXTextMeasureCache::~UXTextMeasureCache() = default;

std::optional<UXDoubleSize> UXTextMeasureCache::find(const UXTextMeasureRequest& request)
{
    const auto found = m_index.find(request);
    if (found == m_index.end())
        return std::nullopt;
    m_entries.splice(m_entries.begin(), m_entries, *found);
    return (*found)->size;
}

void UXTextMeasureCache::insert(const UXTextMeasureRequest& request, const UXDoubleSize& size)
{
    // 1. A known question keeps its place and takes the newer answer.
    if (find(request)) {
        m_entries.front().size = size;
        return;
    }

    // 2. A single long text must not push everything else out.
    const std::size_t bytes = _bytesOf(request);
    if (m_maximumCount == 0 || bytes > m_maximumBytes / 16)
        return;

    // 3. Make room, then remember.
    while (m_entries.size() >= m_maximumCount || m_bytes + bytes > m_maximumBytes)
        _forgetLast();
    m_entries.push_front({request.text, request.font, request.option, request.lineMode, request.widthLimit,
                          size, _hash(request)});
    m_index.insert(m_entries.begin());
    m_bytes += bytes;
}

void UXTextMeasureCache::clear()
{
    m_index.clear();
    m_entries.clear();
    m_bytes = 0;
}

std::size_t UXTextMeasureCache::_hash(const UXTextMeasureRequest& request)
{
    std::size_t hash = std::hash<std::string>()(request.text);
    const auto mix = [&hash](std::size_t part) {
        // The golden ratio's bits spread small numbers over the whole word.
        hash = (hash ^ part) * static_cast<std::size_t>(0x9E3779B97F4A7C15ULL);
        hash ^= hash >> (sizeof hash * 4);
    };
    const UXFont& font = request.font;
    mix(std::hash<std::string>()(font.familyName));
    mix(static_cast<std::size_t>(font.size) * 4 + (font.bold ? 2U : 0U) + (font.italic ? 1U : 0U));
    mix(static_cast<std::size_t>(font.attribute));
    mix(static_cast<std::size_t>(request.option) * 8 + static_cast<std::size_t>(request.lineMode));
    mix(std::hash<double>()(request.widthLimit));
    return hash;
}

bool UXTextMeasureCache::_isSame(const UXTextMeasureRequest& a, const UXTextMeasureRequest& b)
{
    return a.widthLimit == b.widthLimit && a.lineMode == b.lineMode && a.option == b.option &&
           a.font == b.font && a.text == b.text;
}

std::size_t UXTextMeasureCache::_bytesOf(const UXTextMeasureRequest& request)
{
    // The list's and the index's own nodes, four and three words.
    constexpr std::size_t nodes = 7 * sizeof(void*);
    return sizeof(Entry) + nodes + request.text.size() + request.font.familyName.size();
}

void UXTextMeasureCache::_forgetLast()
{
    const auto last = std::prev(m_entries.end());
    m_bytes -= _bytesOf(last->request());
    m_index.erase(last);
    m_entries.erase(last);
}
