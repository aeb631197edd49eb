#pragma once

#include "tests/gui/WindowTestSupport.h"

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

/// Runs the tests on an offscreen screen of this size, unless the caller chose a platform.
template <class TestClass> int RunOnScreen(const char* size, int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        const QString screen = SourceFile("tests/gui/screen-") + QLatin1String(size) + u".json"_s;
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.toLocal8Bit());
    }
    return Run<TestClass>(argc, argv);
}

} // namespace quarnel::windowtest
