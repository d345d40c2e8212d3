#pragma once

#include "dashboard.h"
#include "ux/ux_label.h"
#include "view_board.h"

class UXPaintConfig;
struct PictureSetting;

/** A dashboard as a window or a page shows it: each item on a card where the grid has its place, below the
 * title. */
class DashboardBoard : public ViewBoard {
public:
    /** Opens the dashboard; throws HostError as that does. Handlers outlive this object. */
    DashboardBoard(DashboardDocument document, const ViewItemHandlers& handlers,
                   const CsvReader::ProgressHandler& progress = {});
    ~DashboardBoard() override;

    Dashboard& getDashboard() { return m_dashboard; }

    /** Gives the title its colour as well. */
    void takeTheme(const KXChartTheme* theme) override;
    /** Fills the room, or as much more as items need to be read. */
    void arrange(const UXSize& room) override;
    /** Lays the board out at the setting's size, whatever its items need, and paints ground and board. */
    void paintPicture(const PictureSetting& setting, UXPaintConfig& config);

private:
    void _place(const UXSize& size, int margin);

    UXLabel* m_title = nullptr; // the diagram's; null without a title
    Dashboard m_dashboard;      // its charts leave their cards before those go
};
