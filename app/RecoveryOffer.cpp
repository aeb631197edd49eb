#include "app/RecoveryOffer.h"

#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"

#include <QLocale>
#include <QMessageBox>
#include <QPushButton>

namespace quarnel {

bool WantsToRestore(QWidget* parent, const LeftCopy& copy) {
    const QString name = copy.projectFile.empty()
                             ? QStringLiteral("a project that was not saved yet")
                             : ToQString(copy.projectFile);
    QMessageBox box(QMessageBox::Question, ApplicationTitle(),
                    QStringLiteral("Quarnel ended before it could be closed. There is a copy of "
                                   "%1, written %2.")
                        .arg(name, QLocale().toString(copy.written, QLocale::ShortFormat)),
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
    return box.clickedButton() != discard;
}

} // namespace quarnel
