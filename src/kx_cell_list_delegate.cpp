#include "kx_cell_list_delegate.h"

void KXCellListDelegate::clickCell(KXListCell&, const UXEvent&) {}
void KXCellListDelegate::switchCell(std::uint64_t, const UXEvent&) {}
