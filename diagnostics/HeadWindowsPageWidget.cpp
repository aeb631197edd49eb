#include "diagnostics/HeadWindowsPageWidget.h"

#include "diagnostics/DiagnosticsGrid.h"
#include "widgets/QtTexts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace quarnel {

HeadWindowsPageWidget::HeadWindowsPageWidget()
    : DiagnosticsPageWidget(QStringLiteral("DiagnosticsWindows")) {
    grid_ = new DiagnosticsGrid(QStringLiteral("DiagnosticsWindowsGrid"),
                                QStringLiteral("K from other ranges of the normalized head"), -1);
    Rows()->addWidget(grid_, 0, Qt::AlignLeft);
    auto* range = new QHBoxLayout;
    markHeadRange_ = AddButton(
        range, QStringLiteral("MarkHeadRange"), QStringLiteral("&Mark 0.20-0.30 as Use"),
        QStringLiteral("Use the readings between 0.20 and 0.30 of the first change in head, and "
                       "ignore all others. K is computed by \"Compute K/ Plot\" as always."),
        &HeadWindowsPageWidget::MarkHeadRange);
    range->addStretch(1);
    Rows()->addLayout(range);
    segments_ = AddSentence(QStringLiteral("DiagnosticsSegments"));
    auto* segments = new QHBoxLayout;
    markFirst_ = AddButton(segments, QStringLiteral("MarkFirstSegment"),
                           QStringLiteral("Mark &First Segment"),
                           QStringLiteral("Use the readings of the first straight segment only"),
                           &HeadWindowsPageWidget::MarkFirstSegment);
    markSecond_ = AddButton(segments, QStringLiteral("MarkSecondSegment"),
                            QStringLiteral("Mark &Second Segment"),
                            QStringLiteral("Use the readings of the second straight segment only"),
                            &HeadWindowsPageWidget::MarkSecondSegment);
    segments->addStretch(1);
    Rows()->addLayout(segments);
    Rows()->addStretch(1);
}

QPushButton* HeadWindowsPageWidget::AddButton(QLayout* row, const QString& name,
                                              const QString& text, const QString& toolTip,
                                              void (HeadWindowsPageWidget::*command)()) {
    auto* button = new QPushButton(text);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, command);
    row->addWidget(button);
    return button;
}

void HeadWindowsPageWidget::AllowMarks(bool allowed) {
    allowed_ = allowed;
    EnableButtons();
}

void HeadWindowsPageWidget::EnableButtons() {
    markHeadRange_->setEnabled(allowed_);
    markFirst_->setEnabled(allowed_ && hasSegments_);
    markSecond_->setEnabled(allowed_ && hasSegments_);
}

void HeadWindowsPageWidget::Fill(Diagnostics& diagnostics, const DiagnosticsLines& lines,
                                 double percent) {
    const HeadWindowsPage& page = diagnostics.Windows();
    grid_->ShowTexts(TextsOfPage(DiagnosticsPage::Windows, diagnostics, lines, percent));
    grid_->Rows().SetBold(Row030To020);
    grid_->Rows().SetToolTip(Row030To020, ToQString(HeadRangeTooltip));
    grid_->Rows().SetToolTip(Row025To015, ToQString(HvorslevRangeTooltip));
    ShowSentence(segments_, lines.Segments(page));
    hasSegments_ = page.segments && page.segments->suggested;
    EnableButtons();
}

} // namespace quarnel
