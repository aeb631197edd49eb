#include "diagnostics/SensitivityPageWidget.h"

#include "diagnostics/DiagnosticsGrid.h"
#include "widgets/QtTexts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>
#include <algorithm>
#include <cmath>

namespace quarnel {

SensitivityPageWidget::SensitivityPageWidget()
    : DiagnosticsPageWidget(QStringLiteral("DiagnosticsSensitivity")) {
    auto* row = new QHBoxLayout;
    auto* label = new QLabel(QStringLiteral("C&hange of each entry (%)"));
    percent_ = new QSpinBox;
    percent_->setObjectName(QStringLiteral("SensitivityPercent"));
    percent_->setAccessibleName(QStringLiteral("Change of each entry (%)"));
    percent_->setRange(static_cast<int>(LeastSensitivityPercent),
                       static_cast<int>(GreatestSensitivityPercent));
    percent_->setValue(static_cast<int>(DefaultSensitivityPercent));
    label->setBuddy(percent_);
    connect(percent_, &QSpinBox::valueChanged, this, &SensitivityPageWidget::PercentChanged);
    row->addWidget(label);
    row->addWidget(percent_);
    row->addStretch(1);
    Rows()->addLayout(row);
    largest_ = AddSentence(QStringLiteral("DiagnosticsLargest"));
    grid_ = new DiagnosticsGrid(QStringLiteral("DiagnosticsSensitivityGrid"),
                                QStringLiteral("K with one thing changed at a time"), 0);
    grid_->Rows().SetBarHeading(QStringLiteral("K less | more"));
    Rows()->addWidget(grid_);
    details_ = AddSentence(QStringLiteral("DiagnosticsPorosities"));
    note_ = AddSentence(QStringLiteral("DiagnosticsCurvesNote"));
    Rows()->addStretch(1);
}

double SensitivityPageWidget::Percent() const {
    return percent_->value();
}

void SensitivityPageWidget::Fill(Diagnostics& diagnostics, const DiagnosticsLines& lines,
                                 double percent) {
    const SensitivityPage& page = diagnostics.SensitivityTo(percent);
    PageTexts texts = TextsOfPage(DiagnosticsPage::Sensitivity, diagnostics, lines, percent);
    ShowSentence(largest_, texts.above.empty() ? std::string() : texts.above.front());
    ShowSentence(note_, texts.below.back());
    texts.below.pop_back();
    ShowSentence(details_, texts.below.empty() ? std::string() : texts.below.front());
    grid_->ShowTexts(std::move(texts));
    ShowBars(page);
}

void SensitivityPageWidget::ShowBars(const SensitivityPage& page) {
    double longest = 0;
    for (const SensitivityRow& row : page.rows)
        if (row.leastPercent)
            longest =
                std::max({longest, std::fabs(*row.leastPercent), std::fabs(*row.greatestPercent)});
    for (std::size_t i = 0; i < page.rows.size(); ++i) {
        const SensitivityRow& row = page.rows[i];
        if (row.leastPercent && longest > 0)
            grid_->Rows().SetBar(static_cast<int>(i),
                                 {std::min(0.0, *row.leastPercent) / longest,
                                  std::max(0.0, *row.greatestPercent) / longest});
    }
}

} // namespace quarnel
