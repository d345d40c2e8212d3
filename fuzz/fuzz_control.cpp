#include "fuzz_control.h"

#include "kx_menu_entry.h"
#include "ux/ux_event.h"
#include "ux/ux_message_right_click_param.h"

#include <vector>

void FuzzControl::notifyRightClickMenu(UXMessageRightClickParam* param, UXPoint)
{
    if (!param->data || !getActiveDiagram())
        return;
    const UXPoint point = param->event->getMousePoint();
    menus.openMenu(getActiveDiagram(), *static_cast<const std::vector<KXMenuEntry>*>(param->data),
                   {point.x, point.y, 0, 0});
}
