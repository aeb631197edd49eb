#include "loggerfiles/WaterUnits.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace quarnel {
namespace {

struct Unit {
    std::string_view name;
    double metres;
    LengthUnit written;
    bool isPressure;
};

constexpr Unit Units[] = {{"in", 0.0254, Inch, false},
                          {"ft", 0.3048, Foot, false},
                          {"cm", 0.01, Centimetre, false},
                          {"m", 1, Metre, false},
                          {"mm", 0.001, Metre, false},
                          {"kPa", 0.10197162129779283, Metre, true},
                          {"hPa", 0.010197162129779283, Metre, true},
                          {"mbar", 0.010197162129779283, Metre, true},
                          {"bar", 10.197162129779283, Metre, true},
                          {"psi", 0.7030695796391593, Foot, true},
                          {"mmHg", 0.0135951, Metre, true},
                          {"inHg", 0.34531554, Foot, true},
                          {"atm", 10.332274527998859, Metre, true},
                          {"cmH2O", 0.01, Centimetre, true},
                          {"mH2O", 1, Metre, true},
                          {"ftH2O", 0.3048, Foot, true},
                          {"inH2O", 0.0254, Inch, true}};

TEST(WaterUnits, EachHasItsNameLengthAndWrittenUnit) {
    ASSERT_EQ(std::size(Units), static_cast<std::size_t>(WaterUnitCount));
    for (std::size_t i = 0; i < std::size(Units); ++i) {
        const auto unit = static_cast<WaterUnit>(i);
        EXPECT_EQ(WaterUnitNames[i], Units[i].name);
        EXPECT_EQ(KnownWaterUnit(Units[i].name), unit) << Units[i].name;
        EXPECT_EQ(MetresOfWater(unit), Units[i].metres) << Units[i].name;
        EXPECT_EQ(WrittenUnit(unit), Units[i].written) << Units[i].name;
        EXPECT_EQ(IsPressureUnit(unit), Units[i].isPressure) << Units[i].name;
    }
}

TEST(WaterUnits, KnowsOtherSpellings) {
    using enum WaterUnit;
    const std::pair<std::string_view, WaterUnit> spellings[] = {
        {"Feet", Foot},
        {"FT", Foot},
        {"inches", WaterUnit::Inch},
        {"metres", Metre},
        {"Meters", Metre},
        {"[cm]", Centimetre},
        {"mm Hg", MillimetreOfMercury},
        {"in. Hg", InchOfMercury},
        {"cm H2O", CentimetreOfWater},
        {"cm H20", CentimetreOfWater},
        {"cmH\xE2\x82\x82O", CentimetreOfWater},
        {"ft. H2O", FootOfWater},
        {"PSI", Psi},
        {"psia", Psi},
        {"KPA", Kilopascal},
        {"mBar", Millibar},
        {"m H2O", MetreOfWater},
        {"inH2O", InchOfWater}};
    for (const auto& [text, unit] : spellings)
        EXPECT_EQ(KnownWaterUnit(text), unit) << text;
    for (const std::string_view text :
         {"", "furlong",
          "\xC2\xB0"
          "C",
          "Pa", "H2O", "m/s", "seconds", "a very long text that is no unit of anything at all"})
        EXPECT_FALSE(KnownWaterUnit(text)) << text;
}

TEST(WaterUnits, SaysWhichUnitIsNotKnown) {
    EXPECT_EQ(UnknownUnitMessage("furlong"),
              "The unit 'furlong' is not known. Please choose the unit of the readings.");
}

TEST(WaterUnits, ConvertsThroughMetres) {
    EXPECT_EQ(RoundReading(ConvertReading(14.673946, WaterUnit::Psi, Metre)), 10.316805);
    EXPECT_EQ(RoundReading(ConvertReading(1, WaterUnit::Bar, Centimetre)), 1019.716213);
    EXPECT_EQ(RoundReading(ConvertReading(12, WaterUnit::Inch, Foot)), 1);
    // What stays in its unit keeps every bit.
    EXPECT_EQ(ConvertReading(0.1 + 0.2, WaterUnit::Foot, Foot), 0.1 + 0.2);
    EXPECT_EQ(ConvertReading(0.1 + 0.2, WaterUnit::CentimetreOfWater, Centimetre), 0.1 + 0.2);
}

TEST(WaterUnits, RoundsHalfAwayFromZeroToSixDecimals) {
    EXPECT_EQ(RoundReading(0.5e-6), 1e-6);
    EXPECT_EQ(RoundReading(-0.5e-6), -1e-6);
    EXPECT_EQ(RoundReading(0.4999e-6), 0);
    EXPECT_EQ(RoundReading(1473.5), 1473.5);
    EXPECT_EQ(RoundReading(499.123456499), 499.123456);
    EXPECT_EQ(RoundReading(1e300), 1e300);
    EXPECT_TRUE(std::isnan(RoundReading(std::numeric_limits<double>::quiet_NaN())));
}

} // namespace
} // namespace quarnel
