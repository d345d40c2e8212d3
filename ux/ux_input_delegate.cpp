#include "ux/ux_input_delegate.h"

#include "ux/ux_clipboard.h"
#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_object.h"

#include <algorithm>
#include <utility>

namespace {

/** So many changes can be taken back. */
constexpr std::size_t greatestUndoCount = 200;

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

std::size_t findCharacterBegin(const std::string& text, std::size_t position)
{
    position = std::min(position, text.size());
    while (position > 0 && position < text.size() && continuesCharacter(text[position]))
        --position;
    return position;
}

} // namespace

UXInputDelegate::UXInputDelegate(UXObject* owner) : m_owner(owner) {}

UXInputDelegate::~UXInputDelegate() = default;

void UXInputDelegate::setInputText(const std::string& text)
{
    _endComposition();
    m_state = {text, text.size(), text.size()};
    m_undone.clear();
    m_redone.clear();
    m_isTyping = false;
}

void UXInputDelegate::setInputComposition(const std::string& text, std::size_t caret)
{
    if (text == m_composition && caret == m_compositionCaret)
        return;
    m_composition = text;
    m_compositionCaret = findCharacterBegin(text, caret);
    inputCompositionChanged();
}

/** Tells nobody, as what ends it changes the text anyway. */
void UXInputDelegate::_endComposition()
{
    m_composition.clear();
    m_compositionCaret = 0;
}

void UXInputDelegate::setCaretPosition(std::size_t position) { selectInputText(position, position); }

void UXInputDelegate::selectInputText(std::size_t anchor, std::size_t caret)
{
    m_state.anchor = _obtainCharacterBegin(anchor);
    m_state.caret = _obtainCharacterBegin(caret);
    m_isTyping = false;
}

void UXInputDelegate::selectInputWord(std::size_t position)
{
    const std::string& text = m_state.text;
    std::size_t begin = std::min(position, text.size());
    if (begin == text.size() && begin > 0)
        --begin;
    std::size_t end = begin;
    const bool isSpace = begin < text.size() && text[begin] == ' ';
    while (begin > 0 && (text[begin - 1] == ' ') == isSpace)
        --begin;
    while (end < text.size() && (text[end] == ' ') == isSpace)
        ++end;
    selectInputText(begin, end);
}

std::pair<std::size_t, std::size_t> UXInputDelegate::getInputSelection() const
{
    return std::minmax(m_state.anchor, m_state.caret);
}

std::size_t UXInputDelegate::_obtainCharacterBegin(std::size_t position) const
{
    return findCharacterBegin(m_state.text, position);
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

bool UXInputDelegate::insertInputText(const std::string& text)
{
    const auto [begin, end] = getInputSelection();
    return _replace(begin, end, text);
}

void UXInputDelegate::copyInputSelection() const
{
    const auto [begin, end] = getInputSelection();
    if (begin != end)
        uxWriteClipboard(m_state.text.substr(begin, end - begin));
}

void UXInputDelegate::cutInputSelection()
{
    const UXObjectWatcher owner = m_owner;
    copyInputSelection();
    const auto [begin, end] = owner.isAlive() ? getInputSelection() : std::pair<std::size_t, std::size_t>();
    if (begin != end)
        _replace(begin, end, {});
}

void UXInputDelegate::pasteInput()
{
    const UXObjectWatcher owner = m_owner;
    std::string text = uxReadClipboard();
    std::ranges::replace_if(
        text, [](char byte) { return static_cast<unsigned char>(byte) < ' '; }, ' ');
    if (owner.isAlive())
        insertInputText(text);
}

bool UXInputDelegate::undoInput() { return _goBack(m_undone, m_redone); }

bool UXInputDelegate::redoInput() { return _goBack(m_redone, m_undone); }

bool UXInputDelegate::_goBack(std::vector<State>& from, std::vector<State>& to)
{
    if (from.empty())
        return false;
    to.push_back(std::move(m_state));
    m_state = std::move(from.back());
    from.pop_back();
    m_isTyping = false;
    inputTextChanged();
    return true;
}

/** With Shift the selection's other end stays. */
void UXInputDelegate::_moveCaret(std::size_t position, const UXEvent& event)
{
    selectInputText(event.containsEventKey(UXEventKey::Shift) ? m_state.anchor : position, position);
}

bool UXInputDelegate::_command(const UXEvent& event)
{
    if (!event.containsEventKey(UXEventKey::Ctrl) || event.containsEventKey(UXEventKey::Alt) ||
        event.getKeyText().size() != 1)
        return false;
    switch (event.getKeyText().front()) {
    case 'a':
    case 'A':
        selectInputText(0, m_state.text.size());
        return true;
    case 'c':
    case 'C':
        copyInputSelection();
        return true;
    case 'x':
    case 'X':
        cutInputSelection();
        return true;
    case 'v':
    case 'V':
        pasteInput();
        return true;
    case 'z':
        undoInput();
        return true;
    case 'Z':
    case 'y':
    case 'Y':
        redoInput();
        return true;
    default:
        return false;
    }
}

bool UXInputDelegate::inputKeyDown(const UXEvent& event)
{
    const std::size_t caret = m_state.caret;
    const auto [begin, end] = getInputSelection();
    const bool byWords = event.containsEventKey(UXEventKey::Ctrl);
    // An arrow alone goes to the selection's end on its side.
    const bool collapses = begin != end && !event.containsEventKey(UXEventKey::Shift) && !byWords;
    switch (static_cast<UXKeyCode>(event.getKeyCode())) {
    case UXKeyCode::Backspace:
        _replace(begin != end ? begin
                 : byWords    ? _obtainPreviousWord(caret)
                              : _obtainPrevious(caret),
                 end, {});
        return true;
    case UXKeyCode::Delete:
        _replace(begin, begin != end ? end : byWords ? _obtainNextWord(caret) : _obtainNext(caret), {});
        return true;
    case UXKeyCode::Left:
        _moveCaret(collapses ? begin : byWords ? _obtainPreviousWord(caret) : _obtainPrevious(caret), event);
        return true;
    case UXKeyCode::Right:
        _moveCaret(collapses ? end : byWords ? _obtainNextWord(caret) : _obtainNext(caret), event);
        return true;
    case UXKeyCode::Home:
        _moveCaret(0, event);
        return true;
    case UXKeyCode::End:
        _moveCaret(m_state.text.size(), event);
        return true;
    case UXKeyCode::Enter:
        inputFinished();
        return true;
    case UXKeyCode::Escape:
        inputCancelled();
        return true;
    default:
        if (!isTyped(event))
            return _command(event);
        _replace(begin, end, event.getKeyText(), true);
        return true;
    }
}

bool UXInputDelegate::shouldAcceptInput(const std::string&) { return true; }

void UXInputDelegate::inputTextChanged() {}

void UXInputDelegate::inputCompositionChanged() {}

void UXInputDelegate::inputFinished() {}

void UXInputDelegate::inputCancelled() {}

/** @param isTyped whether it is the text of a key: what several keys type one after the other is undone at
 * once */
bool UXInputDelegate::_replace(std::size_t begin, std::size_t end, const std::string& text, bool isTyped)
{
    if (begin == end && text.empty())
        return false;
    std::string candidate = m_state.text;
    candidate.replace(begin, end - begin, text);
    const UXObjectWatcher owner = m_owner;
    if (!shouldAcceptInput(candidate) || !owner.isAlive())
        return false;
    const bool goesOn = isTyped && m_isTyping && begin == end && !m_undone.empty();
    _endComposition();
    State before = std::exchange(m_state, {std::move(candidate), begin + text.size(), begin + text.size()});
    if (!goesOn) {
        if (m_undone.size() >= greatestUndoCount)
            m_undone.erase(m_undone.begin());
        m_undone.push_back(std::move(before));
    }
    m_redone.clear();
    m_isTyping = isTyped;
    inputTextChanged();
    return true;
}

std::size_t UXInputDelegate::_obtainPrevious(std::size_t position) const
{
    while (position > 0 && continuesCharacter(m_state.text[--position])) {}
    return position;
}

std::size_t UXInputDelegate::_obtainNext(std::size_t position) const
{
    if (position < m_state.text.size())
        ++position;
    while (position < m_state.text.size() && continuesCharacter(m_state.text[position]))
        ++position;
    return position;
}

std::size_t UXInputDelegate::_obtainPreviousWord(std::size_t position) const
{
    while (position > 0 && m_state.text[position - 1] == ' ')
        --position;
    while (position > 0 && m_state.text[position - 1] != ' ')
        --position;
    return position;
}

std::size_t UXInputDelegate::_obtainNextWord(std::size_t position) const
{
    while (position < m_state.text.size() && m_state.text[position] != ' ')
        ++position;
    while (position < m_state.text.size() && m_state.text[position] == ' ')
        ++position;
    return position;
}
