#include "kx_panel_item_runs.h"
#include "ux/ux_recording_painter.h"

#include <gtest/gtest.h>

TEST(KXPanelItemRuns, DrawsRectanglesThatMakeUpALargerOneAsThatOne)
{
    const UXColor red(255, 0, 0), blue(0, 0, 255);
    const UXRect all{0, 0, 100, 100};
    const struct {
        const char* what;
        std::vector<std::pair<UXDoubleRect, UXColor>> tiles;
        UXRect dirtyRect;
        std::string drawn;
    } rows[] = {{"below, then beside, then below",
                 {{{0, 0, 2, 1}, red},
                  {{0, 1, 2, 3}, red},
                  {{2, 0, 5, 4}, red},
                  {{0, 4, 3, 2}, red},
                  {{3, 4, 4, 2}, red}},
                 all,
                 "setColor 255,0,0,1\ndrawRects 0,0,7,6\n"},
                {"a gap, another height",
                 {{{0, 0, 2, 2}, red}, {{3, 0, 2, 2}, red}, {{5, 0, 2, 3}, red}},
                 all,
                 "setColor 255,0,0,1\ndrawRects 0,0,2,2 3,0,2,2 5,0,2,3\n"},
                {"other colours, in their order",
                 {{{0, 0, 2, 2}, red}, {{2, 0, 2, 2}, blue}, {{4, 0, 2, 2}, red}},
                 all,
                 "setColor 255,0,0,1\ndrawRects 0,0,2,2\nsetColor 0,0,255,1\ndrawRects 2,0,2,2\n"
                 "setColor 255,0,0,1\ndrawRects 4,0,2,2\n"},
                {"thinner than a pixel, which are drawn wider",
                 {{{0, 0, 0.25, 2}, red}, {{0.25, 0, 0.25, 2}, red}},
                 all,
                 "setColor 255,0,0,1\ndrawRects 0,0,1,2 0,0,1,2\n"},
                {"what is not to be painted",
                 {{{0, 0, 2, 2}, red}, {{50, 0, 2, 2}, blue}, {{40, 0, 2, 2}, blue}},
                 {39, 0, 5, 5},
                 "setColor 0,0,255,1\ndrawRects 40,0,2,2\n"}};
    for (const auto& row : rows) {
        std::vector<KXPanelItem> items;
        for (const auto& [rect, color] : row.tiles)
            items.push_back({{}, KXPanelShape(rect), color, {color}});
        KXPanelItemRuns runs;
        runs.set(items);
        UXRecordingPainter painter;
        runs.paint(painter, row.dirtyRect, items);
        EXPECT_EQ(painter.getText(), row.drawn) << row.what;
    }
}

TEST(KXPanelItemRuns, DrawsWhatStandsOutOverTheOthers)
{
    const UXColor red(255, 0, 0);
    std::vector<KXPanelItem> items(3, {{}, KXPanelShape(UXDoubleRect(0, 0, 2, 2)), red, {red}});
    items[0].look.line = UXColor(0, 0, 0);
    items[1].shift = {5, 0};
    KXPanelItemRuns runs;
    runs.set(items);
    UXRecordingPainter painter;
    runs.paint(painter, {0, 0, 100, 100}, items);
    EXPECT_EQ(painter.getText(),
              "setColor 255,0,0,1\ndrawRects 5,0,2,2\nsetColor 255,0,0,1\ndrawRects 0,0,2,2\n"
              "setColor 255,0,0,1\ndrawRects 0,0,2,2\nsetColor 0,0,0,1\nsetLineWidth 1\n"
              "addRectanglePath 0,0,2,2\nstroke\n");
}
