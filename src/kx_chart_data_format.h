#pragma once

#include "kx_chart_aggregate_type.h"
#include "kx_chart_data_format_options.h"
#include "kx_chart_data_type.h"
#include "kx_chart_property_base.h"
#include "kx_export.h"
#include "kx_key_table.h"
#include "ux/ux_property_accessor.h"
#include "ux/ux_property_table.h"

#include <functional>
#include <memory>
#include <string>

class KXDateTimePattern;

// type, name, member and JSON key, default, reset, effect, meaning. The separators stand apart: setting one
// may change the other.
#define KX_CHART_DATA_FORMAT_KEYS_BEFORE_SEPARATORS(KEY)                                    \
    KEY(std::string, Prefix, m_prefix, std::string(), Any(), Layout,                        \
        "text before a number; two yen signs stand for one")                                \
    KEY(bool, UseCustomUnit, m_useCustomUnit, false, Any(), Layout,                         \
        "kept for the host; the divider acts anyway")                                       \
    KEY(std::string, Suffix, m_suffix, std::string(), Any(), Layout, "text after a number") \
    KEY(double, Divider, m_divider, 0.0, Any(), Layout, "what numbers are divided by; 0 or below: nothing")

#define KX_CHART_DATA_FORMAT_SEPARATOR_KEYS(KEY)                                                     \
    KEY(KXChartDataFormatThousandsSeparator, ThousandsSeparator, m_thousandsSeparator,               \
        KXChartDataFormatThousandsSeparator::Comma, Any(), Layout, "between groups of three digits") \
    KEY(KXChartDataFormatDecimalSeparator, DecimalSeparator, m_decimalSeparator,                     \
        KXChartDataFormatDecimalSeparator::Dot, Any(), Layout, "before the decimals")

#define KX_CHART_DATA_FORMAT_KEYS_AFTER_SEPARATORS(KEY)                                                     \
    KEY(int, Decimals, m_decimals, -1, Any(), Layout,                                                       \
        "how many decimals; -1: none for whole numbers, two for others")                                    \
    KEY(KXChartDataFormatNegative, Negative, m_negative, KXChartDataFormatNegative::Dash, Any(), Layout,    \
        "how a number below zero is marked")                                                                \
    KEY(KXChartDataFormatDateTimeMode, DateTimeMode, m_dateTimeMode, KXChartDataFormatDateTimeMode::Preset, \
        Any(), Layout, "which patterns count")                                                              \
    KEY(std::string, DatePresetFormat, m_datePresetFormat, std::string("YYYY-MM-DD"), Any(), Layout,        \
        "pattern of dates, with Preset")                                                                    \
    KEY(std::string, TimePresetFormat, m_timePresetFormat, std::string("HH:mm:SS"), Any(), Layout,          \
        "pattern of times, with Preset")                                                                    \
    KEY(std::string, CustomDateTimeFormat, m_customDateTimeFormat, std::string(), Any(), Layout,            \
        "pattern of dates and times, with Custom")

/** Every key, in the order of the document and of assigning. */
#define KX_CHART_DATA_FORMAT_KEYS(KEY)               \
    KX_CHART_DATA_FORMAT_KEYS_BEFORE_SEPARATORS(KEY) \
    KX_CHART_DATA_FORMAT_SEPARATOR_KEYS(KEY)         \
    KX_CHART_DATA_FORMAT_KEYS_AFTER_SEPARATORS(KEY)

/** What every key but the separators has: set stores, update stores a value that differs, marks the key, in
 * the caller's keys if given, and calls back. Each calls the updated event once. */
#define KX_CHART_DATA_FORMAT_ACCESSORS(Type, Name, member, ...)                       \
    Type get##Name() const { return member; }                                         \
    void set##Name(const Type& value)                                                 \
    {                                                                                 \
        member = value;                                                               \
        _callUpdatedEvent();                                                          \
    }                                                                                 \
    virtual void update##Name(const Type& value)                                      \
    {                                                                                 \
        _updateFormatKey(#member, kxObtainKeyType<Type>(), &member, &value, nullptr); \
    }                                                                                 \
    virtual void update##Name(const Type& value, KXKeys& keys)                        \
    {                                                                                 \
        _updateFormatKey(#member, kxObtainKeyType<Type>(), &member, &value, &keys);   \
    }

/**
 * How a value becomes text: numbers through separators, decimals, a divider, prefix and suffix; dates and
 * times through a pattern. Formatting depends on nothing but the object: on no locale, no time zone.
 *
 * The two separators are kept apart: setting one to the character of the other moves the other. A document
 * is read as it stands.
 *
 * A copy takes over the updated event, as it does the callbacks by key. Its accessor edits the copy.
 */
class KX_EXPORT KXChartDataFormat : public KXChartPropertyBase, public UXPropertyAccessor {
public:
    KXChartDataFormat();
    KXChartDataFormat(const KXChartDataFormat& other);
    KXChartDataFormat& operator=(const KXChartDataFormat& other);
    ~KXChartDataFormat() override;

    // From KXChartPropertyBase
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;
    KXChartDataFormat* copy(const KXKeys& keys, bool exclude) override;
    void assignTo(KXChartPropertyBase* target, const KXKeys& keys, bool exclude) override;
    /** A format is reset as a whole: whatever the type and the groups are, every key is taken. */
    void customResetProperties(KXChartResetType type, KXChartPropertyBase* source,
                               const KXKeys& groups) override;

    // Properties
    KX_CHART_DATA_FORMAT_KEYS_BEFORE_SEPARATORS(KX_CHART_DATA_FORMAT_ACCESSORS)
    KX_CHART_DATA_FORMAT_KEYS_AFTER_SEPARATORS(KX_CHART_DATA_FORMAT_ACCESSORS)
    KXChartDataFormatThousandsSeparator getThousandsSeparator() const { return m_thousandsSeparator; }
    KXChartDataFormatDecimalSeparator getDecimalSeparator() const { return m_decimalSeparator; }
    void setThousandsSeparator(KXChartDataFormatThousandsSeparator value);
    void setDecimalSeparator(KXChartDataFormatDecimalSeparator value);
    /** Calls back for the key, then for the other separator if it moved. Neither counts as an updated key;
     * the longer forms put their own key into keys. */
    void updateThousandsSeparator(KXChartDataFormatThousandsSeparator value);
    void updateThousandsSeparator(KXChartDataFormatThousandsSeparator value, KXKeys& keys);
    void updateDecimalSeparator(KXChartDataFormatDecimalSeparator value);
    void updateDecimalSeparator(KXChartDataFormatDecimalSeparator value, KXKeys& keys);
    /** Stores every key of source, without marks or events; null changes nothing. */
    void copyFrom(const KXChartDataFormat* source);
    /** The keys, for UXPropertyAccessor. */
    static const UXPropertyTable& obtainPropertyTable();

    /** Called after every change by a setter or an update, once, after the callbacks by key. */
    void setUpdatedEvent(const std::function<void()>& event);
    const std::function<void()>& getUpdatedEvent() const;

    // Queries
    /** @return the number as text: never in exponent notation, at most 10,000 decimals, "inf" and "nan" for
     * what is no number. The decimals of a number are its exact value's, a tie goes to the even digit. */
    std::string formatNumber(double value) const;
    /** @param value a date YYYY-MM-DD, a time or duration H:M:S, or both with a blank between, perhaps with
     * decimals of the second; a quarter YYYY Qn or a week YYYY Wnn at these levels
     *  @param level what the value is grouped by; a time can be hours, minutes or seconds alone
     *  @return the pattern with the tokens of every field that the value has replaced, the others as they
     * stand; the value itself for other types and when both preset patterns are empty. No token is replaced
     * that would make the text longer than 16 MiB. */
    std::string formatDateTime(const std::string& value, KXChartDataType type,
                               KXChartAggregateType level) const;

private:
    /** @param keys takes the key instead of the object's own updated keys; null for these */
    void _updateFormatKey(const char* key, const UXPropertyType& type, void* member, const void* value,
                          KXKeys* keys);
    void _updateThousandsSeparator(KXChartDataFormatThousandsSeparator value, KXKeys* keys);
    void _updateDecimalSeparator(KXChartDataFormatDecimalSeparator value, KXKeys* keys);
    /** @return whether the decimal separator had to move */
    bool _storeThousandsSeparator(KXChartDataFormatThousandsSeparator value);
    /** @return whether the thousands separator had to move */
    bool _storeDecimalSeparator(KXChartDataFormatDecimalSeparator value);
    /** Calls back for the key, for the coupled one if it is not null, and for the change. The object may be
     * gone afterwards. */
    void _notify(const char* key, const char* coupledKey);
    void _callUpdatedEvent();
    /** @return a key's own text, or m_joinedPattern */
    const std::string& _obtainDateTimePattern(KXChartDataType type) const;

    KX_CHART_DATA_FORMAT_KEYS(KX_KEY_MEMBER)
    std::function<void()> m_updatedEvent;
    mutable std::unique_ptr<KXDateTimePattern> m_dateTimePattern; // the compiled one; made when first needed
    mutable std::string m_joinedPattern;                          // kept for its memory
    UXPropertyTableBinding m_keyBinding{*this, obtainPropertyTable()};
};
