#include "compare/CompareLines.h"
#include "compare/RepeatTests.h"
#include "tests/compare/CompareTestSupport.h"
#include "tests/diagnostics/WorkedCases.h"

#include <cmath>

namespace quarnel::test {

namespace {

using Ids = std::vector<std::string>;

std::vector<RepeatTest> Tests(const std::vector<double>& heads, const std::vector<double>& k) {
    std::vector<RepeatTest> tests;
    for (std::size_t i = 0; i < heads.size(); ++i)
        tests.push_back({heads[i], k[i]});
    return tests;
}

RepeatTests Repeats(const std::vector<double>& heads, const std::vector<double>& k) {
    const std::optional<RepeatTests> repeats = ComputeRepeatTests(Tests(heads, k));
    EXPECT_TRUE(repeats.has_value());
    return repeats.value_or(RepeatTests());
}

Ids IdsOf(const RepeatTests& repeats) {
    Ids ids;
    for (const RepeatRemark& remark : repeats.remarks)
        ids.emplace_back(RepeatName(remark.id));
    return ids;
}

Ids IdsOf(const std::vector<double>& heads, const std::vector<double>& k) {
    return IdsOf(Repeats(heads, k));
}

std::vector<std::string> TextsOf(const RepeatTests& repeats) {
    std::vector<std::string> texts;
    for (const RepeatRemark& remark : repeats.remarks)
        texts.push_back(RepeatText(remark.id, repeats, Centimetre));
    return texts;
}

} // namespace

struct WorkedRepeat {
    std::string id;
    Ids remarks;
    std::vector<std::string> texts;
};

/// For the output of a test.
void PrintTo(const WorkedRepeat& worked, std::ostream* out) {
    *out << worked.id;
}

class WorkedRepeatTest : public testing::TestWithParam<WorkedRepeat> {};

TEST_P(WorkedRepeatTest, NumbersAndRemarksAreThoseOfTheCase) {
    const WorkedCase worked = ReadWorkedCase(GetParam().id);
    const RepeatTests repeats = Repeats(NumbersOf(worked.input.get_child("first_y_cm")),
                                        NumbersOf(worked.input.get_child("k_m_per_day")));
    const Json& expected = worked.expected;
    EXPECT_EQ(static_cast<double>(repeats.count),
              std::stod(expected.get<std::string>("test_count")));
    EXPECT_EQ(repeats.count >= RecommendedTests, expected.get<bool>("enough_tests"));
    EXPECT_EQ(repeats.headRatio >= 2, expected.get<bool>("factor_two"));
    ExpectWorked(repeats.headRatio, expected.get_child("head_ratio"), "ratio");
    ExpectWorked(repeats.firstLastHeadChangePercent,
                 expected.get_child("first_last_head_change_percent"), "head");
    ExpectWorked(repeats.firstLastKChangePercent, expected.get_child("first_last_k_change_percent"),
                 "K");
    // The case gives its size; the sign says to which side K lies.
    ExpectWorked(std::fabs(repeats.greatestDeviationPercent),
                 expected.get_child("greatest_deviation_percent"), "deviation");
    ExpectWorked(repeats.headDependencePercent, expected.get_child("head_dependence_percent"),
                 "dependence");
    EXPECT_EQ(IdsOf(repeats), GetParam().remarks);
    EXPECT_EQ(TextsOf(repeats), GetParam().texts);
}

INSTANTIATE_TEST_SUITE_P(
    Given, WorkedRepeatTest,
    testing::Values(
        WorkedRepeat{"repeat_good",
                     {"REPEAT_GOOD"},
                     {"The 4 tests agree within 10 % over first changes in head from 50.0 to 101.0 "
                      "cm."}},
        WorkedRepeat{"repeat_head_dependent",
                     {"REPEAT_SPREAD", "REPEAT_HEAD_DEPENDENCE"},
                     {"K differs by up to 20.7 % from the geometric mean of the 4 tests.",
                      "K falls with the first change in head by 24.1 %: K depends on the slug "
                      "(screen across the water table, non-linear losses, mobile fines)."}},
        WorkedRepeat{"repeat_changing_well",
                     {"REPEAT_CHANGED", "REPEAT_SPREAD"},
                     {"K changed by 25.7 % from the first to the last test at the same first "
                      "change in head: the well changed during testing (development, mobile "
                      "fines).",
                      "K differs by up to 12.4 % from the geometric mean of the 3 tests."}},
        WorkedRepeat{"repeat_too_few",
                     {"REPEAT_COUNT", "REPEAT_HEADS"},
                     {"3 tests or more are recommended; here are 2.",
                      "The first changes in head differ by less than a factor of 2 (1.2): "
                      "dependence on head cannot be seen."}}),
    [](const auto& given) { return given.param.id; });

TEST(RepeatTestsTest, FewerThanTwoTestsCannotBeChecked) {
    EXPECT_FALSE(ComputeRepeatTests({}).has_value());
    EXPECT_FALSE(ComputeRepeatTests(Tests({50}, {3})).has_value());
    EXPECT_EQ(IdsOf({50, 100}, {3, 3}), Ids{"REPEAT_COUNT"});
    EXPECT_EQ(IdsOf({50, 100, 50}, {3, 3, 3}), Ids{"REPEAT_GOOD"});
}

TEST(RepeatTestsTest, HeadsMustDifferByAFactorOfTwo) {
    EXPECT_EQ(IdsOf({50, 99.9, 50}, {3, 3, 3}), Ids{"REPEAT_HEADS"});
    EXPECT_EQ(IdsOf({50, 100, 50}, {3, 3, 3}), Ids{"REPEAT_GOOD"});
    EXPECT_EQ(IdsOf({50, 100.1, 50}, {3, 3, 3}), Ids{"REPEAT_GOOD"});
    EXPECT_FALSE(Repeats({50, 99.9, 50}, {3, 4, 3}).headDependencePercent.has_value());
    EXPECT_TRUE(Repeats({50, 100, 50}, {3, 4, 3}).headDependencePercent.has_value());
}

TEST(RepeatTestsTest, TheLastHeadMustBeWithinATenthOfTheFirst) {
    for (const double same : {44.9, 55.1})
        EXPECT_EQ(IdsOf({50, 110, same}, {3, 3, 3}), Ids{"REPEAT_FIRST_LAST"}) << same;
    for (const double same : {45.0, 45.1, 54.9, 55.0})
        EXPECT_EQ(IdsOf({50, 110, same}, {3, 3, 3}), Ids{"REPEAT_GOOD"}) << same;
    // Of two tests nothing is said of the last.
    EXPECT_EQ(IdsOf({50, 110}, {3, 3}), Ids{"REPEAT_COUNT"});
    EXPECT_EQ(TextsOf(Repeats({50, 110, 40}, {3, 3, 3})),
              std::vector<std::string>{
                  "The last test's first change in head differs from the first test's by 20.0 %: a "
                  "change of the well in between cannot be told from dependence on head."});
}

TEST(RepeatTestsTest, KMustBeWithinATenthFromFirstToLastAtTheSameHead) {
    // The middle test keeps the mean near the others, so that the spread stays out of it.
    for (const double last : {9.0, 9.01, 10.99, 11.0})
        EXPECT_EQ(IdsOf({50, 100, 50}, {10, (10 + last) / 2, last}), Ids{"REPEAT_GOOD"}) << last;
    for (const double last : {8.99, 11.01})
        EXPECT_EQ(IdsOf({50, 100, 50}, {10, (10 + last) / 2, last}), Ids{"REPEAT_CHANGED"}) << last;
    // With another head it cannot be told from dependence on head.
    EXPECT_EQ(IdsOf({50, 100, 40}, {10, 10.5, 11.01}), Ids{"REPEAT_FIRST_LAST"});
    EXPECT_EQ(IdsOf({50, 100}, {10, 11.01}), (Ids{"REPEAT_COUNT", "REPEAT_HEAD_DEPENDENCE"}));
}

TEST(RepeatTestsTest, EveryKMustBeWithinATenthOfTheGeometricMean) {
    // Of 1/q, 1 and q the mean is 1; first and last are alike in the list.
    const auto ids = [](double q) { return IdsOf({50, 60, 61, 50}, {1, q, 1 / q, 1}); };
    EXPECT_EQ(ids(1.0999), Ids{"REPEAT_HEADS"});
    EXPECT_EQ(ids(1.1), Ids{"REPEAT_HEADS"});
    EXPECT_EQ(ids(1.1001), (Ids{"REPEAT_HEADS", "REPEAT_SPREAD"}));
    EXPECT_LT(Repeats({50, 60, 61, 50}, {1, 0.5, 1.2, 1}).greatestDeviationPercent, 0);
}

TEST(RepeatTestsTest, KMustNotDependOnTheHeadByMoreThanATenth) {
    // The high heads' mean over the low heads' is q; every K stays within a tenth of the mean.
    const auto ids = [](double q) { return IdsOf({50, 100, 50}, {1, q, 1}); };
    EXPECT_EQ(ids(1.0999), Ids{"REPEAT_GOOD"});
    EXPECT_EQ(ids(1.1), Ids{"REPEAT_GOOD"});
    EXPECT_EQ(ids(1.1001), Ids{"REPEAT_HEAD_DEPENDENCE"});
    EXPECT_EQ(ids(0.9), Ids{"REPEAT_GOOD"});
    EXPECT_EQ(ids(0.8999), Ids{"REPEAT_HEAD_DEPENDENCE"});
    EXPECT_EQ(TextsOf(Repeats({50, 100, 50}, {1, 1.12, 1})),
              std::vector<std::string>{
                  "K rises with the first change in head by 12.0 %: K depends on the slug (screen "
                  "across the water table, non-linear losses, mobile fines)."});
}

TEST(RepeatTestsTest, AHeadOnTheMiddleIsAHighOne) {
    // The middle of 50 and 200 is 100.
    const RepeatTests repeats = Repeats({50, 100, 200}, {1, 4, 4});
    ExpectWorked(*repeats.headDependencePercent, 300, "all high ones have 4 times the K");
}

TEST(RepeatTestsTest, CautionsAreTheThreeThatSpeakAgainstK) {
    for (const RepeatRemark& remark : Repeats({50, 110, 50}, {1, 3, 2}).remarks)
        EXPECT_EQ(remark.level, CheckLevel::Caution) << RepeatName(remark.id);
    for (const RepeatRemark& remark : Repeats({50, 60}, {1, 1}).remarks)
        EXPECT_EQ(remark.level, CheckLevel::Note) << RepeatName(remark.id);
}

} // namespace quarnel::test
