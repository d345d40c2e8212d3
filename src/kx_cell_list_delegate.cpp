#include "kx_cell_list_delegate.h"

UXAccessibleInfo KXCellListDelegate::obtainCellInfo(std::uint64_t)
{
    UXAccessibleInfo info;
    info.role = UXAccessibleRole::ListItem;
    return info;
}

void KXCellListDelegate::clickCell(KXListCell&, const UXEvent&) {}
void KXCellListDelegate::switchCell(std::uint64_t, const UXEvent&) {}
