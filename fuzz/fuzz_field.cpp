#include "fuzz_field.h"

#include "ux/ux_event.h"
#include "ux/ux_hint_info.h"

#include <utility>

FuzzField::FuzzField(std::function<void()> act)
    : UXInputDelegate(this), UXHintDelegate(this), m_act(std::move(act))
{
    setText("field");
    setShowsFocus(true);
}

bool FuzzField::_act()
{
    const std::function<void()> act = m_act;
    act();
    return true;
}

bool FuzzField::customMouseDown(const UXEvent&, bool&)
{
    beginInput();
    return _act();
}

bool FuzzField::customMouseMove(const UXEvent& event, bool&)
{
    UXHintInfo info;
    info.title = getText();
    info.addRow("row", getInputText());
    info.followMouse = event.containsEventKey(UXEventKey::Shift);
    UXEvent asked = event;
    showHint(getTranslatedPointFromEvent(event), &asked, &info);
    return false;
}

bool FuzzField::customMouseLeave(const UXEvent&, bool&)
{
    hideHint();
    return false;
}

bool FuzzField::customKeyDown(const UXEvent& event, bool&) { return inputKeyDown(event); }

void FuzzField::inputTextChanged()
{
    setText(getInputText());
    _act();
}
