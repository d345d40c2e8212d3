#include "ux/ux_space.h"

#include <cmath>

UXSpace::UXSpace() : m_self(this, [](UXSpace*) {}) {}

UXSpace::~UXSpace() = default;

void UXSpace::setParent(UXSpace* parent)
{
    for (const UXSpace* outer = parent; outer; outer = outer->getParent()) {
        if (outer == this)
            return;
    }
    m_parent = parent ? parent->m_self : nullptr;
    m_initialized = true;
}

void UXSpace::setRelativeOrigin(UXPoint origin)
{
    m_relativeOrigin = origin;
    m_initialized = true;
}

void UXSpace::setXScale(double scale)
{
    if (!std::isfinite(scale) || scale <= 0)
        return;
    m_xScale = scale;
    m_initialized = true;
}

void UXSpace::setYScale(double scale)
{
    if (!std::isfinite(scale) || scale <= 0)
        return;
    m_yScale = scale;
    m_initialized = true;
}
