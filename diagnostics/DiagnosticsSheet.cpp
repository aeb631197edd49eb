#include "diagnostics/DiagnosticsSheet.h"

#include "diagnostics/ResidualDrawing.h"
#include "project/Texts.h"

#include <string>

namespace quarnel {

namespace {

constexpr double PictureHeight = 3300;

/// What stands for the well at the head and the foot; empty without a label.
std::string WellLine(const ProjectState& state) {
    const std::string_view label = TrimBlanks(state.WellTestIDTxt[WellLabel]);
    return label.empty() ? std::string() : "Monitoring Well: " + std::string(label);
}

} // namespace

DiagnosticsSheet::DiagnosticsSheet(Diagnostics& diagnostics, const ProjectState& state,
                                   double percent, const Paper& paper, const TextMeasure& measure)
    : sheet_(paper, measure, WellLine(state)) {
    const DiagnosticsLines lines(diagnostics.Source(), state);
    sheet_.AddTitle("Diagnostics");
    if (const std::string well = WellLine(state); !well.empty())
        sheet_.AddSentence(well);
    sheet_.AddKeySentence(
        lines.Summary(diagnostics.Statistics(), diagnostics.SensitivityTo(percent)));
    sheet_.AddSentence(lines.StateLine());
    sheet_.AddGap();
    for (const DiagnosticsPage page : {DiagnosticsPage::Statistics, DiagnosticsPage::Windows,
                                       DiagnosticsPage::Checks, DiagnosticsPage::Sensitivity})
        AddPage(page, TextsOfPage(page, diagnostics, lines, percent));
    AddPage(DiagnosticsPage::Residuals, {});
    sheet_.AddPicture(DrawSegments(diagnostics, sheet_.TextWidth(), PictureHeight));
    sheet_.AddPicture(DrawResiduals(diagnostics, sheet_.TextWidth(), PictureHeight));
    sheet_.Finish();
}

void DiagnosticsSheet::AddPage(DiagnosticsPage page, const PageTexts& texts) {
    sheet_.AddHeading(std::string(DiagnosticsPageTitles[static_cast<std::size_t>(page)]));
    for (const std::string& sentence : texts.above)
        sheet_.AddSentence(sentence, Sheet::Keep::WithNext);
    if (!texts.rows.empty())
        sheet_.AddTable(texts.headings, texts.rows, texts.hasNumbers);
    for (const std::string& sentence : texts.below)
        sheet_.AddSentence(sentence);
    if (!texts.below.empty())
        sheet_.AddGap();
}

} // namespace quarnel
