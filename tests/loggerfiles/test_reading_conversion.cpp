#include "loggerfiles/WaterUnits.h"

#include <cmath>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace quarnel::test {

// 1000 kg/m3 and 9.80665 m/s2; mercury at 13595.1 kg/m3.
TEST(ReadingConversion, OneOfEachUnitIsSoManyMetresOfWater) {
    const std::vector<std::pair<WaterUnit, double>> expected = {
        {WaterUnit::Inch, 0.0254},
        {WaterUnit::Foot, 0.3048},
        {WaterUnit::Centimetre, 0.01},
        {WaterUnit::Metre, 1},
        {WaterUnit::Millimetre, 0.001},
        {WaterUnit::Kilopascal, 0.10197162129779283},
        {WaterUnit::Hectopascal, 0.010197162129779283},
        {WaterUnit::Millibar, 0.010197162129779283},
        {WaterUnit::Bar, 10.197162129779283},
        {WaterUnit::Psi, 0.7030695796391593},
        {WaterUnit::MillimetreOfMercury, 0.0135951},
        {WaterUnit::InchOfMercury, 0.34531554},
        {WaterUnit::Atmosphere, 10.332274527998859},
        {WaterUnit::CentimetreOfWater, 0.01},
        {WaterUnit::MetreOfWater, 1},
        {WaterUnit::FootOfWater, 0.3048},
        {WaterUnit::InchOfWater, 0.0254},
    };
    ASSERT_EQ(expected.size(), static_cast<std::size_t>(WaterUnitCount));
    for (const auto& [unit, metres] : expected)
        EXPECT_EQ(MetresOfWater(unit), metres) << WaterUnitNames[static_cast<std::size_t>(unit)];
}

TEST(ReadingConversion, EachUnitIsWrittenInOneOfTheProgramsFour) {
    const std::vector<std::pair<WaterUnit, LengthUnit>> expected = {
        {WaterUnit::Inch, Inch},
        {WaterUnit::Foot, Foot},
        {WaterUnit::Centimetre, Centimetre},
        {WaterUnit::Metre, Metre},
        {WaterUnit::Millimetre, Metre},
        {WaterUnit::Kilopascal, Metre},
        {WaterUnit::Hectopascal, Metre},
        {WaterUnit::Millibar, Metre},
        {WaterUnit::Bar, Metre},
        {WaterUnit::Psi, Foot},
        {WaterUnit::MillimetreOfMercury, Metre},
        {WaterUnit::InchOfMercury, Foot},
        {WaterUnit::Atmosphere, Metre},
        {WaterUnit::CentimetreOfWater, Centimetre},
        {WaterUnit::MetreOfWater, Metre},
        {WaterUnit::FootOfWater, Foot},
        {WaterUnit::InchOfWater, Inch},
    };
    for (const auto& [unit, written] : expected)
        EXPECT_EQ(WrittenUnit(unit), written) << WaterUnitNames[static_cast<std::size_t>(unit)];
}

TEST(ReadingConversion, ReadingInItsOwnUnitStaysToTheLastBit) {
    for (const double reading : {1533.169, 0.1, -12.003, 499.67}) {
        EXPECT_EQ(ConvertReading(reading, WaterUnit::Centimetre, Centimetre), reading);
        EXPECT_EQ(ConvertReading(reading, WaterUnit::CentimetreOfWater, Centimetre), reading);
        EXPECT_EQ(ConvertReading(reading, WaterUnit::Foot, Foot), reading);
        EXPECT_EQ(ConvertReading(reading, WaterUnit::FootOfWater, Foot), reading);
        EXPECT_EQ(ConvertReading(reading, WaterUnit::Inch, Inch), reading);
        EXPECT_EQ(ConvertReading(reading, WaterUnit::Metre, Metre), reading);
    }
}

TEST(ReadingConversion, PressureBecomesALength) {
    EXPECT_NEAR(ConvertReading(1, WaterUnit::Psi, Foot), 2.30665872585026, 2.3e-12);
    EXPECT_EQ(RoundReading(ConvertReading(14.673946, WaterUnit::Psi, Metre)), 10.316805);
    EXPECT_EQ(RoundReading(ConvertReading(4400, WaterUnit::Millimetre, Metre)), 4.4);
    EXPECT_EQ(RoundReading(ConvertReading(101.325, WaterUnit::Kilopascal, Metre)), 10.332275);
}

TEST(ReadingConversion, RoundingIsHalfAwayFromZeroAtTheSixthDecimal) {
    const std::vector<std::pair<double, double>> cases = {
        {0.0000005, 0.000001},
        {0.00000049, 0},
        {1.0000005, 1.000001},
        {1.00000049, 1},
        {4.1234565, 4.123457}, // times a million it lies below the half
        {4.12345649, 4.123456},
        {1473.5000005, 1473.500001},
        {12.3456785, 12.345679},
        {59.9999995, 60},
        {2.5, 2.5},
        {123456789.1234565, 123456789.123457},
        {1e9, 1e9},
        {1000000000.123457, 1000000000.123457},
        {2345678901.1234565, 2345678901.123457},
        {-0.5, -0.5},
        {1e300, 1e300},
        {0, 0}};
    for (const auto& [reading, rounded] : cases) {
        EXPECT_EQ(RoundReading(reading), rounded) << reading;
        EXPECT_EQ(RoundReading(-reading), -rounded) << -reading;
    }
    EXPECT_FALSE(std::signbit(RoundReading(-1e-9)));
}

} // namespace quarnel::test
