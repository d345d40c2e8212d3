#include "kx_accessible_button.h"

#include "ux/ux_event.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object.h"
#include "ux/ux_rect_functions.h"

#include <utility>

KXAccessibleButton::KXAccessibleButton(UXObject& button, std::string name, bool isEnabled)
    : UXAccessibleObject(button, UXAccessibleRole::Button, std::move(name)), m_isEnabled(isEnabled)
{
}

KXAccessibleButton::~KXAccessibleButton() = default;

UXAccessibleInfo KXAccessibleButton::obtainInfo()
{
    UXAccessibleInfo info = UXAccessibleObject::obtainInfo();
    info.isDisabled = !m_isEnabled;
    if (m_isEnabled)
        info.actions = {UXAccessibleAction::Press};
    return info;
}

bool KXAccessibleButton::perform(UXAccessibleAction action)
{
    const UXNotificationScope scope;
    UXObject* button = getObject();
    if (!button || !m_isEnabled || action != UXAccessibleAction::Press)
        return false;
    UXEvent click(UXEventType::LeftClick);
    click.addEventKey(UXEventKey::LeftButton);
    const UXRect rect = button->getBoundingRect();
    click.setMousePoint(button->translatePointToParent({uxMidX(rect), uxMidY(rect)}, nullptr));
    const bool isDone = button->triggerEventHandler(click);
    click.runPostedActions();
    return isDone;
}
