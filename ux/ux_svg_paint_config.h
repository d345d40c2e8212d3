#pragma once

#include "ux/ux_paint_config.h"
#include "ux/ux_point.h"
#include "ux/ux_size.h"

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>

class UXAccessibleNode;
class UXSvgDocument;

/**
 * Paints a page of scalable vector graphics: text stays text, lines stay sharp at every size. The same
 * drawing gives the same bytes on every machine, and whatever is drawn, the page is well-formed.
 *
 * What shows differently from a back end with pixels: nothing that was drawn can be erased or read again, so
 * that outside drawCompositedPicture the modes Source, In and Atop draw as Over does, the modes Add to
 * Lighten blend, and the others draw nothing. Fonts are those that the viewer has.
 */
class UX_EXPORT UXSvgPaintConfig final : public UXPaintConfig {
public:
    /** @param size of the page in logical units; a page without an area cannot be painted on */
    explicit UXSvgPaintConfig(const UXSize& size);
    ~UXSvgPaintConfig() override;

    /** Has the page tell those who do not see it what a view says (uxCreateAccessibleNode), as titles, roles
     * and labels; without a call it is a drawing alone. The host may be asked, which may destroy any object.
     *  @param origin where the node's diagram has its origin on the page
     *  @param greatestChildCount so many children of a node are told of */
    void describe(UXAccessibleNode& node, UXPoint origin = {}, std::uint64_t greatestChildCount = 1000);

    /** @return the page as painted so far, UTF-8 */
    std::string getSvg() const;

    /** Writes the page as painted so far. @return whether out took it */
    bool write(std::ostream& out) const;

    // From UXPaintConfig
    UXPainter* createPainter(UXObject* object) override;
    bool isPaintConfigValid() const override;

private:
    std::unique_ptr<UXSvgDocument> m_document;
};
