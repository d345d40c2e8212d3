#pragma once

#include "kx_collision_grid.h"
#include "kx_export.h"
#include "kx_text_losses.h"
#include "ux/ux_color.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_double_size.h"
#include "ux/ux_text_property.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

class UXLayoutHelper;

/** A place where a label may stand. */
struct KXLabelCandidate {
    UXDoubleRect rect; /**< holds the text, or what is left of it where it may be shortened */
    std::optional<UXColor>
        ground; /**< the text is dark or white, as this wants it; none: in its own colour */
};

/** What a chart wants one label to be. */
struct KXLabelRequest {
    std::string text; /**< one line; an empty one has no label */
    UXTextProperty property;
    int rank = 0; /**< of two requests the lower one has the first choice, of equals the earlier one */
    bool mayShorten = false; /**< in a candidate that is not wide enough, rather than be left out */
    std::size_t mark = KXCollisionGrid::noOwner; /**< whose label it is: it may cover that obstacle */
    std::vector<KXLabelCandidate> candidates;    /**< the best one first */
};

/** A label that has its place. */
struct KXPlacedLabel {
    std::size_t request = 0; /**< its index */
    std::string text;        /**< with an ellipsis where it was shortened */
    UXDoubleRect rect;
    UXTextProperty property;
    bool isOnGround = false; /**< in the colour that the candidate's ground wants */
};

/**
 * Finds places for the labels of marks, whatever shape these have: no label touches another one or an
 * obstacle that is not its own, or leaves the area. The same requests always get the same places.
 */
class KX_EXPORT KXLabelPlacer {
public:
    /** @param area that no label leaves
     *  @param gap the least room between two labels in one line */
    KXLabelPlacer(const UXDoubleRect& area, double gap);
    ~KXLabelPlacer();

    /** @return the extent of text in one line, in whole units */
    UXDoubleSize measure(const std::string& text, const UXTextProperty& property) const;

    /** @param mark whose label may cover it */
    void addObstacle(const UXDoubleRect& rect, std::size_t mark = KXCollisionGrid::noOwner);
    /** Adds a label that has its place already. */
    void addLabel(const UXDoubleRect& rect);
    /** @return those that found a place, in the order of their ranks; they are obstacles from now on */
    std::vector<KXPlacedLabel> place(std::span<const KXLabelRequest> requests);
    /** Notes a text that is not even asked a place for. */
    void leaveOut(const std::string& text, const UXDoubleRect& rect) { m_losses.leaveOut(text, rect); }
    /** @return what has found no place, or one for a part of it */
    const KXTextLosses& getLosses() const { return m_losses; }

private:
    bool _isInside(const UXDoubleRect& rect) const;
    std::string _fit(const KXLabelRequest& request, const UXDoubleRect& rect, double width) const;
    std::optional<KXPlacedLabel> _placeOne(const KXLabelRequest& request);

    UXDoubleRect m_area;
    double m_gap;
    KXCollisionGrid m_grid;
    KXTextLosses m_losses;
    std::unique_ptr<UXLayoutHelper> m_helper;
};
