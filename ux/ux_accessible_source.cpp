#include "ux/ux_accessible_source.h"

UXAccessibleSource::UXAccessibleSource() = default;
// Not trivial: a library that is exchanged for a newer one may have more to do here.
UXAccessibleSource::~UXAccessibleSource() {}

bool UXAccessibleSource::isAccessible() const { return true; }
