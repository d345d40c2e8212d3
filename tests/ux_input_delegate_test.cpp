#include "ux/ux_diagram.h"
#include "ux/ux_input_delegate.h"
#include "ux/ux_text_image_diagram.h"
#include "ux_test_event.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class Field : public UXObject, public UXInputDelegate {
public:
    Field() : UXInputDelegate(this) {}

    std::string log;
    bool customKeyDown(const UXEvent& event, bool&) override { return inputKeyDown(event); }
    bool shouldAcceptInput(const std::string& candidate) override { return candidate.size() <= 6; }
    void inputFinished() override { log += "finished "; }
    void inputCancelled() override { log += "cancelled "; }
    void inputTextChanged() override
    {
        log += getInputText() + "|" + std::to_string(getCaretPosition()) + " ";
    }
};

UXEvent makeTyped(const std::string& text) { return uxMakeKeyEvent(static_cast<UXKeyCode>(1000), text); }

} // namespace

TEST(UXInputDelegate, EditsWholeCharactersWhileItsOwnerHasTheKeys)
{
    UXDiagram diagram;
    Field field;
    EXPECT_FALSE(field.beginInput());
    diagram.addChild(&field);
    diagram.keyDown(makeTyped("x"));
    EXPECT_TRUE(field.beginInput());
    EXPECT_TRUE(field.isTakingInput());
    for (const char* text : {"a", "é", "b", "\t"})
        diagram.keyDown(makeTyped(text));
    for (const UXKeyCode code : {UXKeyCode::Left, UXKeyCode::Backspace, UXKeyCode::Home, UXKeyCode::Delete,
                                 UXKeyCode::Delete, UXKeyCode::Delete, UXKeyCode::Backspace})
        diagram.keyDown(uxMakeKeyEvent(code));
    EXPECT_EQ(field.log, "a|1 aé|3 aéb|4 ab|1 b|0 |0 ");
    EXPECT_FALSE(field.insertInputText("too long"));
    field.setInputText("é");
    field.setCaretPosition(1); // inside the character
    EXPECT_EQ(field.getCaretPosition(), 0U);
    field.log.clear();
    diagram.keyDown(uxMakeKeyEvent(UXKeyCode::Enter));
    diagram.keyDown(uxMakeKeyEvent(UXKeyCode::Escape));
    UXEvent altGr = makeTyped("@");
    altGr.addEventKey(UXEventKey::Ctrl);
    EXPECT_FALSE(diagram.keyDown(altGr));
    altGr.addEventKey(UXEventKey::Alt);
    EXPECT_TRUE(diagram.keyDown(altGr));
    field.endInput();
    diagram.keyDown(uxMakeKeyEvent(UXKeyCode::Enter));
    EXPECT_EQ(field.log, "finished cancelled @é|1 ");
}

TEST(UXTextImageDiagram, ImageAndTextShareTheMiddle)
{
    UXTextImageDiagram diagram;
    diagram.setRect({0, 0, 100, 80});
    diagram.setImage(UXImage(40, 40, std::vector<std::uint32_t>(1600)));
    diagram.layout();
    EXPECT_EQ(diagram.getImageRect(), UXDoubleRect(30, 20, 40, 40));
    EXPECT_EQ(diagram.getTextRect().height, 0);
    diagram.setText("No data");
    diagram.layout();
    const double text = diagram.getTextRect().height;
    EXPECT_GT(text, 0);
    EXPECT_EQ(diagram.getTextRect().y, diagram.getImageRect().y + diagram.getImageRect().height + 12);
    diagram.setRect({0, 0, 100, 40}); // the image gives way, in its shape
    diagram.layout();
    EXPECT_EQ(diagram.getImageRect().height, 28 - text);
    EXPECT_EQ(diagram.getImageRect().width, 28 - text);
}
