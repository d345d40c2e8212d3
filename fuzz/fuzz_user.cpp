#include "fuzz_user.h"

#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_global_event_diagram.h"
#include "ux/ux_key_code.h"

#include <cstddef>
#include <iterator>
#include <vector>

namespace {

void collectVisible(UXObject* object, std::vector<UXObject*>& found)
{
    if (!object->getVisible() || found.size() >= 512)
        return;
    found.push_back(object);
    for (UXObject* child : object->getChildren())
        collectVisible(child, found);
}

std::vector<UXObject*> collectVisible(UXDiagram& diagram)
{
    std::vector<UXObject*> found;
    for (UXGlobalEventDiagram* global : diagram.getGlobalEventDiagrams())
        collectVisible(global, found);
    collectVisible(&diagram, found);
    return found;
}

} // namespace

UXControlPoint FuzzUser::_takePoint(UXControl& control)
{
    const int x = m_input.takeByte();
    const int y = m_input.takeByte();
    UXDiagram* diagram = control.getActiveDiagram();
    if (x < 128 || !diagram)
        return {x * 4, y * 2};
    const std::vector<UXObject*> targets = collectVisible(*diagram);
    const UXObject& target = *targets[static_cast<std::size_t>((x - 128) * 256 + y) % targets.size()];
    const UXRect rect = target.getBoundingRect();
    return control.diagramSpaceToControlSpace(
        target.translatePointToParent({rect.width / 2, rect.height / 2}, nullptr));
}

UXEvent FuzzUser::_takeEvent()
{
    UXEvent event;
    const int keys = m_input.takeByte();
    for (const UXEventKey key : {UXEventKey::Shift, UXEventKey::Ctrl, UXEventKey::Alt, UXEventKey::LeftButton,
                                 UXEventKey::RightButton}) {
        if ((keys & static_cast<int>(key)) != 0)
            event.addEventKey(key);
    }
    event.setWheelDelta({(keys % 5) - 2.0, (keys % 7) - 3.0});
    event.setClickCount(keys % 4);
    return event;
}

void FuzzUser::act(UXControl& control)
{
    const int choice = m_input.takeBelow(32);
    if (choice < 18)
        _useMouse(control, choice);
    else if (choice < 20)
        _drag(control);
    else if (choice < 25)
        _type(control);
    else
        _changeControl(control, choice);
}

void FuzzUser::_useMouse(UXControl& control, int choice)
{
    using Entry = bool (UXControl::*)(const UXControlPoint&, const UXEvent&);
    static constexpr Entry entries[] = {
        &UXControl::mouseMove,        &UXControl::mouseMove,  &UXControl::mouseMove,
        &UXControl::mouseDown,        &UXControl::mouseUp,    &UXControl::mouseDown,
        &UXControl::mouseUp,          &UXControl::mouseEnter, &UXControl::mouseLeave,
        &UXControl::mouseDoubleClick, &UXControl::mouseWheel, &UXControl::externalDragging,
        &UXControl::externalDrop};
    const UXEvent event = _takeEvent();
    const UXControlPoint point = _takePoint(control);
    if (choice < static_cast<int>(std::size(entries))) {
        (control.*entries[choice])(point, event);
        return;
    }
    UXEvent click = event;
    click.addEventKey(choice == 17 ? UXEventKey::RightButton : UXEventKey::LeftButton);
    control.mouseMove(point, event.copyWithoutActions());
    control.mouseDown(point, click.copyWithoutActions());
    control.mouseUp(point, click.copyWithoutActions());
}

void FuzzUser::_drag(UXControl& control)
{
    UXEvent event = _takeEvent();
    event.addEventKey(UXEventKey::LeftButton);
    control.mouseDown(_takePoint(control), event.copyWithoutActions());
    for (int moves = m_input.takeBelow(4); moves > 0; --moves) {
        control.mouseMove(_takePoint(control), event.copyWithoutActions());
        control.timer(m_now += 16);
    }
    control.mouseUp(_takePoint(control), event.copyWithoutActions());
}

void FuzzUser::_type(UXControl& control)
{
    static constexpr UXKeyCode keys[] = {
        UXKeyCode::Backspace, UXKeyCode::Tab,      UXKeyCode::Enter, UXKeyCode::Escape, UXKeyCode::Space,
        UXKeyCode::PageUp,    UXKeyCode::PageDown, UXKeyCode::End,   UXKeyCode::Home,   UXKeyCode::Left,
        UXKeyCode::Up,        UXKeyCode::Right,    UXKeyCode::Down,  UXKeyCode::Delete, UXKeyCode::Down};
    for (int count = m_input.takeBelow(6); count >= 0; --count) {
        UXEvent event = _takeEvent();
        const int code = m_input.takeByte();
        if (code < 224)
            event.setKeyCode(static_cast<int>(keys[code % 15]));
        else
            event.setKeyText(code < 240 ? "e" : m_input.takeText());
        control.keyDown(event.copyWithoutActions());
        if (code % 2 == 0)
            control.keyUp(event);
    }
}

void FuzzUser::_changeControl(UXControl& control, int choice)
{
    switch (choice) {
    case 25:
    case 26:
        return control.timer(m_now += m_input.takeByte());
    case 27:
        return control.setZoomRatio(m_input.takeNumber());
    case 28: {
        const int width = m_input.takeInt();
        return control.setControlRect({0, 0, width, m_input.takeInt()});
    }
    case 29:
        return control.setScalingFactor(m_input.takeNumber());
    case 30: {
        const int x = m_input.takeInt();
        return control.setDiagramOrigin({x, m_input.takeInt()});
    }
    default: {
        const UXEvent event = _takeEvent();
        const bool keepsPoint = m_input.takeBool();
        m_input.takeBool() ? control.zoomIn(keepsPoint, event) : control.zoomOut(keepsPoint, event);
        control.runPostedActions();
    }
    }
}
