#include "app/DroppedProject.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace quarnel {

QString DroppedProject(QEvent* event) {
    if (event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove &&
        event->type() != QEvent::Drop)
        return QString();
    // An open question comes first.
    if (QApplication::activeModalWidget() != nullptr)
        return QString();
    auto* drop = static_cast<QDropEvent*>(event);
    const QList<QUrl> urls = drop->mimeData()->urls();
    if (urls.size() != 1 || !urls.constFirst().isLocalFile())
        return QString();
    drop->setDropAction(Qt::CopyAction);
    drop->accept();
    return urls.constFirst().toLocalFile();
}

} // namespace quarnel
