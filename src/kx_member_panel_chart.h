#pragma once

#include "kx_chart_data_action.h"
#include "kx_chart_data_provider_hint_data.h"
#include "kx_chart_groups.h"
#include "kx_label_placer.h"
#include "kx_left_out_words.h"
#include "kx_listed_groups.h"
#include "kx_others.h"
#include "kx_panel_chart.h"
#include "kx_panel_chart_data_user.h"
#include "kx_panel_item_runs.h"
#include "kx_panel_items.h"
#include "ux/ux_hint_delegate.h"
#include "ux/ux_property_accessor.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

class KXDrawingLayer;
class KXNoDataLabel;

/**
 * A panel of shapes: one for each value of the first measure over the members of one or two dimensions, or
 * one for each measure where there is no dimension. The members of one dimension, or the measures, are the
 * groups, which have the colours, stand in the legend and can be switched off there.
 *
 * What is not to stand for itself is left out of the list of groups, or of the other dimension's members, or
 * gathered in one that is named "Others" and stands last (_listGroups, _listIndexes).
 *
 * KXChartItem{0, group, index} is the item of a group at a member of the other dimension, 0 without one.
 *
 * A kind has a key table, and says where its items lie (_layoutItems) and what is written there
 * (_requestLabels). The rest is made of that in steps, each of which is taken alone where nothing before it
 * has changed:
 *
 *     layout       shapes and labels
 *     colours      of groups, items, and of labels on items
 *     highlight    how all look just now
 *     paint        reads what the steps before have made
 */
class KX_EXPORT KXMemberPanelChart : public KXPanelChart,
                                     public KXPanelChartDataUser,
                                     public UXPropertyAccessor,
                                     public UXHintDelegate,
                                     public KXChartDataAction {
public:
    KXMemberPanelChart();
    ~KXMemberPanelChart() override;

    /** The chart's properties by key, which those of a kind follow. */
    static const UXPropertyTable& obtainPropertyTable();

    // Groups
    /** @return the number of members, or of measures where there is no dimension, however they are listed */
    virtual std::uint64_t obtainGroupCount() const;
    /** @return the groups in the order of the legend */
    const KXListedGroups& getListedGroups() const { return m_listed; }
    /** @return the member's text or the measure's label. The provider may be asked, which may destroy the
     * chart. */
    std::string obtainGroupName(std::uint64_t group);
    /** @return the host's colour, else the user's, else the palette's */
    UXColor obtainGroupColor(std::uint64_t group) const;
    bool isGroupShown(std::uint64_t group) const;
    /** Draws a group or leaves it out. It is known by its name, so that it stays so among new data. */
    void setGroupShown(std::uint64_t group, bool shown);

    // Items
    /** @return how many items a group has at most: the members of the other dimension */
    std::uint64_t obtainIndexCount() const;
    double obtainItemValue(const KXChartItem& item) const override;
    std::string obtainItemValueText(const KXChartItem& item) const override;
    /** @return which part of its value belongs to what is chosen elsewhere; NaN where nothing is chosen */
    double obtainItemPart(const KXChartItem& item) const;
    /** @return what tells of values that have no item, empty for none, as of the last layout */
    const std::string& getNote() const { return m_note; }
    /** @return what is laid out, in the order in which one reads it */
    const std::vector<KXPanelItem>& getLaidOutItems() const { return m_laidOut.getAll(); }

    // From KXLegendDelegate: one cell per group
    std::uint64_t obtainLegendCellSize() override;
    std::string obtainLegendLabel(std::uint64_t index) override;
    bool obtainLegendSymbolColor(std::uint64_t index, UXColor& color) override;
    std::vector<KXObjectID> obtainLegendCellObjectID(std::uint64_t index) override;
    bool obtainLegendCellIsOn(std::uint64_t index) override;
    void legendCellClicked(std::uint64_t index, const UXEvent& event) override;
    void legendCellHovered(std::uint64_t index, bool hovered) override;

    // From UXJsonObject, KXChartDataUser, KXChart, UXHintDelegate and KXChartDataAction
    bool customDeserialize() override;
    void resetData() override;
    void customReloadData() override;
    void customReloadColors() override;
    void reloadChartColors() override;
    void afterReloadData() override;
    UXRect obtainHintArea(UXPoint point) override;
    KXChartDataPath* createDataPath() override;

    // From KXChartItemsDelegate
    std::optional<KXChartItem> obtainItemAt(UXPoint point) const override;
    bool hasItem(const KXChartItem& item) const override;
    std::vector<KXChartItem> obtainItems() const override;
    UXRect obtainItemRect(const KXChartItem& item) const override;
    std::optional<KXChartItem> obtainItemBeside(const std::optional<KXChartItem>& from,
                                                KXChartItemStep step) const override;
    KXChartDataPath* createItemPath(const KXChartItem& item) override;
    std::vector<KXChartItem> findItems(const KXChartDataPath& path) override;
    std::vector<KXObjectID> obtainItemObjectIDs(const KXChartItem& item) const override;
    /** @return the shown groups where there are two dimensions */
    std::uint64_t obtainItemRowCount() const override;
    std::string obtainItemRowName(std::uint64_t row) override;
    std::uint64_t obtainItemRowLength(std::uint64_t row) const override;
    KXChartItem obtainItemInRow(std::uint64_t row, std::uint64_t place) const override;
    UXHintInfo obtainItemHint(const KXChartItem& item) override;
    void itemLookChanged(const KXChartItem& item) override;
    void itemLooksChanged() override;

protected:
    // What a kind answers
    /** @return the groups in their order; by default all, or the first ones where the user wants the top
     * only. Called when there are new data, and may ask the host. */
    virtual KXListedGroups _listGroups();
    /** @return the members of the other dimension in their order; by default all. Called when there are new
     * data, and may ask the host. */
    virtual KXListedGroups _listIndexes();
    /** @return the items that have a place in area, with their shapes, in the order in which one reads them
     */
    virtual std::vector<KXPanelItem> _layoutItems(const UXRect& area) = 0;
    /** Adds what is to be written; by default nothing. The mark of a request is the index of a laid-out item,
     * or none. */
    virtual void _requestLabels(const KXLabelPlacer& placer, std::vector<KXLabelRequest>& requests) const;
    /** @return the members of a dimension whose names labels may show; by default those of all that is laid
     * out */
    virtual std::vector<std::uint64_t> _obtainNamedMembers(std::uint64_t dimension) const;
    /** @return the colour of an item that the host gives none; by default its group's. Others has its own. */
    virtual UXColor _obtainItemColor(const KXChartItem& item) const;
    /** @return the colours that groups take in turn; by default the palette */
    virtual std::vector<UXColor> _obtainUsualColors() const;
    /** @return what an item is called in paths and identifiers; by default "Item" */
    virtual std::string _obtainItemKind() const;
    /** @return the identifier of a group, which those of its items go on from; by default its kind */
    virtual KXObjectID _obtainGroupObjectID(std::uint64_t group) const;
    /** @return the dimension whose members are the groups; by default 0 */
    virtual std::uint64_t _obtainGroupDimension() const;
    /** @return what its hint says where the provider says nothing; by default its name and its value. The
     * provider may be asked, which may destroy the chart. */
    virtual KXChartDataProviderHintData _describeItem(const KXChartItem& item);
    /** @return what of an item's shape is drawn in full; by default its part's share of its value */
    virtual double _obtainFullShare(const KXChartItem& item) const;
    /** @return how values of a measure are written; by default as those of all */
    virtual const KXChartDataFormat& _obtainFormat(std::uint64_t measure) const;
    /** @return how hints look */
    virtual UXHintInfo _obtainHintLook() const;
    /** @return how far an item is drawn from its place while it is chosen; by default not at all */
    virtual UXDoublePoint _obtainChosenShift(const KXPanelItem& item) const;
    /** Draws what belongs to no item, below the items; by default nothing. */
    virtual void _paintUnderItems(UXPainter& painter) const;
    /** Draws what belongs to no item, over the items and below the labels; by default nothing. */
    virtual void _paintOverItems(UXPainter& painter) const;

    // What a kind calls
    /** @return what a hint says of an item's value: its text, and that of its part where something is chosen
     * elsewhere */
    std::string _tellPart(const KXChartItem& item, const std::string& whole) const;
    /** @return how many groups the user wants to see at most */
    std::uint64_t _obtainGreatestGroupCount() const;
    /** @return of each member of a dimension the sum of its values above zero, NaN for none */
    std::vector<double> _sumMembers(std::uint64_t dimension) const;
    /** Gathers members of a dimension that have a small part of the whole; of values whose sum says nothing,
     * none. The host may be asked which one it made up, which may destroy the chart.
     *  @param members in their order
     *  @param sums by member
     *  @param rule without the host's */
    KXListedGroups _gatherMembers(std::uint64_t dimension, std::vector<std::uint64_t> members,
                                  const std::vector<double>& sums, KXOthersRule rule);
    /** @return the groups, or without a dimension the measures, or the members of the other one */
    const KXListedGroups& _getListedIndexes() const { return m_listedIndexes; }
    /** @return the cell of its value among those of the measure */
    std::uint64_t _obtainCell(const KXChartItem& item) const;
    /** @return the item itself; of Others where it holds a single member, which is not gathered there, the
     * item of that member: it has the place of Others and the name, the value and the path of its own */
    KXChartItem _obtainOwnItem(const KXChartItem& item) const;
    /** @return whether the item is what was gathered, of several members */
    bool _isOthers(const KXChartItem& item) const;
    /** Tells below the items what has none; to be called in a layout.
     *  @param property of the text
     *  @param room loses what the words take; where it is low, there are none */
    void _takeNoteRoom(const KXLeftOutCounts& counts, const UXTextProperty& property, UXDoubleRect& room);
    /** @return what an item is called in hints: its group, and its other member */
    std::string _obtainHintTitle(const KXChartItem& item);
    /** @return the texts of the members that are laid out, and the measures' labels; empty where one is still
     * to come */
    std::string _findName(const KXChartItem& item) const;
    std::string _findMemberName(std::uint64_t dimension, std::uint64_t member) const;
    /** @return a request for one line in the middle of an item, left out where it does not fit there */
    KXLabelRequest _makeLabelInside(const KXLabelPlacer& placer, std::size_t item, const std::string& text,
                                    const UXTextProperty& property) const;

    /** The values of the first measure by group and index, for work on all of them. */
    struct MemberValues {
        std::span<const double> values;
        std::uint64_t groupStep = 1, indexStep = 1;

        /** @return NaN for one that there is not */
        double at(std::uint64_t group, std::uint64_t index) const
        {
            const std::uint64_t cell = group * groupStep + index * indexStep;
            return cell < values.size() ? values[cell] : std::numeric_limits<double>::quiet_NaN();
        }
    };
    /** @return those of a chart with a dimension, as long as its data stay */
    MemberValues _obtainMemberValues() const;

    void _customLayout(UXRect plotArea) override;
    void _applyKeyEffect(UXPropertyEffect effect) override;
    void _diagnose(std::vector<KXChartDiagnostic>& diagnostics) const override;

private:
    struct Label {
        KXPlacedLabel placed;
        std::size_t item; // an index, noOwner for none
        UXColor drawnColor;
    };

    /** @return the item's member of a dimension */
    std::uint64_t _obtainMember(const KXChartItem& item, std::uint64_t dimension) const;
    /** @return the items that it stands for: its own, or those that are gathered in it and have a part there
     */
    std::vector<KXChartItem> _obtainHeldItems(const KXChartItem& item) const;
    const KXListedGroups& _obtainListed(std::uint64_t dimension) const;
    std::optional<std::uint64_t> _findHostOthers(std::uint64_t dimension,
                                                 const std::vector<std::uint64_t>& members);
    bool _doMeasuresAddUp() const;
    bool _loadGroups();
    void _findSoleMembers();
    std::uint64_t _obtainMeasure(const KXChartItem& item) const;
    KXIndexPath _obtainValuePath(const KXChartItem& item) const;
    double _obtainMemberValue(const KXChartItem& item) const;
    double _obtainMemberPart(const KXChartItem& item) const;
    double _sumHeld(const KXChartItem& item,
                    double (KXMemberPanelChart::*obtain)(const KXChartItem& item) const) const;
    bool _holdsValue(const KXChartItem& item, const KXIndexPath& valuePath) const;
    bool _isOfMembers(const KXChartItem& item, const KXIndexPath& path) const;
    bool _loadNames();
    void _placeLabels(const UXRect& area);
    void _updateColors();
    void _updateLook(KXPanelItem& item) const;
    void _updateLabelLook(Label& label) const;
    void _updateLooks();
    void _paintItems(UXPainter& painter, const UXRect& dirtyRect) const;

    KXDrawingLayer* m_layer;        // a child
    KXNoDataLabel* m_noDataLabel;   // a child
    KXListedGroups m_listed;        // the groups
    KXListedGroups m_listedIndexes; // the members of the other dimension; without one it is 0 alone
    /** Where Others holds a single member of its dimension: that one, by the member of the other one. */
    std::unordered_map<std::uint64_t, std::uint64_t> m_soleMembers;
    KXChartGroups m_groups;
    std::string m_othersName;                                // in the host's language
    std::unordered_map<std::uint64_t, UXColor> m_hostColors; // of items that have one of their own, by cell
    KXPanelItems m_laidOut;
    KXPanelItemRuns m_runs; // of what is laid out, as it looks
    std::vector<Label> m_labels;
    KXTextLosses m_labelLosses;
    KXLeftOutWords m_leftOutWords;
    std::string m_note;
    KXLabelRequest m_noteRequest;
    std::array<std::unordered_map<std::uint64_t, std::string>, greatestDimensionCount> m_names;
    UXPropertyTableBinding m_panelPropertyBinding{*this, obtainPropertyTable()};
};
