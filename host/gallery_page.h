#pragma once

#include <string>
#include <vector>

/** The index page of the gallery: every sample's caption with its pictures. */
class GalleryPage {
public:
    /** @param name of the sample; its pictures are name.png, name.svg and name-small.png beside the page
     *  @param caption what the sample shows, any text */
    void addSample(const std::string& name, const std::string& caption, const std::string& data);

    /** @return the page, HTML in UTF-8 */
    std::string obtainHtml() const;

private:
    struct Sample {
        std::string name, caption, data;
    };

    std::vector<Sample> m_samples;
};
