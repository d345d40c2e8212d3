#pragma once

/** One length in the host control's pixels, a type of its own so that it cannot pass for a diagram's. */
struct UXControlDimension {
    double value = 0;

    constexpr UXControlDimension() = default;
    constexpr explicit UXControlDimension(double length) : value(length) {}

    friend constexpr bool operator==(const UXControlDimension&, const UXControlDimension&) = default;
};
