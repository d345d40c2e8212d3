#pragma once

#include <functional>

class UXPainter;

/** Draws with the painter that it is handed, which is never null and lives for the call only. */
using UXPaintFunction = std::function<void(UXPainter*)>;
