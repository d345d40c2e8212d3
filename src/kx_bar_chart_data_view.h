#pragma once

#include "kx_axis_chart_data_view.h"
#include "kx_axis_chart_mark.h"
#include "kx_axis_chart_stacks.h"
#include "kx_export.h"
#include "ux/ux_color.h"
#include "ux/ux_point.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class KXBarChartProperty;
class UXPainter;
struct KXBar;
struct KXBarChartRecords;
struct KXBarLabel;
struct KXBarPlane;
struct KXBarSlot;
struct KXChartItemLook;

/**
 * Draws each value as a bar from zero on: the series of a category side by side, or stacked, where the value
 * axis is. A null leaves its place in a group empty; a hidden series takes no room. Where bars are
 * closer together than pixels are, they are merged with all extremes kept, series still side by side, and
 * have no labels.
 */
class KX_EXPORT KXBarChartDataView : public KXAxisChartDataView {
public:
    /** @param property what the user sets about the bars, which other views may share; null for one of its
     * own */
    explicit KXBarChartDataView(std::shared_ptr<KXBarChartProperty> property = nullptr);
    ~KXBarChartDataView() override;

    /** @return never null */
    KXBarChartProperty* getBarChartProperty() const { return m_property.get(); }

    // What can be seen, as of the last layout
    const std::vector<KXBar>& getBars() const;
    const std::vector<KXBarSlot>& getSlots() const;
    const KXBarPlane& getPlane() const;
    const std::vector<KXBarLabel>& getLabels() const;
    /** @return whether a bar can stand for those of many categories */
    bool isDense() const;
    /** @return the colour of a bar: the host's, else its category's or its series' */
    UXColor obtainBarColor(const KXAxisChartMark& mark) const;
    /** @return the share of a bar that belongs to what is chosen elsewhere and is drawn in full: all of it,
     * 1, where nothing is chosen */
    double obtainFullShare(std::size_t bar) const;

    /** Places the bars anew. Nothing of source is kept. */
    void placeBars(const KXAxisChartStacks& source, const KXBarPlane& plane);
    /** @return the bar at a point of the plot's space, none beside the bars. Short bars can be hit a little
     * beside their ends. */
    const KXBar* hitBar(UXPoint point) const;
    /** @return the slot at that place across, null where there is none */
    const KXBarSlot* findSlot(UXPoint point) const;
    /** @return the slots that an interval across touches, by their indexes: the first and the one after the
     * last */
    std::pair<std::size_t, std::size_t> findSlots(const KXAxisChartInterval& across) const;

    static const UXPropertyTable& obtainPropertyTable();

    // From KXAxisChartDataView and UXJsonObject
    bool shouldIncludeZero() const override;
    double obtainMinCategorySpacing() const override;
    double obtainLabelledCategorySpacing() const override;
    double obtainOverhang() const override;
    double obtainExtraLength() const override;
    void reload() override;
    void layout(const KXAxisChartPlotFrame& frame) override;
    std::vector<KXAxisChartMark> obtainSingleMarks() const override;
    void updateLook() override;
    void layoutLabels() override;
    std::vector<UXDoubleRect> obtainLabelRects() const override;
    void paint(UXPainter& painter, const UXRect& dirtyRect) const override;
    void paintLabels(UXPainter& painter, const UXRect& dirtyRect) const override;
    std::optional<KXAxisChartMark> hitMark(UXPoint point) const override;
    UXRect obtainMarkPlace(const KXAxisChartMark& mark) const override;
    std::vector<UXRect> obtainMarkRects(const KXAxisChartMark& mark) const override;
    std::optional<std::uint64_t> obtainCategoryAt(UXPoint point) const override;
    std::optional<UXPoint> obtainHintPoint(const KXAxisChartMark& mark) const override;
    void fillHintRow(UXHintRowInfo& row, const KXAxisChartMark& mark) override;
    void fillHintFooter(UXHintInfo& info, std::uint64_t category) override;
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

protected:
    /** What stands beyond the bars of a slot. */
    struct Total {
        double place; /**< beyond the bars on that side of zero */
        double value;
    };

    /** @return by default one, the sum of the category */
    virtual std::vector<Total> _obtainTotals(const KXAxisChartStacks& source, std::uint64_t category) const;
    /** Changes bars that have their places; by default none. */
    virtual void _finishBars(std::vector<KXBar>& bars);
    /** @return whether the text of a bar may stand beyond its end; by default not in stacks, where another
     * bar follows */
    virtual bool _canStandOutside(std::size_t bar) const;

private:
    struct LabelRequests;

    void _placeWhiskers();
    double _obtainShare() const;
    double _obtainPlaceAcross(UXPoint point) const;
    /** @return the bars to be painted of what lies in rect, by their indexes: the first and the one after the
     * last */
    std::pair<std::size_t, std::size_t> _findBars(const UXRect& rect) const;
    void _takeShares();
    UXDoubleRect _obtainFullPart(std::size_t bar, const UXDoubleRect& rect) const;
    UXColor _obtainTextGround(std::size_t bar, const UXColor& color) const;
    UXColor _obtainLight(const UXColor& color) const;
    void _paintStandingOut(UXPainter& painter, std::size_t bar, const UXDoubleRect& rect,
                           const KXChartItemLook& look) const;

    // Labels
    void _requestTotals(const KXAxisChartStacks& source, LabelRequests& requests) const;
    void _requestBarLabels(const KXAxisChartStacks& source, LabelRequests& requests, bool extremes);
    void _requestBarLabel(const KXAxisChartStacks& source, std::size_t bar, std::size_t position,
                          bool isExtreme, LabelRequests& requests);
    void _placeLabels(const LabelRequests& requests);

    std::shared_ptr<KXBarChartProperty> m_property;
    std::unique_ptr<KXBarChartRecords> m_made; // by layout, look and labels
    UXPropertyTableBinding m_keyBinding{*this, obtainPropertyTable()};
};
