#include "app/HelpKey.h"

#include "app/GuideWindow.h"

#include <QDialog>
#include <QKeyEvent>
#include <algorithm>
#include <array>

namespace quarnel {

namespace {

struct WindowChapter {
    const char* window;
    const char* heading;
};
constexpr std::array<WindowChapter, 6> Chapters = {
    {{"ImportReadingsFrm", "From the logger"},
     {"ComputedYFrm", "What stands behind the number"},
     {"PrtPlotFrm", "On paper"},
     {"PrtResults", "On paper"},
     {"CompareProjectsFrm", "Many wells at once"},
     {"DiagnosticsFrm", "How far can I trust K"}}};

bool IsHelpKey(const QEvent& event) {
    if (event.type() != QEvent::KeyPress && event.type() != QEvent::ShortcutOverride)
        return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_F1 && key.modifiers() == Qt::NoModifier;
}

} // namespace

bool HelpKey::eventFilter(QObject* receiver, QEvent* event) {
    if (!IsHelpKey(*event) || !receiver->isWidgetType())
        return QObject::eventFilter(receiver, event);
    QWidget* window = static_cast<QWidget*>(receiver)->window();
    const auto* chapter = std::find_if(Chapters.begin(), Chapters.end(), [window](const auto& one) {
        return window->objectName() == QLatin1String(one.window);
    });
    if (chapter == Chapters.end())
        return QObject::eventFilter(receiver, event);
    // The key is no shortcut of the main window here.
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    // A modal window lets only those be used that belong to it.
    QWidget* owner = window->isModal() ? window : window->parentWidget()->window();
    GuideWindow::ShowBeside(*owner, QString::fromUtf8(chapter->heading));
    return true;
}

} // namespace quarnel
