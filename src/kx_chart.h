#pragma once

#include "kx_chart_linked_action.h"
#include "kx_chart_options.h"
#include "kx_export.h"
#include "kx_keys.h"
#include "kx_legend_delegate.h"
#include "ux/ux_accessible_source.h"
#include "ux/ux_color.h"
#include "ux/ux_object.h"
#include "ux/ux_position.h"
#include "ux/ux_property_table.h"

#include <memory>
#include <string>
#include <vector>

class KXChartDataAction;
class KXChartItems;
class KXChartItemsDelegate;
class KXChartLabel;
class KXChartProperty;
class KXChartToolbox;
class KXLegend;
class UXControl;
class UXHintDelegate;
class UXPainter;
struct KXChartDescription;
struct KXChartDiagnostic;
struct UXHintInfo;

/** The base of every chart: it divides its content between title, legend and plot area, hands the plot area
 * to the concrete chart, and brings the parts up to date when a chart-wide property changes. The host owns
 * the chart. */
class KX_EXPORT KXChart : public UXObject,
                          public KXLegendDelegate,
                          public KXChartLinkedAction,
                          public UXAccessibleSource {
public:
    KXChart();
    ~KXChart() override;

    // Parts: made and destroyed by the chart, never null
    KXChartProperty* getChartProperty() const;
    KXChartLabel* getTitle() const;
    KXLegend* getLegend() const;
    KXChartToolbox* getToolbox() const;
    /** @return what becomes of the chart's items; null for a chart that has none */
    KXChartItems* getItems() const { return m_items.get(); }
    /** @return the ten colours that series take in turn */
    std::vector<UXColor> getDefaultColors() const;

    // In words, as of the last layout
    /** @return in sentences of the host's language what the chart shows: its kind and title, what is on which
     * axis, between which numbers, and how they run. Numbers are written as on the chart. The host may be
     * asked, which may destroy the chart. */
    std::string summary();
    /** @return what a reader of the chart does not see in full, and why; nothing is asked */
    std::vector<KXChartDiagnostic> diagnostics() const;
    /** Says what summary() is made of: by default what the items tell. The host may be asked, which may
     * destroy the chart. */
    virtual void describe(KXChartDescription& description);
    /** @return the title, or what the host gives for it, whole */
    std::string obtainTitleText() const;

    /** The chart-wide properties by key, as the document holds them. */
    static const UXPropertyTable& obtainPropertyTable();

    // Hooks, in this order
    /** Subscribes the parts to the chart-wide properties that they show, one handler a reset group; what is
     * to be done beyond that follows from the key's effect. */
    virtual void registerChartPropertyUpdatedEvents();
    /** Shows a hint because another chart highlights an item of this one. @param info, target lent for the
     * call */
    virtual void showLinkedHighlightHint(UXHintInfo* info, UXObject* target, UXPoint point,
                                         UXControl* control);
    virtual void hideLinkedHighlightHint(UXHintInfo* info, UXControl* control);

protected:
    virtual void beforeCustomLayout();
    /** Lays out the concrete chart. @param plotArea what title and legend leave, in the chart's own space */
    virtual void _customLayout(UXRect plotArea) = 0;
    /** Resets the concrete chart's own properties. @param source a chart that has the values to take */
    virtual void _customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups);

public:
    virtual void updateLegendColor();

protected:
    /** @return whether event comes from a view that presents the chart or lets it answer the pointer */
    virtual bool _isPresentOrInteractiveUseCaseType(const UXEvent& event);

public:
    /** Takes the properties of the named groups from source: the chart-wide ones, then the concrete chart's.
     */
    virtual void customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups);
    /** Makes the parts show the properties and follow them. Only the first call acts. */
    virtual void init();
    virtual bool isInitialized();
    virtual void beforePrepareData();
    virtual void beforeReloadData();
    virtual void afterReloadData();
    virtual void reloadChartColors();

    // From UXAccessibleSource, UXJsonObject, KXLegendDelegate, KXChartLinkedAction and UXObject
    std::unique_ptr<UXAccessibleNode> createAccessibleNode() override;
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;
    KXChartDataUser* obtainLegendDataUser() override;
    /** @return the legend's own style, unless a chart type knows the shapes of its series */
    UXSymbolStyle obtainLegendSymbolStyle(std::uint64_t index) override;
    bool shouldShowPointingHandWhenMouseOverLegendCell(std::uint64_t index, const UXEvent& event) override;
    void linkedHighlightRequested(KXChartDataUser* user, const KXChartDataPath& path, UXObject* source,
                                  const UXEvent& event) override;
    void linkedHighlightCleared(KXChartDataUser* user, const KXChartDataPath& path, UXObject* source,
                                const UXEvent& event) override;
    KXHighlightResult showLinkedHighlight(const KXChartDataPath& path, UXControl* control) override;
    void hideLinkedHighlight(UXControl* control) override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

protected:
    void customLayout() override;
    bool customMouseDown(const UXEvent& event, bool& stop) override;
    bool customMouseMove(const UXEvent& event, bool& stop) override;
    bool customMouseLeave(const UXEvent& event, bool& stop) override;
    /** Walks the items; Tab goes from the chart to its legend and on to its toolbox, with Shift back; beyond
     * the first and the last it is the host's. */
    bool customKeyDown(const UXEvent& event, bool& stop) override;

    /** Adds what is not seen in full of that which the concrete chart draws. */
    virtual void _diagnose(std::vector<KXChartDiagnostic>& diagnostics) const;
    /** What a change of a key asks of the chart. A chart that colours more than its items adds it here. */
    virtual void _applyKeyEffect(UXPropertyEffect effect);
    /** Stores a value of the chart's own that differs, and applies the effect. */
    void _setKey(const UXPropertyType& type, void* member, const void* value, UXPropertyEffect effect);
    /** Takes the keys of the chart's own table that a reset of these groups takes. Both objects may be gone
     * afterwards. */
    void _resetKeys(const UXPropertyTable& table, KXChartResetType type, KXChart& source,
                    const KXKeys& groups);
    /** Takes the chart out of its parent and out of what links it to others. The destructor of each concrete
     * class begins with it, so that nobody paints or highlights what is half gone. */
    void _leaveView();
    /** Interaction was switched off: what the pointer made look different is as usual again. */
    virtual void _interactionDisabled();
    /** @return whether the base paints child. A chart that draws over its children says no to those that it
     * paints itself, on top. */
    virtual bool _shouldPaintChild(const UXObject* child) const;
    /** Draws what stands on the ground and below the children, in the chart's own space. */
    virtual void _paintUnderChildren(UXPainter& painter);
    /** Draws what stands over the children, below the toolbox, in the chart's own space. */
    virtual void _paintOverChildren(UXPaintConfig* config, const UXRect& dirtyRect);
    /** Lets the chart's items answer pointer and keyboard. A concrete chart calls it once, as it is made;
     * what it gives is the chart itself in its roles. */
    void _makeItems(KXChartItemsDelegate& delegate, KXChartDataUser& user, UXHintDelegate& hint,
                    KXChartDataAction& action);
    /** Paints child if it is visible and meets dirtyRect, which is in the chart's own space. */
    void _paintChild(UXObject* child, UXPaintConfig* config, const UXRect& dirtyRect);

private:
    struct Division;

    void _layoutAnew();
    void _reloadAnew();
    void _applyAll();
    // The title's keys that the chart works out of m_titleProperty and the label; storing them tells nobody
    bool _getTitleValueWrap() const;
    void _storeTitleValueWrap(const bool& wrap);
    std::string _getTitleDefaultValue() const;
    void _storeTitleDefaultValue(const std::string& text);
    void _updateTitleDefaultValue(const std::string& text);
    int _getTitleFontSize() const;
    void _storeTitleFontSize(const int& size);
    void _updateTitleFontSize(int size);
    void _chartPropertyUpdated(const UXProperty& property);
    bool _showBorder();
    bool _showBackground();
    bool _showTitle();
    bool _showLegend();
    bool _followInteraction();
    Division _divideContent();
    UXRect _measureTitle(const UXRect& content);
    bool _shouldShowTitle(const UXRect& title) const;
    bool _shouldShowLegend(const Division& division);
    void _placeTitle(Division& division) const;
    void _placeLegend(Division& division) const;
    bool _wantsToolbox();
    bool _walkParts(bool forwards);

    std::unique_ptr<KXChartProperty> m_chartProperty;
    KXChartLabel* m_title;     // a child
    KXLegend* m_legend;        // a child
    KXChartToolbox* m_toolbox; // a child
    std::unique_ptr<KXChartItems> m_items;
    std::vector<UXColor> m_defaultColors;
    bool m_initialized = false;
    UXPropertyTableBinding m_propertyBinding{*this, obtainPropertyTable()};
};
