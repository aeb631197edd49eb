#pragma once

#include "output/PlotWidget.h"
#include "tests/gui/WindowTestSupport.h"

#include <QTableView>
#include <QToolTip>
#include <vector>

namespace quarnel::windowtest {

/// A reading as typed: time and change in head.
using TypedReading = std::pair<std::string, std::string>;

/// The program on its compute page, with mouse and keyboard as the desktop sends them.
class PlotProgram : public Program {
public:
    explicit PlotProgram(const std::vector<TypedReading>& readings, bool warns = false,
                         bool computes = true) {
        State().WellGeoText = {"10", "8", "5", "8", "2", "0"};
        State().RecDatDataTypeDDL = ChangeInHead;
        State().RecDatGrid.resize(std::max<std::size_t>(50, readings.size()));
        for (std::size_t i = 0; i < readings.size(); ++i)
            State().RecDatGrid[i] = {readings[i].first, readings[i].second};
        Open(warns, computes);
    }
    explicit PlotProgram(const QString& path) {
        Window().OpenPath(path);
        Open(false, true);
    }

    PlotWidget& Plot() { return Find<PlotWidget>(u"Plot1"_s); }
    QTableView& Grid() { return Find<QTableView>(u"RecDatWeightGrid"_s); }
    void Compute() {
        QTest::mouseClick(&Find(u"CmdComputeK"_s), Qt::LeftButton);
        // Mouse and keyboard reach what stands there then.
        QCoreApplication::processEvents();
    }

    /// Without a desktop nobody gives the keyboard back to the window when a menu or box closes.
    void Activate() {
        Window().activateWindow();
        if (!QTest::qWaitForWindowActive(&Window()))
            qFatal("The window does not get the keyboard");
    }

    // ---- Hands ---------------------------------------------------------------------------------

    /// The middle of a point's circle (rows count from 1), in pixels of the plot.
    QPoint At(int row) { return Plot().PlaceOfPoint(static_cast<std::size_t>(row - 1)).toPoint(); }
    void PressAt(QPoint at, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mousePress(Window().windowHandle(), Qt::LeftButton, modifiers, InWindow(at));
    }
    void MoveTo(QPoint at) { QTest::mouseMove(Window().windowHandle(), InWindow(at)); }
    void ReleaseAt(QPoint at) {
        QTest::mouseRelease(Window().windowHandle(), Qt::LeftButton, {}, InWindow(at));
    }
    void ClickAt(QPoint at, Qt::KeyboardModifiers modifiers = {}) {
        PressAt(at, modifiers);
        ReleaseAt(at);
    }
    void Click(int row, Qt::KeyboardModifiers modifiers = {}) { ClickAt(At(row), modifiers); }
    /// Drags from one place to another, by way of the middle, and lets go.
    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {}) {
        PressAt(from, modifiers);
        MoveTo((from + to) / 2);
        MoveTo(to);
        ReleaseAt(to);
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(Window().windowHandle(), key, modifiers);
    }
    void Type(char key) { QTest::keyClick(Window().windowHandle(), key); }
    /// Opens the plot's menu by a right click and lets `act` work on it.
    void WithMenu(QPoint at, const std::function<void(QMenu&)>& act) {
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
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, Plot().mapToGlobal(at));
        QApplication::sendEvent(&Plot(), &event);
        if (!seen)
            qFatal("The plot has no menu");
    }
    void ChooseInMenu(QPoint at, const QString& name) {
        WithMenu(at, [this, name](QMenu& menu) {
            auto& action = windowtest::Find<QAction>(Plot(), name);
            QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(&action).center());
        });
    }

    // ---- Eyes ----------------------------------------------------------------------------------

    /// The selected rows of the grid, counted from 1.
    QList<int> Selected() {
        QList<int> rows;
        for (int row = 0; row < Grid().model()->rowCount(); ++row)
            if (Grid().selectionModel()->rowIntersectsSelection(row, {}))
                rows << row + 1;
        return rows;
    }
    int CurrentRow() { return Grid().currentIndex().row() + 1; }
    QString Mark(int row) { return Grid().model()->index(row - 1, 3).data().toString(); }
    /// The first letters of all marks.
    QString Marks() {
        QString letters;
        for (int row = 1; row <= Grid().model()->rowCount(); ++row)
            letters += Mark(row).left(1);
        return letters;
    }
    QImage Picture() { return Plot().grab().toImage(); }
    QString FocusName() {
        const QWidget* focus = QApplication::focusWidget();
        return focus == nullptr ? QString() : focus->objectName();
    }

private:
    void Open(bool warns, bool computes) {
        Activate();
        Answers answers;
        if (warns)
            answers.Dialog<QMessageBox>([](QMessageBox& box) { box.accept(); });
        ClickTab(5);
        if (!answers.AllGiven() || SelectedTab() != 5)
            qFatal("The compute tab did not open: %s", answers.Complaints().constData());
        Activate();
        if (computes)
            Compute();
    }
    QPoint InWindow(QPoint at) { return Plot().mapTo(&Window(), at); }
};

/// The readings 0, 10, 20... sec with Y falling from 1 ft to a tenth of it.
inline std::vector<TypedReading> FallingReadings(int count) {
    std::vector<TypedReading> readings;
    for (int i = 0; i < count; ++i)
        readings.emplace_back(
            std::to_string(10 * i),
            QByteArray::number(std::pow(10.0, -double(i) / count), 'f', 6).toStdString());
    return readings;
}

} // namespace quarnel::windowtest
