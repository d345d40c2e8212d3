#include "kx_horizontal_bar.h"

KXHorizontalBar::KXHorizontalBar() = default;
KXHorizontalBar::~KXHorizontalBar() = default;

std::string KXHorizontalBar::customSerializeTypeID() { return "KXHorizontalBar"; }

bool KXHorizontalBar::isVertical() const { return false; }
