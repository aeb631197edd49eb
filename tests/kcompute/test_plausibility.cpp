// What a check has read in metric units, and what of it is unusual: every limit at it, below and
// above.

#include "kcompute/Plausibility.h"

#include "project/FixedLists.h"
#include "wellgeometry/WellGeometry.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace quarnel {
namespace {

std::optional<WellDimensions> Well(const std::array<std::string, 6>& texts, int vertical,
                                   int radial) {
    ProjectState state;
    state.WellGeoText = texts;
    state.WellGeoVertUnitsDDL = vertical;
    state.WellGeoRadUnitsDDL = radial;
    return WellAsTyped(state);
}

/// A well in metres and centimetres with nothing unusual but what is given.
std::optional<WellDimensions> MetricWell(const std::string& lw, const std::string& le,
                                         const std::string& dc) {
    return Well({"1000", lw, le, "500", dc, "0"}, Metre, Centimetre);
}

RecoveryPointList FirstY(double cm) {
    RecoveryPoint point;
    point.y = point.yCm = cm;
    return {point};
}

std::string Unusual(const std::optional<WellDimensions>& well,
                    const RecoveryPointList& points = {}) {
    const std::string text = CheckedText(well, points);
    const std::size_t read = text.find("Read: ");
    return text.substr(0, read);
}

TEST(CheckedText, NamesWhatWasReadInMetricUnits) {
    EXPECT_EQ(CheckedText(Well({"50.6", "20.11", "1.52", "0.25", "0.128", "0"}, Metre, Metre),
                          FirstY(66.3)),
              "Read: rw 12.5 cm, rc 6.4 cm, screen 1.52 m long, Lw 20.11 m, H 50.6 m, first Y "
              "0.663 m");
    EXPECT_EQ(CheckedText(Well({"10", "8", "5", "8.25", "2", "0"}, Foot, Inch), {}),
              "Read: rw 10.48 cm, rc 2.54 cm, screen 1.524 m long, Lw 2.438 m, H 3.048 m");
}

TEST(CheckedText, ADiameterLeftInInchesIsSeen) {
    EXPECT_EQ(CheckedText(Well({"50.6", "20.11", "1.52", "0.25", "0.128", "0"}, Metre, Inch),
                          FirstY(66.3)),
              "Unusual: casing under 1 cm. Read: rw 0.3175 cm, rc 0.1626 cm, screen 1.52 m long, "
              "Lw 20.11 m, H 50.6 m, first Y 0.663 m");
}

TEST(CheckedText, AWellWithAFaultIsLeftOut) {
    EXPECT_FALSE(Well({"10", "x", "5", "8", "2", "0"}, Foot, Inch));
    EXPECT_FALSE(Well({"10", "11", "5", "8", "2", "0"}, Foot, Inch)) << "Lw > H";
    EXPECT_EQ(CheckedText(std::nullopt, FirstY(30.48)), "Read: first Y 0.3048 m");
    EXPECT_EQ(CheckedText(std::nullopt, {}), "");
}

TEST(CheckedText, TheWellIsReadWithoutAChangeOfItsTexts) {
    ProjectState state;
    state.WellGeoText = {" 10 ", " 8", "5 ", "8", "2", ""};
    const auto before = state.WellGeoText;
    EXPECT_TRUE(WellAsTyped(state));
    EXPECT_EQ(state.WellGeoText, before);
    state.WellGeoText[GeoH] = "10,5";
    EXPECT_FALSE(WellAsTyped(state));
    state.DecimalSeparator = ",";
    EXPECT_TRUE(WellAsTyped(state));
}

TEST(CheckedText, AScreenLongerThanAHundredMetresIsUnusual) {
    EXPECT_EQ(Unusual(MetricWell("200", "99.999", "10")), "");
    EXPECT_EQ(Unusual(MetricWell("200", "100", "10")), "");
    EXPECT_EQ(Unusual(MetricWell("200", "100.001", "10")), "Unusual: screen longer than 100 m. ");
}

TEST(CheckedText, ACasingUnderOneCentimetreIsUnusual) {
    EXPECT_EQ(Unusual(MetricWell("20", "2", "0.999")), "Unusual: casing under 1 cm. ");
    EXPECT_EQ(Unusual(MetricWell("20", "2", "1")), "");
    EXPECT_EQ(Unusual(MetricWell("20", "2", "1.001")), "");
}

TEST(CheckedText, ACasingOverTwoMetresIsUnusual) {
    EXPECT_EQ(Unusual(MetricWell("20", "2", "199.999")), "");
    EXPECT_EQ(Unusual(MetricWell("20", "2", "200")), "");
    EXPECT_EQ(Unusual(MetricWell("20", "2", "200.001")), "Unusual: casing over 2 m. ");
}

TEST(CheckedText, AFirstYLargerThanLwIsUnusual) {
    constexpr double LwCm = 2000;
    const auto well = MetricWell("20", "2", "10");
    EXPECT_EQ(Unusual(well, FirstY(std::nextafter(LwCm, 0))), "");
    EXPECT_EQ(Unusual(well, FirstY(LwCm)), "");
    EXPECT_EQ(Unusual(well, FirstY(std::nextafter(LwCm, 1e9))),
              "Unusual: first Y larger than Lw. ");
}

TEST(CheckedText, SeveralUnusualThingsAreAllNamed) {
    EXPECT_EQ(Unusual(MetricWell("200", "150", "0.5"), FirstY(30000)),
              "Unusual: first Y larger than Lw, screen longer than 100 m, casing under 1 cm. ");
}

TEST(CheckedText, TheFirstYIsTheFirstInTimeAboveZero) {
    RecoveryPointList points = {FirstY(10).front(), FirstY(20).front(), FirstY(-5).front()};
    points[0].timeSec = points[0].time = 30;
    points[1].timeSec = points[1].time = 10;
    points[2].timeSec = points[2].time = 1;
    EXPECT_EQ(CheckedText(std::nullopt, points), "Read: first Y 0.2 m");
    EXPECT_EQ(CheckedText(std::nullopt, {points[2]}), "");
}

TEST(CheckedText, FarLengthsKeepFourFigures) {
    EXPECT_EQ(CheckedText(std::nullopt, FirstY(0.0012346)), "Read: first Y 1.235E-05 m");
    EXPECT_EQ(CheckedText(std::nullopt, FirstY(123456789)), "Read: first Y 1235000 m");
}

} // namespace
} // namespace quarnel
