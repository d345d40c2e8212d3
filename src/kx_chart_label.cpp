#include "kx_chart_label.h"

KXChartLabel::KXChartLabel() : KXChartDataAction(this) {}

KXChartLabel::~KXChartLabel() = default;

std::string KXChartLabel::getDefaultText() const { return m_defaultText; }

void KXChartLabel::setDefaultText(const std::string& text)
{
    if (m_defaultText == text)
        return;
    m_defaultText = text;
    requireLayout();
    invalidate();
}

std::string KXChartLabel::getIdentifier() const { return m_identifier; }

void KXChartLabel::setIdentifier(const std::string& identifier) { m_identifier = identifier; }

std::string KXChartLabel::customSerializeTypeID() { return "KXChartLabel"; }

KXChartDataPath* KXChartLabel::createDataPath()
{
    // A label shows one value: the first cell.
    auto* path = new KXChartDataPath;
    path->identifier = m_identifier;
    path->valueIndexPath = {0, 0};
    return path;
}

std::string KXChartLabel::obtainText()
{
    const std::string text = UXLabel::obtainText();
    return text.empty() ? m_defaultText : text;
}
