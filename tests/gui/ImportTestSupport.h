#pragma once

#include "loggerfiles/ImportReadingsFrm.h"
#include "loggerfiles/LoggerFileDialogs.h"
#include "tests/gui/WindowTestSupport.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <cmath>

/// What the tests of the import's window share: logger files, and the window over one of them.
namespace quarnel::windowtest {

/// A logger file of the tests, given to the byte.
inline QString CaseFile(const QString& name) {
    return SourceFile("tests/loggerfiles/cases/") + name;
}

/// Files of a test's own.
class LoggerFiles {
public:
    QString Write(const QString& name, const QByteArray& bytes) {
        const QString path = folder_.filePath(name);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("Cannot write %s", qPrintable(path));
        return path;
    }
    QString Path(const QString& name) const { return folder_.filePath(name); }

private:
    QTemporaryDir folder_;
};

/// The level in row `row` of a test: 20 rows of still water at 5, then 4 and back to 5.
inline QByteArray LevelText(int row) {
    return row < 20 ? QByteArray("5") : QByteArray::number(5 - std::pow(0.9, row - 20), 'f', 4);
}

/// A table of `rows` rows every two seconds, "time (s)" from 0 on.
inline QByteArray SecondsTable(int rows, const QByteArray& heading = "time (s),Level (m)",
                               double unit = 1) {
    QByteArray text = heading + "\n";
    for (int row = 0; row < rows; ++row)
        text += QByteArray::number(2 * row / unit, 'g', 12) + "," + LevelText(row) + "\n";
    return text;
}

/// The same by the clock, from 11:00:00 on the 5th of March 2024 on.
inline QByteArray ClockTable(int rows, const QByteArray& heading = "Time,Level (m)",
                             int firstSecond = 0, const QByteArray& level = {}) {
    QByteArray text = heading + "\n";
    for (int row = 0; row < rows; ++row) {
        const QTime time = QTime(11, 0).addSecs(firstSecond + 2 * row);
        text += "2024-03-05 " + time.toString(u"hh:mm:ss"_s).toLatin1() + "," +
                (level.isEmpty() ? LevelText(row) : level) + "\n";
    }
    return text;
}

/// Whether the keyboard works in a window of this platform depends on its being active.
inline void Show(QWidget& window) {
    window.show();
    window.activateWindow();
    static_cast<void>(QTest::qWaitForWindowActive(&window));
}

/// The window over one file, and its controls as a user finds them.
class ImportForm {
public:
    explicit ImportForm(const QString& path, const ReadOptions& options = {})
        : form_(ToUtf8(path), ReadLoggerFileShown(nullptr, ToUtf8(path), options), state_,
                nullptr) {
        form_.setModal(false); // the answers of a test are for what comes up above it
        Show(form_);
    }

    ImportReadingsFrm& Form() { return form_; }
    ProjectState& State() { return state_; }
    ImportPreviewWidget& Preview() { return Find<ImportPreviewWidget>(u"ImportPreview"_s); }
    QPushButton& Ok() { return Find<QPushButton>(u"ImportOK"_s); }
    const ImportPlan& Plan() { return *form_.Plan(); }

    template <class Widget = QWidget> Widget& Find(const QString& name) {
        return windowtest::Find<Widget>(form_, name);
    }
    QString Label(const QString& name) { return Find<QLabel>(name).text(); }
    QString StateText() { return Label(u"ImportState"_s); }
    QStringList Messages() {
        const QString text = Find<QPlainTextEdit>(u"ImportMessages"_s).toPlainText();
        return text.isEmpty() ? QStringList() : text.split(QLatin1Char('\n'));
    }
    QString Text(const QString& box) { return Find<QLineEdit>(box).text(); }
    QString Chosen(const QString& list) { return Find<QComboBox>(list).currentText(); }
    QString Cell(int row, int column) {
        const QAbstractItemModel* model = Find<QTableView>(u"ImportTable"_s).model();
        return model->index(row - 1, column).data().toString();
    }
    int Rows() { return Find<QTableView>(u"ImportTable"_s).model()->rowCount(); }

    /// Types into a box and leaves it with Enter.
    void Type(const QString& name, const QString& text) {
        auto& box = Find<QLineEdit>(name);
        TypeInto(box, text);
        QTest::keyClick(&box, Qt::Key_Return);
    }
    /// Goes to an entry of a list with the keys, as with the list open.
    void Choose(const QString& name, const QString& entry) {
        auto& list = Find<QComboBox>(name);
        const int index = list.findText(entry);
        if (index < 0)
            qFatal("%s has no %s", qPrintable(name), qPrintable(entry));
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_Home);
        for (int step = 0; step < index; ++step)
            QTest::keyClick(&list, Qt::Key_Down);
    }
    /// Drags a line with the mouse to where `row` stands.
    void Drag(const QString& handle, std::size_t row) {
        auto& widget = Find(handle);
        const QPoint at(widget.width() / 2, widget.height() / 2);
        const int from = Preview().ColumnOfRow(RowOf(handle));
        QTest::mousePress(&widget, Qt::LeftButton, {}, at);
        const QPoint by(Preview().ColumnOfRow(row) - from, 0);
        QTest::mouseMove(&widget, at + by);
        QTest::mouseRelease(&widget, Qt::LeftButton, {}, at);
    }
    void Press(const QString& handle, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        auto& widget = Find(handle);
        widget.setFocus();
        QTest::keyClick(&widget, key, modifiers);
    }
    std::size_t RowOf(const QString& handle) {
        const ImportPlan& plan = Plan();
        if (handle == u"ImportStartHandle"_s)
            return *plan.start;
        if (handle == u"ImportEndHandle"_s)
            return plan.end;
        return handle == u"ImportStaticFromHandle"_s ? plan.staticRows.first
                                                     : plan.staticRows.end - 1;
    }

private:
    ProjectState state_;
    ImportReadingsFrm form_;
};

} // namespace quarnel::windowtest
