#pragma once

#include "kx_table_data_provider.h"
#include "web_item.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>

/** The columns of a page, which is told what is clicked. What is pointed at stands out in the other charts of
 * the view whose tables have a dimension of that name with a member of that text. */
class WebTable final : public KXTableDataProvider {
public:
    /** Says whether the page hears of clicks, and opens menus. */
    void setHandlers(bool hasClicks, bool hasMenus);

    // From KXTableDataProvider
    bool obtainDataShouldLeftClickAction(KXChartDataUser* user, KXChartDataPath* path) override;
    std::function<void()> obtainDataLeftClickAction(KXChartDataUser* user, KXChartDataPath* path) override;
    bool obtainDataShouldRightClickAction(KXChartDataUser* user, KXChartDataPath* path) override;
    void* obtainDataRightClickContext(KXChartDataUser* user, KXChartDataPath* path) override;
    bool obtainDataShouldLinkedHighlightAction(KXChartDataUser* user, KXChartDataPath* path) override;
    KXChartDataPath* obtainDataLinkedHighlightTargetPath(KXChartDataUser* user, KXChartDataPath* path,
                                                         KXChartDataProvider* target) override;

private:
    using Facts = std::map<std::string, std::string>; // the text of a member, by the label of its dimension

    std::uint64_t _countDimensions();
    Facts _collectFacts(const KXChartDataPath& path);
    std::unique_ptr<KXChartDataPath> _makeTargetPath(const Facts& facts, const std::string& measureLabel);

    WebItem m_menuItem;
    bool m_hasClicks = false, m_hasMenus = false;
};
