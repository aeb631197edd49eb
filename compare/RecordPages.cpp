#include "compare/RecordPages.h"

#include "compare/TestRecord.h"
#include "output/PrintedPlot.h"
#include "project/PlainText.h"
#include "project/Texts.h"

#include <string>
#include <utility>
#include <vector>

namespace quarnel {

namespace {

/// What stands at the foot of every page.
std::string FootOf(const ProjectState& state) {
    std::string foot(RecordTitle);
    for (const std::string& text : {state.WellTestIDTxt[WellLabel], state.WellTestIDTxt[TestDate]})
        if (const std::string_view trimmed = TrimBlanks(text); !trimmed.empty())
            foot += ", " + PlainText(trimmed);
    return foot;
}

void Add(Sheet& sheet, const RecordLine& line) {
    if (line.isToFillIn)
        sheet.AddLineToFillIn(line.text, std::string(TrimBlanks(line.secondLabel)) +
                                             (line.secondLabel.empty() ? "" : " "));
    else
        sheet.AddSentence(line.text);
}

void Add(Sheet& sheet, RecordTable table) {
    if (table.headings.empty())
        return;
    if (!table.hasNumbers)
        return sheet.AddLongTable(table.headings, table.rowCount, std::move(table.row));
    std::vector<SheetRow> rows;
    for (std::size_t row = 0; row < table.rowCount; ++row)
        rows.push_back(table.row(row));
    sheet.AddTable(table.headings, rows, true);
}

} // namespace

RecordPages::RecordPages(const AnalysisRun& run, const Paper& paper, const TextMeasure& measure)
    : run_(run)
    , paper_(paper)
    , measure_(measure)
    , sheet_(paper, measure, FootOf(run.analysis.state)) {
    for (RecordSection& section : TestRecordSections(run.analysis, run.messages)) {
        if (section.heading == RecordTitle)
            sheet_.AddTitle(section.heading);
        else if (!section.heading.empty())
            sheet_.AddHeading(section.heading);
        for (const RecordLine& line : section.lines)
            Add(sheet_, line);
        Add(sheet_, std::move(section.table));
        sheet_.AddGap();
    }
    sheet_.Finish();
}

Drawing RecordPages::Page(std::size_t page) const {
    return page < sheet_.Count() ? sheet_.Page(page)
                                 : DrawPlotPage(run_.analysis, paper_, measure_);
}

} // namespace quarnel
