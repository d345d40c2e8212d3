#pragma once

#include "ux/cairo/ux_cairo_pixels.h"
#include "ux/ux_double_point.h"
#include "ux/ux_transform.h"

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

/**
 * Draws equal marks by stamps: how much of each pixel a mark covers is worked out once for each of 64 places
 * within a pixel. Where many marks lie on each other, what they leave of the ground is gathered pixel by
 * pixel, and each pixel is written once: the same as if the marks were drawn one after the other, without the
 * rounding in between.
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

    void _takePlaces(std::span<const UXDoublePoint> centres, const UXCairoPixels::Box& clip);
    bool _makeStamps(double opacity);
    void _drawOneByOne(UXCairoPixels& pixels, const UXCairoPixels::Box& clip) const;
    void _drawTogether(UXCairoPixels& pixels, const UXCairoPixels::Box& clip) const;

    std::function<void(UXCairoContext*)> m_addPath;
    UXTransform m_toDevice;
    int m_origin; // of a mark in its stamp, in pixels
    int m_height; // of a stamp
    int m_width;  // whole blocks of it
    std::vector<Place> m_places;
    UXCairoPixels::Box m_box;               // of all that the places may cover
    std::array<std::int32_t, 64> m_stampOf; // by the place within a pixel; -1 for one that is not needed
    std::vector<std::uint32_t> m_phases;    // of the stamps
    std::vector<std::uint16_t> m_opacities; // stamp by stamp, row by row: what a mark takes of the ground
};
