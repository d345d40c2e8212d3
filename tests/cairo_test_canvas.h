#pragma once

#include "ux/cairo/ux_cairo_image_paint_config.h"
#include "ux/ux_painter.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <vector>

/** A small image that a test draws on and looks at. */
class CairoTestCanvas {
public:
    explicit CairoTestCanvas(double width, double height, double scale = 1) : m_config({width, height}, scale)
    {
    }

    /** Runs action with a painter on the image. */
    CairoTestCanvas& draw(const std::function<void(UXPainter&)>& action)
    {
        UXPainter* painter = uxCreatePainter(&m_config);
        if (painter)
            action(*painter);
        uxDestroyPainter(painter);
        return *this;
    }

    CairoTestCanvas& drawWhiteGround()
    {
        return draw([](UXPainter& painter) {
            painter.setColor({255, 255, 255});
            painter.addRectanglePath(-1e5, -1e5, 2e5, 2e5);
            painter.fill();
        });
    }

    /** @return alpha, red, green and blue of one pixel, from the highest byte on; 0 outside the image */
    std::uint32_t pixelAt(int x, int y) const
    {
        const UXImage image = m_config.obtainImage();
        const UXSize size = image.getSize();
        return x >= 0 && y >= 0 && x < size.width && y < size.height ? image.getPixels()[y * size.width + x]
                                                                     : 0;
    }

    std::vector<std::uint32_t> pixels() const
    {
        const UXImage image = m_config.obtainImage();
        const UXSize size = image.getSize();
        return {image.getPixels(), image.getPixels() + size.width * size.height};
    }

    /** @return the smallest rectangle in pixels around everything that is not clear, empty where all is */
    UXRect inkBounds() const
    {
        const UXImage image = m_config.obtainImage();
        int left = 1 << 30, top = 1 << 30, right = -1, bottom = -1;
        for (int y = 0; y < image.getSize().height; ++y) {
            for (int x = 0; x < image.getSize().width; ++x) {
                if (image.getPixels()[y * image.getSize().width + x] == 0)
                    continue;
                left = std::min(left, x), right = std::max(right, x);
                top = std::min(top, y), bottom = std::max(bottom, y);
            }
        }
        return right < 0 ? UXRect() : UXRect(left, top, right - left + 1, bottom - top + 1);
    }

    UXCairoImagePaintConfig& config() { return m_config; }

private:
    UXCairoImagePaintConfig m_config;
};

constexpr std::uint32_t kClear = 0, kBlack = 0xFF000000, kWhite = 0xFFFFFFFF, kRed = 0xFFFF0000,
                        kGreen = 0xFF00FF00, kBlue = 0xFF0000FF;
