#include "app/RecoveryOffer.h"

#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"

#include <QLocale>
#include <QMessageBox>
#include <QPushButton>

namespace quarnel {

QString ProjectName(const std::string& projectFile) {
    return projectFile.empty() ? QStringLiteral("a project that was not saved yet")
                               : ToQString(projectFile);
}

RecoveryAnswer AskForLeftCopy(QWidget* parent, const LeftCopy& copy) {
    QMessageBox box(QMessageBox::Question, ApplicationTitle(),
                    QStringLiteral("Quarnel ended before it could be closed. There is a copy of "
                                   "%1, written %2.")
                        .arg(ProjectName(copy.projectFile),
                             QLocale().toString(copy.written, QLocale::ShortFormat)),
                    QMessageBox::NoButton, parent);
    box.setObjectName(QStringLiteral("RecoveryOffer"));
    box.setTextFormat(Qt::PlainText);
    QPushButton* restore = box.addButton(QStringLiteral("&Restore"), QMessageBox::AcceptRole);
    restore->setObjectName(QStringLiteral("CmdRestore"));
    QPushButton* discard = box.addButton(QStringLiteral("&Discard"), QMessageBox::DestructiveRole);
    discard->setObjectName(QStringLiteral("CmdDiscard"));
    box.setDefaultButton(restore);
    // Who leaves the box keeps the data.
    box.setEscapeButton(restore);
    box.exec();
    if (box.clickedButton() == nullptr)
        return RecoveryAnswer::None;
    return box.clickedButton() == discard ? RecoveryAnswer::Discard : RecoveryAnswer::Restore;
}

} // namespace quarnel
