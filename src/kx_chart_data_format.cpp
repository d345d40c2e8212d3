#include "kx_chart_data_format.h"

#include "kx_date_time_parser.h"
#include "kx_date_time_pattern.h"
#include "kx_key_definitions.h"
#include "kx_number_text.h"

#include <cmath>
#include <string_view>
#include <utility>

KXChartDataFormat::KXChartDataFormat() : UXPropertyAccessor(this) {}

KXChartDataFormat::KXChartDataFormat(const KXChartDataFormat& other)
    : KXChartPropertyBase(other), UXPropertyAccessor(this), m_updatedEvent(other.m_updatedEvent)
{
    copyFrom(&other);
}

KXChartDataFormat& KXChartDataFormat::operator=(const KXChartDataFormat& other)
{
    KXChartPropertyBase::operator=(other);
    m_updatedEvent = other.m_updatedEvent;
    copyFrom(&other);
    return *this;
}

KXChartDataFormat::~KXChartDataFormat() = default;

KX_DEFINE_DOCUMENT(KXChartDataFormat, KXChartPropertyBase)

KXChartDataFormat* KXChartDataFormat::copy(const KXKeys& keys, bool exclude)
{
    auto* made = new KXChartDataFormat;
    assignTo(made, keys, exclude);
    return made;
}

void KXChartDataFormat::assignTo(KXChartPropertyBase* target, const KXKeys& keys, bool exclude)
{
    const UXJsonObjectWatcher self(this), targetWatcher(target);
    KXChartPropertyBase::assignTo(target, {}, true);
    if (self.isAlive() && targetWatcher.isAlive())
        obtainPropertyTable().assign(*this, *target, keys, exclude);
}

void KXChartDataFormat::customResetProperties(KXChartResetType type, KXChartPropertyBase* source,
                                              const KXKeys& groups)
{
    KXChartPropertyBase::customResetProperties(type, source, groups);
    auto* own = dynamic_cast<KXChartDataFormat*>(source);
    if (!own)
        return;
    const ForcedUpdates forced(this);
    own->assignTo(this, {}, true);
}

const UXPropertyTable& KXChartDataFormat::obtainPropertyTable()
{
    using Self = KXChartDataFormat;
    // A filtered update is one of the key if it passes the list: a format has no longer form of its own.
#define KX_CHART_DATA_FORMAT_ROW(Type, Name, member, initial, reset, effect, meaning) \
    KX_ROW(                                                                           \
        Type, member, update##Name,                                                   \
        [](void* owner, const void* value, const KXKeys& keys, bool exclude) {        \
            auto* own = static_cast<Self*>(owner);                                    \
            if (own->_shouldUpdate(#member, keys, exclude))                           \
                own->update##Name(*static_cast<const Type*>(value));                  \
        },                                                                            \
        reset, effect, meaning)
    static constexpr UXProperty rows[] = {KX_CHART_DATA_FORMAT_KEYS(KX_CHART_DATA_FORMAT_ROW)};
#undef KX_CHART_DATA_FORMAT_ROW
    static const UXPropertyTable table("KXChartDataFormat", nullptr, kxObtainKeyOwner<Self>, rows);
    return table;
}

void KXChartDataFormat::setThousandsSeparator(KXChartDataFormatThousandsSeparator value)
{
    _storeThousandsSeparator(value);
    _callUpdatedEvent();
}

void KXChartDataFormat::setDecimalSeparator(KXChartDataFormatDecimalSeparator value)
{
    _storeDecimalSeparator(value);
    _callUpdatedEvent();
}

void KXChartDataFormat::updateThousandsSeparator(KXChartDataFormatThousandsSeparator value)
{
    _updateThousandsSeparator(value, nullptr);
}

void KXChartDataFormat::updateThousandsSeparator(KXChartDataFormatThousandsSeparator value, KXKeys& keys)
{
    _updateThousandsSeparator(value, &keys);
}

void KXChartDataFormat::updateDecimalSeparator(KXChartDataFormatDecimalSeparator value)
{
    _updateDecimalSeparator(value, nullptr);
}

void KXChartDataFormat::updateDecimalSeparator(KXChartDataFormatDecimalSeparator value, KXKeys& keys)
{
    _updateDecimalSeparator(value, &keys);
}

void KXChartDataFormat::copyFrom(const KXChartDataFormat* source)
{
    if (!source)
        return;
    void* from = const_cast<KXChartDataFormat*>(source);
    for (const UXProperty& row : obtainPropertyTable().getProperties())
        row.type().assign(row.place(this), row.place(from));
}

void KXChartDataFormat::setUpdatedEvent(const std::function<void()>& event) { m_updatedEvent = event; }

const std::function<void()>& KXChartDataFormat::getUpdatedEvent() const { return m_updatedEvent; }

std::string KXChartDataFormat::formatNumber(double value) const
{
    // 1. The magnitude in the unit that is shown; an absent or senseless divider leaves it. An infinity that
    //    is divided by one is a NaN whose sign must not show.
    const double magnitude = std::fabs(m_divider > 0 ? value / m_divider : value);

    // 2. Left to itself, a whole number shows no decimals and every other one two.
    const bool automatic = m_decimals == -1;
    const int decimals = !automatic ? m_decimals : std::trunc(magnitude) == magnitude ? 0 : 2;

    // 3. The mark of a negative number stands outside of the prefix. Minus zero and NaN are not negative.
    const bool negative = value < 0;
    const bool bracketed = negative && m_negative == KXChartDataFormatNegative::RoundBrackets;
    std::string text;
    if (negative)
        text += bracketed ? '(' : '-';

    // 4. Two yen signs stand for one.
    constexpr std::string_view yen = "\u00A5", twoYen = "\u00A5\u00A5";
    text += m_prefix == twoYen ? yen : m_prefix;
    kxAppendNumberText(text, magnitude, decimals,
                       kxObtainNumberPunctuation(m_thousandsSeparator, m_decimalSeparator));
    text += m_suffix;
    if (bracketed)
        text += ')';
    return text;
}

std::string KXChartDataFormat::formatDateTime(const std::string& value, KXChartDataType type,
                                              KXChartAggregateType level) const
{
    const bool dated = type == KXChartDataType::Date || type == KXChartDataType::DateTime;
    if (!dated && type != KXChartDataType::Time)
        return value;
    if (m_dateTimeMode != KXChartDataFormatDateTimeMode::Custom && m_datePresetFormat.empty() &&
        m_timePresetFormat.empty())
        return value;
    if (!m_dateTimePattern)
        m_dateTimePattern = std::make_unique<KXDateTimePattern>();
    return m_dateTimePattern->obtainText(_obtainDateTimePattern(type), kxParseDateTime(value, type, level));
}

void KXChartDataFormat::_updateFormatKey(const char* key, const UXPropertyType& type, void* member,
                                         const void* value, KXKeys* keys)
{
    if (!m_forceUpdate && type.equal(member, value))
        return;
    type.assign(member, value);
    if (keys)
        keys->insert(key);
    else
        markUpdatedKey(key);
    _notify(key, nullptr);
}

void KXChartDataFormat::_updateThousandsSeparator(KXChartDataFormatThousandsSeparator value, KXKeys* keys)
{
    if (!m_forceUpdate && m_thousandsSeparator == value)
        return;
    const bool moved = _storeThousandsSeparator(value);
    if (keys)
        keys->insert("m_thousandsSeparator");
    _notify("m_thousandsSeparator", moved ? "m_decimalSeparator" : nullptr);
}

void KXChartDataFormat::_updateDecimalSeparator(KXChartDataFormatDecimalSeparator value, KXKeys* keys)
{
    if (!m_forceUpdate && m_decimalSeparator == value)
        return;
    const bool moved = _storeDecimalSeparator(value);
    if (keys)
        keys->insert("m_decimalSeparator");
    _notify("m_decimalSeparator", moved ? "m_thousandsSeparator" : nullptr);
}

bool KXChartDataFormat::_storeThousandsSeparator(KXChartDataFormatThousandsSeparator value)
{
    using Thousands = KXChartDataFormatThousandsSeparator;
    using Decimal = KXChartDataFormatDecimalSeparator;
    const Decimal before = m_decimalSeparator;
    m_thousandsSeparator = value;
    if (value == Thousands::Comma && before == Decimal::Comma)
        m_decimalSeparator = Decimal::Dot;
    else if (value == Thousands::Dot && before == Decimal::Dot)
        m_decimalSeparator = Decimal::Comma;
    return m_decimalSeparator != before;
}

bool KXChartDataFormat::_storeDecimalSeparator(KXChartDataFormatDecimalSeparator value)
{
    using Thousands = KXChartDataFormatThousandsSeparator;
    using Decimal = KXChartDataFormatDecimalSeparator;
    const Thousands before = m_thousandsSeparator;
    m_decimalSeparator = value;
    if (value == Decimal::Comma && before == Thousands::Comma)
        m_thousandsSeparator = Thousands::Dot;
    else if (value == Decimal::Dot && before == Thousands::Dot)
        m_thousandsSeparator = Thousands::Comma;
    return m_thousandsSeparator != before;
}

void KXChartDataFormat::_notify(const char* key, const char* coupledKey)
{
    const UXJsonObjectWatcher watcher(this);
    triggerUpdatedEvent(key);
    if (coupledKey && watcher.isAlive())
        triggerUpdatedEvent(coupledKey);
    if (watcher.isAlive())
        _callUpdatedEvent();
}

void KXChartDataFormat::_callUpdatedEvent()
{
    // A copy: the callback may replace itself while it runs.
    const std::function<void()> event = m_updatedEvent;
    if (event)
        event();
}

const std::string& KXChartDataFormat::_obtainDateTimePattern(KXChartDataType type) const
{
    if (m_dateTimeMode == KXChartDataFormatDateTimeMode::Custom)
        return m_customDateTimeFormat;
    if (type == KXChartDataType::Date || (type == KXChartDataType::DateTime && m_timePresetFormat.empty()))
        return m_datePresetFormat;
    if (type == KXChartDataType::Time || m_datePresetFormat.empty())
        return m_timePresetFormat;
    m_joinedPattern = m_datePresetFormat;
    m_joinedPattern += ' ';
    m_joinedPattern += m_timePresetFormat;
    return m_joinedPattern;
}
