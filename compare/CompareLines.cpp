#include "compare/CompareLines.h"

#include "diagnostics/DiagnosticsLines.h"
#include "kcompute/NumberToText.h"
#include "project/FixedLists.h"

#include <algorithm>
#include <cmath>

namespace quarnel {

namespace {

constexpr int HeadDecimals = 2;
constexpr int SdDecimals = 2;

/// `value` by the house's formatter, a dash where there is none to show.
std::string Figures(std::optional<double> value) {
    const std::string text = value ? ThreeFigureText(*value) : std::string();
    return text.empty() ? std::string(Dash) : text;
}

std::string LengthName(int unit) {
    return std::string(NameAt(LengthUnitNames, unit));
}

/// A share in percent of a change whose sign is told in words or not at all.
std::string SizeText(double percent) {
    return ShareText(std::fabs(percent));
}

std::string UsedText(const CompareRow& row) {
    if (!row.kCmPerSec || !row.pointCount)
        return std::string(Dash);
    return std::to_string(row.usedCount) + " of " + std::to_string(*row.pointCount);
}

std::string KAsShown(const CompareRow& row) {
    if (row.kText.empty())
        return std::string(Dash);
    return row.kText + " " + NameOf(CompareUnit{row.kLengthUnit, row.kTimeUnit});
}

std::string RangeText(const CompareRow& row) {
    if (!row.headMax || !row.headMin)
        return std::string(Dash);
    return FixedText(*row.headMax, HeadDecimals) + "-" + FixedText(*row.headMin, HeadDecimals);
}

std::string Counted(std::size_t count, std::string_view one) {
    return std::to_string(count) + " " + std::string(one) + (count == 1 ? "" : "s");
}

/// The reason, or else "1 caution, 2 notes".
std::string RemarksText(const CompareRow& row, const ComparedRow& compared) {
    if (!compared.reason.empty())
        return compared.reason;
    std::string text;
    if (!row.cautions.empty())
        text = Counted(row.cautions.size(), "caution");
    if (!row.notes.empty())
        text += (text.empty() ? "" : ", ") + Counted(row.notes.size(), "note");
    return text;
}

std::optional<double> InCommonLength(std::optional<double> cm, const Comparison& comparison) {
    return cm ? std::optional<double>(*cm / UnitFactorToCm(comparison.unit.length)) : std::nullopt;
}

std::string StatisticsText(const std::string& name, std::size_t counted, std::size_t tests,
                           const std::optional<KStatistics>& statistics, const CompareUnit& unit) {
    if (!statistics)
        return name + ": " + std::string(NoTestCountedText);
    return name + ": " + std::to_string(counted) + " of " + std::to_string(tests) +
           " tests counted; geometric mean " + Figures(statistics->geometricMean) + " " +
           NameOf(unit) + ", arithmetic mean " + Figures(statistics->arithmeticMean) + ", from " +
           Figures(statistics->minimum) + " to " + Figures(statistics->maximum) + " (" +
           Figures(statistics->maximumOverMinimum) + " times), SD of log10 K " +
           (statistics->sdLog10 ? FixedText(*statistics->sdLog10, SdDecimals) : std::string(Dash)) +
           ".";
}

void AddGroup(const Comparison& comparison, std::size_t index, std::vector<CompareLine>& lines) {
    const CompareGroup& group = comparison.groups[index];
    lines.push_back({StatisticsText(group.name, group.counted.size(), group.tests.size(),
                                    group.statistics, comparison.unit),
                     index, std::nullopt});
    if (!group.repeats)
        return;
    for (const RepeatRemark& remark : group.repeats->remarks)
        lines.push_back(
            {RepeatText(remark.id, *group.repeats, comparison.unit.length), index, remark.level});
}

/// Tests that stand alone agree with nothing: there the note would say what nobody took from them.
void AddSkinNote(const Comparison& comparison, std::vector<CompareLine>& lines) {
    if (std::ranges::any_of(lines, [&comparison](const CompareLine& line) {
            return line.group && comparison.groups[*line.group].repeats;
        }))
        lines.push_back({std::string(SkinNote), std::nullopt, std::nullopt});
}

std::string HeadDependenceText(const RepeatTests& repeats) {
    const double percent = repeats.headDependencePercent.value_or(0);
    return std::string("K ") + (percent > 0 ? "rises" : "falls") +
           " with the first change in head by " + SizeText(percent) +
           ": K depends on the slug (screen across the water table, non-linear losses, mobile "
           "fines).";
}

std::string GoodText(const RepeatTests& repeats, int lengthUnit) {
    const double factor = UnitFactorToCm(lengthUnit);
    return "The " + std::to_string(repeats.count) +
           " tests agree within 10 % over first changes in head from " +
           Figures(repeats.leastHeadCm / factor) + " to " +
           Figures(repeats.greatestHeadCm / factor) + " " + LengthName(lengthUnit) + ".";
}

} // namespace

bool IsNumberColumn(std::size_t column) {
    switch (column) {
    case CompareNumber:
    case CompareUsed:
    case CompareFirstY:
    case CompareK:
    case CompareKAsShown:
    case CompareHalfWidth:
    case CompareRange:
        return true;
    default:
        return false;
    }
}

std::array<std::string, CompareColumnCount> CompareHeadings(const Comparison& comparison) {
    return {"No.",
            "Well",
            "Date",
            "Test",
            "Used",
            "First Y (" + LengthName(comparison.unit.length) + ")",
            "K (" + NameOf(comparison.unit) + ")",
            "K as shown",
            "+- %",
            "Range",
            "Remarks",
            "File"};
}

std::array<std::string, CompareColumnCount>
CompareTexts(const CompareRow& row, const Comparison& comparison, std::size_t index) {
    const ComparedRow& compared = comparison.rows[index];
    return {std::to_string(index + 1),
            row.wellLabel,
            row.testDate,
            row.slugTestType,
            UsedText(row),
            Figures(InCommonLength(row.firstYCm, comparison)),
            Figures(compared.k),
            KAsShown(row),
            row.halfWidthPercent ? FixedText(*row.halfWidthPercent, 1) : std::string(Dash),
            RangeText(row),
            RemarksText(row, compared),
            std::string(FileNameOf(row.file))};
}

std::string CompareToolTip(const CompareRow& row, const ComparedRow& compared, std::size_t column) {
    if (column == CompareFile)
        return row.file;
    if (column != CompareRemarks)
        return {};
    std::string text = compared.reason;
    for (const std::vector<std::string>* texts : {&row.cautionTexts, &row.noteTexts})
        for (const std::string& sentence : *texts)
            text += (text.empty() ? "" : "\n") + sentence;
    return text;
}

std::optional<double> CompareSortValue(const CompareRow& row, const Comparison& comparison,
                                       std::size_t index, std::size_t column) {
    switch (column) {
    case CompareNumber:
        return static_cast<double>(index + 1);
    case CompareUsed:
        return row.kCmPerSec ? std::optional<double>(static_cast<double>(row.usedCount))
                             : std::nullopt;
    case CompareFirstY:
        return row.firstYCm;
    case CompareK:
        return comparison.rows[index].k;
    case CompareKAsShown:
        return row.kText.empty() ? std::nullopt : row.kCmPerSec;
    case CompareHalfWidth:
        return row.halfWidthPercent;
    case CompareRange:
        return row.headMax;
    default:
        return std::nullopt;
    }
}

std::vector<CompareLine> CompareLines(const Comparison& comparison) {
    std::vector<CompareLine> lines;
    for (std::size_t group = 0; group < comparison.groups.size(); ++group)
        AddGroup(comparison, group, lines);
    if (comparison.groups.size() >= 2)
        lines.push_back({StatisticsText(std::string(AllTests), comparison.countedCount,
                                        comparison.testCount, comparison.all, comparison.unit),
                         std::nullopt, std::nullopt});
    AddSkinNote(comparison, lines);
    return lines;
}

std::vector<CompareLine> CompareLines(const Comparison& comparison,
                                      std::span<const std::size_t> groups) {
    std::vector<CompareLine> lines;
    for (const std::size_t group : groups)
        AddGroup(comparison, group, lines);
    AddSkinNote(comparison, lines);
    return lines;
}

std::string RepeatText(RepeatId id, const RepeatTests& repeats, int lengthUnit) {
    const std::string count = std::to_string(repeats.count);
    switch (id) {
    case RepeatId::Count:
        return "3 tests or more are recommended; here are " + count + ".";
    case RepeatId::Heads:
        return "The first changes in head differ by less than a factor of 2 (" +
               Figures(repeats.headRatio) + "): dependence on head cannot be seen.";
    case RepeatId::FirstLast:
        return "The last test's first change in head differs from the first test's by " +
               SizeText(repeats.firstLastHeadChangePercent) +
               ": a change of the well in between cannot be told from dependence on head.";
    case RepeatId::Changed:
        return "K changed by " + SizeText(repeats.firstLastKChangePercent) +
               " from the first to the last test at the same first change in head: the well "
               "changed during testing (development, mobile fines).";
    case RepeatId::Spread:
        return "K differs by up to " + SizeText(repeats.greatestDeviationPercent) +
               " from the geometric mean of the " + count + " tests.";
    case RepeatId::HeadDependence:
        return HeadDependenceText(repeats);
    case RepeatId::Good:
        break;
    }
    return GoodText(repeats, lengthUnit);
}

std::string_view NameOf(CompareStatus status) {
    switch (status) {
    case CompareStatus::Counted:
        return "counted";
    case CompareStatus::NotCounted:
        return "not counted";
    case CompareStatus::Failed:
        break;
    }
    return "failed";
}

std::string_view NameOf(Grouping grouping) {
    switch (grouping) {
    case Grouping::Well:
        return "well";
    case Grouping::Site:
        return "site";
    case Grouping::None:
        break;
    }
    return "none";
}

std::string_view NameOf(HalfWidthKind kind) {
    return kind == HalfWidthKind::Adjusted ? "adjusted" : "plain";
}

} // namespace quarnel
