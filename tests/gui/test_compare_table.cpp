// What the window "Compare Projects" shows of its rows.

#include "tests/gui/CompareProjectsTestSupport.h"

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QClipboard>

namespace quarnel::windowtest {

class TestCompareTable : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void RowsThatDoNotCountAreGreyAndTellWhy();
    void ToolTipsTellPathAndRemarks();
    void HeadingsSortNumbersByValueWithDashesLast();
    void HeadingsSortFromTheMenuToo();
    void UnitsAreThoseOfTheListsOrTheFirstRow();
    void GroupsFollowTheirList();
    void StatisticsAreThoseOfAllGroupsOrTheChosenRows();
    void StatisticsAreThoseOfAllChosenWells();
    void TheCaptionOfThePlotNamesAllChosenWells();
    void StatisticsCanBeSelected();
    void PlotShowsTheGroupOfTheChosenRowOrTheChosenRows();
    void PlotDividesByTheTimeLag();
    void MovesAndRemovesRows();
    void RemoveChoosesTheNeighbourThatIsSeen();
    void ModelKeepsItsPromises();
};

void TestCompareTable::RowsThatDoNotCountAreGreyAndTellWhy() {
    CompareProgram program;
    program.Write(u"falls.qn2"_s, Falling("A", 0.01));
    program.Write(u"rises.qn2"_s, Falling("A", -0.01));
    program.Show();
    program.DropAndRead({u"falls.qn2"_s, u"rises.qn2"_s});
    QVERIFY(!program.Model().index(0, CompareK).data(Qt::ForegroundRole).isValid());
    QCOMPARE(program.Model().index(1, CompareK).data(Qt::ForegroundRole).value<QBrush>(),
             QApplication::palette().brush(QPalette::PlaceholderText));
    QCOMPARE(program.Cell(1, CompareRemarks), u"K is not greater than 0."_s);
}

void TestCompareTable::ToolTipsTellPathAndRemarks() {
    CompareProgram program;
    program.ShowFour();
    QCOMPARE(program.Model().index(0, CompareFile).data(Qt::ToolTipRole).toString(),
             program.Path(u"test 1.qn2"_s));
    QVERIFY(program.Model()
                .index(0, CompareRemarks)
                .data(Qt::ToolTipRole)
                .toString()
                .contains(u"Bouwer and Rice (1976) give ln(Re/rw) within"_s));
}

void TestCompareTable::HeadingsSortNumbersByValueWithDashesLast() {
    CompareProgram program;
    program.Write(u"a.qn2"_s, Falling("A", 0.9));
    program.Write(u"b.qn2"_s, Falling("B", 0.1));
    program.Write(u"c.qn2"_s, Falling("C", 0.02));
    WriteBytes(program.Path(u"d.qn2"_s), "nothing");
    program.Show();
    program.DropAndRead({u"a.qn2"_s, u"b.qn2"_s, u"c.qn2"_s, u"d.qn2"_s});
    program.ClickHeading(CompareK);
    QCOMPARE(program.Column(CompareNumber), QStringList({u"3"_s, u"2"_s, u"1"_s, u"4"_s}));
    program.ClickHeading(CompareK);
    QCOMPARE(program.Column(CompareNumber), QStringList({u"1"_s, u"2"_s, u"3"_s, u"4"_s}));
    program.ClickHeading(CompareWell);
    QCOMPARE(program.Column(CompareWell), QStringList({u"A"_s, u"B"_s, u"C"_s, QString()}));
    program.ClickHeading(CompareWell);
    QCOMPARE(program.Column(CompareWell), QStringList({u"C"_s, u"B"_s, u"A"_s, QString()}));
    program.ClickRow(0);
    program.ClickHeading(CompareNumber);
    QCOMPARE(program.Column(CompareNumber), QStringList({u"1"_s, u"2"_s, u"3"_s, u"4"_s}));
    // What is chosen stays chosen.
    QCOMPARE(program.Grid().selectionModel()->selectedRows().constFirst().row(), 2);
}

void TestCompareTable::HeadingsSortFromTheMenuToo() {
    CompareProgram program;
    program.ShowFour();
    program.Grid().setFocus();
    program.Grid().setCurrentIndex(program.Model().index(0, CompareK));
    program.Find<QAction>(u"CompareSortColumn"_s).trigger();
    QCOMPARE(program.Column(CompareNumber).constFirst(), u"1"_s);
    program.Find<QAction>(u"CompareSortColumn"_s).trigger();
    QCOMPARE(program.Column(CompareNumber).constFirst(), u"4"_s);
}

void TestCompareTable::UnitsAreThoseOfTheListsOrTheFirstRow() {
    CompareProgram program;
    ProjectState state = Falling("A", 0.01);
    state.CmboKLengthUnits = Foot;
    state.CmboKTimeUnits = Minute;
    program.Write(u"a.qn2"_s, state);
    program.Show();
    program.DropAndRead({u"a.qn2"_s});
    QCOMPARE(program.Find<QComboBox>(u"CompareLengthUnit"_s).currentText(), u"ft"_s);
    QCOMPARE(program.Find<QComboBox>(u"CompareTimeUnit"_s).currentText(), u"min"_s);
    QCOMPARE(program.Heading(CompareK), u"K (ft/min)"_s);
    const QString before = program.Cell(0, CompareK);
    program.ChooseEntry(u"CompareLengthUnit"_s, Metre);
    program.ChooseEntry(u"CompareTimeUnit"_s, Day);
    QCOMPARE(program.Heading(CompareK), u"K (m/day)"_s);
    QCOMPARE(program.Heading(CompareFirstY), u"First Y (m)"_s);
    QVERIFY(program.Cell(0, CompareK) != before);
    QCOMPARE(program.Cell(0, CompareKAsShown), before + u" ft/min"_s);
    QVERIFY(program.Statistics().contains(u" m/day, arithmetic mean"_s));
}

void TestCompareTable::GroupsFollowTheirList() {
    CompareProgram program;
    program.ShowFour();
    QVERIFY(program.Statistics().startsWith(u"MW-1: 3 of 3 tests counted; "_s));
    QVERIFY(program.Statistics().contains(u"\nMW-2: 1 of 1 tests counted; "_s));
    program.ChooseEntry(u"CompareGroup"_s, 2);
    QVERIFY2(program.Statistics().startsWith(u"All: 4 of 4 tests counted; "_s),
             qPrintable(program.Statistics()));
    QCOMPARE(program.Legend().size(), 4);
    program.ChooseEntry(u"CompareGroup"_s, 1);
    QVERIFY2(program.Statistics().contains(u" / MW-2: 1 of 1 tests counted; "_s) ||
                 program.Statistics().contains(u"MW-2: 1 of 1 tests counted; "_s),
             qPrintable(program.Statistics()));
}

void TestCompareTable::StatisticsAreThoseOfAllGroupsOrTheChosenRows() {
    CompareProgram program;
    program.ShowFour();
    const QString all = program.Statistics();
    QVERIFY(all.contains(u"\nAll: 4 of 4 tests counted; "_s));
    QVERIFY(all.contains(u"K changed by 100.0 % from the first to the last test"_s));
    QVERIFY(all.endsWith(u"\n"_s + SkinLine));
    program.ClickRow(3);
    QVERIFY(program.Statistics().startsWith(u"MW-2: 1 of 1"_s));
    QVERIFY(!program.Statistics().contains(u"MW-1"_s));
    // One test alone agrees with nothing.
    QVERIFY(!program.Statistics().contains(SkinLine));
    program.ClickRow(3, Qt::ControlModifier);
    QCOMPARE(program.Statistics(), all);
}

void TestCompareTable::StatisticsAreThoseOfAllChosenWells() {
    CompareProgram program;
    program.ShowFour();
    program.Write(u"test 11.qn2"_s, Falling("MW-3", 0.03));
    program.DropAndRead({u"test 11.qn2"_s});
    program.ClickRow(3);
    program.ClickRow(1, Qt::ControlModifier);
    program.ClickRow(0, Qt::ControlModifier);
    QVERIFY2(program.Statistics().startsWith(u"MW-1: 3 of 3 tests counted; "_s),
             qPrintable(program.Statistics()));
    QVERIFY(program.Statistics().contains(u"\n\nMW-2: 1 of 1 tests counted; "_s));
    QVERIFY(program.Statistics().endsWith(u"\n\n"_s + SkinLine));
    QCOMPARE(program.Statistics().count(u"tests counted"_s), 2);
}

void TestCompareTable::TheCaptionOfThePlotNamesAllChosenWells() {
    CompareProgram program;
    auto caption = [&program] {
        return program.Find<QLabel>(u"ComparePlotCaption"_s).text().replace(u"&z"_s, u"z"_s);
    };
    program.Show();
    QCOMPARE(caption(), u"Normalized plot:"_s);
    program.ShowFour();
    program.Write(u"test 11.qn2"_s, Falling("Pump & Co", 0.03));
    program.Write(u"test 12.qn2"_s, Falling("MW-4", 0.03));
    WriteBytes(program.Path(u"test 13.qn2"_s), "no project");
    program.DropAndRead({u"test 11.qn2"_s, u"test 12.qn2"_s, u"test 13.qn2"_s});
    QCOMPARE(caption(), u"Normalized plot of MW-1:"_s);
    program.ClickRow(3);
    QCOMPARE(caption(), u"Normalized plot of MW-2:"_s);
    program.ClickRow(0, Qt::ControlModifier);
    program.ClickRow(1, Qt::ControlModifier);
    program.ClickRow(4, Qt::ControlModifier);
    QCOMPARE(caption(), u"Normalized plot of MW-1, MW-2, Pump && Co:"_s);
    program.ClickRow(5, Qt::ControlModifier);
    QCOMPARE(caption(), u"Normalized plot of 4 groups:"_s);
    program.ClickRow(6);
    QCOMPARE(caption(), u"Normalized plot:"_s);
    // No name is too long for the window.
    program.Write(u"test 14.qn2"_s, Falling(std::string(500, 'W'), 0.03));
    const int width = program.Frm().width();
    program.DropAndRead({u"test 14.qn2"_s});
    program.ClickRow(7);
    QCOMPARE(program.Frm().width(), width);
    QVERIFY(program.Find(u"ComparePlot"_s).width() < width);
    QVERIFY(program.Find<QLabel>(u"ComparePlotCaption"_s).toolTip().contains(u"WWWW"_s));
}

void TestCompareTable::StatisticsCanBeSelected() {
    CompareProgram program;
    program.ShowFour();
    auto& text = program.Find<QPlainTextEdit>(u"CompareStatistics"_s);
    text.setFocus();
    const QString before = text.toPlainText();
    QTest::keyClicks(&text, u"abc"_s);
    QCOMPARE(text.toPlainText(), before);
    QTest::keyClick(&text, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&text, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), before);
}

void TestCompareTable::PlotShowsTheGroupOfTheChosenRowOrTheChosenRows() {
    CompareProgram program;
    program.ShowFour();
    const auto named = [](int number) {
        return u"No. %1, 2024-03-05, Not Applicable"_s.arg(number);
    };
    QCOMPARE(program.Legend(), QStringList({named(1), named(2), named(3)}));
    program.ClickRow(3);
    QCOMPARE(program.Legend(), QStringList({named(4)}));
    program.ClickRow(1);
    QCOMPARE(program.Legend(), QStringList({named(1), named(2), named(3)}));
    program.ClickRow(3, Qt::ControlModifier);
    QCOMPARE(program.Legend(), QStringList({named(2), named(4)}));
    QVERIFY(program.PlotSays("Time (sec)"));
}

void TestCompareTable::PlotDividesByTheTimeLag() {
    CompareProgram program;
    program.ShowFour();
    auto& tick = program.Find<QCheckBox>(u"CompareTimeLag"_s);
    QCOMPARE(tick.text().remove(u'&'), u"Time of each test divided by its basic time lag"_s);
    QVERIFY(!tick.isChecked());
    tick.setFocus();
    QTest::keyClick(&tick, Qt::Key_Space);
    QVERIFY(program.PlotSays("Time divided by the basic time lag"));
    QTest::keyClick(&tick, Qt::Key_Space);
    QVERIFY(program.PlotSays("Time (sec)"));
}

void TestCompareTable::MovesAndRemovesRows() {
    CompareProgram program;
    program.ShowFour();
    const auto files = [&program] {
        QStringList numbers;
        for (const QString& file : program.Column(CompareFile))
            numbers << file.mid(5, file.size() - 9);
        return numbers.join(u' ');
    };
    const auto chosen = [&program] {
        QList<int> rows;
        for (const QModelIndex& index : program.Grid().selectionModel()->selectedRows())
            rows << index.row();
        return rows;
    };
    program.ClickRow(1);
    program.Click(u"CompareUp"_s);
    QCOMPARE(files(), u"2 1 3 10"_s);
    QCOMPARE(program.Column(CompareNumber), QStringList({u"1"_s, u"2"_s, u"3"_s, u"4"_s}));
    program.Click(u"CompareUp"_s); // it stands at the top
    QCOMPARE(files(), u"2 1 3 10"_s);
    program.ClickRow(1, Qt::ControlModifier);
    program.Click(u"CompareUp"_s); // both stay behind each other
    QCOMPARE(files(), u"2 1 3 10"_s);
    program.Click(u"CompareDown"_s);
    QCOMPARE(files(), u"3 2 1 10"_s);
    program.Click(u"CompareDown"_s);
    program.Click(u"CompareDown"_s);
    QCOMPARE(files(), u"3 10 2 1"_s);
    program.Click(u"CompareRemove"_s);
    QCOMPARE(files(), u"3 10"_s);
    // The keyboard goes on with the neighbour, which is chosen.
    QCOMPARE(chosen(), QList<int>{1});
    QCOMPARE(program.Grid().currentIndex().row(), 1);
    program.Click(u"CompareUp"_s);
    program.Click(u"CompareRemove"_s);
    QCOMPARE(files(), u"3"_s);
    QCOMPARE(chosen(), QList<int>{0});
    program.Click(u"CompareRemove"_s);
    QCOMPARE(files(), QString());
    QVERIFY(!program.Button(u"CompareRemove"_s).isEnabled());
    QVERIFY(QFile::exists(program.Path(u"test 1.qn2"_s)));
}

void TestCompareTable::RemoveChoosesTheNeighbourThatIsSeen() {
    CompareProgram program;
    program.ShowFour();
    program.ClickHeading(CompareNumber); // now the last stands first
    QCOMPARE(program.Column(CompareNumber), QStringList({u"4"_s, u"3"_s, u"2"_s, u"1"_s}));
    program.ClickRow(0);
    program.ClickRow(2, Qt::ControlModifier);
    program.Click(u"CompareRemove"_s);
    QCOMPARE(program.Column(CompareFile), QStringList({u"test 3.qn2"_s, u"test 1.qn2"_s}));
    const QModelIndexList chosen = program.Grid().selectionModel()->selectedRows();
    QCOMPARE(chosen.size(), 1);
    QCOMPARE(chosen.constFirst().row(), 1);
}

void TestCompareTable::ModelKeepsItsPromises() {
    CompareProgram program;
    program.WriteFour();
    program.Show();
    QAbstractItemModelTester tester(&program.Model(),
                                    QAbstractItemModelTester::FailureReportingMode::QtTest);
    program.DropAndRead({u"test 1.qn2"_s, u"test 2.qn2"_s, u"test 10.qn2"_s});
    program.ClickHeading(CompareK);
    program.ClickRow(0);
    program.Click(u"CompareDown"_s);
    program.ChooseEntry(u"CompareGroup"_s, 2);
    program.ChooseEntry(u"CompareLengthUnit"_s, Inch);
    program.Click(u"CompareRemove"_s);
    QCOMPARE(program.Model().rowCount(), 2);
}

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestCompareTable)

#include "test_compare_table.moc"
