#include "kx_list_cell.h"

#include <utility>

KXListCell::KXListCell() = default;
KXListCell::~KXListCell() = default;

bool KXListCell::_setHovered(bool hovered) { return std::exchange(m_hovered, hovered); }
