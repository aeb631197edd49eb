#include "loggerfiles/Thinning.h"

#include "tests/CoreTestSupport.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace quarnel::test {

namespace {

using Times = std::vector<std::int64_t>;
using Rows = std::vector<std::size_t>;

Times Every(std::size_t count, std::int64_t microseconds) {
    Times times;
    for (std::size_t i = 0; i < count; ++i)
        times.push_back(static_cast<std::int64_t>(i) * microseconds);
    return times;
}

} // namespace

// An hour at ten readings a second.
TEST(Thinning, KeepsThisManyOfAnHour) {
    const Times times = Every(36001, 100'000);
    EXPECT_EQ(ThinnedRows(times, 10).size(), 45U);
    EXPECT_EQ(ThinnedRows(times, 20).size(), 83U);
    EXPECT_EQ(ThinnedRows(times, 50).size(), 184U);
}

TEST(Thinning, KeepsTheseRowsOfAnHourAtTenADecade) {
    const Rows expected = {0,    1,    2,     3,     4,     6,     7,     8,     10,
                           13,   16,   20,    26,    32,    40,    51,    64,    80,
                           100,  126,  159,   200,   252,   317,   399,   502,   631,
                           795,  1000, 1259,  1585,  1996,  2512,  3163,  3982,  5012,
                           6310, 7944, 10000, 12590, 15849, 19953, 25119, 31623, 36000};
    EXPECT_EQ(ThinnedRows(Every(36001, 100'000), 10), expected);
}

TEST(Thinning, KeepsFirstAndLastWhateverTheTimes) {
    Random random(7);
    for (int round = 0; round < 300; ++round) {
        Times times(1 + random.Below(400));
        for (std::int64_t& time : times)
            time = random.Between(0, 3) == 0 ? 0 : random.Between(0, 1'000'000'000);
        std::sort(times.begin(), times.end());
        const Rows rows = ThinnedRows(times, random.Between(1, MostRowsPerDecade));
        ASSERT_EQ(rows.front(), 0U);
        ASSERT_EQ(rows.back(), times.size() - 1);
        ASSERT_TRUE(std::adjacent_find(rows.begin(), rows.end(), std::greater_equal<>()) ==
                    rows.end());
    }
}

TEST(Thinning, RecordsWithoutAnyLaterTimeKeepTheirEnds) {
    EXPECT_EQ(ThinnedRows({}, 20), Rows{});
    EXPECT_EQ(ThinnedRows(Times{0}, 20), Rows{0});
    EXPECT_EQ(ThinnedRows(Times{0, 0, 0}, 20), (Rows{0, 2}));
    EXPECT_EQ(ThinnedRows(Times{0, 0, 0, 5}, 20), (Rows{0, 3}));
}

TEST(Thinning, RoundingOfThePowersLosesNoRow) {
    // 0.07 s times 100 is a little more than 7 s in doubles.
    EXPECT_EQ(ThinnedRows(Times{0, 70'000, 7'000'000, 8'000'000, 100'000'000}, 1),
              (Rows{0, 1, 2, 4}));
}

TEST(Thinning, GapsAreSteppedOver) {
    // From 1 s to a year and on.
    EXPECT_EQ(
        ThinnedRows(Times{0, 1'000'000, 31'536'000'000'000, 31'536'001'000'000, 40'000'000'000'000},
                    20),
        (Rows{0, 1, 2, 4}));
}

} // namespace quarnel::test
