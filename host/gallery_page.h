#pragma once

#include "ux/ux_size.h"

#include <string>
#include <vector>

/** A picture of every sample: how its file's name ends, before ".png", and its size in logical units. */
struct GalleryPicture {
    const char* suffix;
    UXSize size;
};
inline constexpr GalleryPicture galleryPictures[] = {
    {"", {1000, 600}}, {"-medium", {480, 320}}, {"-small", {240, 160}}, {"-tiny", {160, 120}}};

/** The index page of the gallery: every sample's caption with its pictures. */
class GalleryPage {
public:
    /** @param name of the sample; its pictures stand beside the page, as does name.svg
     *  @param caption what the sample shows, any text */
    void addSample(const std::string& name, const std::string& caption, const std::string& data);

    /** @return the page, HTML in UTF-8 */
    std::string obtainHtml() const;

private:
    struct Sample {
        std::string link, name, caption, data;
    };

    std::vector<Sample> m_samples;
};
