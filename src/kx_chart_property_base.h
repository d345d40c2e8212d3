#pragma once

#include "kx_chart_options.h"
#include "kx_export.h"
#include "kx_keys.h"
#include "ux/ux_json_object.h"
#include "ux/ux_json_object_watcher.h"

#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

class UXPropertyTable;
struct UXPropertyType;

/**
 * What the user can set about a chart, by key. A property object remembers which keys changed, calls
 * whoever asked to hear of a key, and passes its values on to another object, all of them or those of a
 * list. A key is the name of the member that holds it and the key in the saved document.
 *
 * A list of keys comes with a flag: with exclude false it holds the keys to take, with exclude true the
 * keys to leave out, so that an empty list with exclude true means every key.
 *
 * A callback may do anything, up to destroying the object that called it.
 */
class KX_EXPORT KXChartPropertyBase : public UXJsonObject {
public:
    using UpdatedEvent = std::function<void(const std::string& key)>;

    KXChartPropertyBase();
    /** A copy takes over the updated keys, the callbacks and the key filter too. */
    KXChartPropertyBase(const KXChartPropertyBase&);
    KXChartPropertyBase& operator=(const KXChartPropertyBase&);
    ~KXChartPropertyBase() override;

    // From UXJsonObject. The pure operations here and below have bodies, so that every level may call its
    // parent.
    void customSerialize() override = 0;
    std::string customSerializeTypeID() override = 0;
    bool customDeserialize() override = 0;

    // Copying and assigning
    /** @return a new object of the same class, the caller's, with its defaults except for the keys taken
     *          from here */
    virtual KXChartPropertyBase* copy(const KXKeys& keys, bool exclude) = 0;
    /** Updates the target's keys with the values of this object. The list counts for the keys of the most
     *  derived class; what its parents own is always taken whole. A target of another class takes what the
     *  common parents own; null takes nothing. */
    virtual void assignTo(KXChartPropertyBase* target, const KXKeys& keys, bool exclude) = 0;
    /** The same with those keys only that were updated here since the last unmarkUpdatedProperties, on
     *  every level. */
    virtual void assignUpdatedPropertiesTo(KXChartPropertyBase* target, const KXKeys& keys, bool exclude);
    virtual void unmarkUpdatedProperties();
    /** Calls back for every key once, as if all had changed; the updated keys stay as they were. */
    virtual void triggerAllPropertiesUpdatedEvents();
    /** Takes the keys of the named groups from source, each one marked and called back for, also when it
     *  is equal. */
    virtual void customResetProperties(KXChartResetType type, KXChartPropertyBase* source,
                                       const KXKeys& groups) = 0;

    // Callbacks: one per key, a later one replaces it
    void registerUpdatedEvents(const std::string& key, const UpdatedEvent& event);
    void registerUpdatedEvents(const std::vector<std::string>& keys, const UpdatedEvent& event);
    /** For keys in braces, two of which would otherwise count as the ends of one text too. */
    void registerUpdatedEvents(std::initializer_list<std::string> keys, const UpdatedEvent& event);
    /** Registers the callback for every key that has none of its own. */
    void registerUpdatedEvents(const UpdatedEvent& event);
    void unregisterAllUpdatedEvents();

    // Queries
    /** @return the keys that were updated since the last unmarkUpdatedProperties */
    const KXKeys& getUpdatedKeys() const;

    // The filter that assignUpdatedPropertiesTo sets on its target while it assigns
    bool getRequireKeysToAssignTo() const;
    void setRequireKeysToAssignTo(bool require);
    const KXKeys& getKeysToAssignTo() const;
    void setKeysToAssignTo(const KXKeys& keys);

protected:
    /** Makes every update count as a change for as long as it stands, also when the value is equal. */
    class KX_EXPORT ForcedUpdates {
    public:
        explicit ForcedUpdates(KXChartPropertyBase* property);
        ~ForcedUpdates();
        ForcedUpdates(const ForcedUpdates&) = delete;
        ForcedUpdates& operator=(const ForcedUpdates&) = delete;

        /** @return false once a callback has destroyed the object */
        bool isAlive() const { return m_watcher.isAlive(); }

    private:
        KXChartPropertyBase* m_property;
        UXJsonObjectWatcher m_watcher;
        bool m_before;
    };

    /** @return whether an update of the key that names these keys is to be carried out */
    bool _shouldUpdate(const std::string& key, const KXKeys& keys, bool exclude) const;
    bool _shouldUpdate(const char* key, const KXKeys& keys, bool exclude) const;
    void markUpdatedKey(const std::string& key);
    /** Calls the key's own callback, or the one for every key. The object may be gone afterwards. */
    void triggerUpdatedEvent(const std::string& key);
    /** Stores a value that differs, marks its key and calls back. The object may be gone afterwards. */
    void _updateKey(const char* key, const UXPropertyType& type, void* member, const void* value);
    /** Passes the keys of the table that the list names on to target, if it has them. Either may be gone
     * afterwards. */
    void _assignKeys(const UXPropertyTable& table, KXChartPropertyBase* target, const KXKeys& keys,
                     bool exclude);
    /** Takes the keys of the table that a reset of these groups takes, each one forced. Either may be gone
     * afterwards. */
    void _resetKeys(const UXPropertyTable& table, KXChartResetType type, KXChartPropertyBase* source,
                    const KXKeys& groups);

    bool m_forceUpdate = false;

private:
    class KeyFilter;

    KXKeys m_updatedKeys;
    std::map<std::string, UpdatedEvent> m_updatedEvents;
    bool m_requireKeysToAssignTo = false;
    KXKeys m_keysToAssignTo;
};
