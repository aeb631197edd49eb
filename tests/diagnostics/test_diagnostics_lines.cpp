#include "diagnostics/DiagnosticsLines.h"

#include "tests/diagnostics/DiagnosticsTestSupport.h"
#include "tests/diagnostics/WorkedCases.h"

namespace quarnel {

namespace {

/// A project with its diagnostics and their texts.
struct Diagnosed {
    ProjectState state;
    Diagnostics diagnostics;
    DiagnosticsLines lines;

    explicit Diagnosed(const ProjectState& project)
        : state(project)
        , diagnostics(test::DiagnosticsOf(state))
        , lines(diagnostics.Source(), state) {}
    Diagnosed(const Diagnosed&) = delete;

    std::string Value(const std::string& label) {
        for (const TextRow& row : lines.Statistics(diagnostics.Statistics()))
            if (row[0] == label)
                return row[1];
        return "no such label";
    }
    std::string SlugVolume() { return lines.SlugVolume(diagnostics.Statistics()); }
    std::string Check(CheckId id) {
        for (const CheckFinding& finding : diagnostics.Checks().findings)
            if (finding.id == id)
                return lines.CheckText(finding);
        return "does not fire";
    }
};

const std::vector<double> FallingTimes = {0, 10, 20, 30, 40, 50};
const std::vector<double> FallingLevels = {50, 37, 28, 20.5, 15.6, 11.3};

std::string TextOf(CheckId id, double value, std::size_t count = 0,
                   std::optional<double> change = std::nullopt,
                   std::optional<double> k = std::nullopt) {
    Diagnosed pratt(test::PrattProject());
    CheckFinding finding;
    finding.id = id;
    finding.value = value;
    finding.count = count;
    finding.changePercent = change;
    finding.kCmPerSec = k;
    return pratt.lines.CheckText(finding);
}

} // namespace

TEST(DiagnosticsLines, NumbersAsTheyAreShown) {
    EXPECT_EQ(ChangeText(-19), "-19.0 %");
    EXPECT_EQ(ChangeText(21.04), "+21.0 %");
    EXPECT_EQ(ChangeText(0), "0.0 %");
    EXPECT_EQ(ChangeText(-0.04), "0.0 %");
    EXPECT_EQ(ChangeText(0.04), "0.0 %");
    EXPECT_EQ(ChangeText(0.06), "+0.1 %");
    EXPECT_EQ(ChangeText(1e20), "+1.00e+20 %");
    EXPECT_EQ(ShareText(43.61), "43.6 %");
    EXPECT_EQ(RSquaredText(0.99949), "0.9995");
    EXPECT_EQ(RSquaredText(0.99995), "> 0.9999");
    EXPECT_EQ(RSquaredText(0.99994), "0.9999");
    EXPECT_EQ(RSquaredText(1), "1.0000");
    EXPECT_EQ(FixedText(-0.0001, 3), "0.000");
    EXPECT_EQ(FixedText(-0.7069, 3), "-0.707");
    EXPECT_EQ(FixedText(27.14, 1), "27.1");
}

TEST(DiagnosticsLines, RefusalToMarkCountsItsReadings) {
    const std::string end =
        " between 0.20 and 0.30 of the first change in head. Marks were left as they are.";
    EXPECT_EQ(TooFewToMarkText(0), "No reading lies" + end);
    EXPECT_EQ(TooFewToMarkText(1), "Only 1 reading lies" + end);
    EXPECT_EQ(TooFewToMarkText(2), "Only 2 readings lie" + end);
}

TEST(DiagnosticsLines, StatisticsOfPratt) {
    Diagnosed pratt(test::PrattProjectAll());
    const std::vector<TextRow> expected = {{"Points used", "61 of 61"},
                                           {"K", "3.27 m/day"},
                                           {"K, 95 % interval", "3.21 to 3.34 m/day"},
                                           {"K, 95 % interval, adjusted", "3.17 to 3.38 m/day"},
                                           {"Slope (1/sec)", "-1.37e-2"},
                                           {"Standard error of slope", "1.38e-4"},
                                           {"Intercept (ln cm)", "4.14"},
                                           {"Standard error of intercept", "0.0139"},
                                           {"Residual standard deviation", "0.0915"},
                                           {"R2", "0.9941"},
                                           {"Lag-1 autocorrelation", "0.384"},
                                           {"Durbin-Watson", "0.690"},
                                           {"Effective number of points", "27.1"}};
    EXPECT_EQ(pratt.lines.Statistics(pratt.diagnostics.Statistics()), expected);
    EXPECT_EQ(pratt.lines.StateLine(), "K = 3.27 m/day from 61 of 61 points.");
}

TEST(DiagnosticsLines, SummaryIsOneSentenceToActOn) {
    Diagnosed pratt(test::PrattProject());
    EXPECT_EQ(
        pratt.lines.Summary(pratt.diagnostics.Statistics(), pratt.diagnostics.SensitivityTo(10)),
        "3 of 61 readings used, normalized head 0.29 to 0.21; K 3.6 m/day, 2.58 to 4.61 (95 "
        "% of the scatter only); drained porosity 0 and 40 % would move it most (0.0 % to "
        "+112.6 %).");
    EXPECT_EQ(pratt.lines.StateLine(), "K = 3.6 m/day from 3 of 61 points.");
}

// Other readings give one K, so there is one change to name.
TEST(DiagnosticsLines, OneKThatMovesMostHasOneChange) {
    const std::vector<double> times = {0, 2, 4, 6, 8, 10, 20, 30, 40, 50, 60};
    std::vector<double> levels;
    for (const double time : times)
        levels.push_back(100 *
                         (time < 10 ? std::exp(-0.1 * time) : std::exp(-1 - 0.01 * (time - 10))));
    Diagnosed bent(test::ProjectOf(times, levels));
    const SensitivityPage& page = bent.diagnostics.SensitivityTo(10);
    ASSERT_EQ(page.rows.front().input, SensitivityInput::HeadWindow);
    const std::string change = ChangeText(page.rows.front().leastPercent.value());
    EXPECT_EQ(bent.lines.LargestLine(page), "Largest here: readings 0.80-0.40 (" + change + ").");
    const std::string summary = bent.lines.Summary(bent.diagnostics.Statistics(), page);
    EXPECT_NE(summary.find("; readings 0.80-0.40 would move it most (" + change + ")."),
              std::string::npos)
        << summary;
}

TEST(DiagnosticsLines, ScatterThatRoundingHidesIsNotShownAsNone) {
    const std::vector<double> times = {0, 1, 2, 3, 4, 5, 6, 7};
    std::vector<double> levels;
    for (const double time : times)
        levels.push_back(std::round(60 * std::exp(-0.1 * time) * 1e10) / 1e10);
    Diagnosed nearlyExact(test::ProjectOf(times, levels));
    const FitStatistics& fit = nearlyExact.diagnostics.Statistics().fit;
    ASSERT_TRUE(fit.scatter && fit.scatter->sse > 0 && fit.scatter->sse < 1e-17);
    EXPECT_EQ(nearlyExact.lines.Statistics(nearlyExact.diagnostics.Statistics())[9],
              (TextRow{"R2", "> 0.9999"}));
    EXPECT_EQ(nearlyExact.lines.Windows(nearlyExact.diagnostics.Windows())[RowAllValid][3],
              "> 0.9999");
}

TEST(DiagnosticsLines, OtherUnitsOfKReshowTheSameNumbers) {
    Diagnosed pratt(test::PrattProject());
    pratt.state.CmboKLengthUnits = Foot;
    EXPECT_EQ(pratt.lines.StateLine(), "K = 11.8 ft/day from 3 of 61 points.");
    EXPECT_EQ(pratt.Value("K, 95 % interval"), "8.47 to 15.1 ft/day");
    EXPECT_EQ(pratt.lines.WindowHeadings()[2], "K (ft/day)");
    pratt.state.CmboKLengthUnits = -1;
    EXPECT_EQ(pratt.lines.StateLine(), "K = 0.00416 cm/sec from 3 of 61 points.");
    EXPECT_EQ(pratt.lines.WindowHeadings()[2], "K (cm/sec)");
}

TEST(DiagnosticsLines, WhatIsMissingHasItsReason) {
    Diagnosed two(test::ProjectOf({0, 10}, {50, 20}));
    for (const char* label : {"K, 95 % interval", "K, 95 % interval, adjusted",
                              "Standard error of slope", "R2", "Durbin-Watson"})
        EXPECT_EQ(two.Value(label), TwoPointsText) << label;
    Diagnosed five(test::ProjectOf({0, 10, 20, 30, 40}, {50, 37, 28, 20.5, 15.6}));
    for (const char* label : {"K, 95 % interval, adjusted", "Lag-1 autocorrelation",
                              "Durbin-Watson", "Effective number of points"})
        EXPECT_EQ(five.Value(label), SixPointsText) << label;
    Diagnosed six(test::ProjectOf(FallingTimes, FallingLevels));
    for (const TextRow& row : six.lines.Statistics(six.diagnostics.Statistics()))
        EXPECT_NE(row[1], Dash) << row[0];
    Diagnosed flat(test::ProjectOf(FallingTimes, {1, 1, 1, 1, 1, 1}));
    for (const char* label : {"K, 95 % interval", "K, 95 % interval, adjusted", "R2",
                              "Lag-1 autocorrelation", "Effective number of points"})
        EXPECT_EQ(flat.Value(label), Dash) << label;
    EXPECT_EQ(flat.lines.Hvorslev(flat.diagnostics.Statistics()), "");
}

TEST(DiagnosticsLines, AnIntervalThatReachesBelowZeroSaysSo) {
    Diagnosed wild(test::ProjectOf({0, 10, 20}, {50, 10, 40}));
    EXPECT_EQ(wild.Value("K, 95 % interval").substr(0, 8), "<= 0 to ");
}

TEST(DiagnosticsLines, WindowsOfPratt) {
    Diagnosed pratt(test::PrattProject());
    const std::vector<TextRow> rows = pratt.lines.Windows(pratt.diagnostics.Windows());
    ASSERT_EQ(rows.size(), 8U);
    EXPECT_EQ(rows[0], (TextRow{"All valid", "61", "3.27", "0.9941", "-9.0 %"}));
    EXPECT_EQ(rows[4], (TextRow{"0.30-0.20", "3", "3.6", "0.9995", "0.0 %"}));
    EXPECT_EQ(rows[5], (TextRow{"0.25-0.15", "2", "3.34", "-", "-7.1 %"}));
    EXPECT_EQ(rows[6], (TextRow{"0.20-0.10", "3", "3.09", "> 0.9999", "-14.0 %"}));
    EXPECT_EQ(rows[7], (TextRow{"As marked", "3", "3.6", "0.9995", "0.0 %"}));
    EXPECT_EQ(pratt.lines.Segments(pratt.diagnostics.Windows()), NoSegmentsText);
    Diagnosed empty(test::ProjectOf({0, 10, 20}, {100, 90, 80}));
    EXPECT_EQ(empty.lines.Windows(empty.diagnostics.Windows())[6],
              (TextRow{"0.20-0.10", "0", "-", "-", "-"}));
}

TEST(DiagnosticsLines, TwoSegmentsSayWhichToMark) {
    const test::WorkedCase worked = test::ReadWorkedCase("segments_made_yes");
    const std::vector<double> times = test::NumbersOf(worked.input.get_child("time_sec"));
    const std::vector<double> levels = test::NumbersOf(worked.input.get_child("y_cm"));
    Diagnosed across(test::ProjectOf(times, levels, Centimetre, {8, 4, 4, 0.2, 0.1}));
    EXPECT_EQ(across.lines.Segments(across.diagnostics.Windows()),
              "Two straight segments: to 40 sec and from 45 sec. K is 3.35 m/day from the first, "
              "0.537 m/day from the second. With the screen across the water table the first, "
              "steeper one is commonly the filter pack draining (Bouwer 1989): mark the second "
              "one.");
    const std::string below =
        "The screen lies below the water table: curvature is usually storage of the formation; "
        "readings between 0.20 and 0.30 of the first change in head are recommended (Butler "
        "1998).";
    ProjectState deep = test::ProjectOf(times, levels);
    Diagnosed submerged(deep);
    const std::string text = submerged.lines.Segments(submerged.diagnostics.Windows());
    EXPECT_EQ(text.substr(text.size() - below.size()), below);
    deep.WellGeoText[GeoDpor] = "30";
    Diagnosed drained(deep);
    EXPECT_EQ(drained.lines.Segments(drained.diagnostics.Windows()).find(below), std::string::npos);
}

TEST(DiagnosticsLines, SlugVolume) {
    // A casing of 10.16 cm takes 5 litres in 61.67 cm.
    const auto with = [](double first, double le) {
        ProjectState state = test::ProjectOf({0, 10, 20}, {first, first * 0.8, first * 0.64},
                                             Centimetre, {50, 20, le, 0.20955, 0.1016});
        state.VolumeOfSlugText = "5";
        return state;
    };
    EXPECT_EQ(Diagnosed(with(61, 4)).SlugVolume(),
              "Expected from the slug 61.7 cm, observed 61.0 cm (0.989 times). They agree.");
    EXPECT_EQ(Diagnosed(with(48, 20)).SlugVolume(),
              "Expected from the slug 61.7 cm, observed 48.0 cm (0.778 times). Smaller than "
              "expected: a drained filter pack of 8.8 % would explain it (entered: 0 %). The "
              "effective radius would be 0.0576 m.");
    EXPECT_EQ(Diagnosed(with(48, 4)).SlugVolume(),
              "Expected from the slug 61.7 cm, observed 48.0 cm (0.778 times). Smaller than "
              "expected and not explained by the filter pack: slow start, leak, or first reading "
              "missed.");
    EXPECT_EQ(Diagnosed(with(70, 4)).SlugVolume(),
              "Expected from the slug 61.7 cm, observed 70.0 cm (1.14 times). Larger than "
              "expected: check the slug volume, dc, the static level and the first readings "
              "(surge).");
    ProjectState state = with(61, 4);
    state.VolumeOfSlugText = "abc";
    EXPECT_EQ(Diagnosed(state).SlugVolume(), NoSlugVolumeText);
    // An early reading high above the line through the others.
    ProjectState early = test::ProjectOf({0, 10, 20, 30}, {61, 40, 32, 25.6}, Centimetre,
                                         {50, 20, 4, 0.20955, 0.1016});
    early.VolumeOfSlugText = "5";
    early.IgnoreKeyList = {"061"};
    EXPECT_EQ(Diagnosed(early).SlugVolume(),
              "Expected from the slug 61.7 cm, observed 61.0 cm (0.989 times). They agree. The "
              "fitted line starts at 82.0 % of the first reading: early readings lie above the "
              "line (curvature or filter pack).");
}

TEST(DiagnosticsLines, Hvorslev) {
    Diagnosed pratt(test::PrattProject());
    EXPECT_EQ(pratt.lines.Hvorslev(pratt.diagnostics.Statistics()),
              "Hvorslev (1951): 4.4 m/day (22.4 % above; assumes no effect of the water table; "
              "readings 0.25-0.15: 4.09 m/day).");
    ProjectState touching = test::PrattProject();
    test::SetWell(touching, {20.11, 20.11, 1.52, 0.25, 0.128});
    Diagnosed bottom(touching);
    EXPECT_EQ(bottom.lines.Hvorslev(bottom.diagnostics.Statistics()),
              "Hvorslev (1951): 4.4 m/day (22.8 % below; assumes no effect of the water table; "
              "readings 0.25-0.15: 4.09 m/day). With the screen on the impervious bottom: 5.61 "
              "m/day.");
}

TEST(DiagnosticsLines, EachCheckHasItsSentence) {
    EXPECT_EQ(TextOf(CheckId::LeRwLow, 5.5),
              "Le/rw is 5.5: the well is nearly as wide as its screen is long, and the curves are "
              "steep to read there.");
    EXPECT_EQ(TextOf(CheckId::LnCap, 6.46, 0, 1.908, 0.004),
              "ln((H - Lw)/rw) is 6.46. Bouwer and Rice (1976) found 6 to be the effective upper "
              "limit; with 6 K would be 3.46 m/day (+1.9 %).");
    EXPECT_EQ(TextOf(CheckId::NearFull, 1, 0, -26.28, 0.004),
              "The water-bearing layer ends less than a borehole radius below the well: the "
              "partially penetrating formula is used outside its range. As a fully penetrating "
              "well K would be 3.46 m/day (-26.3 %).");
    EXPECT_EQ(TextOf(CheckId::DporSubmerged, 30, 0, -50, 0.004),
              "The screen lies below the water table: its filter pack stays full, and no "
              "correction for drainage is needed (Bouwer 1989). With dpor 0 K would be 3.46 "
              "m/day.");
    EXPECT_EQ(TextOf(CheckId::DporMissing, 0, 0, 80, 0.004),
              "The screen stands at the water table: if the filter pack drains, enter its "
              "porosity (with 30 % K would be 3.46 m/day).");
    EXPECT_EQ(TextOf(CheckId::H0Screen, 0.436),
              "The first change in head is 43.6 % of the screen's length: large against the "
              "screen.");
    EXPECT_EQ(TextOf(CheckId::H0Wetted, 0.25),
              "The wetted length of the screen changes by 25.0 % during the test.");
    EXPECT_EQ(TextOf(CheckId::H0Steps, 12),
              "The first change in head is 12.0 reading steps: small against the step.");
    EXPECT_EQ(TextOf(CheckId::Oscillation, -0.1),
              "The level swings through the static level: the test is underdamped; Bouwer-Rice "
              "does not apply (Springer and Gelhar 1991; Butler 1998).");
    EXPECT_EQ(TextOf(CheckId::Short, 4.5, 6),
              "The head fell to 0.30 of the first in 4.5 s with 6 readings: too short for the "
              "early straight part to be seen (ASTM D5912).");
    EXPECT_EQ(TextOf(CheckId::CurvedUp, 1.3),
              "ln Y is concave upward (ratio 1.3): use readings between 0.20 and 0.30, or see the "
              "two segments.");
    EXPECT_EQ(TextOf(CheckId::CurvedDown, 0.7),
              "ln Y is concave downward (ratio 0.7): wrong static level, slow start or a leak.");
    EXPECT_EQ(TextOf(CheckId::NotRecovered, 0.06),
              "Recovery was not followed to 95 %: the static level rests on the reading before "
              "the test.");
    EXPECT_EQ(TextOf(CheckId::Tail, 5, 5, 21.74),
              "5 used readings lie below 5 % of the first: K depends on the static level (1 cm "
              "changes it by up to 21.7 %).");
    EXPECT_EQ(TextOf(CheckId::Tail, 1, 1),
              "1 used reading lies below 5 % of the first: K depends on the static level.");
    EXPECT_EQ(TextOf(CheckId::TimeOrder, 3), "The times do not rise at point 3.");
    EXPECT_EQ(TextOf(CheckId::TimeEqual, 4, 4), "4 used readings share their time with another.");
    EXPECT_EQ(TextOf(CheckId::FewPoints, 3, 3), "Only 3 readings are used.");
}

TEST(DiagnosticsLines, TheClampedRatioIsTheDescribedWarningWordForWord) {
    ProjectState state =
        test::ProjectOf(FallingTimes, FallingLevels, Centimetre, {50, 20, 2, 2, 0.1});
    Diagnosed clamped(state);
    EXPECT_EQ(clamped.Check(CheckId::LeRwEnd), clamped.diagnostics.Source().coefficients.message);
    EXPECT_EQ(clamped.Check(CheckId::LeRwEnd).substr(0, 26), "Le/rw ratio is smaller tha");
}

TEST(DiagnosticsLines, CautionsStandAboveNotes) {
    Diagnosed all(test::PrattProjectAll());
    const std::vector<TextRow> rows = all.lines.Checks(all.diagnostics.Checks());
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0][0], "Caution");
    EXPECT_EQ(rows[0][1], "TAIL");
    EXPECT_EQ(rows[0][2], "5 used readings lie below 5 % of the first: K depends on the static "
                          "level (1 cm changes it by up to 21.7 %).");
    EXPECT_EQ(rows[1][1], "ACCURACY");
    EXPECT_EQ(rows[1][2], "Bouwer and Rice (1976) give ln(Re/rw) within 10 % for Le > 0.4 Lw and "
                          "within 25 % for Le much smaller than Lw; here Le/Lw is 0.0756: 25 %.");
    EXPECT_EQ(rows[2][1], "H0_SCREEN");
}

TEST(DiagnosticsLines, WhatMovesKOfPratt) {
    Diagnosed pratt(test::PrattProject());
    const SensitivityPage& page = pratt.diagnostics.SensitivityTo(10);
    EXPECT_EQ(pratt.lines.LargestLine(page),
              "Largest here: drained porosity 0 and 40 % (0.0 % to +112.6 %).");
    const std::vector<TextRow> rows = pratt.lines.Sensitivity(page);
    const std::size_t columns = pratt.lines.SensitivityHeadings().size();
    for (const TextRow& row : rows)
        EXPECT_EQ(row.size(), columns) << row[0];
    EXPECT_EQ(rows[2], (TextRow{"dc 10 % less and more", "2.91", "-19.0 %", "4.35", "+21.0 %"}));
    EXPECT_EQ(rows[3], (TextRow{"readings 0.20-0.10", "3.09", "-14.0 %", "", ""}));
    EXPECT_EQ(pratt.lines.SensitivityDetails(page.rows[0]),
              "0 %: 3.6 m/day (0.0 %); 20 %: 5.62 m/day (+56.3 %); 25 %: 6.13 m/day (+70.4 %); "
              "30 %: 6.63 m/day (+84.4 %); 40 %: 7.65 m/day (+112.6 %)");
    EXPECT_EQ(pratt.lines.SensitivityDetails(page.rows[1]), "");
}

TEST(DiagnosticsLines, RowsAreNamedByWhatIsChanged) {
    ProjectState state = test::PrattProject();
    test::SetWell(state, {200, 20.11, 1.52, 0.25, 0.128});
    state.RecDatDataTypeDDL = GroundwaterHead;
    state.RecDatSlugTestTypeDDL = FallingHead;
    state.RecDatPreSlugHeadText = "0";
    state.RecDatWaterLevelUnitsDDL = Foot;
    Diagnosed diagnosed(state);
    std::set<std::string> names;
    const SensitivityPage& page = diagnosed.diagnostics.SensitivityTo(12.5);
    for (const SensitivityRow& row : page.rows)
        names.insert(diagnosed.lines.SensitivityName(row, page.percent));
    for (const char* name :
         {"H 12.5 % less and more", "Lw 12.5 % less and more", "Le 12.5 % less and more",
          "dw 12.5 % less and more", "dc 12.5 % less and more", "drained porosity 0 and 40 %",
          "static level 0.01 ft less and more", "reading at 100.1 sec or 79.5 sec left out",
          "ln((H - Lw)/rw) held at 6", "Kz/Kr 0.5 and 0.1, if the formation is anisotropic",
          "all valid readings", "readings 0.30-0.20"})
        EXPECT_EQ(names.count(name), 1U) << name;
}

TEST(DiagnosticsLines, ResidualTitleHoldsThePartsThatExist) {
    const auto title = [](const ProjectState& state) {
        Diagnosed diagnosed(state);
        return DiagnosticsLines::ResidualTitle(diagnosed.diagnostics.Statistics().fit);
    };
    EXPECT_EQ(title(test::PrattProject()), "Residuals: s 0.00488");
    EXPECT_EQ(title(test::PrattProjectAll()), "Residuals: s 0.0915, r1 0.384, DW 0.690");
    EXPECT_EQ(title(test::ProjectOf({0, 10}, {5, 4})), NoResidualsText);
}

} // namespace quarnel
