#include "diagnostics/ChecksPageWidget.h"

#include "diagnostics/DiagnosticsGrid.h"

#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>

namespace quarnel {

namespace {
constexpr int TextColumn = 2;
}

ChecksPageWidget::ChecksPageWidget()
    : DiagnosticsPageWidget(QStringLiteral("DiagnosticsChecks")) {
    grid_ = new DiagnosticsGrid(QStringLiteral("DiagnosticsChecksGrid"),
                                QStringLiteral("Cautions and notes"), TextColumn);
    Rows()->addWidget(grid_);
    note_ = AddSentence(QStringLiteral("DiagnosticsChecksNote"));
    Rows()->addStretch(1);
}

void ChecksPageWidget::Fill(Diagnostics& diagnostics, const DiagnosticsLines& lines,
                            double percent) {
    const PageTexts texts = TextsOfPage(DiagnosticsPage::Checks, diagnostics, lines, percent);
    const std::vector<TextRow> rows = texts.rows;
    grid_->ShowTexts(texts);
    const QIcon caution = style()->standardIcon(QStyle::SP_MessageBoxWarning);
    const QIcon note = style()->standardIcon(QStyle::SP_MessageBoxInformation);
    for (std::size_t row = 0; row < rows.size(); ++row)
        grid_->Rows().SetIcon(static_cast<int>(row),
                              rows[row].front() == "Caution" ? caution : note);
    ShowSentence(note_, std::string(ChecksNote));
}

} // namespace quarnel
