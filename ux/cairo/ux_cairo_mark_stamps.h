#pragma once

#include "ux/cairo/ux_cairo_pixels.h"
#include "ux/ux_double_point.h"
#include "ux/ux_point.h"
#include "ux/ux_transform.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

/**
 * Draws equal marks by stamps: how much of each pixel a mark covers is worked out once for each of 64 places
 * within a pixel. Many marks are gathered, so that each pixel is drawn once: opaque ones as a
 * UXCairoMarkCoverage, others as UXCairoMarkLayers.
 */
class UXCairoMarkStamps {
public:
    /** Marks that reach further, in pixels, have no stamps. */
    static constexpr double greatestReach = 24;

    /** @param reach of a mark from its centre, in pixels, at most the greatest one
     *  @param addPath adds the path of one mark about the origin to a context, in units of the painter
     *  @param toDevice from these to pixels */
    UXCairoMarkStamps(double reach, std::function<void(UXCairoContext*)> addPath,
                      const UXTransform& toDevice);
    ~UXCairoMarkStamps();

    /** @param centres in the painter's units; what is not finite is left out */
    void draw(UXCairoPixels& pixels, std::span<const UXDoublePoint> centres);

private:
    /** A mark among the pixels: the first one that its stamp may cover, and the stamp. */
    struct Place {
        std::int32_t left, top;
        std::uint32_t stamp;
    };
    static constexpr std::size_t stampCount = 64;

    UXCairoPixels::Box _findBox(std::span<const UXDoublePoint> centres, const UXCairoPixels::Box& clip) const;
    bool _takePlaces(std::span<const UXDoublePoint> centres, const UXCairoPixels::Box& clip);
    bool _makeStamps();
    void _drawOneByOne(UXCairoPixels& pixels, std::span<const UXDoublePoint> centres,
                       const UXCairoPixels::Box& clip);
    template <class Gathering, class Part>
    void _drawTogether(UXCairoPixels& pixels, std::span<const UXDoublePoint> centres,
                       const UXCairoPixels::Box& box, const std::vector<Part>& stamps);

    std::function<void(UXCairoContext*)> m_addPath;
    UXTransform m_toDevice;
    int m_origin; // of a mark in its stamp, in pixels
    int m_height; // of a stamp
    int m_width;  // whole blocks of it
    double m_opacity = 1;
    std::vector<UXPoint> m_steps; // of marks that places are found for
    std::vector<Place> m_places;
    std::array<std::int32_t, stampCount> m_stampOf; // by the place within a pixel; -1 for one not needed yet
    std::vector<int> m_phases;                      // of the stamps
    // Stamp by stamp, row by row
    std::vector<std::uint8_t> m_coverage;   // of a mark
    std::vector<std::uint16_t> m_opacities; // what it takes of the ground
};
