#include "loggerfiles/LoggerRecord.h"

#include "tests/loggerfiles/LoggerTestSupport.h"

namespace quarnel {
namespace {

constexpr std::string_view DegreesC = "\xC2\xB0"
                                      "C";

TEST(KindOfChannel, FollowsHeadingAndUnit) {
    const auto kind = KindOfChannel;
    EXPECT_EQ(kind("TEMPERATURE", ""), ChannelKind::Temperature);
    EXPECT_EQ(kind("Level temp", "m"), ChannelKind::Temperature);
    EXPECT_EQ(kind("Sensor", DegreesC), ChannelKind::Temperature);
    EXPECT_EQ(kind("Sensor", "Deg C"), ChannelKind::Temperature);
    EXPECT_EQ(kind("Depth to water", "ft"), ChannelKind::DepthToWater);
    EXPECT_EQ(kind("DTW", "ft"), ChannelKind::DepthToWater);
    EXPECT_EQ(kind("Level below casing", "m"), ChannelKind::DepthToWater);
    EXPECT_EQ(kind("Change in Head", "m"), ChannelKind::ChangeInHead);
    EXPECT_EQ(kind("Displacement", "ft"), ChannelKind::ChangeInHead);
    EXPECT_EQ(kind("drawdown", "ft"), ChannelKind::ChangeInHead);
    EXPECT_EQ(kind("LEVEL", "m"), ChannelKind::Level);
    EXPECT_EQ(kind("Water head", "cm"), ChannelKind::Level);
    EXPECT_EQ(kind("Depth", "m"), ChannelKind::Level);
    EXPECT_EQ(kind("Abs Pres", "kPa"), ChannelKind::Pressure);
    EXPECT_EQ(kind("Druck", ""), ChannelKind::Pressure);
    EXPECT_EQ(kind("Sensor 1", "psi"), ChannelKind::Pressure);
    EXPECT_EQ(kind("Sensor 1", "m"), ChannelKind::Other);
    EXPECT_EQ(kind("", ""), ChannelKind::Other);
}

std::vector<LoggerChannel> Channels(std::initializer_list<ChannelKind> kinds) {
    std::vector<LoggerChannel> channels;
    for (const ChannelKind kind : kinds) {
        channels.emplace_back();
        channels.back().kind = kind;
    }
    return channels;
}

TEST(ChannelChosenFirst, IsALengthThenAPressureThenAnother) {
    using enum ChannelKind;
    EXPECT_EQ(ChannelChosenFirst(Channels({Temperature, Pressure, Level})), 2U);
    EXPECT_EQ(ChannelChosenFirst(Channels({Other, DepthToWater, Level})), 1U);
    EXPECT_EQ(ChannelChosenFirst(Channels({Other, ChangeInHead})), 1U);
    EXPECT_EQ(ChannelChosenFirst(Channels({Other, Pressure, Pressure})), 1U);
    EXPECT_EQ(ChannelChosenFirst(Channels({Temperature, Other, Other})), 1U);
    EXPECT_EQ(ChannelChosenFirst(Channels({Temperature})), 0U);
    EXPECT_EQ(ChannelChosenFirst({}), 0U);
}

TEST(DepthAndPressureNote, IsToldWhereBothAre) {
    using enum ChannelKind;
    EXPECT_EQ(
        DepthAndPressureNote(Channels({Pressure, Level})),
        "Depth is taken; pressure and depth of such files can differ by some 0.1 % (density).");
    EXPECT_NE(DepthAndPressureNote(Channels({DepthToWater, Pressure})), "");
    EXPECT_EQ(DepthAndPressureNote(Channels({Pressure, Temperature})), "");
    EXPECT_EQ(DepthAndPressureNote(Channels({Level, Temperature})), "");
}

TEST(DataTypeOfKind, IsTheOneOfTheDescription) {
    EXPECT_EQ(DataTypeOfKind(ChannelKind::DepthToWater), DepthToGroundwater);
    EXPECT_EQ(DataTypeOfKind(ChannelKind::ChangeInHead), ChangeInHead);
    for (const ChannelKind kind : {ChannelKind::Level, ChannelKind::Pressure, ChannelKind::Other})
        EXPECT_EQ(DataTypeOfKind(kind), GroundwaterHead);
}

TEST(LeftOutRows, CountsAllAndKeepsTwenty) {
    LeftOutRows rows;
    for (std::size_t line = 1; line <= 25; ++line)
        rows.Add(line, "x", LeftOutReason::NotATime);
    EXPECT_EQ(rows.count, 25U);
    ASSERT_EQ(rows.first.size(), 20U);
    EXPECT_EQ(rows.first.back().line, 20U);
}

TEST(LeftOutRows, KeepsWholeCharactersOfALongText) {
    LeftOutRows rows;
    rows.Add(1, std::string(79, 'a') + "\xC2\xB0 and more", LeftOutReason::NotATime);
    EXPECT_EQ(rows.first[0].text, std::string(79, 'a'));
    rows.Add(2, std::string(1'000'000, 'b'), LeftOutReason::NotATime);
    EXPECT_EQ(rows.first[1].text, std::string(80, 'b'));
}

TEST(LeftOutOfChannel, MergesTimesAndNumbersByLine) {
    LoggerReading reading;
    reading.record.channels.resize(2);
    reading.leftOut.Add(5, "noon", LeftOutReason::NotATime);
    for (std::size_t line = 1; line <= 30; line += 2)
        reading.record.channels[1].notNumbers.Add(line, "x", LeftOutReason::NotANumber);
    EXPECT_EQ(LeftOutOfChannel(reading, 0).count, 1U);
    const LeftOutRows rows = LeftOutOfChannel(reading, 1);
    EXPECT_EQ(rows.count, 16U);
    EXPECT_EQ(LeftOutMessage(rows.first[0]), "Row 1: 'x' is not a number.");
    EXPECT_EQ(LeftOutMessage(rows.first[2]), "Row 5: 'noon' is not a time.");
    EXPECT_EQ(LeftOutOfChannel(reading, 7).count, 1U);
}

TEST(FileNameOf, IsThePartBehindTheFolders) {
    EXPECT_EQ(FileNameOf("/a/b/c.csv"), "c.csv");
    EXPECT_EQ(FileNameOf("c.csv"), "c.csv");
}

} // namespace
} // namespace quarnel
