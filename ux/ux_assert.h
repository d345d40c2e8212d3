#pragma once

#include "ux/ux_export.h"

#include <functional>
#include <source_location>

/**
 * Reports a mistake of our own when condition is false, to the assert handler or to stderr, and goes on.
 * @return condition, so that a caller can stop there: if (!uxAssert(index < count)) return;
 */
UX_EXPORT bool uxAssert(bool condition, std::source_location location = std::source_location::current());

/** The same for a pointer that must not be null. */
UX_EXPORT bool uxAssert(const void* pointer, std::source_location location = std::source_location::current());

/** Sends failed checks to handler instead of stderr; an empty one restores stderr. */
UX_EXPORT void uxSetAssertHandler(std::function<void(std::source_location)> handler);
