#include "diagnostics/DiagnosticsPages.h"

#include "kcompute/NumberToText.h"
#include "project/FixedLists.h"

#include <utility>

namespace quarnel {

namespace {

void Add(std::vector<std::string>& sentences, std::string sentence) {
    if (!sentence.empty())
        sentences.push_back(std::move(sentence));
}

PageTexts StatisticsTexts(Diagnostics& diagnostics, const DiagnosticsLines& lines) {
    const StatisticsPage& page = diagnostics.Statistics();
    PageTexts texts;
    texts.rows = lines.Statistics(page);
    Add(texts.below, std::string(IntervalNote));
    Add(texts.below, lines.SlugVolume(page));
    Add(texts.below, lines.Hvorslev(page));
    return texts;
}

PageTexts HeadWindowsTexts(Diagnostics& diagnostics, const DiagnosticsLines& lines) {
    const HeadWindowsPage& page = diagnostics.Windows();
    PageTexts texts;
    texts.headings = lines.WindowHeadings();
    texts.rows = lines.Windows(page);
    texts.hasNumbers = true;
    Add(texts.below, lines.Segments(page));
    return texts;
}

PageTexts ChecksTexts(Diagnostics& diagnostics, const DiagnosticsLines& lines) {
    PageTexts texts;
    texts.headings = DiagnosticsLines::CheckHeadings();
    texts.rows = lines.Checks(diagnostics.Checks());
    Add(texts.below, std::string(ChecksNote));
    return texts;
}

PageTexts SensitivityTexts(Diagnostics& diagnostics, const DiagnosticsLines& lines,
                           double percent) {
    const SensitivityPage& page = diagnostics.SensitivityTo(percent);
    PageTexts texts;
    Add(texts.above, lines.LargestLine(page));
    texts.headings = lines.SensitivityHeadings();
    texts.rows = lines.Sensitivity(page);
    texts.hasNumbers = true;
    for (const SensitivityRow& row : page.rows)
        if (const std::string details = lines.SensitivityDetails(row); !details.empty())
            Add(texts.below, lines.SensitivityName(row, page.percent) + ": " + details + ".");
    Add(texts.below, std::string(CurvesNote));
    return texts;
}

std::string Number(double value) {
    const std::string text = ThreeFigureText(value);
    return text.empty() ? std::string(Dash) : text;
}

PageTexts ResidualTexts(Diagnostics& diagnostics) {
    const FitStatistics& fit = diagnostics.Statistics().fit;
    PageTexts texts;
    Add(texts.above, DiagnosticsLines::ResidualTitle(fit));
    if (!fit.scatter)
        return texts;
    const RecoveryData& recovery = diagnostics.Source().recovery;
    const TestSeries& points = diagnostics.Points();
    const Series used = points.Used();
    texts.headings = {"Point",
                      "Time (" + std::string(NameAt(TimeUnitNames, recovery.timeUnit)) + ")",
                      "ln Y (cm)", "Residual"};
    texts.hasNumbers = true;
    for (std::size_t i = 0; i < used.Size(); ++i) {
        const std::size_t point = points.UsedPoints()[i];
        texts.rows.push_back({std::to_string(point + 1),
                              (*recovery.RecoveryPoints)[point].timeText.ToString(),
                              Number(used.lnYCm[i]), Number(fit.residuals[i])});
    }
    return texts;
}

void AddLine(std::string& text, const TextRow& cells) {
    for (std::size_t i = 0; i < cells.size(); ++i)
        text += (i == 0 ? "" : "\t") + cells[i];
    text += "\n";
}

} // namespace

PageTexts TextsOfPage(DiagnosticsPage page, Diagnostics& diagnostics, const DiagnosticsLines& lines,
                      double percent) {
    switch (page) {
    case DiagnosticsPage::Statistics:
        return StatisticsTexts(diagnostics, lines);
    case DiagnosticsPage::Windows:
        return HeadWindowsTexts(diagnostics, lines);
    case DiagnosticsPage::Checks:
        return ChecksTexts(diagnostics, lines);
    case DiagnosticsPage::Sensitivity:
        return SensitivityTexts(diagnostics, lines, percent);
    case DiagnosticsPage::Residuals:
        break;
    }
    return ResidualTexts(diagnostics);
}

std::string TabText(const PageTexts& texts) {
    std::string text;
    for (const std::string& sentence : texts.above)
        AddLine(text, {sentence});
    if (!texts.headings.empty())
        AddLine(text, texts.headings);
    for (const TextRow& row : texts.rows)
        AddLine(text, row);
    for (const std::string& sentence : texts.below)
        AddLine(text, {sentence});
    return text;
}

} // namespace quarnel
