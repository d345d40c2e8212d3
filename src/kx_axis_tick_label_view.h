#pragma once

#include "kx_axis_chart_base_layer.h"
#include "kx_axis_tick_label_options.h"
#include "kx_export.h"
#include "kx_virtual_axis_label_info.h"
#include "ux/ux_color.h"
#include "ux/ux_double_size.h"
#include "ux/ux_hint_delegate.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_position.h"
#include "ux/ux_text_property.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class KXAxis;
class KXAxisTickLabelLayout;
class KXAxisTickLabelViewDelegate;
class UXLabel;
struct KXAxisTickLabelPlace;
struct KXChartDiagnostic;

/**
 * The tick labels beside one axis. It knows no data: its delegate, the chart, tells how many ticks there are,
 * their values, texts and colours. The view decides which labels show when they would collide, whether those
 * above or below the axis are turned, how long they may be, and how much room the last one needs at the
 * axis's end. A label that is cut or left out is told by the view's hint.
 *
 * Work and memory are bounded by what is visible: of a million ticks it asks for those between the axis's
 * first and last visible values, and of more than one a unit for every n-th. Labels that are thinned out
 * keep one step from end to end.
 *
 * How a chart drives it:
 *  - once: setAxis, setDelegate, setPosition, setTextProperty, and whatever else its axis property says. View
 *    and axis best have one parent.
 *  - when the data changed: reloadData.
 *  - in its layout: set the axis's range and rectangle, ask for obtainLabelLength, place axis and view with
 *    that much room across the axis, then layout. Asking resolves the rotation and the interval at the
 *    axis's present spacing, and may call axisTickLabelViewRequestExtraLengthAtTheEnd, upon which the chart
 *    passes the length to the axis under getExtraLengthKey().
 *  - when other values became visible: update(false). A band that does not fit any more is then told by
 *    obtainLabelLength; while scrolling it only grows.
 *
 * Labels stand inside the view's content rectangle, next to the edge that faces the axis, at the heights or
 * columns of their ticks; a padding there makes a gap. Where the rectangle reaches further than the axis,
 * labels at the ends have that room too. Sizes are in logical units.
 */
class KX_EXPORT KXAxisTickLabelView : public KXAxisChartBaseLayer, public UXHintDelegate {
public:
    KXAxisTickLabelView();
    ~KXAxisTickLabelView() override;

    // Set-up
    /** @return null once it is gone */
    KXAxis* getAxis() const;
    /** @param axis stays its owner's; null for none */
    void setAxis(KXAxis* axis);
    KXAxisTickLabelViewDelegate* getDelegate() const { return m_delegate; }
    /** @param delegate stays its owner's, who takes it back with null before it goes */
    void setDelegate(KXAxisTickLabelViewDelegate* delegate);
    /** @param rect of the axis's scroll bar in the parent's space, empty for none. Labels keep off it where
     *              it covers a part of the view. */
    void setScrollBarRect(const UXRect& rect);

    // Properties; each setter lays out anew what it changes
    UXPosition getPosition() const { return m_position; }
    void setPosition(UXPosition position);
    double getTickInterval() const { return m_tickInterval; }
    /** @param interval between two ticks' values where they are evenly spaced: it is where the search for the
     *                  visible ones begins */
    void setTickInterval(double interval);
    /** @param index of a tick that has a label wherever the labels stand in even steps, counted from it */
    void setAnchorTick(int index);
    bool getShowTickLabels() const { return m_showTickLabels; }
    void setShowTickLabels(bool show);
    bool getShowLabelInBound() const { return m_showLabelInBound; }
    /** On: labels at the ends move inside the view; off: they are cut there. */
    void setShowLabelInBound(bool show);
    int getCustomLabelLength() const { return m_customLabelLength; }
    /** @param length of the band whatever the labels need, where above 0 */
    void setCustomLabelLength(int length);
    int getMaxLabelLength() const { return m_maxLabelLength; }
    /** @param length that the band is no longer than, where above 0 */
    void setMaxLabelLength(int length);
    bool getAutoRotateLabels() const { return m_autoRotateLabels; }
    /** Off: labels that are turned automatically stay upright. */
    void setAutoRotateLabels(bool rotate);
    /** On: labels above or below the axis that are no numbers break in two lines before they turn, where that
     * shows all of each, and are shortened to what there is between two ticks before they are left out, where
     * that is enough to read. */
    void setPrefersAllLabels(bool prefer);
    /** On: upright labels beside the axis stand in the middle of the view rather than next to the axis. */
    void setCentersLabels(bool centers);
    KXAxisTickLabelRotationType getTickLabelRotationType() const { return m_tickLabelRotationType; }
    void setTickLabelRotationType(KXAxisTickLabelRotationType type);
    KXAxisTickLabelIntervalMode getTickLabelIntervalMode() const { return m_tickLabelIntervalMode; }
    void setTickLabelIntervalMode(KXAxisTickLabelIntervalMode mode);
    bool getUseFixedTickLabelIntervalForAutoIntervalMode() const
    {
        return m_useFixedTickLabelIntervalForAutoIntervalMode;
    }
    /** Off: each label of an automatic interval shows where there is room for it. */
    void setUseFixedTickLabelIntervalForAutoIntervalMode(bool useFixed);
    double getTickLabelInterval() const { return m_tickLabelInterval; }
    /** @param interval from one label to the next in the custom mode, in ticks; its whole part counts */
    void setTickLabelInterval(double interval);
    const UXTextProperty& getTextProperty() const { return m_textProperty; }
    /** Alignment, wrapping and shortening are the view's own. */
    void setTextProperty(const UXTextProperty& property);
    UXColor getLabelColor() const;
    void setLabelColor(const UXColor& color);

    // Steps. Each does the stale ones before it too; what the delegate asks for meanwhile is done afterwards.
    /** Asks for the number of ticks anew and forgets what is known of them. */
    void reloadData();
    /** Collects the ticks that the axis shows now; which of them have labels is open again. */
    void updateVisibleTicksCache();
    /** Measures the labels, resolves rotation and interval, and requests the extra length. */
    void updateCache();
    /** Brings all up to what the axis shows now, and asks for a layout. @param reload ticks changed too */
    void update(bool reload);
    /** Forgets the texts of the labels, where the delegate has others now, and asks for a layout. Labels that
     * were turned stay so, as while scrolling. */
    void updateTexts();
    /** Forgets how much room labels needed that have been seen, and which of them were turned or broken for
     * want of it: those that are visible count anew. */
    void forgetRoom();
    /** Makes the view have at least that many label objects, up to what can be seen. */
    void requestLabels(std::uint64_t count);

    // Queries; they do the steps that are stale first
    /** @return the room across the axis that the labels need */
    int obtainLabelLength();
    /** @return how far the first labels reach out before the axis's start while it is not scrolled, as
     * sloping ones do; a chart that keeps this much room beside the axis shows them whole */
    int obtainStartOverhang();
    std::vector<double> obtainVisibleTicks();
    /** @return Horizontal, Vertical or Degrees45 */
    KXAxisTickLabelRotationType obtainResolvedRotation();
    /** @return every how many ticks a label is wanted, -1 where each is decided by itself or none shows */
    double obtainTickLabelInterval();
    std::string obtainTickLabel(double value);
    /** @param turned whether the size is that of the rectangle around the turned label */
    KXVirtualAxisLabelInfo obtainTickLabelInfo(double value, bool turned);
    /** @return where the whole label of that value would stand, in the own space */
    UXRect obtainTickLabelRect(double value);
    /** @return what the view lets that label have: moved inside, or cut */
    UXRect obtainTickLabelRectForIntersection(double value);
    /** @return the key under which the axis keeps the extra length that this view requests */
    std::string getExtraLengthKey() const;
    /** Adds the labels of ticks in sight that have no room, or for a part of their texts. Asks nobody for
     * texts.
     *  @param chart in whose space the places are */
    void diagnose(std::vector<KXChartDiagnostic>& diagnostics, const UXObject& chart) const;
    /** @return the label objects, children; those not in use are invisible */
    std::vector<UXLabel*> obtainLabels() const;

    // The area of the labels, in the own space
    /** @return rect moved inside the area */
    UXRect updateLabelRectToShowInBoundary(const UXRect& rect) const;
    UXRect intersectLabelRect(const UXRect& rect) const;
    /** @return rect cut at the ends of the area along the axis alone */
    UXRect intersectLabelRectWithNotation(const UXRect& rect) const;
    /** @return whether the scroll bar covers a part of the view */
    bool isNextToScrollBar() const;
    UXRect obtainContentRectWithoutScrollBar() const;

    // From UXHintDelegate and UXJsonObject
    /** @return the label at a point, empty where none is drawn */
    UXRect obtainHintArea(UXPoint point) override;
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

protected:
    void customLayout() override;
    bool customMouseMove(const UXEvent& event, bool& stop) override;
    bool customMouseLeave(const UXEvent& event, bool& stop) override;

private:
    enum class ShowState { Hide, Show, Undecided };
    enum class Step { Ticks, VisibleTicks, Cache };

    /** What the view knows of a tick. */
    struct Tick {
        int index = 0;
        double value = 0;
        std::optional<std::string> text;
        bool isToCome = false;            /**< whether another text is, in place of this one */
        std::string lines;                /**< the text as it is shown, known with its size */
        std::optional<UXDoubleSize> size; /**< of the lines, before they are turned */
        ShowState state = ShowState::Undecided;
    };
    /** What the axis and the rectangles were like at the last step. */
    struct Scale {
        bool isValid = false, isReversed = false;
        double first = 0, last = 0, spacing = 0, length = 0, minValue = 0, maxValue = 0;
        double shift = 0;       /**< of a value towards the minimum, in values */
        double freeSpacing = 0; /**< what the spacing is without this view's extra length */
        UXPoint start, origin;  /**< in the axis's space: its minimum's end, and this view's corner */
        int xNotation = 0, yNotation = 0;
        UXRect area;

        friend bool operator==(const Scale&, const Scale&) = default;
    };
    struct PlacedLabel;

    template <class T>
    void _setMember(T& member, const T& value);
    void _setLength(double& member, double value);
    void _markStale(Step step);
    void _forgetMeasures();
    bool _canTurnLabels() const;
    bool _isEachDecided() const;

    // Whatever calls out answers false where work has to end: the view, its axis or its delegate has gone.
    bool _askAxis(const std::function<void(KXAxis&)>& ask);
    bool _askDelegate(const std::function<void(KXAxisTickLabelViewDelegate&)>& ask);
    bool _obtainTick(int index, double& value);
    bool _obtainText(double value, std::string& text);
    bool _knowText(Tick& tick);
    bool _measureTick(Tick& tick);
    void _settleSize(Tick& tick);
    const Tick* _findFormerTick(const Tick& tick) const;
    void _keepFormerTicks();
    bool _takeTick(int index, Tick& tick);

    // Steps
    bool _bringUpToDate(Step step);
    bool _doSteps(Step step);
    bool _readScale(Scale& scale);
    bool _pullTicks();
    bool _updateVisibleTicks();
    bool _collectVisibleTicks(const std::vector<double>& indexes);
    std::optional<int> _findTick(double value);
    Tick* _findVisibleTick(int index);
    static const Tick* _findTick(const std::vector<Tick>& ticks, int index);
    bool _updateCache();
    bool _updateRequireRotateCache(double spacing);
    bool _resolveAutoRotation(double spacing, bool& turns);
    bool _wrapLabels(double spacing);
    void _setLineCount(int count);
    bool _findCollision(double spacing, bool staysInside, bool& found);
    std::int64_t _obtainCustomInterval() const;
    std::int64_t _obtainLabelledIndex(std::int64_t from, std::int64_t step) const;
    bool _calcTickLabelInterval(double spacing);
    bool _updateShownInterval();
    bool _wantTexts();
    bool _areLabelsApart(bool& areApart);
    double _obtainMoveInside(const Tick& tick, const KXAxisTickLabelLayout& layout) const;
    double _obtainRoomAtEnd(const Tick& tick, int direction) const;
    std::optional<double> _obtainLengthForAll() const;
    double _obtainLengthKept(const Tick& tick) const;
    double _obtainWholeDistance(const Tick& tick, const Tick& other) const;
    std::optional<double> _obtainRoomToNeighbor(const Tick& tick, int direction, double edge);
    double _obtainWidthBetweenNeighbors(const Tick& tick, const UXPoint& point);
    bool _decideTickLabels();
    bool _shouldShowTickLabelsForAutoMode(Tick& tick, const Tick* neighbor);
    double _estimateLabelSize(const Tick& tick) const;
    bool _isShown(const Tick& tick) const;
    bool _calcLongestTickLabelLength();
    bool _requestExtraLength();
    bool _calcExtraLengthRequired(double& length);
    bool _calcStartOverhang();
    double _obtainOverhang(const UXDoubleSize& text, int direction) const;
    double _obtainExtraLength(double overhang, double valuesAfter) const;

    // Labels
    double _obtainRotateDegree(KXAxisTickLabelRotationType type) const;
    KXAxisTickLabelLayout _obtainLayout() const;
    UXPoint _obtainTickPoint(const UXPoint& positionInAxis) const;
    std::optional<double> _obtainLengthLimit() const;
    UXDoubleSize _measureText(const std::string& text, const UXTextProperty& property) const;
    std::string _obtainLines(const std::string& text) const;
    bool _placeLabels();
    void _joinLabels(std::vector<PlacedLabel>& placed, PlacedLabel&& label) const;
    bool _placeLabel(Tick& tick, PlacedLabel& label, bool& isPlaced);
    bool _fitLabel(PlacedLabel& label, const UXPoint& tick, double widthLimit) const;
    void _showLabels();
    void _growLabels(std::size_t count);
    bool _readLabels();
    const PlacedLabel* _findLabelAt(const UXPoint& point) const;
    bool _obtainHiddenText(const UXPoint& point, std::string& text);
    bool _findTickAt(const UXPoint& point, Tick& tick, bool& isFound);

    // Saved
    UXPosition m_position = UXPosition::Bottom;
    double m_tickInterval = 0;
    std::vector<UXObjectWatcher> m_uxLabels; // children
    bool m_showTickLabels = true;
    bool m_showLabelInBound = false;
    int m_customLabelLength = -1;
    int m_maxLabelLength = -1;
    bool m_autoRotateLabels = true;
    KXAxisTickLabelRotationType m_tickLabelRotationType = KXAxisTickLabelRotationType::Auto;
    KXAxisTickLabelIntervalMode m_tickLabelIntervalMode = KXAxisTickLabelIntervalMode::All;
    bool m_useFixedTickLabelIntervalForAutoIntervalMode = true;
    double m_tickLabelInterval = 10.0;

    UXObjectWatcher m_axis{nullptr};
    KXAxisTickLabelViewDelegate* m_delegate = nullptr; // the chart's
    UXRect m_scrollBarRect;
    UXTextProperty m_textProperty;
    bool m_prefersAllLabels = false, m_centersLabels = false;
    int m_anchorTick = 0;

    // Stale until the step is done
    bool m_ticksStale = true, m_visibleTicksStale = true, m_cacheStale = true;
    bool m_sizesStale = false; // of all texts that are known
    bool m_updating = false;

    // Derived by the steps
    Scale m_scale;
    int m_tickCount = 0;
    double m_firstTick = 0;
    double m_tickDistance = 0; // between the first two
    std::vector<Tick> m_visibleTicks;
    int m_visibleStep = 1; // every how many ticks are among the visible ones
    KXAxisTickLabelRotationType m_resolvedRotation = KXAxisTickLabelRotationType::Horizontal;
    int m_lineCount = 1;
    double m_turnedAtSpacing = -1;  // where labels were turned automatically
    double m_wrappedAtSpacing = -1; // where they were broken in two lines
    double m_calculatedInterval = -1;
    std::int64_t m_shownInterval = 1; // that one, whole and among the visible ticks
    int m_longestLabelLength = -1;
    int m_startOverhang = -1;
    // How much room a text is given that is still to come: that of the one before the last reload, or of the
    // widest one that is known
    std::vector<Tick> m_formerTicks; // measured, in m_formerLineCount lines
    int m_formerLineCount = 1;
    UXDoubleSize m_widestText;
    std::vector<PlacedLabel> m_placedLabels;
};
