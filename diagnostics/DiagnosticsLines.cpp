#include "diagnostics/DiagnosticsLines.h"

#include "kcompute/KText.h"
#include "kcompute/NumberToText.h"
#include "project/FixedLists.h"
#include "project/Texts.h"
#include "wellgeometry/WellGeometry.h"

#include <array>
#include <charconv>
#include <cmath>

namespace quarnel {

namespace {

constexpr double LargestFixed = 1e15;

std::string Counted(std::size_t count, std::string_view one, std::string_view many) {
    return std::to_string(count) + std::string(count == 1 ? one : many);
}

std::string Joined(std::string sentence, std::string_view next) {
    if (!next.empty())
        sentence.append(" ").append(next);
    return sentence;
}

/// `value` by the house's formatter, a dash where there is none to show.
std::string Figures(std::optional<double> value) {
    const std::string text = value ? ThreeFigureText(*value) : std::string();
    return text.empty() ? std::string(Dash) : text;
}

std::string_view VerdictText(SlugVerdict verdict) {
    switch (verdict) {
    case SlugVerdict::Agrees:
        return "They agree.";
    case SlugVerdict::Larger:
        return "Larger than expected: check the slug volume, dc, the static level and the first "
               "readings (surge).";
    case SlugVerdict::FilterPack:
    case SlugVerdict::Unexplained:
        break;
    }
    return "Smaller than expected and not explained by the filter pack: slow start, leak, or first "
           "reading missed.";
}

} // namespace

std::string FixedText(double value, int decimals) {
    if (!(std::fabs(value) < LargestFixed))
        return Figures(value);
    std::array<char, 64> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      std::chars_format::fixed, decimals);
    std::string text(buffer.data(), result.ptr);
    if (text.front() == '-' && text.find_first_not_of("-0.") == std::string::npos)
        text.erase(0, 1);
    return text;
}

std::string ShareText(double percent) {
    return FixedText(percent, 1) + " %";
}

std::string ChangeText(double percent) {
    const std::string share = ShareText(percent);
    const bool isZero = share.find_first_of("123456789") == std::string::npos;
    return (percent > 0 && !isZero ? "+" : "") + share;
}

std::string RSquaredText(double rSquared) {
    const std::string text = FixedText(rSquared, 4);
    return rSquared < 1 && text == "1.0000" ? "> 0.9999" : text;
}

std::string TooFewToMarkText(std::size_t count) {
    const std::string lies = count == 0   ? "No reading lies"
                             : count == 1 ? "Only 1 reading lies"
                                          : "Only " + std::to_string(count) + " readings lie";
    return lies +
           " between 0.20 and 0.30 of the first change in head. Marks were left as they are.";
}

std::string DiagnosticsLines::KUnit() const {
    return KText(state_, 1).empty() ? "cm/sec" : KUnitText(state_);
}

std::string DiagnosticsLines::KNumber(std::optional<double> kCmPerSec) const {
    if (!kCmPerSec)
        return std::string(Dash);
    const std::string text =
        KText(state_, 1).empty() ? ThreeFigureText(*kCmPerSec) : KText(state_, *kCmPerSec);
    return text.empty() ? std::string(Dash) : text;
}

std::string DiagnosticsLines::KWithUnit(std::optional<double> kCmPerSec) const {
    const std::string number = KNumber(kCmPerSec);
    return number == Dash ? number : number + " " + KUnit();
}

std::string DiagnosticsLines::LengthText(double cm, int unit) const {
    return Figures(cm / UnitFactorToCm(unit)) + " " + std::string(NameAt(LengthUnitNames, unit));
}

std::string DiagnosticsLines::TimeText(std::size_t point) const {
    const RecoveryData& recovery = computation_.recovery;
    return (*recovery.RecoveryPoints)[point].timeText.ToString() + " " +
           std::string(NameAt(TimeUnitNames, recovery.timeUnit));
}

std::string DiagnosticsLines::StateLine() const {
    return "K = " + KWithUnit(computation_.KInCmPerSec) + " from " +
           std::to_string(computation_.usedCount) + " of " +
           Counted(computation_.recovery.RecoveryPoints->size(), " point.", " points.");
}

std::string DiagnosticsLines::Summary(const StatisticsPage& page,
                                      const SensitivityPage& sensitivity) const {
    std::string text = std::to_string(page.fit.usedCount) + " of " +
                       Counted(page.pointCount, " reading", " readings") +
                       " used, normalized head " + FixedText(page.greatestUsedHead, 2) + " to " +
                       FixedText(page.leastUsedHead, 2) + "; K " + KWithUnit(page.kCmPerSec);
    const std::optional<KInterval>& interval =
        page.adjustedInterval ? page.adjustedInterval : page.interval;
    if (interval)
        text += ", " + (interval->low > 0 ? KNumber(interval->low) : "<= 0") + " to " +
                KNumber(interval->high) + " (95 % of the scatter only)";
    if (!sensitivity.rows.empty() && sensitivity.rows.front().leastPercent)
        text += "; " + SensitivityName(sensitivity.rows.front(), sensitivity.percent) +
                " would move it most (" + ChangesText(sensitivity.rows.front()) + ")";
    return text + ".";
}

std::string DiagnosticsLines::IntervalText(const std::optional<KInterval>& interval) const {
    if (!interval)
        return std::string(Dash);
    return (interval->low > 0 ? KNumber(interval->low) : "<= 0") + " to " +
           KNumber(interval->high) + " " + KUnit();
}

std::vector<TextRow> DiagnosticsLines::Statistics(const StatisticsPage& page) const {
    const FitStatistics& fit = page.fit;
    const std::string reason(fit.usedCount < FewestPointsWithScatter ? TwoPointsText : Dash);
    const std::string alikeReason(fit.usedCount < FewestPointsWithScatter           ? TwoPointsText
                                  : fit.usedCount < FewestPointsWithAutocorrelation ? SixPointsText
                                                                                    : Dash);
    const FitScatter scatter = fit.scatter.value_or(FitScatter());
    const FitAutocorrelation alike = fit.autocorrelation.value_or(FitAutocorrelation());
    const auto ofScatter = [&](double value) { return fit.scatter ? Figures(value) : reason; };
    const auto ofAlike = [&](double value, int decimals) {
        return fit.autocorrelation ? FixedText(value, decimals) : alikeReason;
    };
    return {
        {"Points used", std::to_string(fit.usedCount) + " of " + std::to_string(page.pointCount)},
        {"K", KWithUnit(page.kCmPerSec)},
        {"K, 95 % interval", fit.scatter ? IntervalText(page.interval) : reason},
        {"K, 95 % interval, adjusted",
         fit.autocorrelation ? IntervalText(page.adjustedInterval) : alikeReason},
        {"Slope (1/sec)", Figures(fit.slope)},
        {"Standard error of slope", ofScatter(scatter.slopeSe)},
        {"Intercept (ln cm)", Figures(fit.intercept)},
        {"Standard error of intercept", ofScatter(scatter.interceptSe)},
        {"Residual standard deviation", ofScatter(scatter.residualSd)},
        {"R2", fit.rSquared ? RSquaredText(*fit.rSquared) : reason},
        {"Lag-1 autocorrelation", ofAlike(alike.lag1, 3)},
        {"Durbin-Watson", ofAlike(alike.durbinWatson, 3)},
        {"Effective number of points", ofAlike(alike.effectiveCount, 1)}};
}

std::string DiagnosticsLines::SlugVolume(const StatisticsPage& page) const {
    if (!page.slugVolume)
        return std::string(NoSlugVolumeText);
    const SlugVolumeCheck& check = *page.slugVolume;
    const int levelUnit = computation_.recovery.levelUnit;
    const WellDimensions& well = computation_.geometry;
    std::string text = "Expected from the slug " + LengthText(check.expectedCm, levelUnit) +
                       ", observed " + LengthText(page.firstYCm, levelUnit) + " (" +
                       Figures(check.firstOverExpected) + " times).";
    if (check.verdict == SlugVerdict::FilterPack)
        text =
            Joined(std::move(text), "Smaller than expected: a drained filter pack of " +
                                        ShareText(100 * *check.impliedPorosity) +
                                        " would explain it (entered: " + well.dporText +
                                        " %). The effective radius would be " +
                                        LengthText(check.effectiveRadiusCm, well.radialUnit) + ".");
    else
        text = Joined(std::move(text), VerdictText(check.verdict));
    if (check.lineBelowFirst)
        text = Joined(std::move(text),
                      "The fitted line starts at " +
                          ShareText(100 * check.interceptOverExpected / check.firstOverExpected) +
                          " of the first reading: early readings lie above the line (curvature or "
                          "filter pack).");
    return text;
}

std::string DiagnosticsLines::Hvorslev(const StatisticsPage& page) const {
    if (!page.hvorslev)
        return {};
    const HvorslevComparison& hvorslev = *page.hvorslev;
    std::string text = "Hvorslev (1951): " + KWithUnit(hvorslev.kCmPerSec) + " (";
    if (hvorslev.ratio && page.kCmPerSec > 0)
        text += ShareText(100 * std::fabs(*hvorslev.ratio - 1)) +
                (*hvorslev.ratio < 1 ? " below; " : " above; ");
    text += "assumes no effect of the water table; readings 0.25-0.15: " +
            KWithUnit(hvorslev.window025To015CmPerSec) + ").";
    if (hvorslev.touchingKCmPerSec)
        text = Joined(std::move(text), "With the screen on the impervious bottom: " +
                                           KWithUnit(hvorslev.touchingKCmPerSec) + ".");
    return text;
}

TextRow DiagnosticsLines::WindowHeadings() const {
    return {"Normalized head", "Points", "K (" + KUnit() + ")", "R2", "Change"};
}

std::vector<TextRow> DiagnosticsLines::Windows(const HeadWindowsPage& page) const {
    std::vector<TextRow> rows;
    for (const HeadWindowRow& row : page.rows) {
        const std::string name(row.name == "all"      ? "All valid"
                               : row.name == "marked" ? "As marked"
                                                      : row.name);
        rows.push_back({name, std::to_string(row.pointCount), KNumber(row.kCmPerSec),
                        row.rSquared ? RSquaredText(*row.rSquared) : std::string(Dash),
                        row.changePercent ? ChangeText(*row.changePercent) : std::string(Dash)});
    }
    return rows;
}

std::string DiagnosticsLines::Segments(const HeadWindowsPage& page) const {
    if (!page.segments || !page.segments->suggested)
        return std::string(NoSegmentsText);
    const std::string text = "Two straight segments: to " + TimeText(page.lastPointEarly) +
                             " and from " + TimeText(page.firstPointLate) + ". K is " +
                             KWithUnit(page.kEarlyCmPerSec) + " from the first, " +
                             KWithUnit(page.kLateCmPerSec) + " from the second.";
    const WellDimensions& well = computation_.geometry;
    return Joined(text,
                  IsScreenAtWaterTable(well) || well.n > 0
                      ? "With the screen across the water table the first, steeper one is "
                        "commonly the filter pack draining (Bouwer 1989): mark the second one."
                      : "The screen lies below the water table: curvature is usually storage "
                        "of the formation; readings between 0.20 and 0.30 of the first change "
                        "in head are recommended (Butler 1998).");
}

std::string DiagnosticsLines::ResidualTitle(const FitStatistics& fit) {
    if (!fit.scatter)
        return std::string(NoResidualsText);
    std::string title = "Residuals: s " + Figures(fit.scatter->residualSd);
    if (fit.autocorrelation)
        title += ", r1 " + FixedText(fit.autocorrelation->lag1, 3) + ", DW " +
                 FixedText(fit.autocorrelation->durbinWatson, 3);
    return title;
}

} // namespace quarnel
