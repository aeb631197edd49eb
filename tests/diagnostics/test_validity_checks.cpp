#include "diagnostics/DiagnosticsLines.h"
#include "tests/diagnostics/DiagnosticsTestSupport.h"
#include "tests/diagnostics/WorkedCases.h"

#include <functional>

namespace quarnel {

namespace {

using test::NumberAt;
using Numbers = std::vector<double>;

std::vector<CheckFinding> FindingsOf(const ProjectState& state) {
    Diagnostics diagnostics = test::DiagnosticsOf(state);
    return diagnostics.Checks().findings;
}

const CheckFinding* Find(const std::vector<CheckFinding>& findings, CheckId id) {
    for (const CheckFinding& finding : findings)
        if (finding.id == id)
            return &finding;
    return nullptr;
}

std::optional<CheckFinding> FindingOf(const ProjectState& state, CheckId id) {
    const std::vector<CheckFinding> findings = FindingsOf(state);
    const CheckFinding* finding = Find(findings, id);
    return finding != nullptr ? std::optional<CheckFinding>(*finding) : std::nullopt;
}

/// Halving every 30 s from 50 cm to below 5 %, in 0.01 cm: nothing but ACCURACY fires in the plain
/// well.
Numbers PlainTimes() {
    return {0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110, 120, 130, 140, 150, 160, 170, 180};
}
Numbers PlainLevels(double first = 40) {
    Numbers levels;
    for (const double time : PlainTimes())
        levels.push_back(std::round(first * std::pow(0.5, time / 30) * 1000) / 1000);
    return levels;
}

/// The plain recovery with the readings from the 15th on marked Ignore.
ProjectState PlainProject(const test::WellInMetres& well = test::PlainWell, double first = 40) {
    ProjectState state = test::ProjectOf(PlainTimes(), PlainLevels(first), Centimetre, well);
    for (std::size_t i = 12; i < state.RecDatGrid.size(); ++i)
        state.IgnoreKeyList.push_back(state.RecDatGrid[i].time.ToString() +
                                      state.RecDatGrid[i].level.ToString());
    return state;
}

ProjectState WithLevels(const Numbers& times, const Numbers& levels) {
    return test::ProjectOf(times, levels);
}

struct Case {
    ProjectState state;
    std::optional<double> value; ///< nothing: the check does not fire
};

/// One table-driven test of a check: what it says of each project.
void ExpectCases(CheckId id, CheckLevel level, const std::vector<Case>& cases) {
    for (std::size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(std::string(CheckName(id)) + " " + std::to_string(i));
        const std::optional<CheckFinding> finding = FindingOf(cases[i].state, id);
        ASSERT_EQ(finding.has_value(), cases[i].value.has_value());
        if (!finding)
            continue;
        EXPECT_EQ(finding->level, level);
        EXPECT_NEAR(finding->value, *cases[i].value, 1e-9 * (1 + std::fabs(*cases[i].value)));
    }
}

} // namespace

TEST(ValidityChecks, APlainTestHasOnlyTheMethodsOwnAccuracy) {
    const std::vector<CheckFinding> findings = FindingsOf(PlainProject());
    ASSERT_EQ(findings.size(), 1U) << CheckName(findings.back().id);
    EXPECT_EQ(findings[0].id, CheckId::Accuracy);
}

TEST(ValidityChecks, OfPrattAreTheWorkedOnes) {
    for (const auto& [id, state] : {std::pair("checks_pratt_marked", test::PrattProject()),
                                    std::pair("checks_pratt_all", test::PrattProjectAll())}) {
        SCOPED_TRACE(id);
        const test::WorkedCase worked = test::ReadWorkedCase(id);
        const std::vector<CheckFinding> findings = FindingsOf(state);
        const std::vector<test::Json> expected = test::ItemsOf(worked.expected.get_child("fires"));
        ASSERT_EQ(findings.size(), expected.size());
        for (std::size_t i = 0; i < findings.size(); ++i) {
            EXPECT_EQ(CheckName(findings[i].id), expected[i].get<std::string>("id"));
            EXPECT_EQ(findings[i].level == CheckLevel::Caution ? "caution" : "note",
                      expected[i].get<std::string>("level"));
            test::ExpectWorked(findings[i].value, *NumberAt(expected[i], "value"), "value");
        }
    }
}

TEST(ValidityChecks, QuantitiesOfPrattAreTheWorkedOnes) {
    const test::Json quantities =
        test::ReadWorkedCase("checks_pratt_marked").expected.get_child("quantities");
    Diagnostics diagnostics = test::DiagnosticsOf(test::PrattProject());
    const WellDimensions& well = diagnostics.Source().geometry;
    const double h0 = diagnostics.Points().FirstYCm();
    const double step = diagnostics.Statistics().readingStepCm.value();
    const std::vector<HeadWindowRow>& rows = diagnostics.Windows().rows;
    const std::vector<std::pair<std::string, double>> values = {
        {"Le/rw", diagnostics.Source().coefficients.leOverRw},
        {"ln((H-Lw)/rw)", LnBelowWell(well)},
        {"H-Lw_cm", well.H.cm - well.Lw.cm},
        {"Le/Lw", well.Le.cm / well.Lw.cm},
        {"H0/Le", h0 / well.Le.cm},
        {"H0_in_reading_steps", h0 / step},
        {"reading_step_cm", step},
        {"curvature_ratio", *rows[Row100To030].kCmPerSec / *rows[Row030To020].kCmPerSec}};
    for (const auto& [key, value] : values)
        test::ExpectWorked(value, NumberAt(quantities, key).value(), key);
}

TEST(ValidityChecks, TheTailOfPrattHangsOnTheStaticLevel) {
    const test::Json expected =
        test::ReadWorkedCase("checks_pratt_all")
            .expected.get_child("static_level_changes_percent_minus_plus_1_cm");
    const Numbers changes = test::NumbersOf(expected);
    const std::optional<CheckFinding> tail = FindingOf(test::PrattProjectAll(), CheckId::Tail);
    ASSERT_TRUE(tail);
    EXPECT_EQ(tail->count, 5U);
    test::ExpectWorked(tail->changePercent.value(), changes[0], "greater change");
    Diagnostics diagnostics = test::DiagnosticsOf(test::PrattProjectAll());
    std::size_t at = 0;
    for (const SensitivityEntry& entry : diagnostics.SensitivityTo(10).entries)
        if (entry.input == SensitivityInput::StaticLevel)
            test::ExpectWorked(entry.changePercent.value(), changes[at++], "change");
    EXPECT_EQ(at, 2U);
}

TEST(ValidityChecks, RulesHoldAtAndBesideEachLimit) {
    const std::vector<std::pair<std::string, std::function<bool(double)>>> rules = {
        {"LE_RW_END", IsLeRwAtEnd},
        {"LE_RW_LOW", IsLeRwLow},
        {"LN_CAP", IsLnBeyondCap},
        {"NEAR_FULL", [](double x) { return IsNearFull(x, 12.5); }},
        {"H0_SCREEN", [](double x) { return IsLargeAgainstScreen(x, 1); }},
        {"H0_WETTED", [](double x) { return ChangesWettedLength(x, 1); }},
        {"H0_STEPS", [](double x) { return IsFewSteps(x, 1); }},
        {"CURVED_UP", IsCurvedUp},
        {"CURVED_DOWN", IsCurvedDown},
        {"FEW_POINTS", [](double x) { return IsFewPoints(static_cast<std::size_t>(x)); }}};
    int checked = 0;
    for (const test::Json& row :
         test::ItemsOf(test::ReadWorkedCase("checks_thresholds").expected)) {
        const std::vector<test::Json> cells = test::ItemsOf(row);
        const std::string id = cells[0].get_value<std::string>();
        for (const auto& [name, rule] : rules) {
            if (name != id)
                continue;
            EXPECT_EQ(rule(test::NumberOf(cells[2]).value()), cells[3].get_value<bool>())
                << id << " " << cells[2].data();
            ++checked;
        }
    }
    EXPECT_EQ(checked, 26);
}

TEST(ValidityChecks, RulesOfTheRecordHoldAtAndBesideEachLimit) {
    EXPECT_TRUE(IsShort(9.999, 9));
    EXPECT_FALSE(IsShort(10, 9));
    EXPECT_FALSE(IsShort(9.999, 10));
    EXPECT_TRUE(IsInTail(0.0499999, 1));
    EXPECT_FALSE(IsInTail(0.05, 1));
    for (const test::Json& row :
         test::ItemsOf(test::ReadWorkedCase("checks_oscillation").expected)) {
        const std::vector<test::Json> cells = test::ItemsOf(row);
        const Numbers y = test::NumbersOf(cells[0]);
        const double first = *std::find_if(y.begin(), y.end(), [](double v) { return v > 0; });
        EXPECT_EQ(IsOscillating(y, first), cells[1].get_value<bool>());
    }
    EXPECT_TRUE(IsOscillating(Numbers{1, -0.0500001, -0.0500001, -0.0500001}, 1));
    EXPECT_FALSE(IsOscillating(Numbers{1, -0.05, -0.05, -0.05}, 1));
}

TEST(ValidityChecks, LeRwEnd) {
    const auto with = [](double le, double dw) { return PlainProject({50, 20, le, dw, 0.01}); };
    ExpectCases(CheckId::LeRwEnd, CheckLevel::Caution,
                {{with(3.8, 2), 3.8},
                 {with(3.81, 2), {}},
                 {with(10, 0.01), 2000},
                 {with(9.999, 0.01), {}}});
}

TEST(ValidityChecks, LeRwLow) {
    const auto with = [](double le) { return PlainProject({50, 20, le, 2, 0.01}); };
    ExpectCases(CheckId::LeRwLow, CheckLevel::Note,
                {{with(3.8), {}}, {with(3.81), 3.81}, {with(7.99), 7.99}, {with(8), {}}});
}

TEST(ValidityChecks, LnCapNamesTheCappedK) {
    // rw is 0.1 m: the cap stands at H - Lw of 40.34 m.
    const double cap = 0.1 * std::exp(6.0);
    ExpectCases(CheckId::LnCap, CheckLevel::Caution,
                {{PlainProject({20 + cap * 0.99999, 20, 4, 0.2, 0.1}), {}},
                 {PlainProject({20 + cap * 1.00001, 20, 4, 0.2, 0.1}), 6 + std::log(1.00001)},
                 {PlainProject({20, 20, 4, 0.2, 0.1}), {}}});
    const auto finding = FindingOf(PlainProject({200, 20, 4, 0.2, 0.1}), CheckId::LnCap);
    ASSERT_TRUE(finding && finding->changePercent);
    EXPECT_GT(*finding->changePercent, 0);
}

TEST(ValidityChecks, NearFullNamesTheKOfAFullyPenetratingWell) {
    const auto with = [](double above) { return PlainProject({20 + above, 20, 4, 0.2, 0.1}); };
    ExpectCases(CheckId::NearFull, CheckLevel::Caution,
                {{with(0), {}},
                 {with(0.000009), {}},
                 {with(0.000011), 0.0011},
                 {with(0.0999), 9.99},
                 {with(0.1001), {}}});
    EXPECT_TRUE(FindingOf(with(0.05), CheckId::NearFull)->kCmPerSec);
}

TEST(ValidityChecks, Accuracy) {
    const auto with = [](double le) { return PlainProject({50, 20, le, 0.2, 0.1}); };
    ExpectCases(CheckId::Accuracy, CheckLevel::Note,
                {{with(2), 0.1}, {with(2.01), 0.1005}, {with(8), 0.4}, {with(8.01), 0.4005}});
    const ProjectState state = with(2);
    const ComputationPtr computation = test::ComputationOf(state);
    const DiagnosticsLines lines(*computation, state);
    for (const auto& [value, text] :
         {std::pair(0.1, ": 25 %."), std::pair(0.1000001, ": between 10 and 25 %."),
          std::pair(0.4, ": between 10 and 25 %."), std::pair(0.4000001, ": 10 %.")}) {
        CheckFinding finding;
        finding.value = value;
        const std::string said = lines.CheckText(finding);
        EXPECT_EQ(said.substr(said.size() - std::string(text).size()), text) << said;
    }
}

TEST(ValidityChecks, PorosityOfAPackThatStaysFull) {
    const auto with = [](double le, const char* porosity) {
        ProjectState state = PlainProject({50, 20, le, 0.2, 0.1});
        state.WellGeoText[GeoDpor] = porosity;
        return state;
    };
    ExpectCases(CheckId::DporSubmerged, CheckLevel::Caution,
                {{with(4, "0"), {}},
                 {with(4, "0.001"), 0.001},
                 {with(4, "30"), 30},
                 {with(19.999, "30"), 30},
                 {with(20, "30"), {}},
                 {with(19.9999999, "30"), {}}});
    const ProjectState dry = with(4, "0");
    EXPECT_EQ(FindingOf(with(4, "30"), CheckId::DporSubmerged)->kCmPerSec,
              test::ComputationOf(dry)->KInCmPerSec);
}

TEST(ValidityChecks, PorosityThatMayBeMissing) {
    const auto with = [](double le, double dc, const char* porosity) {
        ProjectState state = PlainProject({50, 20, le, 0.2, dc});
        state.WellGeoText[GeoDpor] = porosity;
        return state;
    };
    ExpectCases(CheckId::DporMissing, CheckLevel::Note,
                {{with(20, 0.1, "0"), 0},
                 {with(20, 0.2, "0"), {}},
                 {with(20, 0.1999, "0"), 0},
                 {with(20, 0.1, "1"), {}},
                 {with(19.99, 0.1, "0"), {}}});
    EXPECT_EQ(FindingOf(with(20, 0.1, "0"), CheckId::DporMissing)->kCmPerSec,
              test::ComputationOf(with(20, 0.1, "30"))->KInCmPerSec);
}

TEST(ValidityChecks, FirstChangeAgainstScreenAndSteps) {
    const auto with = [](double le, double first) {
        return PlainProject({50, 20, le, 0.2, 0.1}, first);
    };
    ExpectCases(CheckId::H0Screen, CheckLevel::Note,
                {{with(4, 40), {}}, {with(4, 40.004), 0.10001}, {with(4, 39.99), {}}});
    ExpectCases(CheckId::H0Wetted, CheckLevel::Caution,
                {{with(20, 400), {}}, {with(20, 400.01), 0.200005}, {with(4, 400), {}}});
    const auto steps = [](double first) {
        return WithLevels({0, 10, 20, 30}, {first, 1.5, 1.4, 1.1});
    };
    ExpectCases(CheckId::H0Steps, CheckLevel::Caution,
                {{steps(2.1), {}}, {steps(2.0), {}}, {steps(1.9), 19}});
    ExpectCases(CheckId::H0Steps, CheckLevel::Caution, {{WithLevels({0, 10}, {5, 5}), {}}});
}

TEST(ValidityChecks, Oscillation) {
    ExpectCases(CheckId::Oscillation, CheckLevel::Caution,
                {{WithLevels({0, 1, 2, 3, 4, 5}, {1, 0.4, -0.06, -0.07, -0.06, 0.02}), -0.07},
                 {WithLevels({0, 1, 2, 3, 4, 5}, {1, 0.4, -0.06, -0.07, 0.01, -0.06}), {}},
                 // Read in another order, but swinging in time.
                 {WithLevels({5, 4, 3, 2, 1, 0}, {0.02, -0.06, -0.07, -0.06, 0.4, 1}), -0.07},
                 {WithLevels({0, 1, 2, 3, 4}, {-9, -9, -9, 1, 0.4}), {}}});
}

TEST(ValidityChecks, ShortTests) {
    const auto until = [](double time) {
        return WithLevels({0, 1, 2, time, 30, 40}, {10, 8, 5, 3, 2, 1});
    };
    ExpectCases(
        CheckId::Short, CheckLevel::Note,
        {{until(9.99), 9.99},
         {until(10), {}},
         {WithLevels({0, 1, 2, 3, 4, 5, 6, 7, 8}, {10, 9, 8, 7, 6, 5, 4, 3.5, 3}), 8},
         {WithLevels({0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, {10, 9, 8, 7, 6, 5, 4, 3.5, 3.2, 3}), {}},
         {WithLevels({0, 1, 2}, {10, 8, 3.01}), {}}});
    EXPECT_EQ(FindingOf(until(9.99), CheckId::Short)->count, 4U);
}

TEST(ValidityChecks, Curvature) {
    // Three readings in each of two windows, the late ones `ratio` times as flat.
    const auto with = [](double ratio) {
        Numbers times;
        Numbers levels;
        for (const double time : {0.0, 100.0, 200.0}) {
            times.push_back(time);
            levels.push_back(100 * std::exp(-0.005 * time));
        }
        for (const double time : {300.0, 320.0, 340.0}) {
            times.push_back(time);
            levels.push_back(28 * std::exp(-0.005 / ratio * (time - 300)));
        }
        return WithLevels(times, levels);
    };
    ExpectCases(CheckId::CurvedUp, CheckLevel::Caution,
                {{with(1.2499), {}}, {with(1.2501), 1.2501}});
    ExpectCases(CheckId::CurvedDown, CheckLevel::Caution,
                {{with(0.8001), {}}, {with(0.7999), 0.7999}});
}

TEST(ValidityChecks, NotRecovered) {
    ExpectCases(CheckId::NotRecovered, CheckLevel::Note,
                {{WithLevels({0, 1, 2, 3}, {100, 9, 8, 5}), {}},
                 {WithLevels({0, 1, 2, 3}, {100, 9, 8, 5.01}), 0.0501},
                 {WithLevels({3, 1, 2, 0}, {7, 9, 6, 100}), 0.06},
                 {WithLevels({0, 1}, {100, 90}), {}},
                 {WithLevels({0, 1, 2}, {100, 90, 80}), 0.8}});
}

TEST(ValidityChecks, Tail) {
    ExpectCases(CheckId::Tail, CheckLevel::Caution,
                {{WithLevels({0, 1, 2, 3}, {100, 50, 20, 5}), {}},
                 {WithLevels({0, 1, 2, 3}, {100, 50, 20, 4.99}), 1},
                 {WithLevels({0, 1, 2, 3, 4}, {100, 50, 20, 4, 2}), 2}});
}

TEST(ValidityChecks, Times) {
    ExpectCases(CheckId::TimeOrder, CheckLevel::Note,
                {{WithLevels({0, 1, 1, 3}, {9, 8, 7, 6}), {}},
                 {WithLevels({0, 2, 1, 0.5}, {9, 8, 7, 6}), 3}});
    ExpectCases(CheckId::TimeEqual, CheckLevel::Note,
                {{WithLevels({0, 1, 2, 3}, {9, 8, 7, 6}), {}},
                 {WithLevels({0, 1, 2, 1, 3, 3, 3}, {9, 8, 7, 6, 5, 4, 3}), 5}});
    // A reading that was left out shares no time.
    ProjectState ignored = WithLevels({0, 1, 1, 3}, {9, 8, 7, 6});
    ignored.IgnoreKeyList = {"17"};
    ExpectCases(CheckId::TimeEqual, CheckLevel::Note, {{ignored, {}}});
}

TEST(ValidityChecks, FewPoints) {
    ExpectCases(CheckId::FewPoints, CheckLevel::Note,
                {{WithLevels({0, 1}, {9, 8}), 2},
                 {WithLevels({0, 1, 2, 3}, {9, 8, 7, 6}), 4},
                 {WithLevels({0, 1, 2, 3, 4}, {9, 8, 7, 6, 5}), {}}});
}

} // namespace quarnel
