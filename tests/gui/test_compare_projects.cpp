#include "tests/gui/WindowTestSupport.h"

#include "compare/CompareGrid.h"
#include "compare/CompareProjectsFrm.h"
#include "compare/CompareTableModel.h"
#include "output/DrawingWidget.h"
#include "project/ProjectFileDialogs.h"

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QDropEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QStandardPaths>
#include <filesystem>

namespace quarnel::windowtest {

namespace {

const QString EmptyText = u"Add the projects to compare, or drop them here."_s;
const QString SkinLine = u"Agreement does not rule out a skin around the screen."_s;

QByteArray BytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void WriteBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

/// A test of a well with exact readings that fall by `rate` a second.
ProjectState Falling(const std::string& well, double rate, double first = 50) {
    ProjectState state;
    state.WellTestIDTxt[WellLabel] = well;
    state.WellTestIDTxt[TestDate] = "2024-03-05";
    state.WellGeoText = {"32.5", "19.8", "9.8", "8.25", "2", "30"};
    state.RecDatDataTypeDDL = ChangeInHead;
    state.RecDatWaterLevelUnitsDDL = Centimetre;
    for (int i = 0; i < 8; ++i)
        state.RecDatGrid[static_cast<std::size_t>(i)] = {
            CellText(std::to_string(i * 10)),
            CellText(std::to_string(first * std::exp(-rate * i * 10)))};
    return state;
}

/// The program with the window "Compare Projects" and a folder of projects.
class CompareProgram : public Program {
public:
    CompareProgram() { RememberFolderOf(Path(u"x"_s)); }

    QString Path(const QString& name) const { return folder_.filePath(name); }
    void Write(const QString& name, const ProjectState& state) const {
        FileOnDisk file;
        QVERIFY(WriteProjectFile(ToUtf8(Path(name)), state, file).isSaved);
    }
    /// Three tests of MW-1, the last with twice the K of the first, and one of MW-2.
    void WriteFour() const {
        Write(u"test 1.qn2"_s, Falling("MW-1", 0.01));
        Write(u"test 2.qn2"_s, Falling("MW-1", 0.02, 25));
        Write(u"test 3.qn2"_s, Falling("mw-1 ", 0.02));
        Write(u"test 10.qn2"_s, Falling("MW-2", 0.03));
    }

    CompareProjectsFrm& Show() {
        Choose(u"mnuCompareProjects"_s);
        return Frm();
    }
    CompareProjectsFrm& Frm() { return Find<CompareProjectsFrm>(u"CompareProjectsFrm"_s); }
    CompareGrid& Grid() { return Find<CompareGrid>(u"CompareGrid"_s); }
    QAbstractItemModel& Model() { return *Grid().model(); }
    QPushButton& Button(const QString& name) { return Find<QPushButton>(name); }
    void Click(const QString& name) {
        QPushButton& button = Button(name);
        QVERIFY2(button.isEnabled(), qPrintable(name));
        QTest::mouseClick(&button, Qt::LeftButton);
    }
    bool IsReading() { return Find(u"CompareProgress"_s).isVisible(); }
    void WaitUntilRead() { QTRY_VERIFY_WITH_TIMEOUT(!IsReading(), 60'000); }

    /// Drops files on the window as a file manager does.
    void Drop(const QStringList& names) {
        QMimeData mime;
        QList<QUrl> urls;
        for (const QString& name : names)
            urls.append(QUrl::fromLocalFile(Path(name)));
        mime.setUrls(urls);
        QWidget& onto = *Grid().viewport();
        QDragEnterEvent enter(onto.rect().center(), Qt::CopyAction, &mime, Qt::LeftButton,
                              Qt::NoModifier);
        QApplication::sendEvent(&Frm(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(onto.rect().center(), Qt::CopyAction, &mime, Qt::LeftButton,
                        Qt::NoModifier);
        QApplication::sendEvent(&Frm(), &drop);
        QVERIFY(drop.isAccepted());
    }
    void DropAndRead(const QStringList& names) {
        Drop(names);
        WaitUntilRead();
    }
    void ShowFour() {
        WriteFour();
        Show();
        DropAndRead({u"test 1.qn2"_s, u"test 2.qn2"_s, u"test 3.qn2"_s, u"test 10.qn2"_s});
        QCOMPARE(Model().rowCount(), 4);
    }

    QString Cell(int row, int column) { return Model().index(row, column).data().toString(); }
    QStringList Column(int column) {
        QStringList texts;
        for (int row = 0; row < Model().rowCount(); ++row)
            texts << Cell(row, column);
        return texts;
    }
    QString Heading(int column) { return Model().headerData(column, Qt::Horizontal).toString(); }
    void ClickHeading(int column) {
        QHeaderView& header = *Grid().horizontalHeader();
        Grid().scrollTo(Model().index(0, column));
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          {header.sectionViewportPosition(column) + 5, header.height() / 2});
    }
    void ClickRow(int row, Qt::KeyboardModifiers modifiers = {}) {
        Grid().scrollTo(Model().index(row, 0));
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, modifiers,
                          Grid().visualRect(Model().index(row, 0)).center());
    }
    void ChooseEntry(const QString& list, int entry) {
        auto& box = Find<QComboBox>(list);
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_Home);
        for (int i = 0; i < entry; ++i)
            QTest::keyClick(&box, Qt::Key_Down);
    }
    QString Statistics() { return Find<QPlainTextEdit>(u"CompareStatistics"_s).toPlainText(); }
    const Drawing& Plot() { return Find<DrawingWidget>(u"ComparePlot"_s).Shown(); }
    QStringList Legend() {
        QStringList names;
        for (const DrawingLabel& label : Plot().labels)
            if (label.text.starts_with("No. "))
                names << ToQString(label.text);
        return names;
    }
    bool PlotSays(const std::string& text) {
        return std::any_of(Plot().labels.begin(), Plot().labels.end(),
                           [&text](const DrawingLabel& label) { return label.text == text; });
    }

private:
    QTemporaryDir folder_;
};

/// Answers the dialog that asks for the folder of records.
void AnswerRecordDialog(Answers& answers, const QString& folder, const QString& filter) {
    answers.Dialog<QFileDialog>([folder, filter](QFileDialog& dialog) {
        auto* kinds = dialog.findChild<QComboBox*>(u"fileTypeCombo"_s);
        QVERIFY(kinds->isEnabled());
        kinds->setFocus();
        QTest::keyClick(kinds, Qt::Key_Home);
        while (kinds->currentText() != filter)
            QTest::keyClick(kinds, Qt::Key_Down);
        // Set, not typed: the list of completions would take the Enter.
        auto* edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
        edit->setText(folder);
        QTest::keyClick(edit, Qt::Key_Return);
    });
}

/// A font of 200 % as long as it lives.
class LargeFont {
public:
    LargeFont()
        : usual_(QApplication::font()) {
        QFont large = usual_;
        large.setPointSizeF(usual_.pointSizeF() * 2);
        QApplication::setFont(large);
    }
    ~LargeFont() { QApplication::setFont(usual_); }
    LargeFont(const LargeFont&) = delete;
    LargeFont& operator=(const LargeFont&) = delete;

private:
    QFont usual_;
};

const QString TextFilter = u"Text (*.txt)"_s;
const QString PdfFilter = u"PDF (*.pdf)"_s;

} // namespace

class TestCompareProjects : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void StandsInTheMenuToolsWithoutAShortcut();
    void OpensOnceAndIsNotModal();
    void InvitesWhileItIsEmpty();
    void AddsManyAtOnceInNaturalOrder();
    void TakesDroppedFilesAndTheProjectsOfAFolder();
    void AFileThatCannotBeReadIsARowAndNeverABox();
    void APathGivenTwiceIsToldAndNotCounted();
    void RowsThatDoNotCountAreGreyAndTellWhy();
    void ToolTipsTellPathAndRemarks();
    void HeadingsSortNumbersByValueWithDashesLast();
    void HeadingsSortFromTheMenuToo();
    void UnitsAreThoseOfTheListsOrTheFirstRow();
    void GroupsFollowTheirList();
    void StatisticsAreThoseOfAllGroupsOrTheChosenRows();
    void StatisticsCanBeSelected();
    void PlotShowsTheGroupOfTheChosenRowOrTheChosenRows();
    void PlotDividesByTheTimeLag();
    void MovesAndRemovesRows();
    void ReadsAgainWhatChangedOnDisk();
    void ReadingAgainKeepsWhatIsChosen();
    void CopiesChosenRowsWithHeadings();
    void CopiesTheTableWithoutFormulas();
    void EnterAndDoubleClickOpenTheProject();
    void NamesTheSavedStateOfTheOpenProject();
    void SavesTheTableAsCsvAndPdf();
    void TheChosenKindCountsWhereTheNameHasNoEnding();
    void NeverSavesOverAProject();
    void WritesARecordForEachChosenRow();
    void AsksBeforeItReplacesRecords();
    void WritesRecordsOfOneNameBesideEachOther();
    void WritesThePdfRecordWithThePlot();
    void ARecordOfAFileThatIsGoneIsNotWritten();
    void RecordIntoAFolderThatIsNoneIsTold();
    void RowsAppearAsTheyComeAndTheWindowStaysUsable();
    void CancelAtOnceLeavesFewRows();
    void CancelHalfWayKeepsTheRowsThatCame();
    void ClosingCancels();
    void FilesAddedWhileReadingAreReadToo();
    void ReadAgainWhileReadingLosesNothing();
    void EveryControlHasANameAndAMnemonic();
    void WorksByKeyboardAloneWithALargeFont();
    void FitsASmallWindow();
    void ModelKeepsItsPromises();
};

// ---- The window ---------------------------------------------------------------------------------

void TestCompareProjects::StandsInTheMenuToolsWithoutAShortcut() {
    CompareProgram program;
    auto& entry = program.Find<QAction>(u"mnuCompareProjects"_s);
    QCOMPARE(entry.text().remove(u'&'), u"Compare Projects..."_s);
    QVERIFY(entry.shortcut().isEmpty());
    QVERIFY(program.Find<QMenu>(u"mnuTools"_s).actions().contains(&entry));
}

void TestCompareProjects::OpensOnceAndIsNotModal() {
    CompareProgram program;
    CompareProjectsFrm& frm = program.Show();
    QVERIFY(frm.isVisible());
    QCOMPARE(frm.windowTitle(), u"Compare Projects"_s);
    QVERIFY(!frm.isModal());
    QCOMPARE(frm.size(), QSize(960, 640).boundedTo(frm.screen()->availableSize()));
    QTest::keyClick(&frm, Qt::Key_Escape);
    QVERIFY(!frm.isVisible());
    program.Show();
    QCOMPARE(program.Window().findChildren<CompareProjectsFrm*>().size(), 1);
    QVERIFY(frm.isVisible());
}

void TestCompareProjects::InvitesWhileItIsEmpty() {
    CompareProgram program;
    program.Show();
    QCOMPARE(program.Grid().accessibleDescription(), EmptyText);
    const QImage empty = program.Grid().viewport()->grab().toImage();
    program.Grid().SetEmptyText(QString());
    QVERIFY(program.Grid().viewport()->grab().toImage() != empty);
    for (const char* name : {"CompareRemove", "CompareUp", "CompareDown", "CompareReload",
                             "CompareCopy", "CompareSave", "CompareRecord"})
        QVERIFY2(!program.Button(QLatin1String(name)).isEnabled(), name);
    QVERIFY(program.Plot().IsEmpty());
    QCOMPARE(program.Statistics(), QString());
    QVERIFY(!program.IsReading());
}

void TestCompareProjects::AddsManyAtOnceInNaturalOrder() {
    CompareProgram program;
    program.WriteFour();
    program.Show();
    Answers answers;
    answers.Dialog<QFileDialog>([&program](QFileDialog& dialog) {
        QCOMPARE(dialog.nameFilters().constFirst(), u"Quarnel 2 (*.qn2)(*.qn2)"_s);
        auto* edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
        dialog.setDirectory(program.Path(QString()));
        edit->setFocus();
        QTest::keyClicks(edit, u"\"test 10.qn2\" \"test 2.qn2\" \"test 1.qn2\" \"test 3.qn2\""_s);
        QTest::keyClick(edit, Qt::Key_Return);
    });
    program.Click(u"CompareAdd"_s);
    program.WaitUntilRead();
    QVERIFY2(answers.AllGiven(), answers.Complaints());
    QCOMPARE(program.Column(CompareFile),
             QStringList({u"test 1.qn2"_s, u"test 2.qn2"_s, u"test 3.qn2"_s, u"test 10.qn2"_s}));
    QCOMPARE(program.Column(CompareNumber), QStringList({u"1"_s, u"2"_s, u"3"_s, u"4"_s}));
    Answers cancel;
    cancel.CancelFileName();
    program.Click(u"CompareAdd"_s);
    QVERIFY2(cancel.AllGiven(), cancel.Complaints());
    QCOMPARE(program.Model().rowCount(), 4);
}

void TestCompareProjects::TakesDroppedFilesAndTheProjectsOfAFolder() {
    CompareProgram program;
    QVERIFY(QDir(program.Path(QString())).mkpath(u"site/deeper"_s));
    program.Write(u"site/b 10.qn2"_s, Falling("B", 0.01));
    program.Write(u"site/b 9.qn2"_s, Falling("B", 0.01));
    program.Write(u"site/deeper/c.qn2"_s, Falling("C", 0.01));
    WriteBytes(program.Path(u"site/notes.txt"_s), "no project");
    program.Write(u"a.qn2"_s, Falling("A", 0.01));
    program.Show();
    program.DropAndRead({u"site"_s, u"a.qn2"_s});
    QCOMPARE(program.Column(CompareFile), QStringList({u"a.qn2"_s, u"b 9.qn2"_s, u"b 10.qn2"_s}));
    // It goes to this window, not to the one with the open project.
    QVERIFY(program.Window().Current().file.CurrentProjectFile.empty());
}

void TestCompareProjects::AFileThatCannotBeReadIsARowAndNeverABox() {
    CompareProgram program;
    WriteBytes(program.Path(u"letter.qn2"_s), "Dear reader,\n");
    program.Write(u"one.qn2"_s, Falling("A", 0.01));
    program.Show();
    const Answers answers;
    program.DropAndRead({u"letter.qn2"_s, u"missing.qn2"_s, u"one.qn2"_s});
    QVERIFY2(answers.AllGiven(), answers.Complaints());
    QCOMPARE(program.Model().rowCount(), 3);
    QCOMPARE(program.Cell(0, CompareRemarks),
             u"The file could not be read: The file selected does not appear to be a QUARNEL "
             "input file."_s);
    QCOMPARE(program.Cell(1, CompareRemarks), u"The file could not be read: 53 File not found"_s);
    QCOMPARE(program.Cell(0, CompareK), u"-"_s);
    QVERIFY(program.Cell(2, CompareK) != u"-"_s);
}

void TestCompareProjects::APathGivenTwiceIsToldAndNotCounted() {
    CompareProgram program;
    program.Write(u"one.qn2"_s, Falling("A", 0.01));
    program.Show();
    program.DropAndRead({u"one.qn2"_s});
    program.DropAndRead({u"one.qn2"_s});
    QCOMPARE(program.Model().rowCount(), 2);
    QCOMPARE(program.Cell(1, CompareRemarks), u"The file stands above already."_s);
    QVERIFY2(program.Statistics().startsWith(u"A: 1 of 1 tests counted; "_s),
             qPrintable(program.Statistics()));
}

void TestCompareProjects::RowsThatDoNotCountAreGreyAndTellWhy() {
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

void TestCompareProjects::ToolTipsTellPathAndRemarks() {
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

// ---- Table --------------------------------------------------------------------------------------

void TestCompareProjects::HeadingsSortNumbersByValueWithDashesLast() {
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

void TestCompareProjects::HeadingsSortFromTheMenuToo() {
    CompareProgram program;
    program.ShowFour();
    program.Grid().setFocus();
    program.Grid().setCurrentIndex(program.Model().index(0, CompareK));
    program.Find<QAction>(u"CompareSortColumn"_s).trigger();
    QCOMPARE(program.Column(CompareNumber).constFirst(), u"1"_s);
    program.Find<QAction>(u"CompareSortColumn"_s).trigger();
    QCOMPARE(program.Column(CompareNumber).constFirst(), u"4"_s);
}

void TestCompareProjects::UnitsAreThoseOfTheListsOrTheFirstRow() {
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

void TestCompareProjects::GroupsFollowTheirList() {
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

void TestCompareProjects::StatisticsAreThoseOfAllGroupsOrTheChosenRows() {
    CompareProgram program;
    program.ShowFour();
    const QString all = program.Statistics();
    QVERIFY(all.contains(u"\nAll: 4 of 4 tests counted; "_s));
    QVERIFY(all.contains(u"K changed by 100.0 % from the first to the last test"_s));
    QVERIFY(all.endsWith(u"\n"_s + SkinLine));
    program.ClickRow(3);
    QVERIFY(program.Statistics().startsWith(u"MW-2: 1 of 1"_s));
    QVERIFY(!program.Statistics().contains(u"MW-1"_s));
    QVERIFY(program.Statistics().endsWith(SkinLine));
    program.ClickRow(3, Qt::ControlModifier);
    QCOMPARE(program.Statistics(), all);
}

void TestCompareProjects::StatisticsCanBeSelected() {
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

void TestCompareProjects::PlotShowsTheGroupOfTheChosenRowOrTheChosenRows() {
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

void TestCompareProjects::PlotDividesByTheTimeLag() {
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

void TestCompareProjects::MovesAndRemovesRows() {
    CompareProgram program;
    program.ShowFour();
    const auto files = [&program] {
        QStringList numbers;
        for (const QString& file : program.Column(CompareFile))
            numbers << file.mid(5, file.size() - 9);
        return numbers.join(u' ');
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
    QVERIFY(!program.Button(u"CompareRemove"_s).isEnabled());
    QCOMPARE(program.Grid().currentIndex().row(), 1);
    QVERIFY(QFile::exists(program.Path(u"test 1.qn2"_s)));
}

void TestCompareProjects::ReadsAgainWhatChangedOnDisk() {
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

void TestCompareProjects::ReadingAgainKeepsWhatIsChosen() {
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

void TestCompareProjects::CopiesChosenRowsWithHeadings() {
    CompareProgram program;
    program.ShowFour();
    program.ClickRow(3);
    program.ClickRow(1, Qt::ControlModifier);
    QTest::keyClick(&program.Grid(), Qt::Key_C, Qt::ControlModifier);
    const QStringList lines = QApplication::clipboard()->text().split(u'\n');
    QCOMPARE(lines.size(), 4);
    QVERIFY(lines[0].startsWith(u"No.\tWell\tDate\tTest\tUsed\tFirst Y (m)\tK (m/day)\t"_s));
    QVERIFY2(lines[1].startsWith(u"2\tMW-1\t2024-03-05\tNot Applicable\t8 of 8\t"_s),
             qPrintable(lines[1]));
    QVERIFY(lines[2].startsWith(u"4\tMW-2\t"_s));
    QCOMPARE(lines[3], QString());
    QCOMPARE(lines[1].count(u'\t'), int(CompareColumnCount) - 1);
}

void TestCompareProjects::CopiesTheTableWithoutFormulas() {
    CompareProgram program;
    program.Write(u"a.qn2"_s, Falling("=1+1", 0.01));
    program.Write(u"b.qn2"_s, Falling("-5", 0.01));
    WriteBytes(program.Path(u"c.qn2"_s), "nothing");
    program.Show();
    program.DropAndRead({u"a.qn2"_s, u"b.qn2"_s, u"c.qn2"_s});
    program.Click(u"CompareCopy"_s);
    const QStringList lines = QApplication::clipboard()->text().split(u'\n');
    QCOMPARE(lines.size(), 5);
    QCOMPARE(lines[1].split(u'\t')[CompareWell], u"'=1+1"_s);
    QCOMPARE(lines[2].split(u'\t')[CompareWell], u"-5"_s);
    QCOMPARE(lines[3].split(u'\t')[CompareK], u"-"_s);
}

void TestCompareProjects::EnterAndDoubleClickOpenTheProject() {
    CompareProgram program;
    program.ShowFour();
    program.Grid().setFocus();
    program.Grid().setCurrentIndex(program.Model().index(1, 0));
    const Answers answers;
    QTest::keyClick(&program.Grid(), Qt::Key_Return);
    QCOMPARE(ToQString(program.Window().Current().file.CurrentProjectFile),
             program.Path(u"test 2.qn2"_s));
    QCOMPARE(program.SelectedTab(), 1);
    QVERIFY(program.Frm().isVisible());
    program.ClickRow(3);
    QTest::mouseDClick(program.Grid().viewport(), Qt::LeftButton, {},
                       program.Grid().visualRect(program.Model().index(3, 0)).center());
    QCOMPARE(ToQString(program.Window().Current().file.CurrentProjectFile),
             program.Path(u"test 10.qn2"_s));
    QVERIFY2(answers.AllGiven(), answers.Complaints());
}

void TestCompareProjects::NamesTheSavedStateOfTheOpenProject() {
    CompareProgram program;
    program.ShowFour();
    program.Window().OpenPath(program.Path(u"test 2.qn2"_s));
    QTRY_COMPARE(program.Cell(1, CompareFile), u"test 2.qn2"_s);
    TypeInto(program.Find<QLineEdit>(u"SiteIDText_1"_s), u"Site 9"_s);
    QTRY_COMPARE(program.Cell(1, CompareFile), u"test 2.qn2 (saved state)"_s);
    QCOMPARE(program.Cell(0, CompareFile), u"test 1.qn2"_s);
    program.Choose(u"mnuFileSave"_s);
    QTRY_COMPARE(program.Cell(1, CompareFile), u"test 2.qn2"_s);
    // Readings count as much as texts do.
    program.ClickTab(4);
    program.ClickTab(3);
    TypeInto(program.Find<QLineEdit>(u"WellGeoText_0"_s), u"40"_s);
    QTRY_COMPARE(program.Cell(1, CompareFile), u"test 2.qn2 (saved state)"_s);
    program.Window().OpenPath(program.Path(u"test 1.qn2"_s));
    QTRY_COMPARE(program.Cell(1, CompareFile), u"test 2.qn2"_s);
}

// ---- Files --------------------------------------------------------------------------------------

void TestCompareProjects::SavesTheTableAsCsvAndPdf() {
    CompareProgram program;
    program.ShowFour();
    Answers answers;
    answers.FileName(program.Path(u"table.csv"_s));
    program.Click(u"CompareSave"_s);
    answers.FileName(program.Path(u"table.pdf"_s));
    program.Click(u"CompareSave"_s);
    QVERIFY2(answers.AllGiven(), answers.Complaints());
    const QByteArray csv = BytesOf(program.Path(u"table.csv"_s));
    QVERIFY(csv.startsWith("number,well_label,test_date,slug_test_type,used_count,"));
    QCOMPARE(csv.count('\n'), 5);
    QVERIFY(BytesOf(program.Path(u"table.pdf"_s)).startsWith("%PDF-"));
    QProcess text;
    text.start(u"pdftotext"_s, {u"-layout"_s, program.Path(u"table.pdf"_s), u"-"_s});
    QVERIFY(text.waitForFinished());
    const QString shown = QString::fromUtf8(text.readAllStandardOutput());
    for (const QString& part :
         {u"Compare Projects"_s, u"test 10.qn2"_s, u"MW-1: 3 of 3 tests counted"_s, SkinLine,
          u"Normalized plot: MW-1"_s, u"Normalized plot: MW-2"_s,
          u"No. 3, 2024-03-05, Not Applicable"_s})
        QVERIFY2(shown.contains(part), qPrintable(part));
}

void TestCompareProjects::TheChosenKindCountsWhereTheNameHasNoEnding() {
    CompareProgram program;
    program.ShowFour();
    for (const bool isPdf : {false, true}) {
        Answers answers;
        const QString name = isPdf ? u"as-pdf"_s : u"as-csv"_s;
        answers.Dialog<QFileDialog>([&](QFileDialog& dialog) {
            if (isPdf)
                dialog.selectNameFilter(u"PDF (*.pdf)(*.pdf)"_s);
            auto* edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
            edit->setText(program.Path(name));
            QTest::keyClick(edit, Qt::Key_Return);
        });
        program.Click(u"CompareSave"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(BytesOf(program.Path(name)).startsWith(isPdf ? "%PDF-" : "number,"));
    }
}

void TestCompareProjects::ARecordOfAFileThatIsGoneIsNotWritten() {
    CompareProgram program;
    program.ShowFour();
    QVERIFY(QFile::remove(program.Path(u"test 1.qn2"_s)));
    program.ClickRow(0);
    program.ClickRow(1, Qt::ControlModifier);
    Answers answers;
    AnswerRecordDialog(answers, program.Path(QString()), TextFilter);
    answers.Box(u"Compare Projects"_s, u"test 1.qn2: 53 File not found"_s);
    program.Click(u"CompareRecord"_s);
    QVERIFY2(answers.AllGiven(), answers.Complaints());
    QVERIFY(!QFile::exists(program.Path(u"test 1-record.txt"_s)));
    QVERIFY(QFile::exists(program.Path(u"test 2-record.txt"_s)));
}

void TestCompareProjects::NeverSavesOverAProject() {
    CompareProgram program;
    program.ShowFour();
    const QByteArray before = BytesOf(program.Path(u"test 2.qn2"_s));
    Answers answers;
    answers.FileName(program.Path(u"test 2.qn2"_s))
        .BoxAbout(u"already exists"_s, QMessageBox::Yes)
        .Box(u"Quarnel"_s, u"The table needs a file of its own."_s);
    program.Click(u"CompareSave"_s);
    QVERIFY2(answers.AllGiven(), answers.Complaints());
    QCOMPARE(BytesOf(program.Path(u"test 2.qn2"_s)), before);
}

void TestCompareProjects::WritesARecordForEachChosenRow() {
    CompareProgram program;
    program.ShowFour();
    QVERIFY(!program.Button(u"CompareRecord"_s).isEnabled());
    program.ClickRow(0);
    program.ClickRow(3, Qt::ControlModifier);
    Answers answers;
    AnswerRecordDialog(answers, program.Path(QString()), TextFilter);
    program.Click(u"CompareRecord"_s);
    QVERIFY2(answers.AllGiven(), answers.Complaints());
    const QByteArray record = BytesOf(program.Path(u"test 1-record.txt"_s));
    QVERIFY(record.startsWith("Record of the slug test\n"));
    QVERIFY(record.contains("Well label: MW-1\n"));
    QVERIFY(!record.contains(program.Path(QString()).toUtf8()));
    QVERIFY(BytesOf(program.Path(u"test 10-record.txt"_s)).contains("Well label: MW-2\n"));
    QVERIFY(!QFile::exists(program.Path(u"test 2-record.txt"_s)));
}

void TestCompareProjects::AsksBeforeItReplacesRecords() {
    CompareProgram program;
    program.ShowFour();
    WriteBytes(program.Path(u"test 1-record.txt"_s), "mine");
    WriteBytes(program.Path(u"test 2-record.txt"_s), "mine");
    program.ClickRow(0);
    program.ClickRow(2, Qt::ShiftModifier);
    const QString question = u"Replace 2 files?\n\ntest 1-record.txt\ntest 2-record.txt"_s;
    Answers no;
    AnswerRecordDialog(no, program.Path(QString()), TextFilter);
    no.Dialog<QMessageBox>([&question](QMessageBox& box) {
        QCOMPARE(box.text(), question);
        QCOMPARE(box.windowTitle(), u"Compare Projects"_s);
        QCOMPARE(box.defaultButton(), box.button(QMessageBox::No));
        QTest::keyClick(&box, Qt::Key_Return);
    });
    program.Click(u"CompareRecord"_s);
    QVERIFY2(no.AllGiven(), no.Complaints());
    QCOMPARE(BytesOf(program.Path(u"test 1-record.txt"_s)), QByteArray("mine"));
    QVERIFY(!QFile::exists(program.Path(u"test 3-record.txt"_s)));
    Answers yes;
    AnswerRecordDialog(yes, program.Path(QString()), TextFilter);
    yes.Box(u"Compare Projects"_s, question, QMessageBox::Yes);
    program.Click(u"CompareRecord"_s);
    QVERIFY2(yes.AllGiven(), yes.Complaints());
    for (const char* name : {"test 1-record.txt", "test 2-record.txt", "test 3-record.txt"})
        QVERIFY2(BytesOf(program.Path(QLatin1String(name))).startsWith("Record of the slug test"),
                 name);
}

void TestCompareProjects::WritesRecordsOfOneNameBesideEachOther() {
    CompareProgram program;
    QVERIFY(QDir(program.Path(QString())).mkpath(u"x"_s));
    QVERIFY(QDir(program.Path(QString())).mkpath(u"y"_s));
    program.Write(u"x/w.qn2"_s, Falling("X", 0.01));
    program.Write(u"y/w.qn2"_s, Falling("Y", 0.01));
    program.Show();
    program.DropAndRead({u"x/w.qn2"_s, u"y/w.qn2"_s});
    program.Grid().selectAll();
    Answers answers;
    AnswerRecordDialog(answers, program.Path(QString()), TextFilter);
    program.Click(u"CompareRecord"_s);
    QVERIFY2(answers.AllGiven(), answers.Complaints());
    QVERIFY(BytesOf(program.Path(u"w-record.txt"_s)).contains("Well label: X\n"));
    QVERIFY(BytesOf(program.Path(u"w-record-2.txt"_s)).contains("Well label: Y\n"));
}

void TestCompareProjects::WritesThePdfRecordWithThePlot() {
    CompareProgram program;
    program.ShowFour();
    program.ClickRow(0);
    Answers one;
    AnswerRecordDialog(one, program.Path(QString()), PdfFilter);
    program.Click(u"CompareRecord"_s);
    QVERIFY2(one.AllGiven(), one.Complaints());
    QVERIFY(BytesOf(program.Path(u"test 1-record.pdf"_s)).startsWith("%PDF-"));
    program.ClickRow(3, Qt::ControlModifier);
    Answers two;
    AnswerRecordDialog(two, program.Path(QString()), PdfFilter);
    program.Click(u"CompareRecord"_s);
    QVERIFY2(two.AllGiven(), two.Complaints());
    QProcess text;
    text.start(u"pdftotext"_s, {u"-layout"_s, program.Path(u"slug-test-records.pdf"_s), u"-"_s});
    QVERIFY(text.waitForFinished());
    const QStringList pages = QString::fromUtf8(text.readAllStandardOutput()).split(u'\f');
    QVERIFY(pages.join(QString()).contains(u"Well label: MW-1"_s));
    QVERIFY(pages.join(QString()).contains(u"Well label: MW-2"_s));
    QCOMPARE(pages.filter(u"Hydraulic Conductivity: "_s).size(), 2);
    for (const QString& page : pages.filter(u"Hydraulic Conductivity: "_s))
        QVERIFY(!page.contains(u"Record of the slug test"_s));
}

void TestCompareProjects::RecordIntoAFolderThatIsNoneIsTold() {
    CompareProgram program;
    program.ShowFour();
    QVERIFY(QDir(program.Path(QString())).mkpath(u"full/test 1-record.txt"_s));
    program.ClickRow(0);
    Answers answers;
    AnswerRecordDialog(answers, program.Path(u"full"_s), TextFilter);
    answers.BoxAbout(u"Replace 1 file?"_s, QMessageBox::Yes)
        .Box(u"Quarnel"_s, u"75 Path/File access error"_s);
    program.Click(u"CompareRecord"_s);
    QVERIFY2(answers.AllGiven(), answers.Complaints());
    QVERIFY(program.Find<QLabel>(u"StatusText"_s).text().startsWith(u"Not saved: "_s));
}

// ---- Reading ------------------------------------------------------------------------------------

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

void TestCompareProjects::RowsAppearAsTheyComeAndTheWindowStaysUsable() {
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

void TestCompareProjects::CancelAtOnceLeavesFewRows() {
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

void TestCompareProjects::CancelHalfWayKeepsTheRowsThatCame() {
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

void TestCompareProjects::ClosingCancels() {
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

void TestCompareProjects::FilesAddedWhileReadingAreReadToo() {
    CompareProgram program;
    const QStringList names = WriteMany(program);
    program.Show();
    program.Drop(names);
    program.Drop({u"many.qn2"_s});
    QCOMPARE(program.Find<QProgressBar>(u"CompareProgressBar"_s).maximum(), ManyFiles + 1);
    program.WaitUntilRead();
    QCOMPARE(program.Column(CompareFile), names + QStringList(u"many.qn2"_s));
}

void TestCompareProjects::ReadAgainWhileReadingLosesNothing() {
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

// ---- Hands and eyes -----------------------------------------------------------------------------

void TestCompareProjects::EveryControlHasANameAndAMnemonic() {
    CompareProgram program;
    CompareProjectsFrm& frm = program.Show();
    QStringList keys;
    const auto add = [&keys](const QString& text, const QString& name) {
        const qsizetype at = text.indexOf(u'&');
        QVERIFY2(at >= 0 && at + 1 < text.size(), qPrintable(name));
        keys << text.mid(at + 1, 1).toLower();
    };
    for (const QAbstractButton* button : frm.findChildren<QAbstractButton*>())
        if (!button->objectName().startsWith(u"qt_"_s) && !button->text().isEmpty())
            add(button->text(), button->objectName());
    QSet<const QWidget*> buddies;
    for (const QLabel* label : frm.findChildren<QLabel*>())
        if (label->buddy() != nullptr) {
            add(label->text(), label->text());
            buddies.insert(label->buddy());
            QVERIFY2(!label->buddy()->accessibleName().isEmpty(), qPrintable(label->text()));
        }
    for (const char* name : {"CompareLengthUnit", "CompareTimeUnit", "CompareGroup", "CompareGrid",
                             "CompareStatistics", "ComparePlot"})
        QVERIFY2(buddies.contains(&program.Find(QLatin1String(name))), name);
    QStringList unique = keys;
    unique.removeDuplicates();
    QCOMPARE(keys, unique);
}

void TestCompareProjects::WorksByKeyboardAloneWithALargeFont() {
    const LargeFont twiceAsLarge;
    {
        CompareProgram program;
        program.WriteFour();
        CompareProjectsFrm& frm = program.Show();
        frm.resize(800, 560);
        // The platform without a screen gives the keyboard back to the first window.
        const auto activate = [&frm] {
            frm.activateWindow();
            QTRY_COMPARE(QApplication::activeWindow(), &frm);
        };
        activate();
        Answers answers;
        answers.Dialog<QFileDialog>([&program](QFileDialog& dialog) {
            auto* edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
            dialog.setDirectory(program.Path(QString()));
            edit->setFocus();
            QTest::keyClicks(edit, u"\"test 1.qn2\" \"test 2.qn2\""_s);
            QTest::keyClick(edit, Qt::Key_Return);
        });
        QTest::keyClick(&frm, Qt::Key_A, Qt::AltModifier);
        QTRY_COMPARE(program.Model().rowCount(), 2);
        program.WaitUntilRead();
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        activate();
        QTest::keyClick(&frm, Qt::Key_J, Qt::AltModifier);
        QCOMPARE(frm.focusWidget(), &program.Grid());
        QTest::keyClick(&program.Grid(), Qt::Key_Home, Qt::ControlModifier);
        QTest::keyClick(&program.Grid(), Qt::Key_Down);
        QCOMPARE(program.Grid().currentIndex().row(), 1);
        QTest::keyClick(&program.Grid(), Qt::Key_U, Qt::AltModifier);
        QTRY_COMPARE(program.Column(CompareFile), QStringList({u"test 2.qn2"_s, u"test 1.qn2"_s}));
        // Tab leaves the table and comes round to every control, each of them in sight.
        QSet<QString> visited;
        for (int i = 0; i < 40; ++i) {
            QTest::keyClick(frm.focusWidget(), Qt::Key_Tab);
            QWidget* focus = frm.focusWidget();
            visited.insert(focus->objectName());
            const QRect seen = QRect(focus->mapTo(&frm, QPoint(0, 0)), focus->size());
            QVERIFY2(frm.rect().intersects(seen), qPrintable(focus->objectName()));
        }
        for (const QString& name :
             {u"CompareAdd"_s, u"CompareRemove"_s, u"CompareUp"_s, u"CompareDown"_s,
              u"CompareReload"_s, u"CompareLengthUnit"_s, u"CompareTimeUnit"_s, u"CompareGroup"_s,
              u"CompareGrid"_s, u"CompareStatistics"_s, u"ComparePlot"_s, u"CompareTimeLag"_s,
              u"CompareCopy"_s, u"CompareSave"_s, u"CompareRecord"_s, u"CompareClose"_s})
            QVERIFY2(visited.contains(name), qPrintable(name));
        QTest::keyClick(&frm, Qt::Key_J, Qt::AltModifier);
        QTest::keyClick(&program.Grid(), Qt::Key_Return);
        QCOMPARE(ToQString(program.Window().Current().file.CurrentProjectFile),
                 program.Path(u"test 2.qn2"_s));
    }
}

void TestCompareProjects::FitsASmallWindow() {
    CompareProgram program;
    program.ShowFour();
    program.Frm().resize(800, 560);
    QCOMPARE(program.Frm().size(), QSize(800, 560));
    QTRY_VERIFY(program.Find(u"ComparePlot"_s).width() < 560);
    for (const char* name :
         {"CompareAdd", "CompareReload", "CompareGroup", "CompareGrid", "CompareStatistics",
          "ComparePlot", "CompareTimeLag", "CompareRecord", "CompareClose"}) {
        QWidget& control = program.Find(QLatin1String(name));
        const QRect seen(control.mapTo(&program.Frm(), QPoint(0, 0)), control.size());
        QVERIFY2(program.Frm().rect().contains(seen), name);
        QVERIFY2(!control.visibleRegion().isEmpty(), name);
    }
    QVERIFY(program.Grid().viewport()->height() > 4 * program.Grid().rowHeight(0));
}

void TestCompareProjects::ModelKeepsItsPromises() {
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

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestCompareProjects)

#include "test_compare_projects.moc"
