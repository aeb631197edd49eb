// Checking the well's dimensions and converting them to centimetres.

#include "wellgeometry/WellGeometry.h"

#include "tests/CoreTestSupport.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>

namespace quarnel {
namespace {

constexpr std::string_view DcMessage = "Well Geometry: dc must be <= dw, well casing diameter must "
                                       "be <= well borehole diameter.";
constexpr std::string_view DporRange =
    "Well Geometry: dpor, drained filter pack porosity, must be from 0 to 100 %.";

struct Checked {
    ProjectState state;
    WellDimensions well;
    Result result;
};

Checked Check(const std::array<std::string, 6>& texts, int vertical = Foot, int radial = Inch) {
    Checked checked;
    checked.state.WellGeoText = texts;
    checked.state.WellGeoVertUnitsDDL = vertical;
    checked.state.WellGeoRadUnitsDDL = radial;
    checked.result = CheckWellGeometry(checked.state, checked.well);
    return checked;
}

const std::array<std::string, 6> Accepted = {"12.4", "10", "9.5", "8.25", "2", "30"};

Checked CheckWith(int index, const std::string& text) {
    std::array<std::string, 6> texts = Accepted;
    texts[static_cast<std::size_t>(index)] = text;
    return Check(texts);
}

TEST(CheckWellGeometry, AnErrorSaysWhichBoxItIsAbout) {
    for (int index = GeoH; index <= GeoDpor; ++index) {
        const FaultPlace place = CheckWith(index, "x").result.place;
        EXPECT_EQ(place.kind, FaultPlace::GeometryBox);
        EXPECT_EQ(place.box, index);
    }
    EXPECT_EQ(CheckWith(GeoDpor, "101").result.place.box, GeoDpor);
    EXPECT_EQ(CheckWith(GeoLw, "13").result.place.box, GeoLw);
    EXPECT_EQ(CheckWith(GeoLe, "11").result.place.box, GeoLe);
    EXPECT_EQ(CheckWith(GeoDc, "9").result.place.box, GeoDc);
    EXPECT_EQ(Check(Accepted).result.place.kind, FaultPlace::None);
}

TEST(CheckWellGeometry, StoresTextsValuesAndCentimetres) {
    const auto [state, well, result] = Check({" 12.4 ", "10", "9.5", "8.25", "2", "30"});
    EXPECT_EQ(result.status, ComputationStatus::Ok);
    EXPECT_EQ(result.message, "");
    EXPECT_EQ(well.H.text, "12.4");
    EXPECT_EQ(well.H.value, 12.4);
    EXPECT_EQ(well.H.cm, 12.4 * 30.48);
    EXPECT_EQ(well.Lw.text, "10");
    EXPECT_EQ(well.Lw.value, 10);
    EXPECT_EQ(well.Lw.cm, 304.8);
    EXPECT_EQ(well.Le.text, "9.5");
    EXPECT_EQ(well.Le.cm, 9.5 * 30.48);
    EXPECT_EQ(well.dw.text, "8.25");
    EXPECT_EQ(well.dw.value, 8.25);
    EXPECT_EQ(well.dw.radius, 4.125);
    EXPECT_EQ(well.dw.radiusCm, 4.125 * 2.54);
    EXPECT_EQ(well.dc.text, "2");
    EXPECT_EQ(well.dc.radius, 1);
    EXPECT_EQ(well.dc.radiusCm, 2.54);
    EXPECT_EQ(well.dporText, "30");
    EXPECT_EQ(well.n, 0.3);
    EXPECT_EQ(well.verticalUnit, Foot);
    EXPECT_EQ(well.radialUnit, Inch);
}

TEST(CheckWellGeometry, EveryUnitHasItsFactor) {
    const double factors[] = {2.54, 30.48, 1.0, 100.0};
    for (int unit = 0; unit < 4; ++unit) {
        const Checked vertical = Check(Accepted, unit, Centimetre);
        EXPECT_EQ(vertical.well.H.cm, 12.4 * factors[unit]);
        EXPECT_EQ(vertical.well.dw.radiusCm, 4.125);
        const Checked radial = Check(Accepted, Centimetre, unit);
        EXPECT_EQ(radial.well.H.cm, 12.4);
        EXPECT_EQ(radial.well.dw.radiusCm, 4.125 * factors[unit]);
        EXPECT_EQ(radial.well.reCm, radial.well.re * factors[unit]);
    }
}

TEST(CheckWellGeometry, TheEffectiveRadiusIsExactToTheLastBit) {
    // (rw^2 - rc^2) n + rc^2 and its root in doubles, one operation after the other; beside each
    // the exact root to ten digits.
    struct Case {
        std::string dw, dc, dpor;
        double re;
        std::string_view text;
    };
    for (const Case& c :
         {Case{"8.25", "2", "30", 0x1.3463ad6099b5cp+1, "2.409292"},       // 2.4092919084
          Case{"8.25", "2.067", "27.5", 0x1.2aeb86f9f371bp+1, "2.335313"}, // 2.3353127213
          Case{"6.6", "2.2", "33.3", 0x1.0d836f2d4f898p+1, "2.105574"},    // 2.1055735561
          // Any other order of these operations ends in another last bit.
          Case{"11.8", "4.4", "32.3", 0x1.e7c02ecb7db2bp+1, "3.810552"},
          Case{"7.15", "3.57", "24.5", 0x1.2d30cd8ec2c58p+1, "2.353052"},
          Case{"8.78", "0.7", "53.8", 0x1.9d487ba330d0ep+1, "3.228775"},
          Case{"0.25", "0.128", "0", 0.064, "0.064"},
          Case{"0.25", "0.128", "100", 0.125, "0.125"}}) {
        const Checked checked = Check({"12", "10", "9", c.dw, c.dc, c.dpor});
        EXPECT_EQ(checked.well.re, c.re) << c.dw;
        EXPECT_EQ(checked.well.reText, c.text);
        EXPECT_EQ(checked.well.reCm, c.re * 2.54);
    }
}

TEST(CheckWellGeometry, EqualLengthsPass) {
    EXPECT_FALSE(Check({"10", "10", "10", "2", "2", "0"}).result.IsError());
}

TEST(CheckWellGeometry, ValuesEqualInSinglePrecisionPass) {
    EXPECT_FALSE(Check({"10", "10.0000001", "9", "8", "2", "0"}).result.IsError());
    EXPECT_FALSE(Check({"10", "9", "9.0000001", "8", "2", "0"}).result.IsError());
    EXPECT_FALSE(Check({"10", "9", "8", "2", "2.00000001", "0"}).result.IsError());
    // One step of single precision further.
    EXPECT_TRUE(Check({"10", "10.000001", "9", "8", "2", "0"}).result.IsError());
}

TEST(CheckWellGeometry, TheLastFailingComparisonIsReported) {
    struct Case {
        std::array<std::string, 6> texts;
        std::string_view message;
    };
    for (const Case& c : {Case{{"10", "11", "9", "8", "2", "0"}, "Well Geometry: Lw must <= H."},
                          Case{{"10", "9", "9.5", "8", "2", "0"}, "Well Geometry: Le must <= Lw."},
                          Case{{"10", "9", "8", "2", "3", "0"}, DcMessage},
                          Case{{"10", "11", "12", "8", "2", "0"}, "Well Geometry: Le must <= Lw."},
                          Case{{"10", "11", "9", "2", "3", "0"}, DcMessage},
                          Case{{"10", "11", "12", "2", "3", "0"}, DcMessage}}) {
        const Checked checked = Check(c.texts);
        EXPECT_EQ(checked.result.status, ComputationStatus::Error);
        EXPECT_EQ(checked.result.message, c.message);
    }
}

TEST(CheckWellGeometry, AFailingComparisonDerivesTheLengthsAllTheSame) {
    const Checked checked = Check({"10", "11", "9", "8", "2", "0"}, Metre, Centimetre);
    EXPECT_EQ(checked.well.Lw.cm, 1100);
    EXPECT_EQ(checked.well.re, 1);
    EXPECT_EQ(checked.well.reText, "1");
}

TEST(CheckWellGeometry, AnEmptyPorosityIsZero) {
    for (const char* text : {"", "   "}) {
        const Checked checked = CheckWith(GeoDpor, text);
        EXPECT_FALSE(checked.result.IsError());
        EXPECT_EQ(checked.well.dporText, "0");
        EXPECT_EQ(checked.well.n, 0);
        EXPECT_EQ(checked.well.re, checked.well.dc.radius);
    }
}

TEST(CheckWellGeometry, PorosityRunsFromZeroToAHundred) {
    for (const char* text : {"0", "100", " 100 ", "0.0", "1e2", "99.999"})
        EXPECT_EQ(CheckWith(GeoDpor, text).result.message, "") << text;
    for (const char* text : {"100.5", "-1", "100.0000001", "-0.0001", "1e300"})
        EXPECT_EQ(CheckWith(GeoDpor, text).result.message, DporRange) << text;
    for (const char* text : {"abc", "30 %", "3,5"})
        EXPECT_EQ(CheckWith(GeoDpor, text).result.message,
                  "Well Geometry: dpor, drained filter pack porosity, cannot be evaluated as a "
                  "number. Please re-enter.")
            << text;
}

TEST(CheckWellGeometry, EveryBoxHasItsThreeMessages) {
    const std::array<std::string, 5> names = {"H", "Lw", "Le", "dw, well borehole diameter,",
                                              "dc, well casing diameter,"};
    for (int i = 0; i < 5; ++i) {
        const std::string start = "Well Geometry: " + names[static_cast<std::size_t>(i)];
        for (const char* text : {"", "   "})
            EXPECT_EQ(CheckWith(i, text).result.message, start + " must have a value.");
        for (const char* text : {"abc", "1..2", "1e999", "5 ft"})
            EXPECT_EQ(CheckWith(i, text).result.message,
                      start + " cannot be evaluated as a number. Please re-enter.");
        for (const char* text : {"0", "-3", "-0.0", "1e-999"})
            EXPECT_EQ(CheckWith(i, text).result.message, start + " must be > 0.");
        EXPECT_EQ(CheckWith(i, "0").result.status, ComputationStatus::Error);
    }
}

TEST(CheckWellGeometry, AFailureLeavesTheLaterBoxesUncheckedAndUnstored) {
    for (int failing = 0; failing < 6; ++failing) {
        ProjectState state;
        state.WellGeoText = {" 12.4 ", " 10 ", " 9.5 ", " 8.25 ", " 2 ", " 30 "};
        state.WellGeoText[static_cast<std::size_t>(failing)] = " x ";
        WellDimensions well;
        EXPECT_TRUE(CheckWellGeometry(state, well).IsError());
        const std::array<std::string, 6> stored = {well.H.text,  well.Lw.text, well.Le.text,
                                                   well.dw.text, well.dc.text, well.dporText};
        for (int i = 0; i < 6; ++i) {
            const auto at = static_cast<std::size_t>(i);
            EXPECT_EQ(stored[at], i < failing ? Accepted[at] : "") << failing << i;
            // The box at fault is trimmed too, since that comes before its check.
            EXPECT_EQ(state.WellGeoText[at].front() == ' ', i > failing) << failing << i;
        }
        EXPECT_EQ(well.H.cm, 0);
        EXPECT_EQ(well.re, 0);
        EXPECT_EQ(well.reText, "");
    }
}

TEST(CheckWellGeometry, AFailureKeepsWhatAnEarlierCheckStoredBehindIt) {
    auto [state, well, result] = Check(Accepted);
    state.WellGeoText = {"20", "x", "5", "5", "5", "5"};
    EXPECT_TRUE(CheckWellGeometry(state, well).IsError());
    EXPECT_EQ(well.H.value, 20);
    EXPECT_EQ(well.H.cm, 12.4 * 30.48);
    EXPECT_EQ(well.Lw.value, 10);
    EXPECT_EQ(well.dporText, "30");
}

TEST(CheckWellGeometry, NumbersMayUseTheLocalesSeparator) {
    ProjectState state;
    state.WellGeoText = {"12,4", "10.5", "9,5", "8,25", "2", "27,5"};
    state.DecimalSeparator = ",";
    WellDimensions well;
    EXPECT_FALSE(CheckWellGeometry(state, well).IsError());
    EXPECT_EQ(well.H.value, 12.4);
    EXPECT_EQ(well.H.text, "12,4");
    EXPECT_EQ(well.Lw.value, 10.5);
    EXPECT_EQ(well.n, 27.5 / 100);
}

TEST(CheckWellGeometry, AnEffectiveRadiusBeyondSinglePrecisionHasNoText) {
    const Checked checked = Check({"12", "10", "9", "2e100", "1e100", "0"});
    EXPECT_EQ(checked.well.reText, "");
    EXPECT_EQ(checked.well.re, 0.5e100);
}

TEST(CompareAndDerive, GivesAChangedWellWhatTheCheckWould) {
    WellDimensions changed = Check(Accepted).well;
    changed.Le.value = 9;
    changed.dc.value = 3;
    changed.dc.radius = changed.dc.value / 2;
    changed.n = 0.2;
    EXPECT_FALSE(CompareAndDerive(changed).IsError());
    const WellDimensions checked = Check({"12.4", "10", "9", "8.25", "3", "20"}).well;
    EXPECT_EQ(changed.Le.cm, checked.Le.cm);
    EXPECT_EQ(changed.dc.radiusCm, checked.dc.radiusCm);
    EXPECT_EQ(changed.reCm, checked.reCm);
    changed.dc.value = 9;
    EXPECT_EQ(CompareAndDerive(changed).message, DcMessage);
}

TEST(ScreenAtWaterTable, IsJudgedInSinglePrecision) {
    EXPECT_TRUE(IsScreenAtWaterTable(Check({"12.4", "10", "10", "8", "2", "0"}).well));
    EXPECT_TRUE(IsScreenAtWaterTable(Check({"12.4", "10", "9.9999999", "8", "2", "0"}).well));
    EXPECT_FALSE(IsScreenAtWaterTable(Check({"12.4", "10", "9.999", "8", "2", "0"}).well));
}

TEST(UnitFactors, ArePairedWithTheirListPositions) {
    EXPECT_EQ(UnitFactorToCm(Inch), 2.54);
    EXPECT_EQ(UnitFactorToCm(Foot), 30.48);
    EXPECT_EQ(UnitFactorToCm(Centimetre), 1);
    EXPECT_EQ(UnitFactorToCm(Metre), 100);
    EXPECT_EQ(UnitFactorToSec(Second), 1);
    EXPECT_EQ(UnitFactorToSec(Minute), 60);
    EXPECT_EQ(UnitFactorToSec(Hour), 3600);
    EXPECT_EQ(UnitFactorToSec(Day), 86400);
    for (const int outside : {-1, 4, 1000}) {
        EXPECT_EQ(UnitFactorToCm(outside), 0);
        EXPECT_EQ(UnitFactorToSec(outside), 0);
    }
}

} // namespace
} // namespace quarnel
