#pragma once

#include "kx_export.h"
#include "ux/ux_double_point.h"
#include "ux/ux_double_rect.h"

#include <array>
#include <cstddef>
#include <span>
#include <vector>

/** A slice that is to have its label beside the pie. */
struct KXPieLabelRequest {
    double degrees = 0; /**< the painter's, where the middle of the slice is */
    double size = 0;    /**< of the slice: of two that are in each other's way the larger one stays */
    double width = 0;   /**< of the text */
};

/** Where such a label stands. */
struct KXPieLabelPlace {
    std::size_t request = 0; /**< its index */
    UXDoubleRect rect;       /**< as wide as the text, or as the column where that is less */
    bool isLeft = false;
    /** The line to the slice: from its edge outwards, then to the label. */
    std::array<UXDoublePoint, 3> leader;
};

/**
 * Places the labels of a pie in two columns beside it, in the order of their slices and as near to them as
 * the others let them be. The lines to the slices neither cross each other nor the pie: where they would, or
 * where a column is full, the smallest slices have no label.
 */
class KX_EXPORT KXPieLabelColumns {
public:
    /** @param area of the pie and both columns, which labels do not leave
     *  @param leftEnd, rightStart where the left column ends and the right one begins */
    KXPieLabelColumns(const UXDoubleRect& area, const UXDoublePoint& center, double radius, double leftEnd,
                      double rightStart);

    /** @param height of every label
     *  @return those that have a place, from top to bottom, the right column's first */
    std::vector<KXPieLabelPlace> place(std::span<const KXPieLabelRequest> requests, double height) const;
    /** @return whether a slice has its label in the left column */
    static bool isLeft(double degrees);

private:
    /** A label in its column. */
    struct Entry {
        std::size_t request;
        double size, width;
        UXDoublePoint edge, elbow; // where its line begins, and leaves the pie
        double wantedTop, top;
        std::size_t group; // labels that stand close together have the same one
    };

    std::vector<Entry> _makeEntries(std::span<const KXPieLabelRequest> requests, bool isLeft,
                                    double height) const;
    void _bendInside(std::vector<Entry>& entries, double height) const;
    void _stack(std::vector<Entry>& entries, double height) const;
    UXDoublePoint _obtainEnd(const Entry& entry, bool isLeft, double height) const;
    bool _isThroughPie(const Entry& entry, const UXDoublePoint& end) const;
    bool _dropOne(std::vector<Entry>& entries, bool isLeft, double height) const;

    UXDoubleRect m_area;
    UXDoublePoint m_center;
    double m_radius, m_leftEnd, m_rightStart;
};
