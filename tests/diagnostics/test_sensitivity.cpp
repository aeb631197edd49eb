#include "tests/diagnostics/DiagnosticsTestSupport.h"
#include "tests/diagnostics/WorkedCases.h"

namespace quarnel {

namespace {

using test::ExpectWorked;
using test::MetresPerDay;
using test::NumberAt;

SensitivityInput InputOf(const std::string& name) {
    const std::vector<std::pair<std::string, SensitivityInput>> names = {
        {"H", SensitivityInput::H},           {"Lw", SensitivityInput::Lw},
        {"Le", SensitivityInput::Le},         {"dw", SensitivityInput::Dw},
        {"dc", SensitivityInput::Dc},         {"dpor", SensitivityInput::Porosity},
        {"Y", SensitivityInput::StaticLevel}, {"Kz/Kr", SensitivityInput::Anisotropy}};
    for (const auto& [known, input] : names)
        if (known == name)
            return input;
    ADD_FAILURE() << name;
    return SensitivityInput::H;
}

const SensitivityEntry* Find(const SensitivityPage& page, SensitivityInput input, double change) {
    for (const SensitivityEntry& entry : page.entries)
        if (entry.input == input && std::fabs(entry.change - change) < 1e-9)
            return &entry;
    return nullptr;
}

test::WellInMetres WellOf(const test::Json& geometry) {
    return {*NumberAt(geometry, "H"), *NumberAt(geometry, "Lw"), *NumberAt(geometry, "Le"),
            *NumberAt(geometry, "dw"), *NumberAt(geometry, "dc")};
}

ProjectState PrattWithWell(const test::WellInMetres& well) {
    ProjectState state = test::PrattProject();
    test::SetWell(state, well);
    return state;
}

} // namespace

TEST(Sensitivity, IsTheWorkedOne) {
    const test::WorkedCase worked = test::ReadWorkedCase("sensitivity_pratt");
    Diagnostics diagnostics = test::DiagnosticsOf(test::PrattProject());
    const SensitivityPage& page = diagnostics.SensitivityTo(10);
    ExpectWorked(MetresPerDay(diagnostics.Source().KInCmPerSec),
                 *NumberAt(worked.expected, "k_m_per_day"), "K");
    for (const test::Json& row : test::ItemsOf(worked.expected.get_child("rows"))) {
        const std::string name = row.get<std::string>("input");
        double change = 0;
        for (const auto& [key, factor] : {std::pair("change", 1.0), std::pair("value_percent", 1.0),
                                          std::pair("shift_m", 100.0), std::pair("value", 1.0)})
            if (test::Has(row, key))
                change = factor * *NumberAt(row, key);
        if (name == "Kz/Kr" && change == 1)
            continue; // the computation itself
        SCOPED_TRACE(name + " " + std::to_string(change));
        const SensitivityEntry* entry = Find(page, InputOf(name), change);
        ASSERT_NE(entry, nullptr);
        ExpectWorked(MetresPerDay(entry->kCmPerSec.value()), *NumberAt(row, "k_m_per_day"), "K");
        ExpectWorked(entry->changePercent, row.get_child("change_percent"), "change");
    }
}

TEST(Sensitivity, LeavesOutThePointsThatMatterMost) {
    const test::WorkedCase worked = test::ReadWorkedCase("sensitivity_pratt");
    Diagnostics diagnostics = test::DiagnosticsOf(test::PrattProject());
    const RecoveryPointList& points = *diagnostics.Source().recovery.RecoveryPoints;
    const std::vector<test::Json> rows = test::ItemsOf(worked.expected.get_child("leave_one_out"));
    // The least K first, from the last of the three, then the greatest, from the first.
    std::vector<SensitivityEntry> leftOut;
    for (const SensitivityEntry& entry : diagnostics.SensitivityTo(10).entries)
        if (entry.input == SensitivityInput::LeftOut)
            leftOut.push_back(entry);
    ASSERT_EQ(leftOut.size(), 2U);
    for (const auto& [entry, row] :
         {std::pair(leftOut[0], rows[2]), std::pair(leftOut[1], rows[0])}) {
        const auto point = static_cast<std::size_t>(entry.change) - 1;
        EXPECT_EQ(points[point].timeText.View(), row.get<std::string>("left_out_time"));
        ExpectWorked(MetresPerDay(entry.kCmPerSec.value()), *NumberAt(row, "k_m_per_day"), "K");
        ExpectWorked(entry.changePercent.value(), *NumberAt(row, "change_percent"), "change");
    }
}

TEST(Sensitivity, LeftOutSlopesAreThoseOfASecondFit) {
    test::Random random(3);
    for (int round = 0; round < 50; ++round) {
        std::vector<double> times;
        std::vector<double> levels;
        const int count = random.Between(3, 12);
        for (int i = 0; i < count; ++i) {
            times.push_back(random.Between(0, 8));
            levels.push_back(random.Between(1, 900));
        }
        const ProjectState state = test::ProjectOf(times, levels);
        const ComputationPtr computation = test::ComputationOf(state);
        if (!computation)
            continue;
        Diagnostics diagnostics(computation, state);
        std::optional<double> least, greatest;
        for (std::size_t left = 0; left < times.size(); ++left) {
            std::vector<std::pair<double, double>> kept;
            for (std::size_t i = 0; i < times.size(); ++i)
                if (i != left)
                    kept.emplace_back(times[i], std::log(levels[i]));
            std::sort(kept.begin(), kept.end());
            std::vector<double> t, l;
            for (const auto& [time, level] : kept) {
                t.push_back(time);
                l.push_back(level);
            }
            const auto line = LineThrough({t, l});
            if (!line)
                continue;
            const double k = KOfSlope(*computation, line->slope).value();
            least = std::min(least.value_or(k), k);
            greatest = std::max(greatest.value_or(k), k);
        }
        std::vector<double> found;
        for (const SensitivityEntry& entry : diagnostics.SensitivityTo(10).entries)
            if (entry.input == SensitivityInput::LeftOut)
                found.push_back(entry.kCmPerSec.value());
        ASSERT_EQ(found.size(), least ? 2U : 0U) << round;
        if (!least)
            continue;
        const double size = std::max(std::fabs(*least), std::fabs(*greatest));
        EXPECT_NEAR(found[0], *least, 1e-9 * size) << round;
        EXPECT_NEAR(found[1], *greatest, 1e-9 * size) << round;
    }
}

TEST(Sensitivity, TwoPointsLeaveNothingToLeaveOut) {
    Diagnostics diagnostics = test::DiagnosticsOf(test::ProjectOf({0, 10}, {50, 20}));
    for (const SensitivityEntry& entry : diagnostics.SensitivityTo(10).entries)
        EXPECT_NE(entry.input, SensitivityInput::LeftOut);
}

TEST(Sensitivity, AGeometryThatFailsShowsADash) {
    const test::WorkedCase worked = test::ReadWorkedCase("sensitivity_dashes");
    Diagnostics diagnostics =
        test::DiagnosticsOf(PrattWithWell(WellOf(worked.input.get_child("geometry_m"))));
    ExpectWorked(diagnostics.Source().line.slope, *NumberAt(worked.input, "slope_per_sec"), "b");
    const SensitivityPage& page = diagnostics.SensitivityTo(10);
    for (const test::Json& row : test::ItemsOf(worked.expected)) {
        const std::string name = row.get<std::string>("input");
        SCOPED_TRACE(name);
        const SensitivityEntry* entry = Find(page, InputOf(name), *NumberAt(row, "change"));
        ASSERT_NE(entry, nullptr);
        const std::optional<double>& k = entry->kCmPerSec;
        ExpectWorked(k ? std::optional<double>(MetresPerDay(*k)) : std::nullopt,
                     row.get_child("k_m_per_day"), "K");
        EXPECT_EQ(entry->changePercent.has_value(), k.has_value());
    }
}

TEST(Sensitivity, OfZeroPercentIsZero) {
    Diagnostics diagnostics = test::DiagnosticsOf(test::PrattProject());
    const SensitivityPage& page = diagnostics.SensitivityTo(0);
    int checked = 0;
    for (const SensitivityEntry& entry : page.entries) {
        if (entry.input > SensitivityInput::Dc)
            break;
        EXPECT_EQ(entry.kCmPerSec, diagnostics.Source().KInCmPerSec);
        EXPECT_EQ(entry.changePercent, 0.0);
        ++checked;
    }
    EXPECT_EQ(checked, 10);
}

TEST(Sensitivity, KFollowsTheCasingsArea) {
    Diagnostics diagnostics = test::DiagnosticsOf(test::PrattProject());
    for (const double percent : {1.0, 10.0, 50.0}) {
        const SensitivityPage& page = diagnostics.SensitivityTo(percent);
        for (const double change : {-percent, percent}) {
            const double factor = 1 + change / 100;
            EXPECT_NEAR(Find(page, SensitivityInput::Dc, change)->changePercent.value(),
                        (factor * factor - 1) * 100, 1e-9);
        }
    }
}

TEST(Sensitivity, TheCapIsListedOnlyWhereItIsPassed) {
    const test::WorkedCase worked = test::ReadWorkedCase("ln_cap");
    for (const test::Json& row : test::ItemsOf(worked.expected)) {
        Diagnostics diagnostics =
            test::DiagnosticsOf(PrattWithWell(WellOf(row.get_child("geometry_m"))));
        const Computation& computation = diagnostics.Source();
        ExpectWorked(LnBelowWell(computation.geometry), *NumberAt(row, "ln_term"), "ln");
        ExpectWorked(computation.coefficients.lnReOverRw, *NumberAt(row, "ln_re_over_rw"), "ln Re");
        const SensitivityEntry* entry =
            Find(diagnostics.SensitivityTo(10), SensitivityInput::LnCap, 6);
        ASSERT_NE(entry, nullptr);
        ExpectWorked(entry->changePercent.value(), *NumberAt(row, "change_percent"), "change");
        ExpectWorked(computation.coefficients.lnReOverRw * *entry->kCmPerSec /
                         computation.KInCmPerSec,
                     *NumberAt(row, "ln_re_over_rw_with_6"), "ln Re with 6");
    }
    Diagnostics below = test::DiagnosticsOf(test::PrattProject());
    EXPECT_EQ(Find(below.SensitivityTo(10), SensitivityInput::LnCap, 6), nullptr);
}

TEST(Sensitivity, TheStaticLevelMovesByTheUnitsOwnStep) {
    for (const auto& [unit, step] : {std::pair(Inch, 0.3048), std::pair(Foot, 0.3048),
                                     std::pair(Centimetre, 1.0), std::pair(Metre, 1.0)}) {
        ProjectState state = test::ProjectOf({0, 10, 20, 30}, {9, 7, 5, 4}, unit);
        EXPECT_NEAR(StaticLevelStepCm(*test::ComputationOf(state)), step, 1e-12) << unit;
    }
}

TEST(Sensitivity, ReadingsThatFallToTheStaticLevelAreLeftOut) {
    Diagnostics diagnostics = test::DiagnosticsOf(test::ProjectOf({0, 10, 20, 30}, {9, 5, 1, 0.5}));
    const SensitivityEntry* less =
        Find(diagnostics.SensitivityTo(10), SensitivityInput::StaticLevel, -1);
    const double slope = (std::log(4.0) - std::log(8.0)) / 10;
    ASSERT_TRUE(less->kCmPerSec);
    EXPECT_NEAR(*less->kCmPerSec, *KOfSlope(diagnostics.Source(), slope), 1e-12 * *less->kCmPerSec);
    Diagnostics none = test::DiagnosticsOf(test::ProjectOf({0, 10, 20}, {9, 1, 0.5}));
    EXPECT_FALSE(Find(none.SensitivityTo(10), SensitivityInput::StaticLevel, -1)->kCmPerSec);
}

TEST(Sensitivity, RowsStandByTheirGreaterChange) {
    Diagnostics diagnostics = test::DiagnosticsOf(test::PrattProject());
    const SensitivityPage& page = diagnostics.SensitivityTo(10);
    EXPECT_EQ(page.rows.front().input, SensitivityInput::Porosity);
    EXPECT_EQ(page.rows.front().entries.size(), 5U);
    // H to dc, porosity, static level, left out, anisotropy and the seven rows of windows.
    EXPECT_EQ(page.rows.size(), 9U + 7U);
    double last = 1e9;
    for (const SensitivityRow& row : page.rows) {
        const double size = row.leastPercent ? std::max(std::fabs(*row.leastPercent),
                                                        std::fabs(*row.greatestPercent))
                                             : -1;
        EXPECT_LE(size, last);
        last = size;
    }
    for (const SensitivityEntry& entry : page.entries)
        EXPECT_NE(entry.input, SensitivityInput::HeadWindow);
}

TEST(Sensitivity, NearFullWellsAreTheWorkedOnes) {
    const test::WorkedCase worked = test::ReadWorkedCase("near_full_pratt");
    const test::Json& geometry = worked.input.get_child("geometry_m");
    for (const test::Json& row : test::ItemsOf(worked.expected)) {
        const double H = *NumberAt(row, "H_m");
        SCOPED_TRACE(H);
        Diagnostics diagnostics = test::DiagnosticsOf(
            PrattWithWell({H, *NumberAt(geometry, "Lw"), *NumberAt(geometry, "Le"),
                           *NumberAt(geometry, "dw"), *NumberAt(geometry, "dc")}));
        const Computation& computation = diagnostics.Source();
        ExpectWorked(computation.coefficients.lnReOverRw, *NumberAt(row, "ln_re_over_rw"), "ln Re");
        ExpectWorked(MetresPerDay(computation.KInCmPerSec), *NumberAt(row, "k_m_per_day"), "K");
        EXPECT_EQ(EndsAboveBottom(computation.geometry), test::Has(row, "ln_term"));
        if (!test::Has(row, "ln_term"))
            continue;
        // Lengths in m become cm before they are subtracted: a few units of the last place.
        EXPECT_NEAR(LnBelowWell(computation.geometry), *NumberAt(row, "ln_term"), 1e-9);
        const std::optional<double> k = KAsFullyPenetrating(computation);
        ExpectWorked(MetresPerDay(k.value()), *NumberAt(row, "k_as_full_m_per_day"), "Kc");
        ExpectWorked(ChangePercent(computation, k).value(), *NumberAt(row, "change_percent"),
                     "change");
    }
}

} // namespace quarnel
