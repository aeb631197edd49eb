#pragma once

#include "tests/gui/WindowTestSupport.h"

#include <QTableView>
#include <QWindow>

namespace quarnel::windowtest {

/// The program as the window that has the keyboard.
class ActiveProgram : public Program {
public:
    ActiveProgram() {
        Window().activateWindow();
        if (!QTest::qWaitForWindowActive(&Window()))
            qFatal("The window does not get the keyboard");
    }

    QTableView& Grid() { return Find<QTableView>(u"RecDatGrid"_s); }
    void ClickCell(int row, int column) {
        const QModelIndex index = Grid().model()->index(row - 1, column);
        Grid().scrollTo(index);
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, Grid().visualRect(index).center());
        Grid().setFocus();
    }
    void Press(const char* button) {
        QTest::mouseClick(&Find(QString::fromLatin1(button)), Qt::LeftButton);
    }
    /// A key for whatever has the keyboard, as the desktop sends it.
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(Window().windowHandle(), key, modifiers);
    }
    void Keys(const QString& text) {
        for (const QChar c : text)
            QTest::keyClick(Window().windowHandle(), c.toLatin1());
    }
    /// Without a desktop nobody gives the keyboard back to the window when a box closes.
    QString FocusName() {
        Window().activateWindow();
        if (!QTest::qWaitForWindowActive(&Window()))
            return u"no window"_s;
        const QWidget* focus = QApplication::focusWidget();
        return focus == nullptr ? QString() : focus->objectName();
    }
    /// No part of a hidden page may have the keyboard.
    bool FocusIsSeen() {
        return Window().focusWidget() == nullptr || Window().focusWidget()->isVisible();
    }
    void TypeGeometry() {
        const QStringList texts = {u"10"_s, u"8"_s, u"5"_s, u"8"_s, u"2"_s, u"30"_s};
        for (int i = 0; i < 6; ++i)
            State().WellGeoText[static_cast<std::size_t>(i)] = ToUtf8(texts[i]);
        ClickTab(3);
        for (int i = 0; i < 6; ++i)
            TypeInto(Find<QLineEdit>(u"WellGeoText"_s, i), texts[i]);
    }
    /// What the desktop sends when the frame's button is clicked. Whether the window gave in.
    bool CloseFrame() {
        QCloseEvent event;
        QCoreApplication::sendEvent(Window().windowHandle(), &event);
        return event.isAccepted();
    }
    /// Turns the wheel over a control by `notches`, with the pointer there.
    void Wheel(QWidget& over, int notches) {
        const QPoint at = over.rect().center();
        QWheelEvent event(at, over.mapToGlobal(at), {}, QPoint(0, 120 * notches), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(&over, &event);
    }
};

} // namespace quarnel::windowtest
