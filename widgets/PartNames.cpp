#include "widgets/PartNames.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QSizeGrip>
#include <QSplitter>
#include <array>
#include <utility>

namespace quarnel {

namespace {

QString NameOfIcon(const QWidget& label) {
    const auto* box = qobject_cast<const QMessageBox*>(label.window());
    switch (box == nullptr ? QMessageBox::NoIcon : box->icon()) {
    case QMessageBox::Question:
        return QStringLiteral("Question");
    case QMessageBox::Warning:
        return QStringLiteral("Warning");
    case QMessageBox::Critical:
        return QStringLiteral("Error");
    default:
        return QStringLiteral("Information");
    }
}

QString NameOf(const QWidget& widget) {
    if (qobject_cast<const QSizeGrip*>(&widget) != nullptr)
        return QStringLiteral("Size of the window");
    if (qobject_cast<const QSplitterHandle*>(&widget) != nullptr)
        return QStringLiteral("Divider");
    if (qobject_cast<const QDialogButtonBox*>(&widget) != nullptr)
        return QStringLiteral("Buttons");
    if (const auto* menu = qobject_cast<const QMenu*>(&widget))
        return menu->title().remove(QLatin1Char('&'));
    if (widget.objectName() == QLatin1String("qt_msgboxex_icon_label") ||
        widget.objectName() == QLatin1String("qt_msgbox_icon_label"))
        return NameOfIcon(widget);
    return {};
}

/// The toolkit's dialog has the labels, but does not say whose they are.
void JoinLabels(const QFileDialog& dialog) {
    constexpr std::array<std::pair<const char*, const char*>, 2> Labelled = {
        {{"lookInLabel", "lookInCombo"}, {"fileTypeLabel", "fileTypeCombo"}}};
    for (const auto& [name, list] : Labelled) {
        auto* label = dialog.findChild<QLabel*>(QLatin1String(name));
        if (label != nullptr && label->buddy() == nullptr)
            label->setBuddy(dialog.findChild<QWidget*>(QLatin1String(list)));
    }
}

} // namespace

bool PartNames::eventFilter(QObject* receiver, QEvent* event) {
    if (event->type() == QEvent::Polish && receiver->isWidgetType()) {
        auto* widget = static_cast<QWidget*>(receiver);
        if (const auto* dialog = qobject_cast<const QFileDialog*>(widget))
            JoinLabels(*dialog);
        if (widget->accessibleName().isEmpty())
            if (const QString name = NameOf(*widget); !name.isEmpty())
                widget->setAccessibleName(name);
    }
    return QObject::eventFilter(receiver, event);
}

} // namespace quarnel
