#include "output/PrtPlotFrm.h"

#include "kcompute/Computation.h"
#include "output/PagePainter.h"
#include "output/PrintDocument.h"
#include "output/ReportPages.h"
#include "widgets/QtTexts.h"
#include "widgets/StaleLabel.h"
#include "widgets/TextBox.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <cstddef>

namespace quarnel {

namespace {

constexpr int TitleCharacters = 60;

DocumentNames PlotNames() {
    return {QStringLiteral("Slug test plot"), QStringLiteral("plot"), QStringLiteral(".pdf")};
}

} // namespace

PrtPlotFrm::PrtPlotFrm(Analysis& analysis, QWidget* parent)
    : QDialog(parent)
    , analysis_(analysis) {
    setObjectName(QStringLiteral("PrtPlotFrm"));
    setWindowTitle(QStringLiteral("Print The Plot"));
    auto* rows = new QVBoxLayout(this);
    auto* label = new QLabel(QStringLiteral("Graph &Title:"));
    rows->addWidget(label);
    for (std::size_t i = 0; i < PlotText.size(); ++i) {
        auto* box = new TextBox(analysis_.state.PlotText[i],
                                QStringLiteral("PlotText_") + QString::number(i));
        PlotText[i] = box;
        box->setAccessibleName(QStringLiteral("Graph title, line %1").arg(i + 1));
        box->setToolTip(QStringLiteral("Line %1 of the title above the printed plot").arg(i + 1));
        box->setMinimumWidth(fontMetrics().averageCharWidth() * TitleCharacters);
        rows->addWidget(box);
    }
    label->setBuddy(PlotText[0]);
    legendOnPage_ = new QCheckBox(QStringLiteral("&Legend on the Page"));
    legendOnPage_->setObjectName(QStringLiteral("LegendOnPage"));
    legendOnPage_->setToolTip(
        QStringLiteral("Print below K which circles stand for the points used in the fit"));
    rows->addWidget(legendOnPage_);
    auto* buttons = new QDialogButtonBox;
    auto* print = buttons->addButton(QStringLiteral("&Print"), QDialogButtonBox::ActionRole);
    print->setObjectName(QStringLiteral("CmdPrtPlot"));
    print->setDefault(true);
    auto* pdf = buttons->addButton(QStringLiteral("Save as P&DF..."), QDialogButtonBox::ActionRole);
    pdf->setObjectName(QStringLiteral("CmdPlotPdf"));
    auto* cancel = buttons->addButton(QStringLiteral("Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("CmdCancel"));
    connect(print, &QPushButton::clicked, this, &PrtPlotFrm::Print);
    connect(pdf, &QPushButton::clicked, this, &PrtPlotFrm::SaveAsPdf);
    connect(cancel, &QPushButton::clicked, this, &QDialog::hide);
    rows->addSpacing(fontMetrics().height() / 2);
    stale_ = new StaleLabel(QStringLiteral("PrtPlotStaleText"), ToQString(NotCurrentMessage), this);
    rows->addWidget(stale_);
    rows->addWidget(buttons);
    ShowState();
}

void PrtPlotFrm::ShowStale(bool stale) {
    stale_->ShowStale(stale);
}

void PrtPlotFrm::ShowState() {
    for (TextBox* box : PlotText)
        box->ShowNewText();
}

OutputOwner PrtPlotFrm::Owner() {
    return {this, analysis_.file, [this](const QString& said) { Q_EMIT Told(said); }};
}

void PrtPlotFrm::Print() {
    HideAfter(PrintDocument(Owner(), PlotNames(), [this](const Paper& paper) {
        return PlotPages(analysis_, paper, legendOnPage_->isChecked());
    }));
}

void PrtPlotFrm::SaveAsPdf() {
    HideAfter(SaveDocumentAsPdf(Owner(), PlotNames(), [this](const Paper& paper) {
        return PlotPages(analysis_, paper, legendOnPage_->isChecked());
    }));
}

void PrtPlotFrm::HideAfter(bool done) {
    if (done)
        hide();
}

} // namespace quarnel
