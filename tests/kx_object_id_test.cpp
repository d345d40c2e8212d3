#include "kx_object_id.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace {

constexpr std::uint64_t noIndex = (std::numeric_limits<std::uint64_t>::max)();

KXObjectIDPath bar(int value) { return kxCreateObjectIDPath(static_cast<KXBarChartObjectIDPath>(value)); }
KXObjectIDPath line(int value) { return kxCreateObjectIDPath(static_cast<KXLineChartObjectIDPath>(value)); }
KXObjectIDPath text(const std::string& value) { return kxCreateObjectIDPath(value); }
KXObjectIDProperty color(const std::string& value) { return kxCreateObjectIDProperty(value); }

/** Expects that every element sorts before all later ones and equals only itself. */
template <class T>
void expectAscending(const std::vector<T>& values)
{
    for (std::size_t a = 0; a < values.size(); ++a) {
        for (std::size_t b = 0; b < values.size(); ++b) {
            SCOPED_TRACE(std::to_string(a) + " and " + std::to_string(b));
            EXPECT_EQ(values[a] < values[b], a < b);
            EXPECT_EQ(values[a] > values[b], a > b);
            EXPECT_EQ(values[a] <= values[b], a <= b);
            EXPECT_EQ(values[a] >= values[b], a >= b);
            EXPECT_EQ(values[a] == values[b], a == b);
            EXPECT_EQ(values[a] != values[b], a != b);
        }
    }
}

} // namespace

TEST(KXObjectID, IndexFillsTheSelectedPathAndEndsTheSelection)
{
    const KXObjectID empty = KXObjectID::instance();
    EXPECT_FALSE(empty.hasPathTypes());
    EXPECT_FALSE(empty.hasProperty());
    EXPECT_EQ(empty.index(), noIndex);
    EXPECT_EQ(empty.index(3), empty);
    EXPECT_EQ(empty.property(), KXObjectIDProperty());

    const KXObjectID one = empty.path(bar(0)).path(line(7)).index(1);
    EXPECT_FALSE(one.hasPathType(bar(0)));
    EXPECT_EQ(one.index(), noIndex) << "nothing is selected any more";
    EXPECT_EQ(one.index(9), one);
    EXPECT_EQ(one.path(line(7)).index(4), empty.path(line(7)).index(4)) << "overwritten, not added";
    EXPECT_EQ(one.path(line(7)).index(), 1u) << "the copies left it alone";
    EXPECT_EQ(one.path(bar(3)), one) << "a selection is no part of what is named";
}

TEST(KXObjectID, OrdersPathsByTypeThenValue)
{
    // The mangled names begin with their length, which puts enumerations before std::string.
    expectAscending<KXObjectIDPath>(
        {bar(-1), bar(0), bar(10), line(-5), line(0), text(""), text("10"), text("9"), text("a"), text("é")});
    EXPECT_EQ(kxCreateObjectIDPath("1"), text("1"));
    EXPECT_EQ(kxCreateObjectIDProperty("1"), color("1"));
    EXPECT_EQ(kxCreateObjectIDPath(static_cast<const char*>(nullptr)), kxCreateObjectIDPath(""));
    EXPECT_NE(kxCreateObjectIDProperty(static_cast<KXHeatMapChartObjectIDProperty>(1)),
              kxCreateObjectIDProperty(static_cast<KXChartObjectIDProperty>(1)));
}

TEST(KXObjectID, OrdersByPropertyThenSizeThenIndexes)
{
    const KXObjectID none = KXObjectID::instance();
    const KXObjectID barTwo = none.path(bar(0)).index(2);
    expectAscending<KXObjectID>({
        none,
        none.path(bar(0)).index(1),
        barTwo,
        none.path(bar(1)).index(0),
        none.path(line(0)).index(noIndex),
        none.path(bar(0)).index(0).path(line(0)).index(9),
        barTwo.path(line(0)).index(1),
        barTwo.path(line(1)).index(0),
        none.property(color("a")),
        barTwo.property(color("a")),
        none.property(color("b")),
    });
}
