#include "ux/ux_accessible_change.h"
#include "ux/ux_accessible_object.h"
#include "ux/ux_accessible_text.h"
#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_hint_words.h"
#include "ux/ux_label.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_svg_paint_config.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

UXLabel* addLabel(UXObject& parent, const std::string& text, const UXRect& rect)
{
    auto* label = new UXLabel;
    label->setText(text);
    label->setRect(rect);
    parent.addChild(label);
    return label;
}

TEST(UXAccessible, IsReadInRowsPastWhatSaysNothing)
{
    UXDiagram diagram;
    diagram.setRect({0, 0, 200, 100});
    UXObject box; // says nothing, and cuts what it holds
    box.setRect({100, 10, 50, 20});
    diagram.addChild(&box);
    addLabel(diagram, "third", {0, 50, 30, 10});
    addLabel(box, "second \"quoted\"", {20, 0, 100, 10});
    addLabel(diagram, "first", {0, 10, 30, 10});
    addLabel(diagram, "", {0, 0, 30, 10});
    addLabel(diagram, "hidden", {0, 0, 30, 10})->setVisible(false);
    EXPECT_EQ(uxWriteAccessibleTree(*uxCreateAccessibleNode(diagram)),
              "group at 0,0 200x100\n"
              "  paragraph \"first\" at 0,10 30x10\n"
              "  paragraph \"second \\\"quoted\\\"\" at 120,10 30x10\n"
              "  paragraph \"third\" at 0,50 30x10\n");
    EXPECT_EQ(uxWriteAccessibleTree(*uxCreateAccessibleNode(diagram), 1),
              "group at 0,0 200x100\n"
              "  paragraph \"first\" at 0,10 30x10\n"
              "  and 2 more\n");
    diagram.removeChild(&box);
    diagram.clearChildren();
    box.clearChildren();
}

TEST(UXAccessible, ANodeOutlivesItsObject)
{
    auto object = std::make_unique<UXObject>();
    addLabel(*object, "text", {0, 0, 30, 10});
    const std::unique_ptr<UXAccessibleNode> node = uxCreateAccessibleNode(*object),
                                            text = node->createChild(0);
    EXPECT_EQ(text->obtainInfo().name, "text");
    object.reset();
    for (UXAccessibleNode* gone : {node.get(), text.get()}) {
        EXPECT_EQ(gone->getObject(), nullptr);
        EXPECT_EQ(gone->obtainInfo(), UXAccessibleInfo());
        EXPECT_EQ(gone->createChild(0), nullptr);
        EXPECT_FALSE(gone->perform(UXAccessibleAction::Press));
    }
}

TEST(UXAccessible, AChangeIsToldOnceWhenTheCallHasEnded)
{
    using Change = std::pair<UXObject*, UXAccessibleChange>;
    struct Control : UXControl {
        std::vector<Change> told;
        void notifyAccessibleChange(UXObject* object, UXAccessibleChange change) override
        {
            told.emplace_back(object, change);
        }
    };
    UXContext context;
    UXDiagram diagram(&context);
    Control control;
    context.addControl(&control);
    context.setActiveDiagram(&control, &diagram);
    auto object = std::make_unique<UXObject>(), gone = std::make_unique<UXObject>();
    diagram.addChild(object.get());
    diagram.addChild(gone.get());
    {
        const UXNotificationScope scope;
        for (int i = 0; i < 2; ++i)
            uxTellAccessibleChange(*object, UXAccessibleChange::Content);
        uxTellAccessibleChange(*gone, UXAccessibleChange::Children);
        gone.reset();
        EXPECT_TRUE(control.told.empty());
    }
    EXPECT_EQ(control.told, std::vector<Change>({{object.get(), UXAccessibleChange::Content}}));
    control.told.clear();
    diagram.setFocusedObject(object.get());
    EXPECT_EQ(control.told, std::vector<Change>({{object.get(), UXAccessibleChange::Focus}}));
}

TEST(UXAccessible, APageOfVectorsSaysIt)
{
    UXObject object;
    object.setRect({0, 0, 100, 50});
    addLabel(object, "a < b", {10, 20, 30, 10});
    UXSvgPaintConfig config({120, 70});
    const std::string drawing = config.getSvg();
    EXPECT_EQ(drawing.find("aria"), std::string::npos);
    config.describe(*uxCreateAccessibleNode(object), {5, 6});
    EXPECT_NE(
        config.getSvg().find("<g role=\"paragraph\" aria-label=\"a &lt; b\">\n"
                             "<rect x=\"15\" y=\"26\" width=\"30\" height=\"10\" fill=\"none\"/>\n</g>\n"),
        std::string::npos)
        << config.getSvg();
}

TEST(UXAccessible, AHintIsWrittenInOneLine)
{
    UXHintInfo info;
    EXPECT_EQ(uxWriteHint(info), "");
    info.title = "May\n2019";
    info.addRow("Cars", "3");
    info.addRow(12);
    info.addRow("Ships", "");
    info.omittedRowCount = 7;
    info.addFooterRow(UXColor(), UXSymbolStyle::Rectangle, "Total", "9");
    EXPECT_EQ(uxWriteHint(info), "May 2019, Cars: 3, Ships, and 7 more, Total: 9");
    info.enabled = false;
    EXPECT_EQ(uxWriteHint(info), "");
}

} // namespace
