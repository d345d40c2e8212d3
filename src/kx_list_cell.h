#pragma once

#include "kx_export.h"
#include "ux/ux_object.h"

#include <cstdint>

class UXEvent;

/** Stands for one cell of a list. A list has as many of these as show just now; while it scrolls they stand
 * for other cells in turn. */
class KX_EXPORT KXListCell : public UXObject {
public:
    KXListCell();
    ~KXListCell() override;

    std::uint64_t getIndex() const { return m_index; }
    /** @return whether the pointer is over the cell */
    bool isHovered() const { return m_hovered; }
    /** Looks as without the pointer, until it moves again. Who hears of it may destroy the cell. */
    virtual void endHover() = 0;
    /** Shows what there is to say beside what can be seen, if there is anything.
     *  @param point in the own space
     *  @param event the one that led here, may be null */
    virtual void explain(UXPoint point, UXEvent* event) = 0;
    virtual void endExplanation() = 0;

protected:
    void _setIndex(std::uint64_t index) { m_index = index; }
    /** @return whether it was hovered before */
    bool _setHovered(bool hovered);

private:
    std::uint64_t m_index = 0;
    bool m_hovered = false;
};
