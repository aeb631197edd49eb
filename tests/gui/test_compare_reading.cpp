// How the window "Compare Projects" reads many files and goes on meanwhile.

#include "tests/gui/CompareProjectsTestSupport.h"

#include <QProgressBar>
#include <filesystem>

namespace quarnel::windowtest {

namespace {

constexpr int ManyFiles = 1500;

/// Many names of one long project, which takes a while to read.
QStringList WriteMany(CompareProgram& program) {
    ProjectState state = Falling("A", 0.0005);
    state.RecDatGrid.clear();
    for (int i = 0; i < 1000; ++i)
        state.RecDatGrid.push_back(
            {CellText(std::to_string(i)), CellText(std::to_string(50 * std::exp(-0.0005 * i)))});
    program.Write(u"many.qn2"_s, state);
    QStringList names;
    for (int i = 0; i < ManyFiles; ++i) {
        names << u"m %1.qn2"_s.arg(i);
        std::filesystem::create_hard_link(ToUtf8(program.Path(u"many.qn2"_s)),
                                          ToUtf8(program.Path(names.constLast())));
    }
    return names;
}

} // namespace

class TestCompareReading : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void ReadsAgainWhatChangedOnDisk();
    void ReadingAgainKeepsWhatIsChosen();
    void RowsAppearAsTheyComeAndTheWindowStaysUsable();
    void CancelAtOnceLeavesFewRows();
    void CancelHalfWayKeepsTheRowsThatCame();
    void ClosingCancels();
    void FilesAddedWhileReadingAreReadToo();
    void ReadAgainWhileReadingLosesNothing();
};

void TestCompareReading::ReadsAgainWhatChangedOnDisk() {
    CompareProgram program;
    program.ShowFour();
    const QStringList before = program.Column(CompareK);
    program.Write(u"test 2.qn2"_s, Falling("MW-9", 0.05));
    QVERIFY(QFile::remove(program.Path(u"test 3.qn2"_s)));
    QCOMPARE(program.Column(CompareK), before);
    program.Click(u"CompareReload"_s);
    program.WaitUntilRead();
    QCOMPARE(program.Model().rowCount(), 4);
    QCOMPARE(program.Cell(0, CompareK), before[0]);
    QCOMPARE(program.Cell(1, CompareWell), u"MW-9"_s);
    QVERIFY(program.Cell(1, CompareK) != before[1]);
    QCOMPARE(program.Cell(2, CompareK), u"-"_s);
    QCOMPARE(program.Cell(2, CompareFile), u"test 3.qn2"_s);
}

void TestCompareReading::ReadingAgainKeepsWhatIsChosen() {
    CompareProgram program;
    program.ShowFour();
    program.ClickRow(2);
    program.Click(u"CompareReload"_s);
    program.WaitUntilRead();
    const QModelIndexList chosen = program.Grid().selectionModel()->selectedRows();
    QCOMPARE(chosen.size(), 1);
    QCOMPARE(chosen.constFirst().row(), 2);
    QCOMPARE(program.Grid().currentIndex().row(), 2);
}

void TestCompareReading::RowsAppearAsTheyComeAndTheWindowStaysUsable() {
    CompareProgram program;
    const QStringList names = WriteMany(program);
    program.Show();
    program.Drop(names);
    QVERIFY(program.IsReading());
    QTRY_VERIFY(program.Model().rowCount() > 0);
    QVERIFY(program.Model().rowCount() < ManyFiles);
    auto& bar = program.Find<QProgressBar>(u"CompareProgressBar"_s);
    QCOMPARE(bar.maximum(), ManyFiles);
    QCOMPARE(bar.value(), program.Model().rowCount());
    // The rows stand in the order given from the first on; sorting and units work meanwhile.
    QCOMPARE(program.Cell(0, CompareFile), u"m 0.qn2"_s);
    program.ChooseEntry(u"CompareLengthUnit"_s, Centimetre);
    program.ClickRow(0);
    QVERIFY(program.IsReading());
    program.WaitUntilRead();
    QCOMPARE(program.Model().rowCount(), ManyFiles);
    QCOMPARE(program.Column(CompareFile), names);
    QCOMPARE(program.Heading(CompareK), u"K (cm/day)"_s);
    QCOMPARE(program.Grid().selectionModel()->selectedRows().size(), 1);
}

void TestCompareReading::CancelAtOnceLeavesFewRows() {
    CompareProgram program;
    const QStringList names = WriteMany(program);
    program.Show();
    program.Drop(names);
    program.Click(u"CompareCancel"_s);
    program.WaitUntilRead();
    QVERIFY2(program.Model().rowCount() < ManyFiles / 2,
             qPrintable(QString::number(program.Model().rowCount())));
    // It begins anew with the next files.
    const int kept = program.Model().rowCount();
    program.DropAndRead({u"many.qn2"_s});
    QCOMPARE(program.Model().rowCount(), kept + 1);
}

void TestCompareReading::CancelHalfWayKeepsTheRowsThatCame() {
    CompareProgram program;
    const QStringList names = WriteMany(program);
    program.Show();
    program.Drop(names);
    QTRY_VERIFY(program.Model().rowCount() > 20);
    program.Button(u"CompareCancel"_s).setFocus();
    program.Click(u"CompareCancel"_s);
    program.WaitUntilRead();
    const int rows = program.Model().rowCount();
    QVERIFY(rows > 20);
    QVERIFY2(rows < ManyFiles, qPrintable(QString::number(rows)));
    QCOMPARE(program.Column(CompareFile), names.mid(0, rows));
    QCOMPARE(program.Frm().focusWidget(), &program.Grid());
    QTest::qWait(50);
    QCOMPARE(program.Model().rowCount(), rows);
}

void TestCompareReading::ClosingCancels() {
    CompareProgram program;
    const QStringList names = WriteMany(program);
    program.Show();
    program.Drop(names);
    QTRY_VERIFY(program.Model().rowCount() > 0);
    QTest::keyClick(&program.Frm(), Qt::Key_Escape);
    QVERIFY(!program.Frm().isVisible());
    program.Show();
    program.WaitUntilRead();
    QVERIFY(program.Model().rowCount() < ManyFiles);
}

void TestCompareReading::FilesAddedWhileReadingAreReadToo() {
    CompareProgram program;
    const QStringList names = WriteMany(program);
    program.Show();
    program.Drop(names);
    program.Drop({u"many.qn2"_s});
    QCOMPARE(program.Find<QProgressBar>(u"CompareProgressBar"_s).maximum(), ManyFiles + 1);
    program.WaitUntilRead();
    QCOMPARE(program.Column(CompareFile), names + QStringList(u"many.qn2"_s));
}

void TestCompareReading::ReadAgainWhileReadingLosesNothing() {
    CompareProgram program;
    const QStringList names = WriteMany(program);
    program.Show();
    program.Drop(names);
    program.Drop({u"many.qn2"_s});
    QTRY_VERIFY(program.Model().rowCount() > 0);
    program.Click(u"CompareReload"_s);
    program.WaitUntilRead();
    QCOMPARE(program.Column(CompareFile), names + QStringList(u"many.qn2"_s));
}

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestCompareReading)

#include "test_compare_reading.moc"
