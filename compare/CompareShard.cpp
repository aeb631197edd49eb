// Takes up the rows that CompareCsv wrote.

#include "compare/CarriedK.h"
#include "compare/CompareCsv.h"
#include "compare/CompareCsvColumns.h"
#include "compare/CompareLines.h"
#include "compare/Labels.h"
#include "project/CsvReader.h"
#include "project/FixedLists.h"
#include "project/Texts.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace quarnel {

namespace {

constexpr std::string_view Replacement = "\xEF\xBF\xBD"; // U+FFFD
/// K in three figures differs from K by less than this part of it.
constexpr double ThreeFigureSlack = 0.006;
constexpr std::string_view NotBySiteFault =
    "The table was not written with --group site, so it does not name the sites.";
constexpr std::string_view MixedUnitsFault =
    "The K of the table do not stand in one unit: run it again.";

/// What makes a table unusable; caught where the table is read.
struct Fault {
    std::string text;
};

using Columns = std::vector<std::string>;

std::string RowFault(std::size_t number) {
    return "Row " + std::to_string(number) + " is not as a run writes it.";
}

/// The number that is the whole of a text.
template <typename Number> std::optional<Number> NumberOf(std::string_view text) {
    Number value{};
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size())
        return std::nullopt;
    return value;
}

bool IsStatus(std::string_view name) {
    return name == NameOf(CompareStatus::Counted) || name == NameOf(CompareStatus::NotCounted) ||
           name == NameOf(CompareStatus::Failed);
}

/// The rows of one table.
class ShardReader {
public:
    ShardReader(std::string_view text, Grouping grouping, const std::optional<CompareUnit>& unit)
        : reader_(text)
        , grouping_(grouping)
        , unit_(unit) {}

    std::vector<CompareRow> Read();

private:
    void ReadHeader();
    CompareRow RowOf(const Columns& columns) const;
    void TakeTexts(const Columns& columns, CompareRow& row) const;
    void TakeK(const Columns& columns, CompareRow& row) const;
    void TakeSite(const Columns& columns, CompareRow& row) const;
    void TakeChecks(const std::string& names, std::vector<CheckId>& checks) const;
    [[noreturn]] void Refuse() const { throw Fault{RowFault(rows_.size() + 1)}; }
    std::optional<double> Number(const std::string& text) const;
    std::optional<std::size_t> Count(const std::string& text) const;
    CompareUnit UnitOfK() const;
    void SetK();

    CsvReader reader_;
    mutable PathResolver paths_;
    Grouping grouping_;
    std::optional<CompareUnit> unit_;
    std::vector<CompareRow> rows_;
    std::vector<std::string> kTexts_; ///< of k_common, one for each row
};

void ShardReader::ReadHeader() {
    Columns names;
    if (reader_.AtEnd())
        throw Fault{std::string(ShardCutFault)};
    const bool isWhole = reader_.NextLine(names);
    std::string line;
    for (const std::string& name : names)
        line += (line.empty() ? "" : ",") + name;
    if (isWhole && line + "\n" == CompareCsvHeader)
        return;
    const bool isCut = !isWhole && CompareCsvHeader.starts_with(line);
    throw Fault{std::string(isCut ? ShardCutFault : ShardNotOursFault)};
}

std::optional<double> ShardReader::Number(const std::string& text) const {
    if (text.empty())
        return std::nullopt;
    const std::optional<double> number = NumberOf<double>(text);
    if (!number || !std::isfinite(*number))
        Refuse();
    return number;
}

std::optional<std::size_t> ShardReader::Count(const std::string& text) const {
    const std::optional<std::size_t> count = NumberOf<std::size_t>(text);
    if (!count && !text.empty())
        Refuse();
    return count;
}

void ShardReader::TakeChecks(const std::string& names, std::vector<CheckId>& checks) const {
    std::string_view rest = names;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(CheckNameGap), rest.size());
        const std::string_view name = rest.substr(0, end);
        rest.remove_prefix(std::min(end + CheckNameGap.size(), rest.size()));
        auto id = CheckId::LeRwEnd;
        while (CheckName(id) != name) {
            if (id == CheckId::FewPoints)
                Refuse();
            id = static_cast<CheckId>(static_cast<int>(id) + 1);
        }
        checks.push_back(id);
    }
}

void ShardReader::TakeTexts(const Columns& columns, CompareRow& row) const {
    row.file = ForeignText(columns[CsvFile]);
    // A name that lost bytes on its way is no name to know a file by.
    if (row.file.find(Replacement) == std::string::npos)
        row.resolvedFile = paths_.Resolve(row.file);
    row.wellLabel = ForeignText(columns[CsvWellLabel]);
    row.testDate = ForeignText(columns[CsvTestDate]);
    row.slugTestType = columns[CsvSlugTestType];
    row.isRead = !columns[CsvGroup].empty();
    std::string_view reason = ForeignText(columns[CsvReason]);
    row.isRepeated = reason == StandsAboveReason;
    if (!row.isRead && reason.starts_with(NotReadReason))
        reason.remove_prefix(NotReadReason.size());
    if (!row.isRepeated)
        row.failure = reason;
}

void ShardReader::TakeSite(const Columns& columns, CompareRow& row) const {
    if (grouping_ != Grouping::Site || !row.isRead)
        return;
    std::string_view site = ForeignText(columns[CsvGroup]);
    const std::string well =
        std::string(SiteGap) + (row.wellLabel.empty() ? std::string(NoWellLabel) : row.wellLabel);
    // The group has the spelling of its first row.
    if (site.size() < well.size() ||
        FoldedCase(site.substr(site.size() - well.size())) != FoldedCase(well))
        throw Fault{std::string(NotBySiteFault)};
    site.remove_suffix(well.size());
    row.siteName = site == NoSiteName ? std::string_view() : site;
}

void ShardReader::TakeK(const Columns& columns, CompareRow& row) const {
    row.firstYCm = Number(columns[CsvFirstYCm]);
    row.kText = columns[CsvKText];
    row.kLengthUnit = LengthUnitNamed(columns[CsvKLengthUnit]).value_or(-1);
    row.kTimeUnit = TimeUnitNamed(columns[CsvKTimeUnit]).value_or(-1);
    row.halfWidthPercent = Number(columns[CsvHalfWidthPercent]);
    row.halfWidthKind = columns[CsvHalfWidthKind] == NameOf(HalfWidthKind::Adjusted)
                            ? HalfWidthKind::Adjusted
                            : HalfWidthKind::Plain;
    row.headMax = Number(columns[CsvHeadMax]);
    row.headMin = Number(columns[CsvHeadMin]);
    TakeChecks(columns[CsvCautions], row.cautions);
    TakeChecks(columns[CsvNotes], row.notes);
}

CompareRow ShardReader::RowOf(const Columns& columns) const {
    CompareRow row;
    if (!IsStatus(columns[CsvStatus]))
        Refuse();
    TakeTexts(columns, row);
    TakeSite(columns, row);
    row.pointCount = Count(columns[CsvPointCount]);
    row.usedCount = Count(columns[CsvUsedCount]).value_or(0);
    TakeK(columns, row);
    return row;
}

/// The unit that the K stand in: the one in which they are what the projects show in their own.
CompareUnit ShardReader::UnitOfK() const {
    std::optional<CompareUnit> found;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const double k = Number(kTexts_[i]).value_or(0);
        const double shown = ParseNumber(rows_[i].kText).value_or(0);
        if (k == 0 || shown == 0)
            continue;
        const CompareUnit own{rows_[i].kLengthUnit, rows_[i].kTimeUnit};
        const double ratio = k / shown * KInUnit(1, own);
        const auto isUnit = [ratio](const CompareUnit& unit) {
            return std::fabs(ratio / KInUnit(1, unit) - 1) < ThreeFigureSlack;
        };
        for (int length = Inch; !found && length <= Metre; ++length)
            for (int time = Second; !found && time <= Day; ++time)
                if (isUnit({length, time}))
                    found = {length, time};
        if (!found || !isUnit(*found))
            throw Fault{std::string(MixedUnitsFault)};
    }
    return found.value_or(unit_.value_or(UnitOfNewProject));
}

void ShardReader::SetK() {
    const CompareUnit unit = UnitOfK();
    for (std::size_t i = 0; i < rows_.size(); ++i)
        if (!kTexts_[i].empty())
            rows_[i].kCmPerSec = CarriedK(kTexts_[i], unit);
}

std::vector<CompareRow> ShardReader::Read() {
    ReadHeader();
    Columns columns;
    while (!reader_.AtEnd()) {
        if (!reader_.NextLine(columns))
            throw Fault{std::string(ShardCutFault)};
        if (columns.size() != CompareCsvColumnCount ||
            columns[CsvNumber] != std::to_string(rows_.size() + 1))
            Refuse();
        Number(columns[CsvKCommon]);
        rows_.push_back(RowOf(columns));
        kTexts_.push_back(columns[CsvKCommon]);
    }
    SetK();
    return std::move(rows_);
}

} // namespace

CompareShard ReadCompareCsv(std::string_view text, Grouping grouping,
                            const std::optional<CompareUnit>& unit) {
    try {
        return {{}, ShardReader(text, grouping, unit).Read()};
    } catch (const Fault& fault) {
        return {fault.text, {}};
    }
}

} // namespace quarnel
