#include "kx_vertical_bar.h"

KXVerticalBar::KXVerticalBar() = default;
KXVerticalBar::~KXVerticalBar() = default;

std::string KXVerticalBar::customSerializeTypeID() { return "KXVerticalBar"; }

bool KXVerticalBar::isVertical() const { return true; }
