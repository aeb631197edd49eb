#include "recovery/InsertRowsPanel.h"

#include "project/Texts.h"
#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"
#include "widgets/TextBox.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>

namespace quarnel {

namespace {
constexpr int RowCharacters = 8;
}

InsertRowsPanel::InsertRowsPanel(const ProjectState& state, QWidget* parent)
    : QGroupBox(QStringLiteral(" Insert Rows"), parent)
    , state_(state) {
    setObjectName(QStringLiteral("InsertRowsPanel"));
    setAutoFillBackground(true);
    afterCurrentRow_ = new QRadioButton(QStringLiteral("&After Current Row"));
    afterCurrentRow_->setObjectName(QStringLiteral("InsertRowsOption_0"));
    beforeCurrentRow_ = new QRadioButton(QStringLiteral("Before Cu&rrent Row"));
    beforeCurrentRow_->setObjectName(QStringLiteral("InsertRowsOption_1"));
    RecDatInsertRowsText = new TextBox(rowsText_, QStringLiteral("RecDatInsertRowsText"));
    RecDatInsertRowsText->HoldCharacters(RowCharacters, RowCharacters);
    auto* label = new QLabel(QStringLiteral("&Number of Rows"));
    label->setBuddy(RecDatInsertRowsText);
    CmdInsertRowsOK = new QPushButton(QStringLiteral("O&K"));
    CmdInsertRowsOK->setObjectName(QStringLiteral("CmdInsertRowsOK"));
    CmdInsertRowsCancel = new QPushButton(QStringLiteral("Canc&el"));
    CmdInsertRowsCancel->setObjectName(QStringLiteral("CmdInsertRowsCancel"));
    connect(CmdInsertRowsOK, &QPushButton::clicked, this, &InsertRowsPanel::Accept);
    connect(CmdInsertRowsCancel, &QPushButton::clicked, this, &InsertRowsPanel::Close);

    auto* rows = new QGridLayout(this);
    rows->addWidget(afterCurrentRow_, 0, 0, 1, 2);
    rows->addWidget(beforeCurrentRow_, 1, 0, 1, 2);
    rows->addWidget(label, 2, 0);
    rows->addWidget(RecDatInsertRowsText, 2, 1);
    rows->addWidget(CmdInsertRowsOK, 3, 0);
    rows->addWidget(CmdInsertRowsCancel, 3, 1);
    hide();
}

void InsertRowsPanel::Open() {
    rowsText_.clear();
    RecDatInsertRowsText->ShowNewText();
    beforeCurrentRow_->setChecked(true);
    show();
    RecDatInsertRowsText->setFocus();
}

void InsertRowsPanel::Accept() {
    rowsText_ = std::string(TrimBlanks(rowsText_));
    RecDatInsertRowsText->ShowText();
    const RowsToInsert rows = ReadRowsToInsert(rowsText_, state_.DecimalSeparator);
    if (rows.result.IsError()) {
        ShowMessage(this, ToQString(rows.result.message));
        RecDatInsertRowsText->setFocus();
        RecDatInsertRowsText->selectAll();
        return;
    }
    Q_EMIT InsertRequested(rows.count, afterCurrentRow_->isChecked()
                                           ? InsertPlace::AfterCurrentRow
                                           : InsertPlace::BeforeCurrentRow);
    Close();
}

void InsertRowsPanel::Close() {
    hide();
    Q_EMIT Closed();
}

void InsertRowsPanel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Accept();
    else if (event->key() == Qt::Key_Escape)
        Close();
    else
        QGroupBox::keyPressEvent(event);
}

} // namespace quarnel
