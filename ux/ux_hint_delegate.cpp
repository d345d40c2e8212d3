#include "ux/ux_hint_delegate.h"

UXHintDelegate::UXHintDelegate(UXObject* owner) : m_owner(owner) {}

UXHintDelegate::~UXHintDelegate() = default;

void UXHintDelegate::setShowHint(bool showHint)
{
    m_showHint = showHint;
    if (!showHint)
        hideHint();
}

void UXHintDelegate::showHint(UXPoint point, UXEvent* event, UXHintInfo* info)
{
    if (m_showHint)
        setHintVisible(point, event, info);
    else
        hideHint();
}

void UXHintDelegate::setHintVisible(UXPoint point, UXEvent*, UXHintInfo* info)
{
    if (!info || !info->enabled) {
        setHintHidden();
        return;
    }
    m_hintPoint = point;
    m_hintInfo = *info;
    m_hintVisible = true;
}

void UXHintDelegate::hideHint() { setHintHidden(); }

void UXHintDelegate::setHintHidden() { m_hintVisible = false; }
