#pragma once

#include "ux/ux_export.h"
#include "ux/ux_object_watcher.h"

#include <cstddef>
#include <string>

class UXEvent;
class UXObject;

/**
 * Mixed into objects that take keyboard input: keeps the typed text and the caret, and edits it by the keys
 * that the owner's key handler passes on. Text is UTF-8; positions count bytes and lie between characters. A
 * hook may destroy the owner.
 */
class UX_EXPORT UXInputDelegate {
public:
    /** @param owner the object that takes the keys, usually the one that this is a part of */
    explicit UXInputDelegate(UXObject* owner);
    virtual ~UXInputDelegate();

    /** @return null once the object is gone */
    UXObject* getInputOwner() const { return m_owner.getObject(); }
    const std::string& getInputText() const { return m_text; }
    /** Replaces the text and puts the caret behind it, without a notice. */
    void setInputText(const std::string& text);
    std::size_t getCaretPosition() const { return m_caret; }
    /** @param position moved to the text's end, and back to where a character begins */
    void setCaretPosition(std::size_t position);

    /** Makes the owner receive the keys of its diagram.
     *  @return false where it stands on none */
    bool beginInput();
    /** Lets go of the keys, if they are still the owner's. */
    void endInput();
    bool isTakingInput() const;

    /** Puts text in at the caret, if the delegate accepts it. */
    bool insertInputText(const std::string& text);
    /** Edits by a key: typed text, Backspace, Delete, Left, Right, Home, End, Enter and Escape.
     *  @return whether the key was one of these */
    bool inputKeyDown(const UXEvent& event);

protected:
    /** @return whether the text may become candidate; any may unless overridden */
    virtual bool shouldAcceptInput(const std::string& candidate);
    virtual void inputTextChanged();
    /** Enter was pressed. */
    virtual void inputFinished();
    /** Escape was pressed. */
    virtual void inputCancelled();

private:
    bool _replace(std::size_t begin, std::size_t end, const std::string& text);
    std::size_t _obtainPrevious(std::size_t position) const;
    std::size_t _obtainNext(std::size_t position) const;

    UXObjectWatcher m_owner;
    std::string m_text;
    std::size_t m_caret = 0;
};
