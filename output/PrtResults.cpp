#include "output/PrtResults.h"

#include "kcompute/Computation.h"
#include "output/PagePainter.h"
#include "output/PrintDocument.h"
#include "output/ReportPages.h"
#include "output/SummaryReport.h"
#include "project/Files.h"
#include "project/ProjectFileDialogs.h"
#include "system/ReplaceFile.h"
#include "widgets/QtTexts.h"
#include "widgets/StaleLabel.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <cstddef>
#include <string>

namespace quarnel {

namespace {

DocumentNames ReportNames() {
    return {QStringLiteral("Slug test summary"), QStringLiteral("report"),
            QStringLiteral("-report.pdf")};
}

} // namespace

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
    auto* pdf = buttons->addButton(QStringLiteral("Save as P&DF..."), QDialogButtonBox::ActionRole);
    pdf->setObjectName(QStringLiteral("CmdReportPdf"));
    auto* close = buttons->addButton(QStringLiteral("Close"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("CmdClose"));
    connect(CmdPrtResults, &QPushButton::clicked, this, &PrtResults::Carry);
    connect(pdf, &QPushButton::clicked, this, &PrtResults::SaveAsPdf);
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

OutputOwner PrtResults::Owner() {
    return {this, analysis_.file, [this](const QString& said) { Q_EMIT Told(said); }};
}

void PrtResults::SaveToFile() {
    const QString path = ChooseNameToSave(this, QStringLiteral("Save the Results"),
                                          {QStringLiteral("Quarnel 2 (*.res)(*.res)"),
                                           QStringLiteral("out files (*.out)(*.out)"),
                                           QStringLiteral("All Files (*.*)(*)")});
    if (path.isEmpty())
        return;
    SaveOutput(Owner(), QStringLiteral("report"), path, [this](const std::string& name) {
        return SaveFileBytes(name, ReportBytes(analysis_.state, analysis_.computation.get()));
    });
}

void PrtResults::SendToPrinter() {
    PrintDocument(Owner(), ReportNames(),
                  [this](const Paper& paper) { return SummaryReportPages(analysis_, paper); });
}

void PrtResults::SaveAsPdf() {
    SaveDocumentAsPdf(Owner(), ReportNames(),
                      [this](const Paper& paper) { return SummaryReportPages(analysis_, paper); });
}

} // namespace quarnel
