#include "tests/loggerfiles/PlanTestSupport.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace quarnel::test {

namespace {

using Readings = std::vector<double>;

constexpr const char* NoStart =
    "No start of the test was found. Please click the first reading after the slug.\n";
constexpr const char* FewBefore = "Fewer than 5 readings stand before the start: the static level "
                                  "is the median of the last readings.\n";

/// Still at 5, a jump to 4, then `moving` readings that each lie 0.1 lower, and back again.
Readings Surge(int moving) {
    Readings readings(20, 5);
    double level = 4;
    readings.push_back(level);
    for (int i = 0; i < moving; ++i)
        readings.push_back(level -= 0.1);
    for (int i = 0; i < 30; ++i)
        readings.push_back(level + 0.01 * i);
    return readings;
}

} // namespace

// ---- Start, end, static level -------------------------------------------------------------------

TEST(ImportChoices, TakesTheTestOutOfTheRecord) {
    const Plan plan = PlanImport(FileOf(SlugTest(20, -0.6, 120)), {});
    ASSERT_TRUE(plan->CanBeImported());
    EXPECT_EQ(MessageLines(*plan), "");
    EXPECT_EQ(plan->StateLine(),
              "120 of 140 readings, from 2024-03-05 11:59:00, static level 5 m, Rising head.");
    EXPECT_EQ(plan->TimeZeroText(), "2024-03-05 11:59:00");
    EXPECT_EQ(plan->start, 20U);
    EXPECT_EQ(plan->end, 139U);
    EXPECT_EQ(plan->RowsBefore(), 20U);
    EXPECT_EQ(plan->RowsImported(), 120U);
    EXPECT_EQ(plan->RowsAfter(), 0U);
    EXPECT_EQ(plan->staticRows, (RowSpan{0, 20}));
    EXPECT_EQ(plan->StaticText(), "5");
    EXPECT_EQ(plan->surgeRows, 0U);
    EXPECT_EQ(plan->firstY, 5 - 4.4);
    EXPECT_EQ(plan->driftPerHour, 0.0);
    EXPECT_EQ(plan->readings->Step(), 0.0001);
    EXPECT_EQ(RowLines(*plan).substr(0, 22), "0 4.4\n2 4.46\n4 4.514\n6");
    EXPECT_EQ(plan->YAt(1), 5 - 4.46);
}

TEST(ImportChoices, DirectionAndDataTypeGiveTheSlugTestType) {
    struct Case {
        const char* channel;
        double slug;
        DataType dataType;
        SlugTestType type;
        const char* text;
    };
    for (const Case& test :
         {Case{"Level", -0.6, GroundwaterHead, RisingHead, "Rising head"},
          Case{"Level", 0.6, GroundwaterHead, FallingHead, "Falling head"},
          Case{"Depth to water", 0.6, DepthToGroundwater, RisingHead, "Rising head"},
          Case{"Depth to water", -0.6, DepthToGroundwater, FallingHead, "Falling head"}}) {
        const Plan plan = PlanImport(FileOf(SlugTest(20, test.slug, 120), test.channel), {});
        EXPECT_EQ(plan->dataType, test.dataType) << test.channel;
        EXPECT_EQ(plan->slugTestType, test.type) << test.channel;
        EXPECT_NEAR(plan->firstY, 0.6, 1e-12) << test.channel;
        EXPECT_NE(plan->StateLine().find(", " + std::string(test.text) + "."), std::string::npos);
    }
}

TEST(ImportChoices, ChangesInHeadHaveNoStaticLevel) {
    Readings readings = SlugTest(20, 0.6, 120);
    for (double& reading : readings)
        reading = RoundReading(reading - 5);
    const Plan plan = PlanImport(FileOf(readings, "Displacement"), {});
    ASSERT_TRUE(plan->CanBeImported());
    EXPECT_EQ(plan->dataType, ChangeInHead);
    EXPECT_EQ(plan->slugTestType, SlugTestTypeNotApplicable);
    EXPECT_EQ(plan->staticLevel, std::nullopt);
    EXPECT_EQ(plan->StaticText(), "");
    EXPECT_EQ(plan->staticRows.Count(), 0U);
    EXPECT_EQ(plan->driftPerHour, std::nullopt);
    EXPECT_EQ(plan->firstY, 0.6);
    EXPECT_EQ(plan->StateLine(), "120 of 140 readings, from 2024-03-05 11:59:00, change in head.");
}

TEST(ImportChoices, FourReadingsBeforeTheStartAreTooFewForTheStaticLevel) {
    const Plan four = PlanImport(FileOf(SlugTest(4, -0.6, 120)), {});
    EXPECT_EQ(four->start, 4U);
    EXPECT_EQ(four->staticRows, (RowSpan{112, 124}));
    EXPECT_EQ(MessageLines(*four), FewBefore);
    EXPECT_EQ(four->driftPerHour, std::nullopt); // nothing is known of the time before
    const Plan five = PlanImport(FileOf(SlugTest(5, -0.6, 120)), {});
    EXPECT_EQ(five->staticRows, (RowSpan{0, 5}));
    EXPECT_EQ(MessageLines(*five), "");
    EXPECT_TRUE(five->driftPerHour.has_value());
}

TEST(ImportChoices, StartMovesOverTheSurge) {
    const std::vector<std::pair<int, std::string>> cases = {
        {0, ""},
        {1, "The start was moved 1 row forward: the level was still moving away.\n"},
        {5, "The start was moved 5 rows forward: the level was still moving away.\n"},
        {6, "The start was moved 5 rows forward: the level was still moving away.\n"}};
    for (const auto& [moving, message] : cases) {
        const Plan plan = PlanImport(FileOf(Surge(moving)), {});
        EXPECT_EQ(plan->start, 20U + static_cast<std::size_t>(std::min(moving, 5))) << moving;
        EXPECT_EQ(plan->staticRows, (RowSpan{0, 20})) << moving;
        EXPECT_EQ(MessageLines(*plan), message);
        EXPECT_EQ(plan->RowsImported(), 31U + static_cast<std::size_t>(moving) - plan->surgeRows);
        EXPECT_EQ(plan->TextsAt(0).time, "0");
    }
}

TEST(ImportChoices, RecordThatNeverJumpsHasNoStart) {
    for (const Readings& readings :
         {SlugTest(100, 0, 0), Readings(100, 5), SlugTest(95, -0.6, 5)}) {
        const Plan plan = PlanImport(FileOf(readings), {});
        EXPECT_EQ(plan->fault, ImportFault::Start);
        EXPECT_EQ(MessageLines(*plan), NoStart);
        EXPECT_EQ(plan->start, std::nullopt);
        EXPECT_EQ(plan->StateLine(), "");
        EXPECT_EQ(plan->TimeZeroText(), "");
        EXPECT_EQ(plan->RowsImported(), 0U);
        EXPECT_EQ(plan->RowCount(), 100U);
    }
}

TEST(ImportChoices, ChosenStartSkipsJumpAndSurge) {
    ImportChoices choices;
    choices.start = 22;
    const Plan plan = PlanImport(FileOf(Surge(5)), choices);
    EXPECT_EQ(plan->start, 22U);
    EXPECT_EQ(plan->surgeRows, 0U);
    EXPECT_EQ(plan->staticRows, (RowSpan{0, 22}));
    choices.start = 1000; // held within the record
    EXPECT_EQ(PlanImport(FileOf(Surge(5)), choices)->start, 55U);
}

TEST(ImportChoices, FirstReadingAtTheStaticLevelIsNoStart) {
    Readings readings(20, 5);
    readings.resize(40, 4);
    readings[25] = 5;
    ImportChoices choices;
    choices.start = 25;
    choices.staticLevel = 5;
    const Plan plan = PlanImport(FileOf(readings), choices);
    EXPECT_EQ(plan->fault, ImportFault::Start);
    EXPECT_EQ(MessageLines(*plan), NoStart);
    EXPECT_EQ(plan->start, std::nullopt);
}

TEST(ImportChoices, EndIsChosen) {
    ImportChoices choices;
    choices.end = 119;
    const Plan plan = PlanImport(FileOf(SlugTest(20, -0.6, 120)), choices);
    EXPECT_EQ(plan->RowsImported(), 100U);
    EXPECT_EQ(plan->RowsAfter(), 20U);
    EXPECT_EQ(plan->TextsAt(99).time, "198");
    choices.end = 20;
    EXPECT_EQ(PlanImport(FileOf(SlugTest(20, -0.6, 120)), choices)->RowsImported(), 1U);
    choices.end = 5000;
    EXPECT_EQ(PlanImport(FileOf(SlugTest(20, -0.6, 120)), choices)->RowsImported(), 120U);
}

TEST(ImportChoices, EndBeforeTheStartIsAFault) {
    ImportChoices choices;
    choices.end = 19;
    const Plan plan = PlanImport(FileOf(SlugTest(20, -0.6, 120)), choices);
    EXPECT_EQ(plan->fault, ImportFault::End);
    EXPECT_EQ(MessageLines(*plan), "The end lies before the start.\n");
    EXPECT_EQ(plan->RowsImported(), 0U);
    EXPECT_EQ(plan->RowsAfter(), 120U);
}

TEST(ImportChoices, TypedStaticLevelOverridesTheSpan) {
    ImportChoices choices;
    choices.staticLevel = 5.0123456789;
    choices.staticRows = RowSpan{100, 140};
    const Plan plan = PlanImport(FileOf(SlugTest(20, -0.6, 120)), choices);
    EXPECT_EQ(plan->staticLevel, 5.012346);
    EXPECT_EQ(plan->StaticText(), "5.012346");
    EXPECT_EQ(plan->staticRows.Count(), 0U);
    EXPECT_EQ(plan->firstY, 5.012346 - 4.4);
    choices.staticRows.reset();
    const Plan few = PlanImport(FileOf(SlugTest(4, -0.6, 120)), choices);
    EXPECT_EQ(MessageLines(*few), "");
}

TEST(ImportChoices, StaticSpanIsChosen) {
    Readings readings = SlugTest(20, -0.6, 120);
    std::fill(readings.begin(), readings.begin() + 3, 5.2);
    ImportChoices choices;
    choices.staticRows = RowSpan{0, 3};
    EXPECT_EQ(PlanImport(FileOf(readings), choices)->StaticText(), "5.2");
    choices.staticRows = RowSpan{130, 1000}; // held within the record
    const Plan last = PlanImport(FileOf(readings), choices);
    EXPECT_EQ(last->staticRows, (RowSpan{130, 140}));
    EXPECT_EQ(last->driftPerHour, std::nullopt); // they say nothing of the time before
    EXPECT_EQ(MessageLines(*last), "");
    const Plan few = PlanImport(FileOf(SlugTest(4, -0.6, 136)), choices);
    EXPECT_EQ(MessageLines(*few), ""); // nobody need be told of rows that he chose
    choices.staticRows = RowSpan{7, 7};
    EXPECT_EQ(PlanImport(FileOf(readings), choices)->staticRows, (RowSpan{0, 20}));
}

// ---- Channels and units -------------------------------------------------------------------------

TEST(ImportChoices, ChannelIsChosenByKind) {
    const auto file = FileOf(SlugTest(20, -0.6, 120), "Temperature",
                             "\xC2\xB0"
                             "C");
    AddChannel(*file, "Abs Pres", "kPa", SlugTest(20, 6, 120));
    EXPECT_EQ(PlanImport(file, {})->readings->Channel(), 1U);
    AddChannel(*file, "Water Level", "m", SlugTest(20, -0.6, 120));
    const Plan level = PlanImport(file, {});
    EXPECT_EQ(level->readings->Channel(), 2U);
    EXPECT_EQ(MessageLines(*level), "Depth is taken; pressure and depth of such files can differ "
                                    "by some 0.1 % (density).\n");
    ImportChoices choices;
    choices.readings.channel = 1;
    const Plan pressure = PlanImport(file, choices);
    EXPECT_EQ(pressure->readings->LevelUnit(), Metre);
    EXPECT_EQ(pressure->slugTestType, FallingHead);
    EXPECT_EQ(MessageLines(*pressure), "");
    choices.readings.channel = 99;
    EXPECT_EQ(PlanImport(file, choices)->readings->Channel(), 2U);
}

TEST(ImportChoices, DataTypeAndUnitsAreChosen) {
    ImportChoices choices;
    choices.dataType = DepthToGroundwater;
    choices.readings.sourceUnit = WaterUnit::Psi;
    choices.readings.levelUnit = Inch;
    const Plan plan = PlanImport(FileOf(SlugTest(20, -0.6, 120)), choices);
    EXPECT_EQ(plan->slugTestType, FallingHead);
    EXPECT_EQ(plan->TextsAt(0).level, "121.791581"); // 4.4 psi
    EXPECT_EQ(plan->StaticText(), "138.399524");
    EXPECT_NE(plan->StateLine().find("138.399524 in, Falling head."), std::string::npos);
}

TEST(ImportChoices, UnknownUnitMustBeChosen) {
    for (const char* unit : {"", "furlong"}) {
        const Plan plan = PlanImport(FileOf(SlugTest(20, -0.6, 120), "Level", unit), {});
        EXPECT_EQ(plan->fault, ImportFault::Unit);
        EXPECT_EQ(MessageLines(*plan), "The unit '" + std::string(unit) +
                                           "' is not known. Please choose the unit of the "
                                           "readings.\n");
        // They can be looked at all the same.
        EXPECT_EQ(plan->readings->Readings()[20], 4.4);
        ImportChoices choices;
        choices.readings.sourceUnit = WaterUnit::Foot;
        EXPECT_TRUE(
            PlanImport(FileOf(SlugTest(20, -0.6, 120), "Level", unit), choices)->CanBeImported());
    }
}

TEST(ImportChoices, RowsWithoutANumberAreLeftOutAndTold) {
    Readings readings = SlugTest(20, -0.6, 120);
    const auto file = FileOf(readings);
    LoggerChannel& level = file->reading.record.channels[0];
    level.values[20] = NoNumber;
    level.notNumbers.Add(22, "---", LeftOutReason::NotANumber);
    level.values[3] = NoNumber; // an empty row that needs no word
    const Plan plan = PlanImport(file, {});
    EXPECT_EQ(plan->RowCount(), 138U);
    EXPECT_EQ(plan->start, 19U);
    EXPECT_EQ(plan->TimeZeroText(), "2024-03-05 11:59:02");
    EXPECT_EQ(RowLines(*plan).substr(0, 15), "0 4.46\n2 4.514\n");
    EXPECT_EQ(MessageLines(*plan), "Row 22: '---' is not a number.\n");
}

TEST(ImportChoices, TwentyLeftOutRowsAreNamedAndTheRestCounted) {
    for (const auto& [count, more] : {std::pair(20U, ""), std::pair(21U, "and 1 more row\n"),
                                      std::pair(45U, "and 25 more rows\n")}) {
        const auto file = FileOf(SlugTest(20, -0.6, 120));
        std::string expected;
        for (std::size_t i = 0; i < count; ++i) {
            file->reading.leftOut.Add(200 + i, "x", LeftOutReason::NotATime);
            if (i < 20)
                expected += "Row " + std::to_string(200 + i) + ": 'x' is not a time.\n";
        }
        EXPECT_EQ(MessageLines(*PlanImport(file, {})), expected + more);
    }
}

} // namespace quarnel::test
