#include "diagnostics/StatisticsPageWidget.h"

#include "diagnostics/DiagnosticsGrid.h"

#include <QLabel>
#include <QVBoxLayout>

namespace quarnel {

StatisticsPageWidget::StatisticsPageWidget()
    : DiagnosticsPageWidget(QStringLiteral("DiagnosticsStatistics")) {
    grid_ = new DiagnosticsGrid(QStringLiteral("DiagnosticsStatisticsGrid"),
                                QStringLiteral("Statistics of the fit"), 1);
    Rows()->addWidget(grid_);
    intervalNote_ = AddSentence(QStringLiteral("DiagnosticsIntervalNote"));
    slugVolume_ = AddSentence(QStringLiteral("DiagnosticsSlugVolume"));
    hvorslev_ = AddSentence(QStringLiteral("DiagnosticsHvorslev"));
    Rows()->addStretch(1);
}

void StatisticsPageWidget::Fill(Diagnostics& diagnostics, const DiagnosticsLines& lines,
                                double percent) {
    const StatisticsPage& page = diagnostics.Statistics();
    grid_->ShowTexts(TextsOfPage(DiagnosticsPage::Statistics, diagnostics, lines, percent));
    ShowSentence(intervalNote_, std::string(IntervalNote));
    ShowSentence(slugVolume_, lines.SlugVolume(page));
    ShowSentence(hvorslev_, lines.Hvorslev(page));
}

} // namespace quarnel
