#include "kx_chart_data_action.h"

#include "kx_chart.h"
#include "kx_chart_data_provider.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_data_user.h"
#include "kx_chart_data_value.h"
#include "kx_context_menu.h"
#include "ux/ux_assert.h"
#include "ux/ux_event.h"
#include "ux/ux_message_right_click_param.h"
#include "ux/ux_object.h"
#include "ux/ux_object_watcher.h"

#include <optional>
#include <utility>

/** One use of the provider about one item: from the path's making to its end. */
class KXChartDataAction::Question {
public:
    Question(KXChartDataAction& action, KXChartDataUser& user)
    {
        // Whoever makes the path may ask the provider for it, which may destroy the chart.
        const KXChartDataUserWatcher watcher(&user);
        m_path = action.getDataPath();
        if (m_path && !watcher.isGone())
            m_use.emplace(user);
    }
    Question(const Question&) = delete;
    Question& operator=(const Question&) = delete;

    /** @return whether there is an item and a provider to ask about it */
    explicit operator bool() const { return m_use && m_use->isCurrent(); }
    KXChartDataProvider* operator->() const { return m_use->get(); }
    KXChartDataPath* path() const { return m_path.get(); }
    /** @return whether the item can be clicked: what stands for nothing in the data cannot */
    bool takesClicks(KXChartDataUser* user) const
    {
        return *this && !kxObtainItemIsGenerated(*m_use, user, *m_path) && *this;
    }

private:
    std::shared_ptr<KXChartDataPath> m_path;
    std::optional<KXChartDataProviderUse> m_use;
};

KXChartDataAction::KXChartDataAction(UXObject* owner) : m_owner(owner) { uxAssert(owner); }

KXChartDataAction::~KXChartDataAction() = default;

std::shared_ptr<KXChartDataPath> KXChartDataAction::getDataPath()
{
    if (m_registeredPath)
        return m_registeredPath;
    return std::shared_ptr<KXChartDataPath>(createDataPath());
}

void KXChartDataAction::_setRegisteredPath(KXChartDataPath* path)
{
    if (path != m_registeredPath.get())
        m_registeredPath.reset(path);
}

bool KXChartDataAction::_isAllowed(Trigger KXChartDataAction::*trigger, KXChartDataUser* user,
                                   const KXTriggerCondition& condition) const
{
    // A chart without interaction takes no part; that it is on is a condition of its own beside the others.
    if (user && !user->isInteractionEnabled())
        return false;
    // Conditions are copied before they run: one that registers anew, or destroys this object, must not pull
    // the callable away from under itself.
    const UXObjectWatcher owner(m_owner);
    const KXChartDataUserWatcher userWatcher(user);
    const KXTriggerCondition own = condition ? condition : (this->*trigger).triggerCondition;
    const auto* userAction = dynamic_cast<const KXChartDataAction*>(user);
    const bool asksUser = userAction && (userAction != this || condition);
    const KXTriggerCondition ofUser = asksUser ? (userAction->*trigger).triggerCondition
                                               : KXTriggerCondition();
    if (own && !own())
        return false;
    return owner.isAlive() && (!ofUser || ofUser()) && owner.isAlive() && !userWatcher.isGone();
}

void KXChartDataAction::registerRightClickMenu(KXChartDataUser* user, KXChartDataPath* path,
                                               KXTriggerCondition condition)
{
    _setRegisteredPath(path);
    registerRightClickMenu(user, std::move(condition));
}

void KXChartDataAction::registerRightClickMenu(KXChartDataUser* user, KXTriggerCondition condition)
{
    uxAssert(user);
    uxAssert(m_owner);
    m_dataUser = m_rightClick.user = KXChartDataUserWatcher(user);
    m_rightClick.condition = std::move(condition);
    m_rightClick.enabled = false;
    if (!user || !m_owner)
        return;

    const UXObjectWatcher owner(m_owner);
    bool wanted = false;
    if (const Question question(*this, *user); question)
        wanted = question->obtainDataShouldRightClickAction(user, question.path());
    if (!owner.isAlive())
        return;
    m_rightClick.enabled = wanted;
    if (wanted)
        _installHandler(m_rightClick, UXEventType::RightClick,
                        [this](const UXEvent& event) { return _showRightClickMenu(event); });
}

void KXChartDataAction::registerRightClickMenuTriggerCondition(KXTriggerCondition condition)
{
    m_rightClick.triggerCondition = std::move(condition);
}

bool KXChartDataAction::_showRightClickMenu(const UXEvent& event)
{
    KXChartDataUser* user = m_rightClick.user.get();
    if (!user || !_isAllowed(&KXChartDataAction::m_rightClick, user, m_rightClick.condition))
        return false;

    const UXObjectWatcher owner(m_owner);
    void* context = nullptr;
    if (const Question question(*this, *user); question)
        context = question->obtainDataRightClickContext(user, question.path());
    else
        return false;
    if (context && owner.isAlive())
        kxOpenContextMenu(m_owner, event, context);
    return true;
}

void KXChartDataAction::registerLeftClickAction(KXChartDataUser* user, KXChartDataPath* path,
                                                KXTriggerCondition condition)
{
    _setRegisteredPath(path);
    registerLeftClickAction(user, std::move(condition));
}

void KXChartDataAction::registerLeftClickAction(KXChartDataUser* user, KXTriggerCondition condition)
{
    m_dataUser = m_leftClick.user = KXChartDataUserWatcher(user);
    m_leftClick.condition = std::move(condition);
    m_leftClick.enabled = true;
    if (!m_leftClick.handlerInstalled && m_owner)
        m_owner->registerEventHandler(UXEventType::MouseEnter, [this](const UXEvent&) {
            showWhetherClickable();
            return false;
        });
    _installHandler(m_leftClick, UXEventType::LeftClick, [this](const UXEvent& event) {
        KXChartDataUser* own = m_leftClick.user.get(); // null once the chart is gone
        return own && _triggerRegisteredLeftClickAction(own, true, event, m_leftClick.condition);
    });
}

void KXChartDataAction::showWhetherClickable()
{
    const UXObjectWatcher owner(m_owner);
    KXChartDataUser* user = m_leftClick.user.get();
    bool clickable = m_leftClick.enabled && user &&
                     _isAllowed(&KXChartDataAction::m_leftClick, user, m_leftClick.condition);
    if (clickable) {
        const Question question(*this, *user);
        clickable = question.takesClicks(user) &&
                    question->obtainDataShouldLeftClickAction(user, question.path());
    }
    if (!owner.isAlive())
        return;
    if (clickable)
        m_owner->setCursor(UXCursor::PointingHand);
    else if (m_owner->getCursor() == UXCursor::PointingHand)
        m_owner->setCursor(UXCursor::AsParent);
}

void KXChartDataAction::registerLeftClickActionTriggerCondition(KXTriggerCondition condition)
{
    m_leftClick.triggerCondition = std::move(condition);
}

bool KXChartDataAction::_triggerRegisteredLeftClickAction(KXChartDataUser* user, bool post,
                                                          const UXEvent& event,
                                                          const KXTriggerCondition& condition)
{
    uxAssert(user);
    if (!user || !_isAllowed(&KXChartDataAction::m_leftClick, user, condition))
        return false;

    std::function<void()> action;
    if (const Question question(*this, *user); question.takesClicks(user))
        action = question->obtainDataLeftClickAction(user, question.path());
    else
        return false;
    if (!post)
        action();
    else if (action)
        event.postAction(std::move(action));
    return true;
}

void KXChartDataAction::triggerLeftClickAction(KXChartDataUser* user)
{
    uxAssert(user);
    if (!user)
        return;
    const UXObjectWatcher owner(m_owner);
    std::function<void()> action;
    if (const Question question(*this, *user); question.takesClicks(user)) {
        if (!question->obtainDataShouldLeftClickAction(user, question.path()) || !owner.isAlive() ||
            !question)
            return;
        action = question->obtainDataLeftClickAction(user, question.path());
    } else {
        return;
    }
    action();
}

void KXChartDataAction::registerLinkedHighlightAction(KXChartDataUser* user, KXChartDataPath* path,
                                                      KXTriggerCondition condition)
{
    _setRegisteredPath(path);
    registerLinkedHighlightAction(user, std::move(condition));
}

void KXChartDataAction::registerLinkedHighlightAction(KXChartDataUser* user, KXTriggerCondition condition)
{
    m_dataUser = m_linkedHighlight.user = KXChartDataUserWatcher(user);
    m_linkedHighlight.condition = std::move(condition);
    m_linkedHighlight.enabled = true;
    const bool installed = m_linkedHighlight.handlerInstalled;
    _installHandler(m_linkedHighlight, UXEventType::MouseEnter, [this](const UXEvent& event) {
        if (KXChartDataUser* own = m_linkedHighlight.user.get())
            triggerLinkedHighlightAction(own, m_owner, event);
        return false;
    });
    if (!installed)
        m_owner->registerEventHandler(UXEventType::MouseLeave, [this](const UXEvent& event) {
            if (KXChartDataUser* own = m_linkedHighlight.user.get())
                triggerLinkedHighlightClearAction(own, m_owner, event);
            return false;
        });
}

void KXChartDataAction::registerLinkedHighlightActionTriggerCondition(KXTriggerCondition condition)
{
    m_linkedHighlight.triggerCondition = std::move(condition);
}

void KXChartDataAction::triggerLinkedHighlightAction(KXChartDataUser* user, UXObject* source,
                                                     const UXEvent& event)
{
    _triggerLinkedHighlight(user, source, event, &KXChartLinkedAction::linkedHighlightRequested);
}

void KXChartDataAction::triggerLinkedHighlightClearAction(KXChartDataUser* user, UXObject* source,
                                                          const UXEvent& event)
{
    _triggerLinkedHighlight(user, source, event, &KXChartLinkedAction::linkedHighlightCleared);
}

void KXChartDataAction::_triggerLinkedHighlight(KXChartDataUser* user, UXObject* source, const UXEvent& event,
                                                LinkedHighlightStep step)
{
    uxAssert(user);
    uxAssert(source);
    if (!user || !source || !user->isInteractionEnabled())
        return;

    const UXObjectWatcher chart(user->getChart());
    const UXObjectWatcher sourceWatcher(source);
    if (!_isAllowed(&KXChartDataAction::m_linkedHighlight, user, m_linkedHighlight.condition))
        return;
    KXChartDataPath path;
    if (const Question question(*this, *user); question) {
        if (!question->obtainDataShouldLinkedHighlightAction(user, question.path()))
            return;
        path = *question.path();
    } else {
        return;
    }
    event.postAction([chart, sourceWatcher, user, path, own = event.copyWithoutActions(), step] {
        if (chart.isAlive())
            (user->getChart()->*step)(user, path, sourceWatcher.getObject(), own);
        own.runPostedActions();
    });
}

void KXChartDataAction::_installHandler(Trigger& trigger, UXEventType type,
                                        std::function<bool(const UXEvent&)> handler)
{
    if (trigger.handlerInstalled || !m_owner)
        return;
    trigger.handlerInstalled = true;
    m_owner->registerEventHandler(type, [&trigger, handler = std::move(handler)](const UXEvent& event) {
        return trigger.enabled && handler(event);
    });
}
