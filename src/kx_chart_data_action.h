#pragma once

#include "kx_chart_data_path.h"
#include "kx_chart_data_user_watcher.h"
#include "kx_export.h"
#include "ux/ux_event_type.h"

#include <functional>
#include <memory>

class KXChartDataUser;
class KXChartLinkedAction;
class UXEvent;
class UXObject;

/** Says whether a click or a highlight may happen now. An empty one asks nothing. */
using KXTriggerCondition = std::function<bool()>;

/** Turns a click on a piece of data into a call back to the provider: a left-click action, a right-click menu
 * or a highlight in the linked charts. Clickable parts and charts mix it in. */
class KX_EXPORT KXChartDataAction {
public:
    /** @param owner the object that is clicked, not null, not owned; it is the object that mixes this in */
    explicit KXChartDataAction(UXObject* owner);
    KXChartDataAction(const KXChartDataAction&) = delete;
    KXChartDataAction& operator=(const KXChartDataAction&) = delete;
    virtual ~KXChartDataAction();

    /** @return a new path that names the item this object shows, owned by the caller; null when it shows none
     */
    virtual KXChartDataPath* createDataPath() = 0;

    // Each registration replaces the one before. A path given here belongs to this object from then on.

    virtual void registerRightClickMenu(KXChartDataUser* user, KXChartDataPath* path,
                                        KXTriggerCondition condition);
    /** Answers right clicks if the provider wants a menu for this item now. */
    virtual void registerRightClickMenu(KXChartDataUser* user, KXTriggerCondition condition);
    virtual void registerRightClickMenuTriggerCondition(KXTriggerCondition condition);
    virtual void registerLeftClickAction(KXChartDataUser* user, KXChartDataPath* path,
                                         KXTriggerCondition condition);
    virtual void registerLeftClickAction(KXChartDataUser* user, KXTriggerCondition condition);
    virtual void registerLeftClickActionTriggerCondition(KXTriggerCondition condition);
    /** Runs the provider's action at once, as a key press does, if the provider wants clicks on this item.
     *  @throws std::bad_function_call when the provider wants the click but gives no action */
    virtual void triggerLeftClickAction(KXChartDataUser* user);
    virtual void registerLinkedHighlightAction(KXChartDataUser* user, KXChartDataPath* path,
                                               KXTriggerCondition condition);
    virtual void registerLinkedHighlightAction(KXChartDataUser* user, KXTriggerCondition condition);
    virtual void registerLinkedHighlightActionTriggerCondition(KXTriggerCondition condition);
    virtual void triggerLinkedHighlightAction(KXChartDataUser* user, UXObject* source, const UXEvent& event);
    virtual void triggerLinkedHighlightClearAction(KXChartDataUser* user, UXObject* source,
                                                   const UXEvent& event);

    /** Shows a hand over the owner where its item can be clicked just now. */
    void showWhetherClickable();

protected:
    /** @return the user of the last registration, null without any, and once its chart is gone */
    KXChartDataUser* getDataUser() const { return m_dataUser.get(); }
    /** Asks the provider for the click's action and posts it, or runs it at once.
     *  @return whether the click was allowed, had an item and a provider to ask
     *  @throws std::bad_function_call when an empty action must run at once */
    bool _triggerRegisteredLeftClickAction(KXChartDataUser* user, bool post, const UXEvent& event,
                                           const KXTriggerCondition& condition);

private:
    /** One kind of trigger and what it was last registered with. */
    struct Trigger {
        KXChartDataUserWatcher user;         // the chart's
        KXTriggerCondition condition;        // of the registering call
        KXTriggerCondition triggerCondition; // registered by itself
        bool enabled = false;
        bool handlerInstalled = false; // an object keeps its handlers, so one serves all registrations
    };
    using LinkedHighlightStep = void (KXChartLinkedAction::*)(KXChartDataUser*, const KXChartDataPath&,
                                                              UXObject*, const UXEvent&);
    class Question;

    /** @return the registered path or else a new one; null when this shows no item */
    std::shared_ptr<KXChartDataPath> getDataPath();
    void _setRegisteredPath(KXChartDataPath* path);
    bool _isAllowed(Trigger KXChartDataAction::*trigger, KXChartDataUser* user,
                    const KXTriggerCondition& condition) const;
    void _installHandler(Trigger& trigger, UXEventType type, std::function<bool(const UXEvent&)> handler);
    bool _showRightClickMenu(const UXEvent& event);
    void _triggerLinkedHighlight(KXChartDataUser* user, UXObject* source, const UXEvent& event,
                                 LinkedHighlightStep step);

    KXChartDataUserWatcher m_dataUser;                 // the chart's
    UXObject* m_owner;                                 // what is clicked; this is a base of it
    std::shared_ptr<KXChartDataPath> m_registeredPath; // null: createDataPath() makes one for each question
    Trigger m_rightClick;
    Trigger m_leftClick;
    Trigger m_linkedHighlight;
};
