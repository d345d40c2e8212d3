#pragma once

#include "kx_chart_aggregate_type.h"
#include "kx_chart_data_path.h"
#include "kx_chart_data_provider_dimension_setting.h"
#include "kx_chart_data_type.h"
#include "kx_export.h"
#include "kx_index_path.h"
#include "kx_interaction_provider.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

class KXChartDataUser;
struct KXChartToolboxMenuContext;
struct UXColor;
struct UXTextProperty;

/** The host's data, divided into dimensions (grouping fields) and values (measures). Every question names the
 * user that asks, so that one provider can serve several charts. A chart asks while it prepares its data and
 * then only about single items: clicks, hints, highlights. Answers are texts in UTF-8.
 *
 * A host answers what it has. By default a text is empty, a count or number 0, a question answered with no, a
 * pointer null; members are texts, values are valid numbers. Between a change of the data and the next
 * prepareData a chart may ask about items that are gone. */
class KX_EXPORT KXChartDataProvider : public KXInteractionProvider {
public:
    ~KXChartDataProvider() override;

    // Around one preparation
    virtual void beginPrepareData(KXChartDataUser* user) = 0;
    virtual void endPrepareData(KXChartDataUser* user) = 0;
    virtual void prepareData(KXChartDataUser* user);
    virtual bool obtainDataIsEmpty(KXChartDataUser* user) = 0;

    // Dimensions: a path is (dimension, member)
    virtual std::string obtainDimensionName(KXChartDataUser* user, std::uint64_t dimension);
    virtual std::string obtainDimensionLabel(KXChartDataUser* user, std::uint64_t dimension);
    virtual std::string obtainDimensionSecondaryLabel(KXChartDataUser* user, std::uint64_t dimension);
    virtual KXChartDataProviderDimensionSetting obtainDimensionSetting(KXChartDataUser* user,
                                                                       std::uint64_t dimension);
    virtual KXChartDataType obtainDimensionDataType(KXChartDataUser* user, std::uint64_t dimension);
    virtual KXChartAggregateType obtainDimensionAggregateType(KXChartDataUser* user, std::uint64_t dimension);
    virtual std::uint64_t obtainDimensionDataCount(KXChartDataUser* user, std::uint64_t dimension);
    virtual std::string obtainDimensionData(KXChartDataUser* user, const KXIndexPath& path);
    /** @return the indexes of the members whose numbers lie from one end to the other */
    virtual std::vector<std::uint64_t> obtainDimensionDataAsIndexRange(KXChartDataUser* user, double from,
                                                                       double to);
    virtual bool obtainDimensionDataIsNull(KXChartDataUser* user, const KXIndexPath& path);
    virtual bool obtainDimensionDataIsEmpty(KXChartDataUser* user, const KXIndexPath& path);
    /** @return whether the host made the member up to fill a gap */
    virtual bool obtainDimensionDataIsGenerated(KXChartDataUser* user, const KXIndexPath& path);
    virtual double obtainDimensionDataAsNumber(KXChartDataUser* user, const KXIndexPath& path);
    virtual double obtainDimensionDataAsRangeDifference(KXChartDataUser* user, const KXIndexPath& path);
    virtual std::string obtainDimensionDataAsDateTime(KXChartDataUser* user, double number);
    /** @return the member's index, -1 when there is none */
    virtual std::int64_t obtainNextValidDimensionIndex(KXChartDataUser* user, const KXIndexPath& path);
    virtual std::int64_t obtainPreviousValidDimensionIndex(KXChartDataUser* user, const KXIndexPath& path);
    virtual bool shouldFormatDimenionData(KXChartDataUser* user, const KXIndexPath& path);

    // Values: a path is (measure, position along each dimension)
    virtual std::uint64_t obtainValueCount(KXChartDataUser* user);
    virtual std::string obtainValueLabel(KXChartDataUser* user, std::uint64_t value);
    /** @return by default the value's label */
    virtual std::string obtainValueID(KXChartDataUser* user, std::uint64_t value);
    virtual KXChartDataType obtainValueDataType(KXChartDataUser* user, const KXIndexPath& path);
    virtual KXChartAggregateType obtainValueAggregateType(KXChartDataUser* user, const KXIndexPath& path);
    virtual bool validateValueData(KXChartDataUser* user, const KXIndexPath& path);
    virtual bool obtainValueDataIsNull(KXChartDataUser* user, const KXIndexPath& path);
    virtual bool obtainValueDataIsEmpty(KXChartDataUser* user, const KXIndexPath& path);
    virtual bool obtainValueDataIsGenerated(KXChartDataUser* user, const KXIndexPath& path);
    virtual double obtainValueData(KXChartDataUser* user, const KXIndexPath& path);
    virtual std::string obtainValueDataString(KXChartDataUser* user, const KXIndexPath& path);
    /** @return whether color was set; the same for the two below */
    virtual bool obtainValueDataColor(KXChartDataUser* user, const KXIndexPath& path, UXColor& color);
    virtual bool obtainValueDataColorForGroup(KXChartDataUser* user, const KXIndexPath& path, UXColor& color);
    virtual bool obtainValueDataColorForGroup(KXChartDataUser* user, std::uint64_t group, UXColor& color);
    /** Changes the text and the style of one value's label where the host wants it otherwise. */
    virtual void customizeValueDataLabel(KXChartDataUser* user, const KXIndexPath& path, std::string& text,
                                         UXTextProperty& style);

    // Clicks, menus and highlights. A path is lent for the call; contexts are the host's own.
    virtual bool obtainDataShouldRightClickAction(KXChartDataUser* user, KXChartDataPath* path);
    /** @return what opens a menu, for UXControl::notifyRightClickMenu; null opens none */
    virtual void* obtainDataRightClickContext(KXChartDataUser* user, KXChartDataPath* path);
    virtual bool obtainDataShouldLeftClickAction(KXChartDataUser* user, KXChartDataPath* path);
    /** @return what the click does, run after the event; empty for nothing */
    virtual std::function<void()> obtainDataLeftClickAction(KXChartDataUser* user, KXChartDataPath* path);
    virtual bool obtainDataShouldLinkedHighlightAction(KXChartDataUser* user, KXChartDataPath* path);
    /** @return the item of target that answers to path, owned by the caller; null when there is none */
    virtual KXChartDataPath* obtainDataLinkedHighlightTargetPath(KXChartDataUser* user, KXChartDataPath* path,
                                                                 KXChartDataProvider* target);
    /** @param path null when the chart as a whole is meant */
    virtual bool obtainDataShouldShowToolbox(KXChartDataUser* user, KXChartDataPath* path);
    /** @return the host's, copied at once; null for nothing in the strip, or the menu */
    virtual KXChartToolboxMenuContext* obtainDataToolboxContext(KXChartDataUser* user, KXChartDataPath* path);
    virtual bool obtainDataShouldDropDownMenu(KXChartDataUser* user, KXChartDataPath* path);
    virtual KXChartToolboxMenuContext* obtainDataDropDownMenuContext(KXChartDataUser* user,
                                                                     KXChartDataPath* path);

    /** Tells which part of each value belongs to what is chosen elsewhere; the chart draws it in full over
     * the whole in light. Sets parts[i] to that of the value at first with i added to its index along, NaN
     * for none. Asked when the values are.
     *  @return whether something is chosen; by default not, so that values stand as they are */
    virtual bool obtainHighlightedValues(KXChartDataUser* user, const KXIndexPath& first, std::size_t along,
                                         std::span<double> parts);
};
