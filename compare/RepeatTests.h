#pragma once

#include "diagnostics/ValidityChecks.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace quarnel {

// Butler, J. J., McElwee, C. D. and Liu, W. (1996), Improving the quality of parameter estimates
// obtained from slug tests, Ground Water 34:480; Butler, J. J. (1998), The design, performance and
// analysis of slug tests: three or more tests of a well, first changes in head that differ by a
// factor of two or more, the last like the first. The limits of 10 % are our own.

/// Tests of one well that are recommended at least.
inline constexpr std::size_t RecommendedTests = 3;

/// What tests of one well say of each other, in the order of their list.
enum class RepeatId {
    Count,          ///< too few
    Heads,          ///< first changes in head too much alike
    FirstLast,      ///< the last test's first change in head is not that of the first
    Changed,        ///< the well changed during testing
    Spread,         ///< K differs
    HeadDependence, ///< K depends on the first change in head
    Good            ///< they agree
};

/// The name in files: "REPEAT_COUNT".
std::string_view RepeatName(RepeatId id);

struct RepeatRemark {
    RepeatId id = RepeatId::Good;
    CheckLevel level = CheckLevel::Note;
};

/// One counted test of a well.
struct RepeatTest {
    double firstYCm = 0; ///< H0, > 0
    double k = 0;        ///< > 0, any unit that all tests share
};

struct RepeatTests {
    std::size_t count = 0;
    double leastHeadCm = 0; ///< of the first changes in head
    double greatestHeadCm = 0;
    double headRatio = 0;                  ///< greatest over least first change in head
    double firstLastHeadChangePercent = 0; ///< from the first to the last test
    double firstLastKChangePercent = 0;    ///< the same of K
    double greatestDeviationPercent = 0;   ///< from the geometric mean, of the K farthest from it
    std::optional<double> headDependencePercent; ///< none where the heads are too much alike
    std::vector<RepeatRemark> remarks;           ///< in the order of RepeatId
};

/// Checks the tests of one well, in the order of testing, against each other. Nothing of fewer than
/// 2.
std::optional<RepeatTests> ComputeRepeatTests(std::span<const RepeatTest> tests);

} // namespace quarnel
