#pragma once

#include <functional>
#include <optional>

/** @param index from 0 @param tick receives its value @return false to end the search */
using KXTickFunction = std::function<bool(int index, double& tick)>;

/**
 * Looks for a tick among many without asking for all: where the guess is right, two are asked for, otherwise
 * twice as many as the guess's error has binary digits.
 * @param count of the ticks, whose values grow with their index
 * @param guess any index
 * @return the first index whose tick is not below value, count for none; nothing once the search was ended
 */
[[nodiscard]] std::optional<int> kxFindTick(int count, double value, int guess,
                                            const KXTickFunction& obtainTick);
