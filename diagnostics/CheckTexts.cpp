// What each check and each row of "What Moves K" says.

#include "diagnostics/DiagnosticsLines.h"
#include "kcompute/NumberToText.h"
#include "project/FixedLists.h"
#include "project/Texts.h"

#include <algorithm>
#include <cmath>

namespace quarnel {

namespace {

/// A number by the house's formatter.
std::string Figures(double value) {
    const std::string text = ThreeFigureText(value);
    return text.empty() ? std::string(Dash) : text;
}

std::string_view AccuracyClass(double leOverLw) {
    if (leOverLw > 0.4)
        return "10 %";
    return leOverLw <= 0.1 ? "25 %" : "between 10 and 25 %";
}

std::string ChangeOrDash(std::optional<double> percent) {
    return percent ? ChangeText(*percent) : std::string(Dash);
}

} // namespace

std::string DiagnosticsLines::StaticLevelStep() const {
    const int unit = computation_.recovery.levelUnit;
    return unit == Inch || unit == Foot ? "0.01 ft" : "1 cm";
}

/// "K (p %)".
std::string DiagnosticsLines::WithChange(const CheckFinding& finding) const {
    return KWithUnit(finding.kCmPerSec) +
           (finding.changePercent ? " (" + ChangeText(*finding.changePercent) + ")" : "");
}

std::string DiagnosticsLines::WellCheckText(const CheckFinding& finding) const {
    const std::string x = Figures(finding.value);
    switch (finding.id) {
    case CheckId::LeRwEnd:
        return computation_.coefficients.message;
    case CheckId::LeRwLow:
        return "Le/rw is " + x +
               ": the well is nearly as wide as its screen is long, and the curves are steep to "
               "read there.";
    case CheckId::LnCap:
        return "ln((H - Lw)/rw) is " + x +
               ". Bouwer and Rice (1976) found 6 to be the effective upper limit; with 6 K would "
               "be " +
               WithChange(finding) + ".";
    case CheckId::NearFull:
        return "The water-bearing layer ends less than a borehole radius below the well: the "
               "partially penetrating formula is used outside its range. As a fully penetrating "
               "well K would be " +
               WithChange(finding) + ".";
    case CheckId::DporSubmerged:
        return "The screen lies below the water table: its filter pack stays full, and no "
               "correction for drainage is needed (Bouwer 1989). With dpor 0 K would be " +
               KWithUnit(finding.kCmPerSec) + ".";
    case CheckId::DporMissing:
        return "The screen stands at the water table: if the filter pack drains, enter its "
               "porosity (with 30 % K would be " +
               KWithUnit(finding.kCmPerSec) + ").";
    default:
        return "Bouwer and Rice (1976) give ln(Re/rw) within 10 % for Le > 0.4 Lw and within 25 % "
               "for Le much smaller than Lw; here Le/Lw is " +
               x + ": " + std::string(AccuracyClass(finding.value)) + ".";
    }
}

std::string DiagnosticsLines::HeadCheckText(const CheckFinding& finding) const {
    const std::string x = Figures(finding.value);
    switch (finding.id) {
    case CheckId::H0Screen:
        return "The first change in head is " + ShareText(100 * finding.value) +
               " of the screen's length: large against the screen.";
    case CheckId::H0Wetted:
        return "The wetted length of the screen changes by " + ShareText(100 * finding.value) +
               " during the test.";
    case CheckId::H0Steps:
        return "The first change in head is " + x + " reading steps: small against the step.";
    case CheckId::Oscillation:
        return "The level swings through the static level: the test is underdamped; Bouwer-Rice "
               "does not apply (Springer and Gelhar 1991; Butler 1998).";
    case CheckId::Short:
        return "The head fell to 0.30 of the first in " + x + " s with " +
               std::to_string(finding.count) +
               " readings: too short for the early straight part to be seen (ASTM D5912).";
    case CheckId::CurvedUp:
        return "ln Y is concave upward (ratio " + x +
               "): use readings between 0.20 and 0.30, or see the two segments.";
    default:
        return "ln Y is concave downward (ratio " + x +
               "): wrong static level, slow start or a leak.";
    }
}

std::string DiagnosticsLines::RecordCheckText(const CheckFinding& finding) const {
    const std::string count = std::to_string(finding.count);
    switch (finding.id) {
    case CheckId::NotRecovered:
        return "Recovery was not followed to 95 %: the static level rests on the reading before "
               "the test.";
    case CheckId::Tail:
        return (finding.count == 1 ? "1 used reading lies" : count + " used readings lie") +
               " below 5 % of the first: K depends on the static level" +
               (finding.changePercent ? " (" + StaticLevelStep() + " changes it by up to " +
                                            ShareText(*finding.changePercent) + ")"
                                      : "") +
               ".";
    case CheckId::TimeOrder:
        return "The times do not rise at point " + FixedText(finding.value, 0) + ".";
    case CheckId::TimeEqual:
        return count + " used readings share their time with another.";
    default:
        return "Only " + count + " readings are used.";
    }
}

std::string DiagnosticsLines::CheckText(const CheckFinding& finding) const {
    if (finding.id <= CheckId::DporMissing)
        return WellCheckText(finding);
    return finding.id <= CheckId::CurvedDown ? HeadCheckText(finding) : RecordCheckText(finding);
}

std::vector<TextRow> DiagnosticsLines::Checks(const ChecksPage& page) const {
    std::vector<TextRow> rows;
    for (const CheckLevel level : {CheckLevel::Caution, CheckLevel::Note})
        for (const CheckFinding& finding : page.findings)
            if (finding.level == level)
                rows.push_back({level == CheckLevel::Caution ? "Caution" : "Note",
                                std::string(CheckName(finding.id)), CheckText(finding)});
    return rows;
}

std::string DiagnosticsLines::SensitivityName(const SensitivityRow& row, double percent) const {
    const std::string by = " " + DoubleToText(percent) + " % less and more";
    const auto pointAt = [&](std::size_t i) {
        return TimeText(static_cast<std::size_t>(row.entries[i].change) - 1);
    };
    switch (row.input) {
    case SensitivityInput::H:
        return "H" + by;
    case SensitivityInput::Lw:
        return "Lw" + by;
    case SensitivityInput::Le:
        return "Le" + by;
    case SensitivityInput::Dw:
        return "dw" + by;
    case SensitivityInput::Dc:
        return "dc" + by;
    case SensitivityInput::Porosity:
        return "drained porosity 0 and 40 %";
    case SensitivityInput::StaticLevel:
        return (computation_.recovery.dataType == ChangeInHead ? "all readings "
                                                               : "static level ") +
               StaticLevelStep() + " less and more";
    case SensitivityInput::LeftOut:
        return "reading at " + pointAt(0) + " or " + pointAt(1) + " left out";
    case SensitivityInput::LnCap:
        return "ln((H - Lw)/rw) held at 6";
    case SensitivityInput::Anisotropy:
        return "Kz/Kr 0.5 and 0.1, if the formation is anisotropic";
    case SensitivityInput::HeadWindow:
        break;
    }
    const auto window = static_cast<std::size_t>(row.entries.front().change);
    return window == RowAllValid
               ? "all valid readings"
               : "readings " + std::string(HeadWindows[window - Row100To030].name);
}

TextRow DiagnosticsLines::SensitivityHeadings() const {
    const std::string k = "K (" + KUnit() + ")";
    return {"What is changed", k, "Change", k, "Change"};
}

std::vector<TextRow> DiagnosticsLines::Sensitivity(const SensitivityPage& page) const {
    std::vector<TextRow> rows;
    for (const SensitivityRow& row : page.rows) {
        TextRow texts = {SensitivityName(row, page.percent)};
        const auto add = [&](const SensitivityEntry& entry) {
            texts.push_back(KNumber(entry.kCmPerSec));
            texts.push_back(ChangeOrDash(entry.changePercent));
        };
        add(row.entries.front());
        if (row.entries.size() > 1)
            add(row.entries.back());
        texts.resize(SensitivityHeadings().size());
        rows.push_back(std::move(texts));
    }
    return rows;
}

std::string DiagnosticsLines::SensitivityDetails(const SensitivityRow& row) const {
    if (row.entries.size() <= 2)
        return {};
    std::string text;
    for (const SensitivityEntry& entry : row.entries)
        text += (text.empty() ? "" : "; ") + DoubleToText(entry.change) +
                " %: " + KWithUnit(entry.kCmPerSec) + " (" + ChangeOrDash(entry.changePercent) +
                ")";
    return text;
}

/// "x % to y %" of a row that has a change; "x %" where there is but one entry.
std::string DiagnosticsLines::ChangesText(const SensitivityRow& row) {
    const std::string least = ChangeText(*row.leastPercent);
    return row.entries.size() > 1 ? least + " to " + ChangeText(*row.greatestPercent) : least;
}

std::string DiagnosticsLines::LargestLine(const SensitivityPage& page) const {
    if (page.rows.empty() || !page.rows.front().leastPercent)
        return {};
    const SensitivityRow& row = page.rows.front();
    return "Largest here: " + SensitivityName(row, page.percent) + " (" + ChangesText(row) + ").";
}

} // namespace quarnel
