#include "compare/CompareCsv.h"

#include "compare/CarriedK.h"
#include "compare/CompareCsvColumns.h"
#include "compare/CompareLines.h"
#include "project/CsvLine.h"
#include "project/FixedLists.h"

namespace quarnel {

namespace {

std::string JoinedNames(const std::vector<CheckId>& checks) {
    std::string names;
    for (const CheckId check : checks) {
        names += names.empty() ? "" : CheckNameGap;
        names += CheckName(check);
    }
    return names;
}

void AddK(const CompareRow& row, const CompareUnit& unit, CsvLine& line) {
    line.Add(row.kCmPerSec ? CarriedKText(*row.kCmPerSec, unit) : "");
    line.Add(row.kText);
    line.Add(NameAt(LengthUnitNames, row.kLengthUnit));
    line.Add(NameAt(TimeUnitNames, row.kTimeUnit));
    line.Add(row.halfWidthPercent);
    line.Add(row.halfWidthPercent ? NameOf(row.halfWidthKind) : "");
    line.Add(row.headMax);
    line.Add(row.headMin);
}

std::string LineOf(const CompareRow& row, const Comparison& comparison, std::size_t index) {
    const ComparedRow& compared = comparison.rows[index];
    CsvLine line;
    line.Add(std::to_string(index + 1));
    line.AddForeign(row.wellLabel);
    line.AddForeign(row.testDate);
    line.Add(row.slugTestType);
    line.Add(row.kCmPerSec ? std::to_string(row.usedCount) : "");
    line.Add(row.pointCount ? std::to_string(*row.pointCount) : "");
    line.Add(row.firstYCm);
    AddK(row, comparison.unit, line);
    line.Add(JoinedNames(row.cautions));
    line.Add(JoinedNames(row.notes));
    line.AddForeign(row.file);
    line.Add(NameOf(compared.status));
    line.AddForeign(compared.reason);
    compared.group ? line.AddForeign(comparison.groups[*compared.group].name) : line.Add("");
    return std::move(line).Text();
}

} // namespace

std::string CompareCsv(std::span<const CompareRow> rows, const Comparison& comparison) {
    std::string text(CompareCsvHeader);
    for (std::size_t index = 0; index < rows.size(); ++index)
        text += LineOf(rows[index], comparison, index);
    return text;
}

} // namespace quarnel
