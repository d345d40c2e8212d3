#include "ux/ux_accessible_source.h"

UXAccessibleSource::UXAccessibleSource() = default;
UXAccessibleSource::~UXAccessibleSource() = default;

bool UXAccessibleSource::isAccessible() const { return true; }
