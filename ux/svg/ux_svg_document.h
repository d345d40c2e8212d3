#pragma once

#include "ux/svg/ux_svg_accessible.h"
#include "ux/ux_image.h"
#include "ux/ux_size.h"

#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <unordered_map>

/** Elements one above the other; those that share a clip stand together in a group that has it. */
class UXSvgLayer {
public:
    /** @param clip the name of a clip path, empty for none */
    void add(const std::string& clip, const std::string& element);

    /** @return the elements, the group that was added to last closed */
    std::string obtainContent() const;

private:
    std::string m_content;
    std::string m_openClip;
};

/** One page: its elements, and the definitions that they refer to by name. The same drawing gives the same
 * bytes. */
class UXSvgDocument {
public:
    explicit UXSvgDocument(const UXSize& size) : m_size(size) {}

    const UXSize& getSize() const { return m_size; }
    UXSvgLayer& getGround() { return m_ground; }

    /**
     * Defines an element once, however often it is asked for.
     * @param tag such as "clipPath"
     * @param attributes each after a blank
     * @return the name to refer to it by
     */
    std::string define(const std::string& tag, const std::string& attributes, const std::string& content);

    /** @return the name of the image, which is as large as its number of pixels, at the origin */
    std::string defineImage(const UXImage& image);

    /** Has the page say something to those who do not see it; what is drawn is then hidden from them. */
    void setAccessible(UXSvgAccessible accessible);

    void write(std::ostream& out) const;

private:
    UXSize m_size;
    UXSvgLayer m_ground;
    std::string m_definitions;
    std::optional<UXSvgAccessible> m_accessible;
    std::unordered_map<std::string, std::string> m_names;
    /** By the place of their pixels; the copies keep it from being used anew. */
    std::map<const void*, std::pair<UXImage, std::string>> m_images;
};
