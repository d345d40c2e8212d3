#pragma once

#include "data_choice.h"
#include "item_facts.h"
#include "kx_chart_selection_provider.h"
#include "kx_chart_toolbox_menu_context.h"
#include "sql_data_provider.h"
#include "view_menu_entry.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

/** What a window does when its user turns to an item of a chart. Empty handlers do nothing. */
struct ViewItemHandlers {
    std::function<void(const std::string& text)> itemClicked;   // the item, as one line
    std::function<void(const std::string& text)> copyRequested; // what goes to the clipboard
};

/** Answers charts from a table, and lets their user turn to items: pointing explains the item, a left click
 * names it and chooses it where choices are handled, a right click offers to copy it, and in charts that are
 * linked to it its matches stand out. */
class ViewDataProvider : public SqlDataProvider, public KXChartSelectionProvider {
public:
    using ChoiceHandler = std::function<void(const DataChoice& choice)>;

    /** @param session, handlers outlive this object; handlers are looked at when something is clicked */
    ViewDataProvider(SqlSession& session, DataBinding binding, const ViewItemHandlers& handlers);

    /** @param handler told what the user chooses in charts with dimensions; empty lets nothing be chosen */
    void setChoiceHandler(ChoiceHandler handler) { m_choiceHandler = std::move(handler); }
    /** @param choice what is chosen, which the chart asks for when its data are loaded */
    void setChoice(DataChoice choice) { m_choice = std::move(choice); }

    // From KXChartSelectionProvider
    bool obtainCanSelect(KXChartDataUser* user) override;
    /** Names nothing where nothing is chosen; what is chosen is found item by item. */
    bool obtainSelectedPaths(KXChartDataUser* user, std::vector<KXChartDataPath>& paths) override;
    bool obtainIsSelected(KXChartDataPath* path) override;
    void selectionChanged(KXChartDataUser* user, const std::vector<KXChartDataPath>& paths) override;
    using SqlDataProvider::selectionChanged;

    // From KXChartDataProvider and KXInteractionProvider
    bool obtainDataShouldRightClickAction(KXChartDataUser* user, KXChartDataPath* path) override;
    /** @return ViewMenuEntries, this object's until the next question */
    void* obtainDataRightClickContext(KXChartDataUser* user, KXChartDataPath* path) override;
    bool obtainDataShouldLeftClickAction(KXChartDataUser* user, KXChartDataPath* path) override;
    std::function<void()> obtainDataLeftClickAction(KXChartDataUser* user, KXChartDataPath* path) override;
    bool obtainDataShouldShowToolbox(KXChartDataUser* user, KXChartDataPath* path) override;
    /** @return a button with a menu, this object's until the next question */
    KXChartToolboxMenuContext* obtainDataToolboxContext(KXChartDataUser* user,
                                                        KXChartDataPath* path) override;
    bool obtainDataShouldLinkedHighlightAction(KXChartDataUser* user, KXChartDataPath* path) override;
    /** Items match where they have a member of a column in common and of no column another one, or the
     * measure where neither has any. A filter counts as the member that it leaves.
     *  @return the cell, or else all cells of the member, the caller's; null where nothing matches */
    KXChartDataPath* obtainDataLinkedHighlightTargetPath(KXChartDataUser* user, KXChartDataPath* path,
                                                         KXChartDataProvider* target) override;
    std::vector<KXInteractionEffect*> obtainInteractionEffects(
        const std::vector<KXObjectID>& objectIDs) override;

protected:
    const DataChoice& getChoice() const { return m_choice; }
    void tellChoice(const DataChoice& choice) const;
    /** @return the condition that members of a dimension are chosen */
    ChoiceCondition makeCondition(std::size_t dimension, std::span<const std::uint64_t> members) const;

private:
    /** What an item is called, and what it says. */
    struct Item {
        std::string label, value;

        std::string obtainLine() const { return label.empty() ? value : label + ": " + value; }
    };

    ChosenItem _makeChosenItem(const KXChartDataPath& path) const;
    std::unique_ptr<KXChartDataPath> _makeTargetPath(const ItemFacts& facts, const std::string& measureLabel);
    std::optional<std::uint64_t> _findMember(std::uint64_t dimension, const ItemFacts& facts);
    std::string _obtainTable(bool withNames);
    std::optional<std::uint64_t> _findMeasure(const std::string& label);
    Item _obtainItem(KXChartDataUser* user, const KXChartDataPath* path);
    std::function<void()> _makeCopyAction(const std::string& text) const;

    const ViewItemHandlers& m_handlers;
    ChoiceHandler m_choiceHandler;
    DataChoice m_choice;
    ViewMenuEntries m_menu;
    KXChartToolboxMenuContext m_toolbox;
};
