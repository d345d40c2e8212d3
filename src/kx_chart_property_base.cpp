#include "kx_chart_property_base.h"

#include "ux/ux_notification_scope.h"
#include "ux/ux_property_table.h"

KXChartPropertyBase::KXChartPropertyBase() = default;
KXChartPropertyBase::KXChartPropertyBase(const KXChartPropertyBase&) = default;
KXChartPropertyBase& KXChartPropertyBase::operator=(const KXChartPropertyBase&) = default;
KXChartPropertyBase::~KXChartPropertyBase() = default;

void KXChartPropertyBase::customSerialize() {}

std::string KXChartPropertyBase::customSerializeTypeID() { return "KXChartPropertyBase"; }

bool KXChartPropertyBase::customDeserialize() { return true; }

KXChartPropertyBase* KXChartPropertyBase::copy(const KXKeys&, bool) { return nullptr; }

void KXChartPropertyBase::assignTo(KXChartPropertyBase*, const KXKeys&, bool) {}

/** Lets an object take the named keys only, until an assignment has ended, if with a callback's exception. */
class KXChartPropertyBase::KeyFilter {
public:
    KeyFilter(KXChartPropertyBase& target, const KXKeys& keys) : m_target(target), m_watcher(&target)
    {
        target.setRequireKeysToAssignTo(true);
        target.setKeysToAssignTo(keys);
    }
    ~KeyFilter()
    {
        if (!m_watcher.isAlive())
            return;
        m_target.setKeysToAssignTo({});
        m_target.setRequireKeysToAssignTo(false);
    }
    KeyFilter(const KeyFilter&) = delete;
    KeyFilter& operator=(const KeyFilter&) = delete;

private:
    KXChartPropertyBase& m_target;
    UXJsonObjectWatcher m_watcher;
};

void KXChartPropertyBase::assignUpdatedPropertiesTo(KXChartPropertyBase* target, const KXKeys& keys,
                                                    bool exclude)
{
    const UXNotificationScope scope;
    if (!target)
        return;
    const KeyFilter filter(*target, m_updatedKeys);
    assignTo(target, keys, exclude);
}

void KXChartPropertyBase::unmarkUpdatedProperties() { m_updatedKeys.clear(); }

void KXChartPropertyBase::triggerAllPropertiesUpdatedEvents()
{
    const UXNotificationScope scope;
    const ForcedUpdates forced(this);
    const KXKeys updatedKeys = m_updatedKeys;
    assignTo(this, {}, true);
    if (forced.isAlive())
        m_updatedKeys = updatedKeys;
}

void KXChartPropertyBase::customResetProperties(KXChartResetType, KXChartPropertyBase*, const KXKeys&) {}

void KXChartPropertyBase::registerUpdatedEvents(const std::string& key, const UpdatedEvent& event)
{
    m_updatedEvents[key] = event;
}

void KXChartPropertyBase::registerUpdatedEvents(const std::vector<std::string>& keys,
                                                const UpdatedEvent& event)
{
    for (const std::string& key : keys)
        registerUpdatedEvents(key, event);
}

void KXChartPropertyBase::registerUpdatedEvents(std::initializer_list<std::string> keys,
                                                const UpdatedEvent& event)
{
    registerUpdatedEvents(std::vector<std::string>(keys), event);
}

void KXChartPropertyBase::registerUpdatedEvents(const UpdatedEvent& event)
{
    registerUpdatedEvents(std::string(), event);
}

void KXChartPropertyBase::unregisterAllUpdatedEvents() { m_updatedEvents.clear(); }

const KXKeys& KXChartPropertyBase::getUpdatedKeys() const { return m_updatedKeys; }

bool KXChartPropertyBase::getRequireKeysToAssignTo() const { return m_requireKeysToAssignTo; }

void KXChartPropertyBase::setRequireKeysToAssignTo(bool require) { m_requireKeysToAssignTo = require; }

const KXKeys& KXChartPropertyBase::getKeysToAssignTo() const { return m_keysToAssignTo; }

void KXChartPropertyBase::setKeysToAssignTo(const KXKeys& keys) { m_keysToAssignTo = keys; }

bool KXChartPropertyBase::_shouldUpdate(const std::string& key, const KXKeys& keys, bool exclude) const
{
    if (m_requireKeysToAssignTo && !m_keysToAssignTo.contains(key))
        return false;
    return keys.contains(key) != exclude;
}

bool KXChartPropertyBase::_shouldUpdate(const char* key, const KXKeys& keys, bool exclude) const
{
    return _shouldUpdate(std::string(key), keys, exclude);
}

void KXChartPropertyBase::_updateKey(const char* key, const UXPropertyType& type, void* member,
                                     const void* value)
{
    if (!m_forceUpdate && type.equal(member, value))
        return;
    type.assign(member, value);
    const std::string name = key;
    markUpdatedKey(name);
    triggerUpdatedEvent(name);
}

void KXChartPropertyBase::_assignKeys(const UXPropertyTable& table, KXChartPropertyBase* target,
                                      const KXKeys& keys, bool exclude)
{
    const UXNotificationScope scope;
    if (target)
        table.assign(*this, *target, keys, exclude);
}

void KXChartPropertyBase::_resetKeys(const UXPropertyTable& table, KXChartResetType type,
                                     KXChartPropertyBase* source, const KXKeys& groups)
{
    const UXNotificationScope scope;
    if (!source)
        return;
    const ForcedUpdates forced(this);
    KXKeys taken = groups;
    taken.insert("");
    table.reset(*source, *this, taken, type == KXChartResetType::All);
}

void KXChartPropertyBase::markUpdatedKey(const std::string& key) { m_updatedKeys.insert(key); }

void KXChartPropertyBase::triggerUpdatedEvent(const std::string& key)
{
    const UXNotificationScope scope;
    auto found = m_updatedEvents.find(key);
    if (found == m_updatedEvents.end())
        found = m_updatedEvents.find(std::string());
    if (found == m_updatedEvents.end() || !found->second)
        return;
    // A copy: the callback may unregister itself while it runs.
    const UpdatedEvent event = found->second;
    event(key);
}

KXChartPropertyBase::ForcedUpdates::ForcedUpdates(KXChartPropertyBase* property)
    : m_property(property), m_watcher(property), m_before(property->m_forceUpdate)
{
    property->m_forceUpdate = true;
}

KXChartPropertyBase::ForcedUpdates::~ForcedUpdates()
{
    if (isAlive())
        m_property->m_forceUpdate = m_before;
}
