#include "kx_axis_tick_search.h"

#include <algorithm>
#include <cstdint>

std::optional<int> kxFindTick(int count, double value, int guess, const KXTickFunction& obtainTick)
{
    // All ticks before low are below value, none from high on is.
    int low = 0, high = (std::max)(count, 0);
    int probe = std::clamp(guess, 0, (std::max)(high - 1, 0));
    std::int64_t stride = 1;
    while (low < high) {
        double tick = 0;
        if (!obtainTick(probe, tick))
            return std::nullopt;
        if (tick < value)
            low = probe + 1;
        else
            high = probe;

        // Away from the guess in growing strides, until the tick lies between two that are known.
        if (low == 0)
            probe = static_cast<int>((std::max)(high - stride, std::int64_t{0}));
        else if (high == count)
            probe = static_cast<int>((std::min)(low + stride - 1, std::int64_t{count} - 1));
        else
            probe = low + (high - low) / 2;
        stride *= 2;
    }
    return low;
}
