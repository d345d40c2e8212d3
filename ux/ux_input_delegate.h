#pragma once

#include "ux/ux_export.h"
#include "ux/ux_object_watcher.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

class UXEvent;
class UXObject;

/**
 * Mixed into objects that take keyboard input: keeps the typed text, the caret and what is selected, and
 * edits it by the keys that the owner's key handler passes on. Text is UTF-8; positions count bytes and lie
 * between characters. A hook may destroy the owner.
 */
class UX_EXPORT UXInputDelegate {
public:
    /** @param owner the object that takes the keys, usually the one that this is a part of */
    explicit UXInputDelegate(UXObject* owner);
    virtual ~UXInputDelegate();

    /** @return null once the object is gone */
    UXObject* getInputOwner() const { return m_owner.getObject(); }
    const std::string& getInputText() const { return m_state.text; }
    /** Replaces the text and puts the caret behind it, without a notice. What was typed cannot be undone any
     * more. */
    void setInputText(const std::string& text);
    std::size_t getCaretPosition() const { return m_state.caret; }
    /** Selects nothing. @param position moved to the text's end, and back to where a character begins */
    void setCaretPosition(std::size_t position);

    // What is selected, from the end that stays to the caret
    /** Positions are moved as those of the caret are. */
    void selectInputText(std::size_t anchor, std::size_t caret);
    /** Selects the word at a position, or what lies between two words. */
    void selectInputWord(std::size_t position);
    /** @return where the selection begins and ends; both are the caret's position where there is none */
    std::pair<std::size_t, std::size_t> getInputSelection() const;
    bool hasInputSelection() const { return m_state.anchor != m_state.caret; }

    // What an input method composes at the caret before it types it
    /** Shows text in place of what was composed before; what is typed, and any other change, ends it.
     * @param text empty to cancel
     * @param caret a position in it, moved as those of the caret are */
    void setInputComposition(const std::string& text, std::size_t caret);
    const std::string& getInputComposition() const { return m_composition; }
    std::size_t getInputCompositionCaret() const { return m_compositionCaret; }

    /** Makes the owner receive the keys of its diagram.
     *  @return false where it stands on none */
    bool beginInput();
    /** Lets go of the keys, if they are still the owner's. */
    void endInput();
    bool isTakingInput() const;

    /** Puts text in at the caret, in place of what is selected, if the delegate accepts it. */
    bool insertInputText(const std::string& text);
    // The clipboard; line breaks are pasted as spaces
    void copyInputSelection() const;
    void cutInputSelection();
    void pasteInput();
    /** Takes back the last change, of which what was typed in one go is one.
     *  @return whether there was one; so does redoInput, of what was taken back */
    bool undoInput();
    bool redoInput();
    /** Edits by a key: typed text, Backspace, Delete, Left, Right, Home and End, which select with Shift and
     * go by words with Ctrl, Enter and Escape. With Ctrl and its letter as the event's text: A selects all, C
     * copies, X cuts, V pastes, Z undoes and Y redoes.
     *  @return whether the key was one of these */
    bool inputKeyDown(const UXEvent& event);

protected:
    /** @return whether the text may become candidate; any may unless overridden */
    virtual bool shouldAcceptInput(const std::string& candidate);
    virtual void inputTextChanged();
    /** Something else is composed, or nothing any more. */
    virtual void inputCompositionChanged();
    /** Enter was pressed. */
    virtual void inputFinished();
    /** Escape was pressed. */
    virtual void inputCancelled();

private:
    struct State {
        std::string text;
        std::size_t anchor = 0, caret = 0;
    };

    bool _replace(std::size_t begin, std::size_t end, const std::string& text, bool isTyped = false);
    bool _goBack(std::vector<State>& from, std::vector<State>& to);
    void _moveCaret(std::size_t position, const UXEvent& event);
    bool _command(const UXEvent& event);
    void _endComposition();
    std::size_t _obtainCharacterBegin(std::size_t position) const;
    std::size_t _obtainPrevious(std::size_t position) const;
    std::size_t _obtainNext(std::size_t position) const;
    std::size_t _obtainPreviousWord(std::size_t position) const;
    std::size_t _obtainNextWord(std::size_t position) const;

    UXObjectWatcher m_owner;
    State m_state;
    std::string m_composition;
    std::size_t m_compositionCaret = 0;
    std::vector<State> m_undone, m_redone; // what the text was before each change, and after those taken back
    bool m_isTyping = false;               // the last change was a key's text, which the next one goes on
};
