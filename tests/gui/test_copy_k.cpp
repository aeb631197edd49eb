// K leaves its label whole: a double click selects the number, the menu copies it with its unit,
// and an old K says that it is one.

#include "tests/gui/PlotTestSupport.h"

#include <QAccessible>
#include <QClipboard>
#include <QComboBox>

namespace quarnel::windowtest {

namespace {

class CopyProgram : public PlotProgram {
public:
    CopyProgram()
        : PlotProgram(SourceFile("examples/pratt-county-1998.qn2")) {
        QGuiApplication::clipboard()->setText(u"nothing copied"_s);
    }
    QLabel& Label() { return Find<QLabel>(u"ComputedKLabel"_s); }
    QString Copied() { return QGuiApplication::clipboard()->text(); }
    QString Told() {
        return QAccessible::queryAccessibleInterface(&Label())->text(QAccessible::Name);
    }
    void DoubleClick() {
        const QPoint at =
            Label().mapTo(&Window(), QPoint(Label().width() - 8, Label().height() / 2));
        QTest::mouseDClick(Window().windowHandle(), Qt::LeftButton, {}, at);
    }
    /// Opens the label's menu and chooses "Copy K" in it; whether that could be chosen.
    bool ChooseCopy(const std::function<void()>& open) {
        bool enabled = false;
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &look, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (menu == nullptr)
                return;
            look.stop();
            auto& action = windowtest::Find<QAction>(*menu, u"CopyK"_s);
            enabled = action.isEnabled() && action.text() == u"&Copy K"_s;
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(&action).center());
            menu->close();
        });
        look.start(5);
        open();
        Activate();
        return enabled;
    }
    bool RightClickAndCopy() {
        return ChooseCopy([this] {
            const QPoint at = Label().rect().center();
            QContextMenuEvent event(QContextMenuEvent::Mouse, at, Label().mapToGlobal(at));
            QApplication::sendEvent(&Label(), &event);
        });
    }
    void MakeOld() {
        Click(20);
        Type(' ');
        QVERIFY(!Find<QLabel>(u"StaleText"_s).text().isEmpty());
    }
};

} // namespace

class TestCopyK : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ADoubleClickSelectsTheWholeNumber() {
        CopyProgram program;
        QCOMPARE(program.Label().text(), u"3.6"_s);
        program.DoubleClick();
        QCOMPARE(program.Label().selectedText(), u"3.6"_s);
        program.Key(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(program.Copied(), u"3.6"_s);
        // A number that the toolkit takes for two words.
        auto& length = program.Find<QComboBox>(u"CmboKLengthUnits"_s);
        auto& time = program.Find<QComboBox>(u"CmboKTimeUnits"_s);
        length.setFocus();
        program.Key(Qt::Key_Home);
        time.setFocus();
        program.Key(Qt::Key_Home);
        length.setFocus();
        program.Key(Qt::Key_End);
        QVERIFY2(program.Label().text().contains(u"e-"_s), qPrintable(program.Label().text()));
        program.DoubleClick();
        QCOMPARE(program.Label().selectedText(), program.Label().text());
    }

    void TheMenuCopiesKWithItsUnit() {
        CopyProgram program;
        QVERIFY(program.RightClickAndCopy());
        QCOMPARE(program.Copied(), u"3.6 m/day"_s);
        auto& time = program.Find<QComboBox>(u"CmboKTimeUnits"_s);
        time.setFocus();
        program.Key(Qt::Key_Up);
        QVERIFY(program.RightClickAndCopy());
        QCOMPARE(program.Copied(), program.Label().text() + u" m/hr"_s);
    }

    void KIsReachedAndCopiedByKeys() {
        CopyProgram program;
        program.Find(u"CmdComputeK"_s).setFocus();
        program.Key(Qt::Key_Tab);
        QCOMPARE(program.FocusName(), u"ComputedKLabel"_s);
        QCOMPARE(program.Label().selectedText(), u"3.6"_s);
        QVERIFY(program.ChooseCopy([&program] { program.Key(Qt::Key_F10, Qt::ShiftModifier); }));
        QCOMPARE(program.Copied(), u"3.6 m/day"_s);
        program.Key(Qt::Key_Tab);
        QCOMPARE(program.FocusName(), u"CmboKLengthUnits"_s);
    }

    void AnOldKSaysSoWhereverItIsCopied() {
        CopyProgram program;
        program.MakeOld();
        QVERIFY(program.RightClickAndCopy());
        const QString old = u"3.6 m/day (the data have changed since)"_s;
        QCOMPARE(program.Copied(), old);
        QCOMPARE(program.Told(), u"Hydraulic conductivity "_s + old);
        QGuiApplication::clipboard()->setText(u"nothing copied"_s);
        program.DoubleClick();
        program.Key(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(program.Copied(), old);
        program.Compute();
        QVERIFY(program.RightClickAndCopy());
        QVERIFY(program.Copied().endsWith(u" m/day"_s));
    }

    void WithoutAKThereIsNothingToCopyOrToStopAt() {
        CopyProgram program;
        ResetProject(program.Window());
        QVERIFY(!program.RightClickAndCopy());
        QCOMPARE(program.Copied(), u"nothing copied"_s);
        QCOMPARE(program.Told(), u"Hydraulic conductivity"_s);
        QCOMPARE(program.Label().focusPolicy(), Qt::NoFocus);
    }

    void AScreenReaderTellsKWithItsUnit() {
        CopyProgram program;
        QCOMPARE(program.Told(), u"Hydraulic conductivity 3.6 m/day"_s);
    }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestCopyK)

#include "test_copy_k.moc"
