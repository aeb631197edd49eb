#pragma once

#include "tests/gui/WindowTestSupport.h"

#include <QMap>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>

namespace quarnel::windowtest {

inline constexpr int Tabs = 5;

/// The Pratt County test in a window that was fitted to the screen by the program itself.
class ScreenProgram : public Program {
public:
    ScreenProgram() {
        Window().OpenPath(SourceFile("examples/pratt-county-1998.qn2"));
        ClickTab(Tabs);
        QTest::mouseClick(&Find(u"CmdComputeK"_s), Qt::LeftButton);
    }

    /// The page that is shown and scrolls where it is too large.
    QScrollArea& Page() {
        const auto all = Window().findChildren<QScrollArea*>();
        const auto shown = std::find_if(all.begin(), all.end(),
                                        [](const QScrollArea* page) { return page->isVisible(); });
        if (shown == all.end())
            qFatal("No page is shown");
        return **shown;
    }
    /// Where a control stands in what can be seen of its page.
    QRect OnPage(const QWidget& control) {
        return {control.mapTo(Page().viewport(), QPoint()), control.size()};
    }
    bool IsWhollySeen(const QWidget& control) {
        return control.isVisible() && Page().viewport()->rect().contains(OnPage(control));
    }
};

/// Where everything that is seen stands, by name.
inline QMap<QString, QRect> PlacesOf(QMainWindow& window) {
    QMap<QString, QRect> places;
    int unnamed = 0;
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        QString name = control->objectName();
        if (name.isEmpty())
            name = QString::number(++unnamed);
        if (control->isVisible() && control->window() == &window)
            places[name + QLatin1Char('/') + QLatin1String(control->metaObject()->className())] = {
                control->mapTo(&window, QPoint()), control->size()};
    }
    return places;
}

/// Compares what is seen in both; QTest's macros need a function of their own.
inline void ExpectSamePlaces(const QMap<QString, QRect>& before,
                             const QMap<QString, QRect>& after) {
    int compared = 0;
    for (auto place = before.begin(); place != before.end(); ++place)
        if (after.contains(place.key())) {
            QVERIFY2(after[place.key()] == place.value(), qPrintable(place.key()));
            ++compared;
        }
    QVERIFY(compared > 30);
}

/// Runs the tests on an offscreen screen of this size, unless the caller chose a platform.
template <class TestClass> int RunOnScreen(const char* size, int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        const QString screen = SourceFile("tests/gui/screen-") + QLatin1String(size) + u".json"_s;
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.toLocal8Bit());
    }
    return Run<TestClass>(argc, argv);
}

} // namespace quarnel::windowtest
