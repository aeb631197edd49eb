// The keyboard reaches everything: Alt with a letter each box, list and button, Alt with a number
// each tab, Ctrl with Return the computation.

#include "tests/gui/ActiveProgram.h"

#include <QComboBox>
#include <QGroupBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabBar>

namespace quarnel::windowtest {

namespace {

const QString Example = SourceFile("examples/pratt-county-1998.qn2");

/// The letter that is underlined in a caption; empty where there is none.
QString Mnemonic(const QString& caption) {
    return QKeySequence::mnemonic(caption).toString();
}

/// The letters that work while a page is seen, each with the caption it stands in.
QStringList Letters(BRMainForm& window) {
    QStringList captions;
    for (const QAction* action : window.menuBar()->actions())
        captions.append(action->text());
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->window() != &window)
            continue;
        if (const auto* label = qobject_cast<const QLabel*>(widget); label && label->buddy())
            captions.append(label->text());
        else if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            captions.append(button->text());
        else if (const auto* group = qobject_cast<const QGroupBox*>(widget))
            captions.append(group->title());
    }
    return captions;
}

QStringList Doubles(BRMainForm& window) {
    QMap<QString, QString> taken;
    QStringList doubles;
    for (const QString& caption : Letters(window)) {
        const QString letter = Mnemonic(caption);
        if (letter.isEmpty())
            continue;
        if (taken.contains(letter))
            doubles.append(letter + u": "_s + taken[letter] + u" and "_s + caption);
        taken.insert(letter, caption);
    }
    return doubles;
}

/// The key of a letter or sign.
Qt::Key KeyOf(QChar letter) {
    return static_cast<Qt::Key>(letter.toUpper().unicode());
}

struct Reached {
    int tab;
    const char* letter;
    const char* name;
};

} // namespace

class TestMnemonics : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void NoLetterIsTakenTwiceOnAPage() {
        ActiveProgram program;
        program.Window().OpenPath(Example);
        for (int tab = 1; tab <= 5; ++tab) {
            program.ClickTab(tab);
            QCOMPARE(Doubles(program.Window()), QStringList());
        }
        program.ClickTab(4);
        program.Press("CmdInsertRows");
        QVERIFY(program.Find(u"InsertRowsPanel"_s).isVisible());
        QCOMPARE(Doubles(program.Window()), QStringList());
    }

    void AltAndALetterGoToEveryBoxAndList_data() {
        QTest::addColumn<int>("tab");
        QTest::addColumn<QString>("letter");
        QTest::addColumn<QString>("name");
        for (const Reached& reached : {Reached{3, "H", "WellGeoText_0"},
                                       {3, "L", "WellGeoText_1"},
                                       {3, "E", "WellGeoText_2"},
                                       {3, "D", "WellGeoText_3"},
                                       {3, "C", "WellGeoText_4"},
                                       {3, "P", "WellGeoText_5"},
                                       {3, "U", "WellGeoVertUnitsDDL"},
                                       {3, "N", "WellGeoRadUnitsDDL"},
                                       {4, "W", "RecDatDataTypeDDL"},
                                       {4, "S", "RecDatSlugTestTypeDDL"},
                                       {4, "U", "RecDatTimeUnitsDDL"},
                                       {4, "L", "RecDatWaterLevelUnitsDDL"},
                                       {4, "P", "RecDatPreSlugHeadText"},
                                       {5, "U", "CmboKLengthUnits"},
                                       {5, "/", "CmboKTimeUnits"}})
            QTest::addRow("%s", reached.name) << reached.tab << QString::fromLatin1(reached.letter)
                                              << QString::fromLatin1(reached.name);
    }

    void AltAndALetterGoToEveryBoxAndList() {
        QFETCH(int, tab);
        QFETCH(QString, letter);
        QFETCH(QString, name);
        ActiveProgram program;
        program.Window().OpenPath(Example);
        program.ClickTab(tab);
        // There is a level before the test where levels are measured.
        if (name == u"RecDatPreSlugHeadText"_s)
            QTest::keyClick(&program.Find(u"RecDatDataTypeDDL"_s), Qt::Key_Home);
        program.Key(KeyOf(letter.front()), Qt::AltModifier);
        QCOMPARE(program.FocusName(), name);
    }

    void AltAndKGoesToKAndSelectsIt() {
        ActiveProgram program;
        program.Window().OpenPath(Example);
        program.ClickTab(5);
        program.Press("CmdComputeK");
        program.Key(Qt::Key_K, Qt::AltModifier);
        QCOMPARE(program.FocusName(), u"ComputedKLabel"_s);
        QCOMPARE(program.Find<QLabel>(u"ComputedKLabel"_s).selectedText(), u"3.6"_s);
    }

    void AltAndALetterPressEveryButton_data() {
        QTest::addColumn<int>("tab");
        QTest::addColumn<QString>("letter");
        QTest::addColumn<QString>("name");
        for (const Reached& reached : {Reached{3, "K", "SSCmdWellGeoCheckData"},
                                       {3, "A", "SSRibbon1"},
                                       {3, "I", "SSRibbon2"},
                                       {4, "I", "CmdInsertRows"},
                                       {4, "D", "CmdRecDatDeleteRows"},
                                       {4, "X", "CmdRecDatCut"},
                                       {4, "C", "CmdRecDataCopy"},
                                       {4, "V", "CmdRecDatPaste"},
                                       {4, "O", "CmdSortByTime"},
                                       {4, "Y", "CmdRecDatCheckData"},
                                       {5, "C", "CmdComputeK"},
                                       {5, "D", "CmdDetails"},
                                       {5, "P", "CmdPrintPlot"},
                                       {5, "S", "CmdPrtSummary"}})
            QTest::addRow("%s", reached.name) << reached.tab << QString::fromLatin1(reached.letter)
                                              << QString::fromLatin1(reached.name);
    }

    void AltAndALetterPressEveryButton() {
        QFETCH(int, tab);
        QFETCH(QString, letter);
        QFETCH(QString, name);
        ActiveProgram program;
        program.Window().OpenPath(Example);
        program.ClickTab(tab);
        // From the opposite choice, so that the key changes something.
        if (name == u"SSRibbon1"_s)
            program.Press("SSRibbon2");
        const QSignalSpy clicks(&program.Find<QAbstractButton>(name), &QAbstractButton::clicked);
        Answers answers;
        if (name == u"SSCmdWellGeoCheckData"_s)
            answers.Box(u"Quarnel"_s, u"Well Geometry data is complete and consistent."_s);
        if (name == u"CmdSortByTime"_s)
            answers.Box(u"Confirm Sort"_s, u"Sort the Recovery Data by time?"_s,
                        QMessageBox::Cancel);
        if (name == u"CmdRecDatDeleteRows"_s)
            answers.BoxAbout(u"Are you sure"_s, QMessageBox::No);
        program.Key(KeyOf(letter.front()), Qt::AltModifier);
        QTRY_COMPARE(clicks.count(), 1);
        QTRY_VERIFY2(answers.AllGiven(), answers.Complaints());
        if (tab == 3 && name != u"SSCmdWellGeoCheckData"_s)
            QVERIFY(program.Find<QAbstractButton>(name).isChecked());
    }

    /// A control that comes to one of these pages later must not be forgotten.
    void EveryControlOfThesePagesHasALetter() {
        ActiveProgram program;
        program.Window().OpenPath(Example);
        for (const int tab : {3, 4, 5}) {
            program.ClickTab(tab);
            QSet<const QWidget*> reached;
            for (const QLabel* label : program.Window().findChildren<QLabel*>())
                if (label->isVisible() && !Mnemonic(label->text()).isEmpty())
                    reached.insert(label->buddy());
            for (const QGroupBox* group : program.Window().findChildren<QGroupBox*>())
                if (!Mnemonic(group->title()).isEmpty())
                    reached.insert(group->findChild<QLineEdit*>());
            QStringList without;
            for (const QWidget* widget : program.Window().findChildren<QWidget*>()) {
                const bool isControl = qobject_cast<const QLineEdit*>(widget) != nullptr ||
                                       qobject_cast<const QComboBox*>(widget) != nullptr;
                const auto* button = qobject_cast<const QAbstractButton*>(widget);
                if (!widget->isVisible() || widget->objectName().isEmpty() ||
                    widget->window() != &program.Window())
                    continue;
                if ((isControl && !reached.contains(widget)) ||
                    (button != nullptr && !button->text().isEmpty() &&
                     Mnemonic(button->text()).isEmpty()))
                    without.append(widget->objectName());
            }
            QCOMPARE(without, QStringList());
        }
    }

    void AltAndANumberChooseATab() {
        ActiveProgram program;
        program.Window().OpenPath(Example);
        for (const int tab : {4, 1, 5, 3, 2, 4, 5}) {
            program.Key(static_cast<Qt::Key>(Qt::Key_0 + tab), Qt::AltModifier);
            QCOMPARE(program.SelectedTab(), tab);
            QCOMPARE(program.VisiblePanel(), TabPanels[static_cast<std::size_t>(tab - 1)]);
            const QWidget* focus = program.Window().focusWidget();
            QVERIFY(focus != nullptr && focus->isVisible());
            QVERIFY(program.Find(u"SSPanel1"_s, program.VisiblePanel()).isAncestorOf(focus));
        }
    }

    void AltAndANumberTakeOverWhatIsBeingTyped() {
        ActiveProgram program;
        program.Window().OpenPath(Example);
        program.Key(Qt::Key_4, Qt::AltModifier);
        program.ClickCell(3, 1);
        program.Keys(u"7"_s);
        program.Key(Qt::Key_3, Qt::AltModifier);
        QCOMPARE(program.State().RecDatGrid[2].time, "7");
        QCOMPARE(program.VisiblePanel(), 4);
    }

    void ControlReturnComputesOnThePageOfKAlone_data() {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("Return") << Qt::Key_Return;
        QTest::newRow("Enter of the keypad") << Qt::Key_Enter;
    }

    void ControlReturnComputesOnThePageOfKAlone() {
        QFETCH(Qt::Key, key);
        ActiveProgram program;
        program.Window().OpenPath(Example);
        for (const int tab : {1, 2, 3, 4}) {
            program.ClickTab(tab);
            program.Key(key, Qt::ControlModifier);
            QVERIFY(program.Window().Current().computation == nullptr);
        }
        program.ClickTab(5);
        for (const auto& from : {u"RecDatWeightGrid"_s, u"CmboKTimeUnits"_s, u"CmdDetails"_s,
                                 u"Plot1"_s, u"TabStrip2"_s}) {
            program.Find(from).setFocus();
            const ComputationPtr before = program.Window().Current().computation;
            program.Key(key, Qt::ControlModifier);
            QVERIFY(program.Window().Current().computation != nullptr);
            QVERIFY(program.Window().Current().computation != before);
        }
        QVERIFY(!program.Find<QLabel>(u"ComputedKLabel"_s).text().isEmpty());
    }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestMnemonics)
#include "test_mnemonics.moc"
