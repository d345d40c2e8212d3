#pragma once

#include "kx_chart_property_base.h"
#include "kx_key_type.h"
#include "ux/ux_property_table.h"

/**
 * A property class writes each of its keys once, as a row of its key table: type, name, member and JSON key,
 * default, which reset takes it, what a change of it asks of the chart, and what it says, with its unit.
 * @code
 * #define KX_STRIP_PROPERTY_KEYS(KEY)                                                               \
 *     KEY(double, StripWidth, m_stripWidth, 0.8, Any(Strip), Layout, "share of a category, 0 to 1") \
 *     KEY(bool, ShowLabels, m_showLabels, false, All(Strip), Layout, "the value above the strip")
 *
 * class KX_EXPORT KXStripProperty : public KXChartPropertyBase {
 *     KX_DECLARE_KEYS(KXStripProperty, KXChartPropertyBase, KX_STRIP_PROPERTY_KEYS)
 * };
 * @endcode
 * and in its .cpp, below the includes of this header and of "kx_key_definitions.h":
 * @code
 * KX_DEFINE_KEYS(KXStripProperty, KXChartPropertyBase, KX_STRIP_PROPERTY_KEYS)
 * @endcode
 * A reset is Any(Group): one that names the group; All(Group): only if it is one of everything; All(): each
 * one of everything; Never. An effect is a value of UXPropertyEffect.
 *
 * From the table come the members, get<Name>, set<Name> (stores) and the two virtual update<Name> (stores,
 * marks, calls back; the longer form only if the key passes the list), reading, writing, assigning, copying,
 * resetting, the access by key and the documentation. The table's order is the order of the virtuals, of the
 * document and of assigning. A class where these differ, or that does not write every key, gives
 * KX_DECLARE_KEY_LISTS and KX_DEFINE_KEY_LISTS one list for each.
 *
 * A subclass reacts to one key by overriding its update<Name>(value), and keeps the other form visible with
 * using KXStripProperty::update<Name>. A type or a default with a comma outside of parentheses gets a name.
 *
 * A chart has its own keys in the same form, see KX_DECLARE_CHART_KEYS.
 */
#define KX_DECLARE_KEYS(Class, Base, KEYS) KX_DECLARE_KEY_LISTS(Class, Base, KEYS, KEYS)

/** @param SLOTS every key, in the order of the virtuals
 *  @param KEYS every key, in the order of assigning */
#define KX_DECLARE_KEY_LISTS(Class, Base, SLOTS, KEYS)                                                   \
public:                                                                                                  \
    void customSerialize() override;                                                                     \
    std::string customSerializeTypeID() override;                                                        \
    bool customDeserialize() override;                                                                   \
    Class* copy(const KXKeys& keys, bool exclude) override;                                              \
    void assignTo(KXChartPropertyBase* target, const KXKeys& keys, bool exclude) override;               \
    void customResetProperties(KXChartResetType type, KXChartPropertyBase* source, const KXKeys& groups) \
        override;                                                                                        \
    SLOTS(KX_KEY_ACCESSORS)                                                                              \
    /** The keys of this class and of its parents. */                                                    \
    static const UXPropertyTable& obtainPropertyTable();                                                 \
                                                                                                         \
private:                                                                                                 \
    KEYS(KX_KEY_MEMBER)                                                                                  \
    UXPropertyTableBinding m_keyBinding{*this, obtainPropertyTable()};

/** A chart's own keys, which it keeps itself: get<Name>, and set<Name>, which stores a value that differs and
 * lets KXChart::_applyKeyEffect do the rest. */
#define KX_DECLARE_CHART_KEYS(KEYS)                                                    \
public:                                                                                \
    KEYS(KX_CHART_KEY_ACCESSORS)                                                       \
    /** The keys that the chart's document holds beside its parents', in its order. */ \
    static const UXPropertyTable& obtainPropertyTable();                               \
                                                                                       \
private:                                                                               \
    KEYS(KX_KEY_MEMBER)                                                                \
    UXPropertyTableBinding m_keyBinding{*this, obtainPropertyTable()};

// What a row stands for in a class
#define KX_KEY_MEMBER(Type, Name, member, initial, ...) Type member = initial;
#define KX_KEY_ACCESSORS(Type, Name, member, ...)                                  \
    Type get##Name() const { return member; }                                      \
    void set##Name(const Type& value) { member = value; }                          \
    virtual void update##Name(const Type& value, const KXKeys& keys, bool exclude) \
    {                                                                              \
        if (_shouldUpdate(#member, keys, exclude))                                 \
            update##Name(value);                                                   \
    }                                                                              \
    virtual void update##Name(const Type& value)                                   \
    {                                                                              \
        _updateKey(#member, kxObtainKeyType<Type>(), &member, &value);             \
    }
#define KX_CHART_KEY_ACCESSORS(Type, Name, member, ...) \
    Type get##Name() const;                             \
    void set##Name(const Type& value);
