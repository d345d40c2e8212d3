#include "kx_chart_data_format.h"

#include "kx_key_walk.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
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

    std::vector<std::string> list;
};

using Keys = std::vector<std::string>;

} // namespace

// The separators have rules of their own; a filtered update is an assignment of the one key.
#define KX_FILTERED_ASSIGNMENT(Name)   \
    Self one;                          \
    one.set##Name(source.get##Name()); \
    one.assignTo(&object, keys, exclude);
#define KX_WALKED_FORMAT_KEY(Type, Name, member, ...) \
    KX_WALKED_KEY_WITH(Type, Name, member, KX_FILTERED_ASSIGNMENT)
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

TEST(KXChartDataFormat, SeparatorsMoveOutOfEachOthersWay)
{
    const std::tuple<const char*, Thousands, Decimal, bool, int, Thousands, Decimal> cases[] = {
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
    for (const auto& [name, thousands, decimal, setThousands, value, thousandsAfter, decimalAfter] : cases) {
        SCOPED_TRACE(name);
        for (const bool update : {false, true}) {
            KXChartDataFormat format;
            format.setThousandsSeparator(thousands);
            format.setDecimalSeparator(decimal);
            Calls calls(format);
            const auto newThousands = static_cast<Thousands>(value);
            const auto newDecimal = static_cast<Decimal>(value);
            if (setThousands)
                update ? format.updateThousandsSeparator(newThousands)
                       : format.setThousandsSeparator(newThousands);
            else
                update ? format.updateDecimalSeparator(newDecimal) : format.setDecimalSeparator(newDecimal);
            EXPECT_EQ(format.getThousandsSeparator(), thousandsAfter);
            EXPECT_EQ(format.getDecimalSeparator(), decimalAfter);
            EXPECT_TRUE(format.getUpdatedKeys().empty());

            const std::string own = setThousands ? "m_thousandsSeparator" : "m_decimalSeparator";
            const std::string other = setThousands ? "m_decimalSeparator" : "m_thousandsSeparator";
            const bool moved = setThousands ? decimal != decimalAfter : thousands != thousandsAfter;
            const Keys expected = !update ? Keys{""} : moved ? Keys{own, other, ""} : Keys{own, ""};
            EXPECT_EQ(calls.list, expected);
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
        KXChartDataFormat changed;
        changed.setPrefix("p");
        if (key == "m_prefix" || key.empty())
            changed.assignTo(format, {}, true);
        else
            format->updateThousandsSeparator(Thousands::Dot);
        EXPECT_TRUE(gone);
    }
}
