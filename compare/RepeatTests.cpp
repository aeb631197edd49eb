#include "compare/RepeatTests.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

namespace quarnel {

namespace {

constexpr double FactorOfHeads = 2;
constexpr double GreatestChange = 0.10;
/// A change typed as one tenth is not beyond it for the last bit of a quotient.
constexpr double Slack = 1e-9;

constexpr std::array<std::string_view, 7> RepeatNames = {
    "REPEAT_COUNT",  "REPEAT_HEADS",           "REPEAT_FIRST_LAST", "REPEAT_CHANGED",
    "REPEAT_SPREAD", "REPEAT_HEAD_DEPENDENCE", "REPEAT_GOOD"};

bool IsBeyondLimit(double percent) {
    return std::fabs(percent) > 100 * (GreatestChange + Slack);
}

double ChangePercent(double from, double to) {
    return (to / from - 1) * 100;
}

/// Of the tests for which `belongs` holds; there is one at least.
template <typename Belongs>
double GeometricMean(std::span<const RepeatTest> tests, Belongs belongs) {
    double sum = 0;
    std::size_t n = 0;
    for (const RepeatTest& test : tests)
        if (belongs(test)) {
            sum += std::log(test.k);
            ++n;
        }
    return std::exp(sum / static_cast<double>(n));
}

double GreatestDeviationPercent(std::span<const RepeatTest> tests) {
    const double mean = GeometricMean(tests, [](const RepeatTest&) { return true; });
    double greatest = 0;
    for (const RepeatTest& test : tests)
        if (const double deviation = ChangePercent(mean, test.k);
            std::fabs(deviation) > std::fabs(greatest))
            greatest = deviation;
    return greatest;
}

double HeadDependencePercent(std::span<const RepeatTest> tests, const RepeatTests& repeats) {
    const double middle = std::sqrt(repeats.leastHeadCm * repeats.greatestHeadCm);
    const auto isHigh = [middle](const RepeatTest& test) { return test.firstYCm >= middle; };
    return ChangePercent(GeometricMean(tests, std::not_fn(isHigh)), GeometricMean(tests, isHigh));
}

std::vector<RepeatRemark> RemarksOn(const RepeatTests& repeats) {
    std::vector<RepeatRemark> remarks;
    const auto add = [&remarks](bool holds, RepeatId id, CheckLevel level) {
        if (holds)
            remarks.push_back({id, level});
    };
    const bool isEnough = repeats.count >= RecommendedTests;
    const bool differs = IsBeyondLimit(repeats.firstLastHeadChangePercent);
    add(!isEnough, RepeatId::Count, CheckLevel::Note);
    add(repeats.headRatio < FactorOfHeads, RepeatId::Heads, CheckLevel::Note);
    add(isEnough && differs, RepeatId::FirstLast, CheckLevel::Note);
    add(isEnough && !differs && IsBeyondLimit(repeats.firstLastKChangePercent), RepeatId::Changed,
        CheckLevel::Caution);
    add(IsBeyondLimit(repeats.greatestDeviationPercent), RepeatId::Spread, CheckLevel::Caution);
    add(repeats.headDependencePercent && IsBeyondLimit(*repeats.headDependencePercent),
        RepeatId::HeadDependence, CheckLevel::Caution);
    add(isEnough && remarks.empty(), RepeatId::Good, CheckLevel::Note);
    return remarks;
}

} // namespace

std::string_view RepeatName(RepeatId id) {
    return RepeatNames[static_cast<std::size_t>(id)];
}

std::optional<RepeatTests> ComputeRepeatTests(std::span<const RepeatTest> tests) {
    if (tests.size() < 2)
        return std::nullopt;
    RepeatTests repeats;
    repeats.count = tests.size();
    const auto [least, greatest] = std::ranges::minmax(tests, {}, &RepeatTest::firstYCm);
    repeats.leastHeadCm = least.firstYCm;
    repeats.greatestHeadCm = greatest.firstYCm;
    repeats.headRatio = repeats.greatestHeadCm / repeats.leastHeadCm;
    repeats.firstLastHeadChangePercent =
        ChangePercent(tests.front().firstYCm, tests.back().firstYCm);
    repeats.firstLastKChangePercent = ChangePercent(tests.front().k, tests.back().k);
    repeats.greatestDeviationPercent = GreatestDeviationPercent(tests);
    if (repeats.headRatio >= FactorOfHeads)
        repeats.headDependencePercent = HeadDependencePercent(tests, repeats);
    repeats.remarks = RemarksOn(repeats);
    return repeats;
}

} // namespace quarnel
