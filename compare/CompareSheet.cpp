#include "compare/CompareSheet.h"

#include "compare/CompareLines.h"
#include "compare/NormalizedDrawing.h"
#include "project/PlainText.h"

#include <string>
#include <vector>

namespace quarnel {

namespace {

constexpr double PictureHeight = 6000;

SheetRow PlainRow(const std::array<std::string, CompareColumnCount>& texts) {
    SheetRow row;
    for (const std::string& text : texts)
        row.push_back(PlainText(text));
    return row;
}

void AddTable(Sheet& sheet, std::span<const CompareRow> rows, const Comparison& comparison) {
    std::vector<SheetRow> texts;
    for (std::size_t i = 0; i < rows.size(); ++i)
        texts.push_back(PlainRow(CompareTexts(rows[i], comparison, i)));
    sheet.AddTable(PlainRow(CompareHeadings(comparison)), texts, false);
    sheet.AddGap();
}

} // namespace

Sheet CompareSheet(std::span<const CompareRow> rows, const Comparison& comparison,
                   bool divideByTimeLag, const Paper& paper, const TextMeasure& measure) {
    Sheet sheet(paper, measure, "Compare Projects");
    sheet.AddTitle("Compare Projects");
    AddTable(sheet, rows, comparison);
    sheet.AddHeading("Statistics and repeated tests");
    for (const CompareLine& line : CompareLines(comparison))
        sheet.AddSentence(PlainText(line.text));
    for (const CompareGroup& group : comparison.groups) {
        const Drawing drawing = DrawNormalized(NormalizedCurves(rows, group.counted),
                                               divideByTimeLag, sheet.TextWidth(), PictureHeight);
        if (drawing.IsEmpty())
            continue;
        sheet.AddGap();
        sheet.AddHeading("Normalized plot: " + PlainText(group.name));
        sheet.AddPicture(drawing);
    }
    sheet.Finish();
    return sheet;
}

} // namespace quarnel
