#include "kx_axis_chart_host_looks.h"

#include <algorithm>
#include <iterator>
#include <utility>

void KXAxisChartHostLooks::clear()
{
    clearColors();
    m_labels.clear();
    m_wantedLabels.clear();
}

void KXAxisChartHostLooks::clearColors() { m_markColors.clear(); }

std::vector<KXAxisChartMark> KXAxisChartHostLooks::findUnknown(const std::vector<KXAxisChartMark>& marks)
{
    std::vector<KXAxisChartMark> unknown;
    std::ranges::copy_if(marks, std::back_inserter(unknown),
                         [this](const KXAxisChartMark& mark) { return !m_markColors.contains(mark); });
    if (m_markColors.size() + unknown.size() <= greatestAnswerCount || unknown.empty())
        return unknown;
    m_markColors.clear();
    return marks;
}

void KXAxisChartHostLooks::setMarkColor(const KXAxisChartMark& mark, const std::optional<UXColor>& color)
{
    m_markColors[mark] = color;
}

std::optional<UXColor> KXAxisChartHostLooks::findMarkColor(const KXAxisChartMark& mark) const
{
    const auto found = m_markColors.find(mark);
    return found == m_markColors.end() ? std::nullopt : found->second;
}

void KXAxisChartHostLooks::wantLabel(const KXAxisChartMark& mark, const Label& usual)
{
    m_wantedLabels[mark] = usual;
}

std::optional<KXAxisChartHostLooks::WantedLabel> KXAxisChartHostLooks::takeWantedLabel()
{
    if (m_wantedLabels.empty())
        return std::nullopt;
    const auto first = m_wantedLabels.begin();
    WantedLabel wanted{first->first, std::move(first->second)};
    m_wantedLabels.erase(first);
    return wanted;
}

const KXAxisChartHostLooks::Label* KXAxisChartHostLooks::findLabel(const KXAxisChartMark& mark,
                                                                   const Label& usual) const
{
    const auto found = m_labels.find(mark);
    return found != m_labels.end() && found->second.usual == usual ? &found->second.made : nullptr;
}

void KXAxisChartHostLooks::setLabel(const KXAxisChartMark& mark, const Label& usual, const Label& made)
{
    if (m_labels.size() >= greatestAnswerCount)
        m_labels.clear();
    m_labels[mark] = {usual, made};
}
