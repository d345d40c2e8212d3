#pragma once

#include "ux/ux_size.h"

#include <span>
#include <string>
#include <vector>

struct ChartSample;

/** A picture of a sample: how its file's name ends, before ".png", and its size in logical units. */
struct GalleryPicture {
    const char* suffix;
    UXSize size;
};
/** @return the pictures that are made of a sample, the largest first */
std::span<const GalleryPicture> obtainGalleryPictures(const ChartSample& sample);

/** The index page of the gallery: every sample's caption with its pictures. */
class GalleryPage {
public:
    /** @param sample its pictures stand beside the page, as does its SVG, all named after it
     *  @param caption what the sample shows, any text */
    void addSample(const ChartSample& sample, const std::string& caption);

    /** @return the page, HTML in UTF-8 */
    std::string obtainHtml() const;

private:
    struct Sample {
        std::string link, name, caption, data; // the data's file, empty for a dashboard
        std::span<const GalleryPicture> pictures;
    };

    std::vector<Sample> m_samples;
};
