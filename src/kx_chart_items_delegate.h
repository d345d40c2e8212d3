#pragma once

#include "kx_chart_item.h"
#include "kx_export.h"
#include "kx_object_id.h"
#include "ux/ux_accessible_role.h"
#include "ux/ux_point.h"
#include "ux/ux_rect.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class KXChartLabel;
struct KXChartDataPath;
struct UXHintInfo;

/** Where the keyboard goes from an item; the first two follow the order in which one reads. */
enum class KXChartItemStep { Previous, Next, Left, Right, Up, Down, PageUp, PageDown, First, Last };

/** What a chart tells of its items to whoever keeps what becomes of them. Places are in the chart's own
 * space, as of the last layout. Answers may ask the host, which may destroy the chart, unless they are const.
 */
class KX_EXPORT KXChartItemsDelegate {
public:
    // Where they are
    /** @return the item at a point, the front one of several. Not to grow with the data. */
    virtual std::optional<KXChartItem> obtainItemAt(UXPoint point) const = 0;
    /** @return what is explained at a point beside the items, named as an item; by default nothing */
    virtual std::optional<KXChartItem> obtainExplainedAt(UXPoint point) const;
    /** @return whether there is such an item and it is shown, in sight or scrolled out of it */
    virtual bool hasItem(const KXChartItem& item) const = 0;
    /** @return all that hasItem says yes to; by default those that the steps lead to */
    virtual std::vector<KXChartItem> obtainItems() const;
    /** @return what can be seen of the item, empty where that is nothing */
    virtual UXRect obtainItemRect(const KXChartItem& item) const = 0;
    /** @return where a hint stands that nobody points at; by default the middle of the item's top */
    virtual UXPoint obtainItemHintPoint(const KXChartItem& item);
    /** @return the item that a step leads to, none beyond the ends. @param from none before the first step */
    virtual std::optional<KXChartItem> obtainItemBeside(const std::optional<KXChartItem>& from,
                                                        KXChartItemStep step) const = 0;
    /** Scrolls as little as brings the item into sight; by default nothing scrolls. */
    virtual void showItem(const KXChartItem& item);

    // How they are read by those who do not see them
    /** @return how many rows of items there are, such as those of a series or of a table; 0, as by default,
     * where all stand in one row, the order of obtainItems */
    virtual std::uint64_t obtainItemRowCount() const;
    virtual std::string obtainItemRowName(std::uint64_t row);
    virtual std::uint64_t obtainItemRowLength(std::uint64_t row) const;
    /** @return the item at a place of a row, for which hasItem may say no; not to grow with the data */
    virtual KXChartItem obtainItemInRow(std::uint64_t row, std::uint64_t place) const;
    /** @return what an item is; by default a mark, and in a table a cell or a header of one */
    virtual UXAccessibleRole obtainItemRole(const KXChartItem& item) const;

    // What they are
    /** @return what an item stands for, NaN where that is no number, as by default. Asks nobody. */
    virtual double obtainItemValue(const KXChartItem& item) const;
    /** @return the same as it is written on the chart; by default empty */
    virtual std::string obtainItemValueText(const KXChartItem& item) const;
    /** @return the path that names the item for the provider, owned by the caller */
    virtual KXChartDataPath* createItemPath(const KXChartItem& item) = 0;
    /** @return the items that a path of this chart's own data names, empty for none */
    virtual std::vector<KXChartItem> findItems(const KXChartDataPath& path) = 0;
    /** @return the identifiers for interactions, empty where nothing is asked about the item */
    virtual std::vector<KXObjectID> obtainItemObjectIDs(const KXChartItem& item) const = 0;
    virtual UXHintInfo obtainItemHint(const KXChartItem& item) = 0;
    /** @return what is explained of items that stand out together; by default the first of them */
    virtual KXChartItem obtainExplained(const std::vector<KXChartItem>& items) const;

    // How they look
    /** @return the label that shows the item and keeps its effects; null, as by default, where the chart
     * draws the item itself */
    virtual KXChartLabel* obtainItemLabel(const KXChartItem& item) const;
    /** @return all labels that give way where an item stands out, by default none */
    virtual std::vector<KXChartLabel*> obtainItemLabels() const;
    /** @return the share of its opacity that an item keeps beside those that stand out */
    virtual double obtainDimmedOpacity() const;
    /** One item looks different, or did until now; what is drawn of it is drawn anew. */
    virtual void itemLookChanged(const KXChartItem& item);
    /** Other items stand out, so that what is drawn of all is drawn anew. */
    virtual void itemLooksChanged() = 0;
    /** The pointer has a hint tell of the item from now on, or of none; by default nothing else shows it.
     * Asks nobody. */
    virtual void itemExplained(const std::optional<KXChartItem>& item);

protected:
    ~KXChartItemsDelegate() = default;
};
