#include "kx_chart_data_format.h"

#include "kx_json_object_factory.h"
#include "kx_key_walk.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using Thousands = KXChartDataFormatThousandsSeparator;
using Decimal = KXChartDataFormatDecimalSeparator;

/** Notes every key that is called back for, and "" for the updated event. */
struct Calls {
    explicit Calls(KXChartDataFormat& format)
    {
        format.registerUpdatedEvents([this](const std::string& key) { list.push_back(key); });
        format.setUpdatedEvent([this] { list.emplace_back(); });
    }
    Calls(const Calls&) = delete;
    Calls& operator=(const Calls&) = delete;

    std::vector<std::string> take() { return std::exchange(list, {}); }

    std::vector<std::string> list;
};

using Keys = std::vector<std::string>;

KXChartDataFormat makeChanged()
{
    KXChartDataFormat changed;
    changed.setPrefix("p");
    changed.setUseCustomUnit(true);
    changed.setSuffix("s");
    changed.setDivider(0.1);
    changed.setThousandsSeparator(Thousands::Space);
    changed.setDecimalSeparator(Decimal::Comma);
    changed.setDecimals(3);
    changed.setNegative(KXChartDataFormatNegative::RoundBrackets);
    changed.setDateTimeMode(KXChartDataFormatDateTimeMode::Custom);
    changed.setDatePresetFormat("d");
    changed.setTimePresetFormat("t");
    changed.setCustomDateTimeFormat("c");
    return changed;
}

} // namespace

// The separators have rules of their own; a filtered update is an assignment of the one key.
#define KX_WALKED_FORMAT_KEY(Type, Name, member, initial)                                              \
    KXWalkedKey<Self>{#member,                                                                         \
                      [](Self& object) { object.update##Name(kxMakeOtherValue(object.get##Name())); }, \
                      [](Self& object) { object.set##Name(kxMakeOtherValue(object.get##Name())); },    \
                      [](Self& object) { object.update##Name(object.get##Name()); },                   \
                      [](Self& object, const Self& source, const KXKeys& keys, bool exclude) {         \
                          Self one;                                                                    \
                          one.set##Name(source.get##Name());                                           \
                          one.assignTo(&object, keys, exclude);                                        \
                      },                                                                               \
                      [](Self& object, const Self& source) {                                           \
                          return kxAccessKey<Type>(object, #member, source.get##Name());               \
                      },                                                                               \
                      [](const Self& a, const Self& b) { return a.get##Name() == b.get##Name(); },     \
                      kxObtainWrongValues<Type>()},
#define KX_WALKED_FORMAT_KEYS                                             \
    {                                                                     \
        KX_CHART_DATA_FORMAT_KEYS_BEFORE_SEPARATORS(KX_WALKED_FORMAT_KEY) \
        KX_CHART_DATA_FORMAT_KEYS_AFTER_SEPARATORS(KX_WALKED_FORMAT_KEY)  \
    }

TEST(KXChartDataFormat, EveryKeyButTheSeparators)
{
    using Self = KXChartDataFormat;
    KXKeyWalk<Self>(KX_WALKED_FORMAT_KEYS, KX_WALKED_FORMAT_KEYS).run();
}

TEST(KXChartDataFormat, WritesItsKeysInOrder)
{
    const std::string defaults = KXChartDataFormat().serialize();
    EXPECT_NE(defaults.find(R"("m_prefix":"","m_useCustomUnit":false,"m_suffix":"","m_divider":0.0,)"
                            R"("m_thousandsSeparator":"Comma","m_decimalSeparator":"Dot","m_decimals":-1,)"
                            R"("m_negative":"Dash","m_dateTimeMode":"Preset",)"
                            R"("m_datePresetFormat":"YYYY-MM-DD","m_timePresetFormat":"HH:mm:SS",)"
                            R"("m_customDateTimeFormat":"")"),
              std::string::npos)
        << defaults;

    KXChartDataFormat changed = makeChanged(), read;
    EXPECT_TRUE(read.deserialize(changed.serialize()));
    EXPECT_EQ(read.serialize(), changed.serialize());
    KXJsonObjectFactory factory;
    const std::unique_ptr<UXJsonObject> made(factory.create(changed.customSerializeTypeID()));
    EXPECT_NE(dynamic_cast<KXChartDataFormat*>(made.get()), nullptr);
}

TEST(KXChartDataFormat, SeparatorsMoveOutOfEachOthersWay)
{
    struct Case {
        const char* name;
        Thousands thousands;
        Decimal decimal;
        bool setThousands;
        int value;
        Thousands thousandsAfter;
        Decimal decimalAfter;
    };
    const Case cases[] = {
        {"point as grouping", Thousands::Comma, Decimal::Dot, true, 2, Thousands::Dot, Decimal::Comma},
        {"comma as grouping", Thousands::Dot, Decimal::Comma, true, 1, Thousands::Comma, Decimal::Dot},
        {"blank as grouping", Thousands::Comma, Decimal::Dot, true, 3, Thousands::Space, Decimal::Dot},
        {"no grouping", Thousands::Dot, Decimal::Comma, true, 0, Thousands::None, Decimal::Comma},
        {"decimal comma", Thousands::Comma, Decimal::Dot, false, 1, Thousands::Dot, Decimal::Comma},
        {"decimal point", Thousands::Dot, Decimal::Comma, false, 0, Thousands::Comma, Decimal::Dot},
        {"decimal comma beside blanks", Thousands::Space, Decimal::Dot, false, 1, Thousands::Space,
         Decimal::Comma},
        {"decimal comma without grouping", Thousands::None, Decimal::Dot, false, 1, Thousands::None,
         Decimal::Comma},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        for (const bool update : {false, true}) {
            KXChartDataFormat format;
            format.setThousandsSeparator(c.thousands);
            format.setDecimalSeparator(c.decimal);
            Calls calls(format);
            const auto thousands = static_cast<Thousands>(c.value);
            const auto decimal = static_cast<Decimal>(c.value);
            if (c.setThousands)
                update ? format.updateThousandsSeparator(thousands) : format.setThousandsSeparator(thousands);
            else
                update ? format.updateDecimalSeparator(decimal) : format.setDecimalSeparator(decimal);
            EXPECT_EQ(format.getThousandsSeparator(), c.thousandsAfter);
            EXPECT_EQ(format.getDecimalSeparator(), c.decimalAfter);
            EXPECT_TRUE(format.getUpdatedKeys().empty());

            const std::string own = c.setThousands ? "m_thousandsSeparator" : "m_decimalSeparator";
            const std::string other = c.setThousands ? "m_decimalSeparator" : "m_thousandsSeparator";
            const bool moved = c.setThousands ? c.decimal != c.decimalAfter : c.thousands != c.thousandsAfter;
            const Keys expected = !update ? Keys{""} : moved ? Keys{own, other, ""} : Keys{own, ""};
            EXPECT_EQ(calls.take(), expected);
        }
    }
}

TEST(KXChartDataFormat, CallbacksMayDestroyTheFormat)
{
    const std::vector<std::string> keys{"m_thousandsSeparator", "m_decimalSeparator", "m_prefix", ""};
    for (const std::string& key : keys) {
        SCOPED_TRACE(key);
        auto* format = new KXChartDataFormat;
        bool gone = false;
        const auto destroy = [&] {
            gone = true;
            delete format;
        };
        if (key.empty())
            format->setUpdatedEvent(destroy);
        else
            format->registerUpdatedEvents(key, [&](const std::string&) { destroy(); });
        if (key == "m_prefix" || key.empty())
            makeChanged().assignTo(format, {}, true);
        else
            format->updateThousandsSeparator(Thousands::Dot);
        EXPECT_TRUE(gone);
    }
}
