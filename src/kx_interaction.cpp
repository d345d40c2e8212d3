#include "kx_interaction.h"

#include "kx_chart.h"
#include "kx_chart_data_user.h"
#include "kx_context_menu.h"
#include "kx_interaction_provider.h"
#include "kx_interaction_provider_use.h"
#include "kx_interaction_user.h"
#include "ux/ux_assert.h"
#include "ux/ux_event.h"
#include "ux/ux_object.h"
#include "ux/ux_object_watcher.h"

#include <utility>

namespace {

UXEventType obtainEventType(KXInteractionEventType type)
{
    switch (type) {
    case KXInteractionEventType::RightClick:
        return UXEventType::RightClick;
    case KXInteractionEventType::DoubleClick:
        return UXEventType::MouseDoubleClick;
    case KXInteractionEventType::MouseEnter:
        return UXEventType::MouseEnter;
    case KXInteractionEventType::MouseLeave:
        return UXEventType::MouseLeave;
    case KXInteractionEventType::MouseMove:
        return UXEventType::MouseMove;
    case KXInteractionEventType::LeftClick:
        break;
    }
    return UXEventType::LeftClick;
}

} // namespace

KXInteraction::KXInteraction(UXObject* owner) : m_owner(owner) { uxAssert(owner); }

KXInteraction::~KXInteraction() = default;

void KXInteraction::registerInteraction(KXInteractionUser* user,
                                        const std::set<KXInteractionEventType>& types,
                                        const KXObjectID& objectID)
{
    registerInteraction(user, types, std::vector{objectID}, KXInteractionCondition());
}

void KXInteraction::registerInteraction(KXInteractionUser* user,
                                        const std::set<KXInteractionEventType>& types,
                                        const KXObjectID& objectID, const KXInteractionCondition& condition)
{
    registerInteraction(user, types, std::vector{objectID}, condition);
}

void KXInteraction::registerInteraction(KXInteractionUser* user,
                                        const std::set<KXInteractionEventType>& types,
                                        const std::vector<KXObjectID>& objectIDs)
{
    registerInteraction(user, types, objectIDs, KXInteractionCondition());
}

void KXInteraction::registerInteraction(KXInteractionUser* user,
                                        const std::set<KXInteractionEventType>& types,
                                        const std::vector<KXObjectID>& objectIDs,
                                        const KXInteractionCondition& condition)
{
    registerInteraction(
        user, types, [objectIDs](const UXEvent&) { return objectIDs; }, condition);
}

void KXInteraction::registerInteraction(KXInteractionUser* user,
                                        const std::set<KXInteractionEventType>& types,
                                        const KXInteractionObjectIDs& objectIDs)
{
    registerInteraction(user, types, objectIDs, KXInteractionCondition());
}

void KXInteraction::registerInteraction(KXInteractionUser* user,
                                        const std::set<KXInteractionEventType>& types,
                                        const KXInteractionObjectIDs& objectIDs,
                                        const KXInteractionCondition& condition)
{
    uxAssert(user);
    if (!user || !m_owner)
        return;
    for (const KXInteractionEventType type : types) {
        // An object keeps its handlers for good, so the first registration of a type installs the one that
        // serves all later ones.
        const auto [registration, isFirst] = m_registrations.insert_or_assign(
            type, Registration{user, KXChartDataUserWatcher(dynamic_cast<KXChartDataUser*>(user)), objectIDs,
                               condition});
        if (isFirst)
            m_owner->registerEventHandler(obtainEventType(type), [this, type](const UXEvent& event) {
                return _triggerRegistration(type, event);
            });
    }
}

void KXInteraction::registerInteractionTriggerCondition(KXInteractionEventType type,
                                                        const KXInteractionCondition& condition)
{
    m_triggerConditions[type] = condition;
}

void KXInteraction::triggerInteraction(KXInteractionUser* user, KXInteractionEventType type,
                                       const KXObjectID& objectID)
{
    triggerInteraction(user, type, std::vector{objectID});
}

void KXInteraction::triggerInteraction(KXInteractionUser* user, KXInteractionEventType type,
                                       const std::vector<KXObjectID>& objectIDs)
{
    _triggerRegisteredInteraction(user, false, UXEvent(), type, objectIDs, KXInteractionCondition());
}

bool KXInteraction::_triggerRegistration(KXInteractionEventType type, const UXEvent& event)
{
    // A copy: what runs now may register anew or destroy this object.
    const Registration registration = m_registrations[type];
    const UXObjectWatcher owner(m_owner);
    if (registration.chartUser.isGone())
        return true;
    const std::vector<KXObjectID> objectIDs = registration.objectIDs ? registration.objectIDs(event)
                                                                     : std::vector<KXObjectID>();
    if (!owner.isAlive() || registration.chartUser.isGone())
        return true;
    return _triggerRegisteredInteraction(registration.user, true, event, type, objectIDs,
                                         registration.condition);
}

KXInteractionCondition KXInteraction::_triggerCondition(KXInteractionEventType type) const
{
    const auto found = m_triggerConditions.find(type);
    return found == m_triggerConditions.end() ? KXInteractionCondition() : found->second;
}

bool KXInteraction::_isAllowed(KXInteractionUser* user, const UXEvent& event, KXInteractionEventType type,
                               const KXInteractionCondition& condition) const
{
    const UXObjectWatcher owner(m_owner);
    const KXInteractionCondition own = condition ? condition : _triggerCondition(type);
    const auto* userInteraction = dynamic_cast<const KXInteraction*>(user);
    const bool asksUser = userInteraction && (userInteraction != this || condition);
    const KXInteractionCondition ofUser = asksUser ? userInteraction->_triggerCondition(type)
                                                   : KXInteractionCondition();
    if (own && !own(type, event))
        return false;
    return owner.isAlive() && (!ofUser || ofUser(type, event)) && owner.isAlive();
}

bool KXInteraction::_triggerRegisteredInteraction(KXInteractionUser* user, bool post, const UXEvent& event,
                                                  KXInteractionEventType type,
                                                  const std::vector<KXObjectID>& objectIDs,
                                                  const KXInteractionCondition& condition)
{
    uxAssert(user);
    const auto* dataUser = dynamic_cast<const KXChartDataUser*>(user);
    const bool isOff = dataUser && !dataUser->isInteractionEnabled();
    if (!user || isOff || objectIDs.empty() || !_isAllowed(user, event, type, condition))
        return true;

    const UXObjectWatcher owner(m_owner);
    KXInteractionOperation operation;
    {
        const KXInteractionProviderUse use(*user, m_owner);
        if (use.get())
            operation = use.get()->obtainInteractionOperation(objectIDs, KXInteractionEventInfo(event));
    }
    if (!owner.isAlive())
        return true;

    if (operation.action && post)
        event.postAction(operation.action);
    else if (operation.action)
        operation.action();
    if (operation.contextMenu && owner.isAlive())
        kxOpenContextMenu(m_owner, event, operation.contextMenu);
    return true;
}
