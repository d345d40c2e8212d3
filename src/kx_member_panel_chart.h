#pragma once

#include "kx_chart_data_action.h"
#include "kx_panel_chart.h"
#include "kx_panel_chart_data_user.h"
#include "ux/ux_hint_delegate.h"
#include "ux/ux_property_accessor.h"

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

class KXChartDataFormat;

/**
 * A panel with one item for each member of dimension 0, of the first measure; without a dimension one for
 * each measure. It knows the items' names, colours, values, paths, hints and legend, and which of them the
 * user has switched off. Items are KXChartItem{0, i, 0}.
 *
 * A chart type lays out in _customLayout, draws in _paintUnderChildren what it has laid out, with
 * KXChartItems::obtainDrawnColor, and answers obtainItemAt and obtainItemRect.
 */
class KX_EXPORT KXMemberPanelChart : public KXPanelChart,
                                     public KXPanelChartDataUser,
                                     public UXPropertyAccessor,
                                     public UXHintDelegate,
                                     public KXChartDataAction {
public:
    KXMemberPanelChart();
    ~KXMemberPanelChart() override;

    /** @return how values are written; made and destroyed by the chart, never null */
    KXChartDataFormat* getDataFormat() const;

    // Items; of one past the count there is neither name nor value
    std::uint64_t obtainItemCount() const;
    /** @return NaN where the item has none */
    double obtainItemValue(std::uint64_t item) const;
    /** @return the member's text or the measure's label. The provider may be asked, which may destroy the
     * chart. */
    std::string obtainItemName(std::uint64_t item);
    std::string obtainItemValueText(std::uint64_t item) const;
    /** @return the host's colour, else the palette's */
    UXColor obtainItemColor(std::uint64_t item) const;
    /** @return whether the item is drawn: it has a value, and the user has not switched it off */
    bool isItemShown(std::uint64_t item) const;
    /** Draws an item or leaves it out. It is known by its name, so that it stays so among new data. */
    void setItemShown(std::uint64_t item, bool shown);

    // From KXLegendDelegate: one cell per item
    std::uint64_t obtainLegendCellSize() override;
    std::string obtainLegendLabel(std::uint64_t index) override;
    bool obtainLegendSymbolColor(std::uint64_t index, UXColor& color) override;
    std::vector<KXObjectID> obtainLegendCellObjectID(std::uint64_t index) override;
    bool obtainLegendCellIsOn(std::uint64_t index) override;
    void legendCellClicked(std::uint64_t index, const UXEvent& event) override;
    void legendCellHovered(std::uint64_t index, bool hovered) override;

    // From KXChartDataUser, KXChart, UXHintDelegate and KXChartDataAction
    void customReloadData() override;
    void customReloadColors() override;
    void reloadChartColors() override;
    void afterReloadData() override;
    UXRect obtainHintArea(UXPoint point) override;
    KXChartDataPath* createDataPath() override;

    // From KXChartItemsDelegate
    KXChartDataPath* createItemPath(const KXChartItem& item) override;
    std::vector<KXChartItem> findItems(const KXChartDataPath& path) override;
    std::vector<KXObjectID> obtainItemObjectIDs(const KXChartItem& item) const override;
    UXHintInfo obtainItemHint(const KXChartItem& item) override;

protected:
    std::vector<KXChartItem> _obtainShownItems() const override;
    /** @return what an item is called in paths and identifiers: "Slice" */
    virtual std::string _obtainItemKind() const;

private:
    bool _showsMembers() const { return getDimensionCount() > 0; }
    KXIndexPath _obtainItemPath(std::uint64_t item) const;

    std::unique_ptr<KXChartDataFormat> m_dataFormat;
    std::vector<UXColor> m_itemColors;
    std::vector<bool> m_isOn; // by item
    std::set<std::string> m_namesOff;
};
