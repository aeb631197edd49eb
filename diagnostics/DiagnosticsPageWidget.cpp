#include "diagnostics/DiagnosticsPageWidget.h"

#include "widgets/QtTexts.h"

#include <QLabel>
#include <QVBoxLayout>

namespace quarnel {

DiagnosticsPageWidget::DiagnosticsPageWidget(const QString& name) {
    setObjectName(name);
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    nothing_ = new QLabel(ToQString(NoComputationText));
    nothing_->setAlignment(Qt::AlignCenter);
    nothing_->setWordWrap(true);
    layout->addWidget(nothing_, 1);
    content_ = new QWidget;
    rows_ = new QVBoxLayout(content_);
    layout->addWidget(content_, 1);
    setWidget(page);
    ShowNothing();
}

QLabel* DiagnosticsPageWidget::AddSentence(const QString& name) {
    QLabel* label = MakeSentence(name);
    rows_->addWidget(label);
    return label;
}

void DiagnosticsPageWidget::ShowPage(Diagnostics& diagnostics, const DiagnosticsLines& lines,
                                     double percent) {
    nothing_->hide();
    content_->show();
    Fill(diagnostics, lines, percent);
}

void DiagnosticsPageWidget::ShowNothing() {
    content_->hide();
    nothing_->show();
}

QLabel* MakeSentence(const QString& name) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

void ShowSentence(QLabel* label, const std::string& sentence) {
    label->setText(ToQString(sentence));
    label->setVisible(!sentence.empty());
}

} // namespace quarnel
