#pragma once

#include "kx_chart_data_user_watcher.h"
#include "kx_export.h"
#include "kx_interaction_event_type.h"
#include "kx_object_id.h"
#include "ux/ux_event_type.h"

#include <functional>
#include <map>
#include <set>
#include <vector>

class KXInteractionUser;
class UXEvent;
class UXObject;

/** Says whether an event of a type may be acted on. An empty one asks nothing. */
using KXInteractionCondition = std::function<bool(KXInteractionEventType, const UXEvent&)>;
/** The identifiers of what a part shows under an event. */
using KXInteractionObjectIDs = std::function<std::vector<KXObjectID>(const UXEvent&)>;

/** Lets the host decide what pointing at and clicking on a chart's part means: the part registers the events
 * that it cares about, and each of them asks the interaction provider for an operation. */
class KX_EXPORT KXInteraction {
public:
    /** @param owner the part, not null, not owned; it is the object that mixes this in */
    explicit KXInteraction(UXObject* owner);
    KXInteraction(const KXInteraction&) = delete;
    KXInteraction& operator=(const KXInteraction&) = delete;
    virtual ~KXInteraction();

    // A registration replaces the earlier one of the same event type.
    void registerInteraction(KXInteractionUser* user, const std::set<KXInteractionEventType>& types,
                             const KXObjectID& objectID);
    void registerInteraction(KXInteractionUser* user, const std::set<KXInteractionEventType>& types,
                             const KXObjectID& objectID, const KXInteractionCondition& condition);
    void registerInteraction(KXInteractionUser* user, const std::set<KXInteractionEventType>& types,
                             const std::vector<KXObjectID>& objectIDs);
    void registerInteraction(KXInteractionUser* user, const std::set<KXInteractionEventType>& types,
                             const std::vector<KXObjectID>& objectIDs,
                             const KXInteractionCondition& condition);
    void registerInteraction(KXInteractionUser* user, const std::set<KXInteractionEventType>& types,
                             const KXInteractionObjectIDs& objectIDs);
    void registerInteraction(KXInteractionUser* user, const std::set<KXInteractionEventType>& types,
                             const KXInteractionObjectIDs& objectIDs,
                             const KXInteractionCondition& condition);
    void registerInteractionTriggerCondition(KXInteractionEventType type,
                                             const KXInteractionCondition& condition);

    /** Acts at once, without an event of the pointer. */
    void triggerInteraction(KXInteractionUser* user, KXInteractionEventType type, const KXObjectID& objectID);
    void triggerInteraction(KXInteractionUser* user, KXInteractionEventType type,
                            const std::vector<KXObjectID>& objectIDs);

protected:
    /** Asks the provider what to do and does it: the action is posted, or run at once; a menu is opened.
     *  @return true: the event counts as handled whatever was done
     *  @throws what an action throws that runs at once */
    bool _triggerRegisteredInteraction(KXInteractionUser* user, bool post, const UXEvent& event,
                                       KXInteractionEventType type, const std::vector<KXObjectID>& objectIDs,
                                       const KXInteractionCondition& condition);

private:
    struct Registration {
        KXInteractionUser* user = nullptr; // the chart's
        KXChartDataUserWatcher chartUser;  // the same, where it serves a chart
        KXInteractionObjectIDs objectIDs;
        KXInteractionCondition condition;
    };

    bool _isAllowed(KXInteractionUser* user, const UXEvent& event, KXInteractionEventType type,
                    const KXInteractionCondition& condition) const;
    KXInteractionCondition _triggerCondition(KXInteractionEventType type) const;
    bool _triggerRegistration(KXInteractionEventType type, const UXEvent& event);

    UXObject* m_owner;
    std::map<KXInteractionEventType, Registration> m_registrations;
    std::map<KXInteractionEventType, KXInteractionCondition> m_triggerConditions;
};
