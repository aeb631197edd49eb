#pragma once

#include "app/BRMainForm.h"
#include "app/MainGlobal.h"
#include "app/QuarnelApplication.h"
#include "tests/gui/SourceFile.h"
#include "widgets/QtTexts.h"

#include <QAbstractButton>
#include <QAction>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QQueue>
#include <QSettings>
#include <QStringList>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>
#include <functional>
#include <memory>

/// What the tests of the windows share: finding a control by its name, answering the boxes and
/// dialogs that a command opens, and the program's main window ready to be used.
namespace quarnel::windowtest {

using namespace Qt::StringLiterals;

/// The control called `name` below `parent`, itself included. A test that asks for one that is not
/// there ends at once: nothing after it would make sense.
template <class Widget = QWidget> Widget& Find(QObject& parent, const QString& name) {
    if (parent.objectName() == name)
        if (auto* self = qobject_cast<Widget*>(&parent))
            return *self;
    auto* found = parent.findChild<Widget*>(name);
    if (found == nullptr)
        qFatal("There is no %s called %s", Widget::staticMetaObject.className(), qPrintable(name));
    return *found;
}

/// A member of a control array: `WellGeoText` and 3 is WellGeoText_3.
template <class Widget = QWidget> Widget& Find(QObject& parent, const QString& name, int index) {
    return Find<Widget>(parent, name + QLatin1Char('_') + QString::number(index));
}

/// Answers the message boxes and dialogs that come up, in the order they were announced, by their
/// real widgets. One that was not announced, or that says something else, is dismissed and
/// remembered as a complaint, so a test ends instead of waiting for ever.
///
///     Answers answers;
///     answers.Box(u"Data Error"_s, u"Well Geometry: H must have a value."_s);
///     QTest::mouseClick(&button, Qt::LeftButton);
///     QVERIFY2(answers.AllGiven(), answers.Complaints());
class Answers : public QObject {
public:
    Answers() {
        connect(&timer_, &QTimer::timeout, this, &Answers::Look);
        timer_.start(5);
    }

    /// Expects a message box with exactly this title and text, shown with the normal pointer, and
    /// clicks `button`.
    Answers& Box(const QString& title, const QString& text,
                 QMessageBox::StandardButton button = QMessageBox::Ok) {
        return Dialog<QMessageBox>([this, title, text, button](QMessageBox& box) {
            if (box.windowTitle() != title || box.text() != text)
                Complain(QStringLiteral("Expected box \"%1\": \"%2\", seen \"%3\": \"%4\"")
                             .arg(title, text, box.windowTitle(), box.text()));
            if (QApplication::overrideCursor() != nullptr)
                Complain(QStringLiteral("The pointer is busy at \"%1\"").arg(box.text()));
            QAbstractButton* wanted = box.button(button);
            if (wanted == nullptr) {
                Complain(QStringLiteral("The box \"%1\" lacks the button").arg(box.text()));
                box.reject();
                return;
            }
            QTest::mouseClick(wanted, Qt::LeftButton);
        });
    }

    /// Expects a box of the toolkit's own, such as the overwrite prompt, whose text holds `part`.
    Answers& BoxAbout(const QString& part, QMessageBox::StandardButton button) {
        return Dialog<QMessageBox>([this, part, button](QMessageBox& box) {
            if (!box.text().contains(part))
                Complain(QStringLiteral("Expected a box about \"%1\", seen \"%2\"")
                             .arg(part, box.text()));
            if (QAbstractButton* wanted = box.button(button))
                QTest::mouseClick(wanted, Qt::LeftButton);
            else
                box.reject();
        });
    }

    /// Expects a file dialog, types `name` into its name field and presses Enter.
    Answers& FileName(const QString& name) {
        return Dialog<QFileDialog>([name](QFileDialog& dialog) {
            auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            edit->setFocus();
            edit->selectAll();
            QTest::keyClicks(edit, name);
            QTest::keyClick(edit, Qt::Key_Return);
        });
    }

    /// Expects a file dialog and leaves it with Escape.
    Answers& CancelFileName() {
        return Dialog<QFileDialog>(
            [](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    }

    /// Expects a modal dialog of the class and lets `act` work on it; `act` closes it.
    template <class DialogClass> Answers& Dialog(std::function<void(DialogClass&)> act) {
        steps_.enqueue([this, act](QWidget& modal) {
            if (auto* dialog = qobject_cast<DialogClass*>(&modal))
                act(*dialog);
            else
                Dismiss(modal);
        });
        return *this;
    }

    /// Whether everything announced came up as announced and nothing else did.
    bool AllGiven() const { return steps_.isEmpty() && complaints_.isEmpty(); }
    /// What went otherwise, for the second argument of QVERIFY2.
    QByteArray Complaints() const {
        QStringList all = complaints_;
        if (!steps_.isEmpty())
            all.append(QStringLiteral("%1 expected box(es) never came").arg(steps_.size()));
        return all.join(QLatin1Char('\n')).toUtf8();
    }

private:
    /// Acts through a posted call: the timer's own slot must return, or no further box that the
    /// answer brings up would be seen.
    void Look() {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal == nullptr || !modal->isVisible() || working_.contains(modal))
            return;
        working_.append(modal);
        QMetaObject::invokeMethod(
            this,
            [this, modal = QPointer<QWidget>(modal), working = modal] {
                Answer(modal);
                working_.removeOne(working);
            },
            Qt::QueuedConnection);
    }

    void Answer(const QPointer<QWidget>& modal) {
        if (modal && steps_.isEmpty())
            Dismiss(*modal);
        else if (modal)
            steps_.dequeue()(*modal);
    }

    void Dismiss(QWidget& modal) {
        const auto* box = qobject_cast<QMessageBox*>(&modal);
        Complain(QStringLiteral("Not expected: %1 \"%2\" %3")
                     .arg(QLatin1String(modal.metaObject()->className()), modal.windowTitle(),
                          box != nullptr ? box->text() : QString()));
        if (auto* dialog = qobject_cast<QDialog*>(&modal))
            dialog->reject();
        else
            modal.close();
    }

    void Complain(const QString& complaint) { complaints_.append(complaint); }

    QTimer timer_;
    /// Those whose answer is under way: one that has just asked something of its own is not to be
    /// answered again when that box closes.
    QList<const QWidget*> working_;
    QQueue<std::function<void(QWidget&)>> steps_;
    QStringList complaints_;
};

/// Empties a text box and types `text` into it, key by key.
inline void TypeInto(QLineEdit& box, const QString& text) {
    box.setFocus();
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, text);
}

/// Chooses a menu entry with the mouse: opens its menu at the bar and clicks the entry.
inline void Choose(QMainWindow& window, const QString& name) {
    auto& action = Find<QAction>(window, name);
    QMenuBar* bar = window.menuBar();
    for (QAction* top : bar->actions()) {
        if (top == &action) {
            QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(top).center());
            return;
        }
        if (QMenu* menu = top->menu(); menu != nullptr && menu->actions().contains(&action)) {
            QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(top).center());
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(&action).center());
            return;
        }
    }
    qFatal("No menu holds %s", qPrintable(name));
}

/// The program's main window as it stands after the start: set up, new project, shown.
class Program {
public:
    Program()
        : window_(SetUpMainWindow()) {
        ResetProject(*window_);
        window_->StartUp();
        static_cast<void>(QTest::qWaitForWindowExposed(window_.get()));
    }

    BRMainForm& Window() { return *window_; }
    ProjectState& State() { return window_->Current().state; }

    /// The control called `name` in the main window or in one of its dialogs.
    template <class Widget = QWidget> Widget& Find(const QString& name) {
        return windowtest::Find<Widget>(*window_, name);
    }
    template <class Widget = QWidget> Widget& Find(const QString& name, int index) {
        return windowtest::Find<Widget>(*window_, name, index);
    }

    /// Clicks tab `number` (1 to 5) of the strip.
    void ClickTab(int number) {
        auto& strip = Find<QTabBar>(QStringLiteral("TabStrip2"));
        QTest::mouseClick(&strip, Qt::LeftButton, {}, strip.tabRect(number - 1).center());
    }
    int SelectedTab() { return Find<QTabBar>(QStringLiteral("TabStrip2")).currentIndex() + 1; }

    /// The number of the one panel that is visible; 0 for none, -1 for several.
    int VisiblePanel() {
        int visible = 0;
        for (int panel = 0; panel <= PanelCount; ++panel)
            if (Find(QStringLiteral("SSPanel1"), panel).isVisible())
                visible = visible == 0 ? panel : -1;
        return visible;
    }

    void Choose(const QString& menuEntry) { windowtest::Choose(*window_, menuEntry); }

private:
    std::unique_ptr<BRMainForm> window_;
};

/// Runs the tests of `TestClass` in the program's own application, without a screen unless the
/// caller chose one, and with settings of their own.
template <class TestClass> int Run(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    QuarnelApplication application(argc, argv);
    TestClass test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace quarnel::windowtest

/// The test program's `main`; the file ends with this and the include of its moc file.
#define QUARNEL_WINDOW_TEST_MAIN(TestClass)                                                        \
    int main(int argc, char** argv) {                                                              \
        return quarnel::windowtest::Run<TestClass>(argc, argv);                                    \
    }
