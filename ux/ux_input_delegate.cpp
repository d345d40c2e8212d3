#include "ux/ux_input_delegate.h"

#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_object.h"

#include <algorithm>

namespace {

bool continuesCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

/** Ctrl or Alt alone make a command of a key; both together are AltGr, which types. */
bool isTyped(const UXEvent& event)
{
    const bool isCommand = event.containsEventKey(UXEventKey::Ctrl) !=
                           event.containsEventKey(UXEventKey::Alt);
    const std::string& text = event.getKeyText();
    return !text.empty() && static_cast<unsigned char>(text.front()) >= ' ' && text.front() != 0x7F &&
           !isCommand;
}

} // namespace

UXInputDelegate::UXInputDelegate(UXObject* owner) : m_owner(owner) {}

UXInputDelegate::~UXInputDelegate() = default;

void UXInputDelegate::setInputText(const std::string& text)
{
    m_text = text;
    m_caret = text.size();
}

void UXInputDelegate::setCaretPosition(std::size_t position)
{
    m_caret = std::min(position, m_text.size());
    while (m_caret > 0 && m_caret < m_text.size() && continuesCharacter(m_text[m_caret]))
        --m_caret;
}

bool UXInputDelegate::beginInput()
{
    UXDiagram* diagram = uxObtainDiagram(m_owner.getObject());
    if (!diagram)
        return false;
    diagram->setFocusedObject(m_owner.getObject());
    return true;
}

void UXInputDelegate::endInput()
{
    if (isTakingInput())
        uxObtainDiagram(m_owner.getObject())->setFocusedObject(nullptr);
}

bool UXInputDelegate::isTakingInput() const
{
    const UXDiagram* diagram = uxObtainDiagram(m_owner.getObject());
    return diagram && diagram->getFocusedObject() == m_owner.getObject();
}

bool UXInputDelegate::insertInputText(const std::string& text) { return _replace(m_caret, m_caret, text); }

bool UXInputDelegate::inputKeyDown(const UXEvent& event)
{
    switch (static_cast<UXKeyCode>(event.getKeyCode())) {
    case UXKeyCode::Backspace:
        _replace(_obtainPrevious(m_caret), m_caret, {});
        return true;
    case UXKeyCode::Delete:
        _replace(m_caret, _obtainNext(m_caret), {});
        return true;
    case UXKeyCode::Left:
        m_caret = _obtainPrevious(m_caret);
        return true;
    case UXKeyCode::Right:
        m_caret = _obtainNext(m_caret);
        return true;
    case UXKeyCode::Home:
        m_caret = 0;
        return true;
    case UXKeyCode::End:
        m_caret = m_text.size();
        return true;
    case UXKeyCode::Enter:
        inputFinished();
        return true;
    case UXKeyCode::Escape:
        inputCancelled();
        return true;
    default:
        if (!isTyped(event))
            return false;
        insertInputText(event.getKeyText());
        return true;
    }
}

bool UXInputDelegate::shouldAcceptInput(const std::string&) { return true; }

void UXInputDelegate::inputTextChanged() {}

void UXInputDelegate::inputFinished() {}

void UXInputDelegate::inputCancelled() {}

bool UXInputDelegate::_replace(std::size_t begin, std::size_t end, const std::string& text)
{
    if (begin == end && text.empty())
        return false;
    std::string candidate = m_text;
    candidate.replace(begin, end - begin, text);
    const UXObjectWatcher owner = m_owner;
    if (!shouldAcceptInput(candidate) || !owner.isAlive())
        return false;
    m_text = std::move(candidate);
    m_caret = begin + text.size();
    inputTextChanged();
    return true;
}

std::size_t UXInputDelegate::_obtainPrevious(std::size_t position) const
{
    while (position > 0 && continuesCharacter(m_text[--position])) {}
    return position;
}

std::size_t UXInputDelegate::_obtainNext(std::size_t position) const
{
    if (position < m_text.size())
        ++position;
    while (position < m_text.size() && continuesCharacter(m_text[position]))
        ++position;
    return position;
}
