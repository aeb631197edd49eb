#include "tests/loggerfiles/PlanTestSupport.h"

#include "loggerfiles/ImportMessages.h"
#include "loggerfiles/Thinning.h"
#include "project/Texts.h"
#include "tests/CoreTestSupport.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace quarnel::test {

namespace {

using Readings = std::vector<double>;

} // namespace

// ---- Faults of the file -------------------------------------------------------------------------

TEST(ImportPlan, FaultOfTheFileComesFirst) {
    const auto file = FileOf(SlugTest(20, -0.6, 120), "Level", "furlong");
    file->reading.fault = "The times do not rise at row 7.";
    file->reading.notes = {"A note."};
    const Plan plan = PlanImport(file, {});
    EXPECT_EQ(plan->fault, ImportFault::File);
    EXPECT_EQ(plan->faultMessage, "The times do not rise at row 7.");
    EXPECT_EQ(MessageLines(*plan), "A note.\nThe times do not rise at row 7.\n");
    EXPECT_EQ(plan->RowCount(), 140U);
}

TEST(ImportPlan, FileWithoutReadingsIsNoTable) {
    for (const auto& file : {FileOf({}), FileOf({5}), FileOf({5, NoNumber}),
                             std::make_shared<LoggerFile>(LoggerFile{"logger.csv", {}})}) {
        const Plan plan = PlanImport(file, {});
        EXPECT_EQ(plan->fault, ImportFault::File);
        EXPECT_EQ(MessageLines(*plan), "No table of readings was found in logger.csv.\n");
    }
}

TEST(ImportPlan, OpenDateOrderMustBeChosen) {
    const auto file = FileOf(SlugTest(20, -0.6, 120));
    file->reading.bothDateOrders = true;
    const Plan plan = PlanImport(file, {});
    EXPECT_EQ(plan->fault, ImportFault::DateOrder);
    EXPECT_EQ(MessageLines(*plan), "The dates of logger.csv can be read as month/day or "
                                   "day/month. Please give --date-order.\n");
    file->reading.dateOrder = DateOrder::DayMonth;
    EXPECT_TRUE(PlanImport(file, {})->CanBeImported());
}

// ---- Drift --------------------------------------------------------------------------------------

TEST(ImportPlan, DriftAboveFivePercentIsTold) {
    // 0.001 m every 2 s before the test: 1.8 m per hour, and 0.119 m in the 238 s of the test.
    const auto drifting = [](double slug) {
        Readings readings;
        for (int i = 0; i < 20; ++i)
            readings.push_back((4990 + i) / 1000.0);
        for (int i = 0; i < 120; ++i)
            readings.push_back(std::round((4.9995 + slug * std::pow(0.97, i)) * 1e6) / 1e6);
        return PlanImport(FileOf(readings), {});
    };
    const std::string message = "The level was already moving by 1.8 m per hour before the test; "
                                "Bouwer-Rice assumes a still level (Ostendorf and DeGroot 2010).\n";
    EXPECT_EQ(drifting(2.38)->driftPerHour, 1.8);
    EXPECT_EQ(drifting(2.38)->firstY, 2.38);
    EXPECT_EQ(MessageLines(*drifting(2.379999)), message);
    EXPECT_EQ(MessageLines(*drifting(2.38)), "");
    EXPECT_EQ(MessageLines(*drifting(2.380001)), "");
}

TEST(ImportPlan, FallingLevelIsToldWithItsSign) {
    Readings readings;
    for (int i = 0; i < 20; ++i)
        readings.push_back((5010 - i) / 1000.0);
    for (int i = 0; i < 120; ++i)
        readings.push_back(4.5 + i / 1000.0);
    const Plan plan = PlanImport(FileOf(readings), {});
    EXPECT_EQ(plan->driftPerHour, -1.8);
    EXPECT_NE(MessageLines(*plan).find("moving by -1.8 m per hour"), std::string::npos);
}

// ---- Air pressure -------------------------------------------------------------------------------

namespace {

/// The pressure of a level record under an air pressure that rises by 0.001 m of water a row.
std::shared_ptr<LoggerFile> UnderAir(const Readings& levels) {
    Readings pressures;
    for (std::size_t i = 0; i < levels.size(); ++i)
        pressures.push_back(levels[i] + 10 + static_cast<double>(i) * 0.001);
    return FileOf(pressures, "Pressure", "mH2O");
}

std::shared_ptr<LoggerFile> AirOver(std::size_t rows) {
    Readings pressures; // in cm of water, every other row
    for (std::size_t i = 0; i < rows; ++i)
        pressures.push_back((10 + static_cast<double>(i) * 0.001) * 100);
    const auto file = FileOf(pressures, "Air pressure", "cmH2O");
    file->name = "air.csv";
    return file;
}

} // namespace

TEST(ImportPlan, AirPressureIsSubtractedBeforeAllElse) {
    const Readings levels = SlugTest(20, -0.6, 120);
    ImportChoices choices;
    choices.readings.barometer = AirOver(140);
    const Plan plan = PlanImport(UnderAir(levels), choices);
    const Plan bare = PlanImport(FileOf(levels), {});
    EXPECT_TRUE(plan->readings->AirPressureSubtracted());
    EXPECT_EQ(RowLines(*plan), RowLines(*bare));
    EXPECT_EQ(plan->StateLine(), bare->StateLine());
    EXPECT_EQ(MessageLines(*plan), "");
}

TEST(ImportPlan, BarometerShortByOneRowSubtractsNothing) {
    ImportChoices choices;
    choices.readings.barometer = AirOver(139);
    const Plan plan = PlanImport(UnderAir(SlugTest(20, -0.6, 120)), choices);
    EXPECT_TRUE(plan->CanBeImported());
    EXPECT_FALSE(plan->readings->AirPressureSubtracted());
    EXPECT_EQ(RowLines(*plan).substr(0, 7), "0 14.42");
    EXPECT_NE(MessageLines(*plan).find("The barometer file does not cover the test.\n"),
              std::string::npos);
}

TEST(ImportPlan, BarometerOfAnotherClockDoesNotCoverTheTest) {
    const auto air = AirOver(140);
    air->reading.record.hasDates = false;
    ImportChoices choices;
    choices.readings.barometer = air;
    EXPECT_TRUE(
        PlanImport(UnderAir(SlugTest(20, -0.6, 120)), choices)->readings->BarometerFallsShort());
}

TEST(ImportPlan, BarometerFileThatGivesNoAirPressureIsAFault) {
    const auto levels = FileOf(SlugTest(20, -0.6, 120), "Level", "m");
    levels->name = "air.csv";
    const auto unknown = FileOf(SlugTest(20, -0.6, 120), "Pressure", "furlong");
    unknown->name = "air.csv";
    const auto broken = AirOver(140);
    broken->reading.fault = "air.csv is empty.";
    const auto open = AirOver(140);
    open->reading.bothDateOrders = true;
    const std::vector<std::pair<std::shared_ptr<LoggerFile>, std::string>> cases = {
        {levels, "No pressure channel was found in air.csv."},
        {unknown, "The unit 'furlong' in air.csv is not known."},
        {broken, "air.csv is empty."},
        {open, "The dates of air.csv can be read as month/day or day/month. Please give "
               "--date-order."}};
    for (const auto& [air, message] : cases) {
        ImportChoices choices;
        choices.readings.barometer = air;
        const Plan plan = PlanImport(UnderAir(SlugTest(20, -0.6, 120)), choices);
        EXPECT_EQ(plan->fault, ImportFault::Barometer);
        EXPECT_EQ(plan->faultMessage, message);
    }
}

TEST(ImportPlan, PressureOverMoreThanTwoHoursAsksForABarometer) {
    const auto plan = [](std::int64_t secondsOfTest, const char* channel, const char* unit) {
        const auto file = FileOf(SlugTest(20, 0.6, 120), channel, unit);
        std::vector<std::int64_t>& times = file->reading.record.times;
        times.back() = times[20] + secondsOfTest * OneSecond;
        return MessageLines(*PlanImport(file, {}));
    };
    EXPECT_EQ(plan(7200, "Pressure", "mH2O"), "");
    EXPECT_EQ(plan(9000, "Pressure", "mH2O"),
              "The test lasts 2.5 hours: the air pressure may have changed. A barometer file can "
              "be subtracted.\n");
    EXPECT_NE(plan(7201, "Pressure", "mH2O"), "");
    EXPECT_EQ(plan(9000, "Level", "m"), "");
}

// ---- Thinning -----------------------------------------------------------------------------------

TEST(ImportPlan, ThinningIsOfferedAboveTwoThousandRows) {
    EXPECT_FALSE(PlanImport(FileOf(SlugTest(20, -0.6, 2000)), {})->ThinningIsOffered());
    EXPECT_TRUE(PlanImport(FileOf(SlugTest(20, -0.6, 2001)), {})->ThinningIsOffered());
}

TEST(ImportPlan, ThinnedRowsComeAlone) {
    const auto file = FileOf(SlugTest(20, -0.6, 36001));
    for (std::size_t i = 0; i < file->reading.record.times.size(); ++i)
        file->reading.record.times[i] = FirstTime + static_cast<std::int64_t>(i) * 100'000;
    ImportChoices choices;
    choices.thinnedPerDecade = UsualRowsPerDecade;
    const Plan plan = PlanImport(file, choices);
    EXPECT_EQ(plan->RowsImported(), 83U);
    EXPECT_EQ(plan->RowsOfTest(), 36001U);
    EXPECT_EQ(plan->StateLine().substr(0, 25), "83 of 36021 readings, fro");
    EXPECT_EQ(RowLines(*plan).substr(0, 25), "0 4.4\n0.1 4.46\n0.2 4.514\n");
    EXPECT_EQ(plan->TextsAt(82).time, "3600");
    EXPECT_EQ(plan->RowAt(82), 36020U);
    EXPECT_EQ(plan->YAt(2), 5 - 4.514);
}

// ---- What the project gets ----------------------------------------------------------------------

TEST(ImportPlan, ProjectGetsReadingsAndNothingElse) {
    ProjectState state = SmallProject();
    state.WellTestIDTxt[WellLabel] = "MW-1";
    state.IgnoreKeyList = {"02.5"};
    state.RecDatTimeUnitsDDL = Day;
    state.CmboKLengthUnits = Foot;
    ProjectState expected = state;
    const Plan plan = PlanImport(FileOf(SlugTest(20, 60, 120), "Level", "cm"), {});
    ApplyImport(*plan, state);
    ASSERT_EQ(state.RecDatGrid.size(), 145U); // 25 empty rows behind the readings
    EXPECT_EQ(state.RecDatGrid[119].time, "238");
    EXPECT_EQ(state.RecDatGrid[120].time, "");
    EXPECT_EQ(state.RecDatGrid[0].level, "65");
    expected.RecDatGrid = state.RecDatGrid;
    expected.IgnoreKeyList.clear();
    expected.RecDatTimeUnitsDDL = Second;
    expected.RecDatWaterLevelUnitsDDL = Centimetre;
    expected.RecDatDataTypeDDL = GroundwaterHead;
    expected.RecDatSlugTestTypeDDL = FallingHead;
    expected.RecDatPreSlugHeadText = "5";
    EXPECT_EQ(Dump(state), Dump(expected));
}

TEST(ImportPlan, ChangesInHeadLeaveTheSlugTestTypeAndEmptyThePreSlugText) {
    ProjectState state;
    state.RecDatSlugTestTypeDDL = FallingHead;
    state.RecDatPreSlugHeadText = "7";
    ImportChoices choices;
    choices.dataType = ChangeInHead;
    ApplyImport(*PlanImport(FileOf(SlugTest(20, 0.6, 20)), choices), state);
    EXPECT_EQ(state.RecDatDataTypeDDL, ChangeInHead);
    EXPECT_EQ(state.RecDatSlugTestTypeDDL, FallingHead);
    EXPECT_EQ(state.RecDatPreSlugHeadText, "");
    EXPECT_EQ(state.RecDatGrid.size(), 50U); // never fewer
}

TEST(ImportPlan, NewProjectIsNamedAfterTheFile) {
    const auto file = FileOf(SlugTest(20, -0.6, 120));
    ProjectState state;
    NameProjectAfterImport(*PlanImport(file, {}), state);
    EXPECT_EQ(state.WellTestIDTxt[WellLabel], "");
    EXPECT_EQ(state.WellTestIDTxt[TestDate], "2024-03-05");
    file->reading.record.location = "MW-7";
    file->reading.record.hasDates = false;
    ProjectState undated;
    NameProjectAfterImport(*PlanImport(file, {}), undated);
    EXPECT_EQ(undated.WellTestIDTxt[WellLabel], "MW-7");
    EXPECT_EQ(undated.WellTestIDTxt[TestDate], "");
}

TEST(ImportPlan, PlainTimesHaveNoClockTime) {
    const auto file = FileOf(SlugTest(20, -0.6, 120));
    LoggerRecord& record = file->reading.record;
    record.timesAreClock = false;
    record.hasDates = false;
    for (std::int64_t& time : record.times)
        time -= FirstTime;
    const Plan plan = PlanImport(file, {});
    EXPECT_EQ(plan->TimeZeroText(), "");
    EXPECT_EQ(plan->StateLine(),
              "120 of 140 readings, from 40 sec, static level 5 m, Rising head.");
}

// ---- Properties ---------------------------------------------------------------------------------

TEST(ImportPlan, ShiftingAllClockTimesChangesNothingButTheClockTime) {
    Random random(11);
    for (int round = 0; round < 50; ++round) {
        const auto file = FileOf(SlugTest(5 + random.Below(40), -0.6, 30 + random.Below(100)));
        const auto shifted = std::make_shared<LoggerFile>(*file);
        const std::int64_t shift =
            random.Between(-1'000'000, 1'000'000) * OneSecond + random.Between(0, 999'999);
        for (std::int64_t& time : shifted->reading.record.times)
            time += shift;
        ImportChoices choices;
        if (random.OneIn(2))
            choices.thinnedPerDecade = 10;
        const Plan plan = PlanImport(file, choices);
        const Plan other = PlanImport(shifted, choices);
        EXPECT_EQ(RowLines(*plan), RowLines(*other));
        EXPECT_EQ(MessageLines(*plan), MessageLines(*other));
        EXPECT_EQ(plan->staticLevel, other->staticLevel);
        EXPECT_EQ(plan->driftPerHour, other->driftPerHour);
        EXPECT_EQ(plan->RowsBefore(), other->RowsBefore());
    }
}

TEST(ImportPlan, TextsReadBackAsTheReadings) {
    Random random(12);
    Readings readings(20, 5);
    for (int i = 0; i < 2000; ++i)
        readings.push_back(RoundReading(4 + random.Between(0, 999'999'999) / 1e9));
    ImportChoices choices;
    choices.start = 20;
    const Plan plan = PlanImport(FileOf(readings), choices);
    ASSERT_EQ(plan->RowsImported(), 2000U);
    for (std::size_t i = 0; i < plan->RowsImported(); ++i)
        ASSERT_EQ(ParseNumber(plan->TextsAt(i).level), readings[plan->RowAt(i)]);
}

TEST(ImportPlan, DraggedHandleConvertsNothingAgain) {
    const auto file = FileOf(SlugTest(20, -0.6, 120));
    ImportChoices choices;
    const Plan plan = PlanImport(file, choices);
    choices.start = 21;
    choices.staticRows = RowSpan{3, 17};
    choices.thinnedPerDecade = 10;
    const Plan dragged = PlanImport(file, choices, plan.get());
    EXPECT_EQ(dragged->readings, plan->readings);
    EXPECT_EQ(dragged->start, 21U);
    choices.readings.levelUnit = Foot;
    EXPECT_NE(PlanImport(file, choices, dragged.get())->readings, plan->readings);
    EXPECT_NE(PlanImport(FileOf(SlugTest(20, -0.6, 120)), {}, plan.get())->readings,
              plan->readings);
}

TEST(ImportPlan, RowsAreFoundByTime) {
    const Plan plan = PlanImport(FileOf(SlugTest(20, -0.6, 120)), {});
    EXPECT_EQ(plan->FirstRowFrom(FirstTime - 1), 0U);
    EXPECT_EQ(plan->FirstRowFrom(FirstTime + 1), 1U);
    EXPECT_EQ(plan->FirstRowFrom(FirstTime + 278 * OneSecond), 139U);
    EXPECT_EQ(plan->FirstRowFrom(FirstTime + 278 * OneSecond + 1), std::nullopt);
    EXPECT_EQ(plan->LastRowUntil(FirstTime - 1), std::nullopt);
    EXPECT_EQ(plan->LastRowUntil(FirstTime), 0U);
    EXPECT_EQ(plan->LastRowUntil(FirstTime + 3 * OneSecond), 1U);
    EXPECT_EQ(plan->LastRowUntil(FirstTime + 1000 * OneSecond), 139U);
}

// ---- What is said afterwards
// ------------------------------------------------------------------------------------

TEST(ImportedText, SaysWhichReadingsTimeZeroAndStaticLevel) {
    const auto file = FileOf(SlugTest(20, -0.6, 120));
    ImportChoices choices;
    EXPECT_EQ(ImportedText(*PlanImport(file, choices)),
              "Imported 120 of 140 readings of Level from logger.csv: time zero 2024-03-05 "
              "11:59:00, static level 5 m from 20 readings, Rising head.");
    choices.staticLevel = 5.5;
    choices.end = 29;
    EXPECT_EQ(ImportedText(*PlanImport(file, choices)),
              "Imported 10 of 140 readings of Level from logger.csv: time zero 2024-03-05 "
              "11:59:00, static level 5.5 m as typed, Rising head.");
    choices.staticLevel.reset();
    choices.staticRows = RowSpan{3, 4};
    EXPECT_NE(ImportedText(*PlanImport(file, choices)).find("static level 5 m from 1 reading,"),
              std::string::npos);
    choices.dataType = ChangeInHead;
    file->reading.record.timesAreClock = false;
    EXPECT_NE(ImportedText(*PlanImport(file, choices)).find(" sec, change in head."),
              std::string::npos);
}

} // namespace quarnel::test
