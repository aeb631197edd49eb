#pragma once

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>
#include <QtTest>
#include <functional>

namespace quarnel::windowtest {

/// Opens the menu of a right click on `area` and lets `act` work on it.
inline void WithMenu(QWidget& area, const std::function<void(QMenu&)>& act) {
    bool seen = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr || seen)
            return;
        seen = true;
        act(*menu);
        menu->close();
    });
    look.start(5);
    const QPoint centre = area.rect().center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, centre, area.mapToGlobal(centre));
    QApplication::sendEvent(&area, &event);
    // Some menus are only shown, and their program goes on.
    if (!QTest::qWaitFor([&seen] { return seen; }))
        qFatal("There is no menu");
}

} // namespace quarnel::windowtest
