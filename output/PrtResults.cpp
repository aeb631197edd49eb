#include "output/PrtResults.h"

#include "kcompute/Computation.h"
#include "output/PagePainter.h"
#include "output/PrintDocument.h"
#include "output/ReportPages.h"
#include "output/SummaryReport.h"
#include "project/Files.h"
#include "project/ProjectFileDialogs.h"
#include "system/OpenFile.h"
#include "system/ReplaceFile.h"
#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"
#include "widgets/StaleLabel.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <cstddef>

namespace quarnel {

PrtResults::PrtResults(Analysis& analysis, QWidget* parent)
    : QDialog(parent)
    , analysis_(analysis) {
    setObjectName(QStringLiteral("PrtResults"));
    setWindowTitle(QStringLiteral("Print/Save the Results"));
    auto* group = new QGroupBox(QStringLiteral("Summary Report"));
    auto* choices = new QVBoxLayout(group);
    const std::array<QString, 2> captions = {QStringLiteral("Save to &File"),
                                             QStringLiteral("Send to &Printer")};
    for (std::size_t i = 0; i < Option1.size(); ++i) {
        Option1[i] = new QRadioButton(captions[i]);
        Option1[i]->setObjectName(QStringLiteral("Option1_") + QString::number(i));
        connect(Option1[i], &QRadioButton::toggled, this, &PrtResults::ShowChoice);
        choices->addWidget(Option1[i]);
    }
    auto* buttons = new QDialogButtonBox;
    CmdPrtResults = buttons->addButton(QString(), QDialogButtonBox::ActionRole);
    CmdPrtResults->setObjectName(QStringLiteral("CmdPrtResults"));
    CmdPrtResults->setDefault(true);
    auto* close = buttons->addButton(QStringLiteral("Close"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("CmdClose"));
    connect(CmdPrtResults, &QPushButton::clicked, this, &PrtResults::Carry);
    connect(close, &QPushButton::clicked, this, &QDialog::hide);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(group);
    stale_ =
        new StaleLabel(QStringLiteral("PrtResultsStaleText"), ToQString(NotCurrentMessage), this);
    rows->addWidget(stale_);
    rows->addWidget(buttons);
    setMinimumWidth(fontMetrics().averageCharWidth() * 44);
    ShowState();
}

void PrtResults::ShowStale(bool stale) {
    stale_->ShowStale(stale);
}

void PrtResults::ShowState() {
    Option1[0]->setChecked(true);
    ShowChoice();
}

void PrtResults::ShowChoice() {
    CmdPrtResults->setText(Option1[0]->isChecked() ? QStringLiteral("&Save...")
                                                   : QStringLiteral("P&rint"));
}

void PrtResults::Carry() {
    if (Option1[0]->isChecked())
        SaveToFile();
    else
        SendToPrinter();
}

void PrtResults::SaveToFile() {
    const QString path = ChooseNameToSave(this, QStringLiteral("Save the Results"),
                                          {QStringLiteral("Quarnel 2 (*.res)(*.res)"),
                                           QStringLiteral("out files (*.out)(*.out)"),
                                           QStringLiteral("All Files (*.*)(*)")});
    if (path.isEmpty())
        return;
    // A slip of the fingers must not put a report in the place of the project.
    if (IsSameFile(ToUtf8(path), analysis_.file.CurrentProjectFile)) {
        ShowMessage(this, QStringLiteral("The report needs a file of its own."));
        return;
    }
    FileFailure failure = FileFailure::None;
    {
        const BusyPointer busy;
        failure =
            SaveFileBytes(ToUtf8(path), ReportBytes(analysis_.state, analysis_.computation.get()));
    }
    if (failure == FileFailure::None)
        return;
    Q_EMIT FileFailed(QStringLiteral("Not saved: ") + path);
    ShowMessage(this, ToQString(FileErrorMessage(failure)));
}

void PrtResults::SendToPrinter() {
    PrintDocument(this, QStringLiteral("Slug test summary"),
                  [this](const Paper& paper) { return SummaryReportPages(analysis_, paper); });
}

} // namespace quarnel
