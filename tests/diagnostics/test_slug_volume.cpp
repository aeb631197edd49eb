#include "diagnostics/SlugVolume.h"

#include "tests/diagnostics/WorkedCases.h"

namespace quarnel {

namespace {

using test::ExpectWorked;
using test::NumberAt;

std::string NameOf(SlugVerdict verdict) {
    switch (verdict) {
    case SlugVerdict::Agrees:
        return "agrees";
    case SlugVerdict::FilterPack:
        return "filter_pack";
    case SlugVerdict::Unexplained:
        return "unexplained";
    case SlugVerdict::Larger:
        break;
    }
    return "larger";
}

/// A casing in which a litre makes 100 cm, in a borehole of twice its area.
SlugVolumeInput RoundInput(double firstYCm) {
    SlugVolumeInput input;
    input.volumeLitre = 1;
    input.rcCm = std::sqrt(10 / 3.14159265358979323846);
    input.rwCm = std::sqrt(2.0) * input.rcCm;
    input.firstYCm = firstYCm;
    input.interceptLn = std::log(firstYCm);
    input.screenAtWaterTable = true;
    return input;
}

} // namespace

TEST(SlugVolume, IsTheWorkedOne) {
    for (const std::string id :
         {"slug_volume_agrees", "slug_volume_filter_pack", "slug_volume_same_but_submerged",
          "slug_volume_too_much_for_a_pack", "slug_volume_larger", "slug_volume_no_annulus"}) {
        SCOPED_TRACE(id);
        const test::WorkedCase worked = test::ReadWorkedCase(id);
        SlugVolumeInput input;
        input.volumeLitre = *NumberAt(worked.input, "volume_litre");
        input.rcCm = *NumberAt(worked.input, "dc_cm") / 2;
        input.rwCm = *NumberAt(worked.input, "dw_cm") / 2;
        input.firstYCm = *NumberAt(worked.input, "first_y_cm");
        const std::optional<double> intercept = NumberAt(worked.input, "intercept_ln_cm");
        input.interceptLn = intercept.value_or(std::log(input.firstYCm));
        input.screenAtWaterTable = worked.input.get<bool>("screen_at_water_table");
        const auto check = CheckSlugVolume(input);
        ASSERT_TRUE(check);
        const test::Json& expected = worked.expected;
        ExpectWorked(check->expectedCm, *NumberAt(expected, "expected_cm"), "expected");
        ExpectWorked(check->firstOverExpected, *NumberAt(expected, "first_over_expected"), "q1");
        ExpectWorked(check->effectiveRadiusCm, *NumberAt(expected, "effective_radius_cm"), "rce");
        ExpectWorked(check->impliedPorosity, expected.get_child("implied_porosity"), "nimp");
        EXPECT_EQ(NameOf(check->verdict), expected.get<std::string>("verdict"));
        if (!intercept)
            continue;
        ExpectWorked(check->interceptOverExpected, *NumberAt(expected, "intercept_over_expected"),
                     "q2");
        EXPECT_EQ(check->lineBelowFirst, expected.get<bool>("line_below_first"));
        input.firstYCm = std::exp(*intercept);
        ExpectWorked(CheckSlugVolume(input)->effectiveRadiusCm,
                     *NumberAt(expected, "effective_radius_from_intercept_cm"), "rce of line");
    }
}

TEST(SlugVolume, VerdictAtAndBesideEachLimit) {
    struct Case {
        double firstYCm;
        SlugVerdict verdict;
    };
    for (const auto& [firstYCm, verdict] :
         std::vector<Case>{{90.0000001, SlugVerdict::Agrees},
                           {89.9999999, SlugVerdict::FilterPack},
                           {109.9999999, SlugVerdict::Agrees},
                           {110.0000001, SlugVerdict::Larger},
                           {100 / 1.4499999, SlugVerdict::FilterPack},
                           {100 / 1.4500001, SlugVerdict::Unexplained}})
        EXPECT_EQ(CheckSlugVolume(RoundInput(firstYCm))->verdict, verdict) << firstYCm;
}

TEST(SlugVolume, TheLimitsThemselvesBelongToTheMilderVerdict) {
    constexpr double OneUp = 2;
    const auto verdict = [](double q1, std::optional<double> porosity) {
        return SlugVerdictOf(q1, porosity, true);
    };
    EXPECT_EQ(verdict(0.9, 0.1), SlugVerdict::Agrees);
    EXPECT_EQ(verdict(std::nextafter(0.9, 0), 0.1), SlugVerdict::FilterPack);
    EXPECT_EQ(verdict(1.1, 0.1), SlugVerdict::Agrees);
    EXPECT_EQ(verdict(std::nextafter(1.1, OneUp), 0.1), SlugVerdict::Larger);
    EXPECT_EQ(verdict(0.5, 0.45), SlugVerdict::FilterPack);
    EXPECT_EQ(verdict(0.5, std::nextafter(0.45, 1)), SlugVerdict::Unexplained);
    EXPECT_EQ(verdict(0.5, 0.0), SlugVerdict::Unexplained);
    EXPECT_EQ(verdict(0.5, 1e-300), SlugVerdict::FilterPack);
    EXPECT_EQ(verdict(0.5, -0.1), SlugVerdict::Unexplained);
    EXPECT_EQ(verdict(0.5, std::nullopt), SlugVerdict::Unexplained);
}

TEST(SlugVolume, OnlyAScreenAtTheWaterTableDrainsItsPack) {
    SlugVolumeInput input = RoundInput(80);
    EXPECT_EQ(CheckSlugVolume(input)->verdict, SlugVerdict::FilterPack);
    input.screenAtWaterTable = false;
    EXPECT_EQ(CheckSlugVolume(input)->verdict, SlugVerdict::Unexplained);
}

TEST(SlugVolume, LineBelowTheFirstReadingAtAndBesideItsLimit) {
    SlugVolumeInput input = RoundInput(100);
    for (const auto& [part, below] :
         {std::pair(0.9000001, false), std::pair(0.8999999, true), std::pair(1.2, false)}) {
        input.interceptLn = std::log(100 * part);
        EXPECT_EQ(CheckSlugVolume(input)->lineBelowFirst, below) << part;
    }
}

TEST(SlugVolume, NumbersThatAreNotFiniteGiveNoCheck) {
    EXPECT_FALSE(CheckSlugVolume({1, 2, 4, 50, 1e6, true}));
    EXPECT_FALSE(CheckSlugVolume({1, 1e-200, 4, 50, 3, true}));
    EXPECT_FALSE(CheckSlugVolume({1e308, 2, 4, 50, 3, true}));
}

} // namespace quarnel
