// What leaves the window "Compare Projects": copies, tables and records of tests.

#include "tests/gui/CompareProjectsTestSupport.h"

#include <QClipboard>
#include <QProcess>

namespace quarnel::windowtest {

namespace {

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

const QString TextFilter = u"Text (*.txt)"_s;
const QString PdfFilter = u"PDF (*.pdf)"_s;

} // namespace

class TestCompareFiles : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void CopiesChosenRowsWithHeadings();
    void CopiesTheTableWithoutFormulas();
    void SavesTheTableAsCsvAndPdf();
    void ANameWithoutAnEndingGetsThatOfTheChosenKind();
    void SaysItselfWhatWasSaved();
    void NeverSavesOverAProject();
    void WritesARecordForEachChosenRow();
    void AsksBeforeItReplacesRecords();
    void WritesRecordsOfOneNameBesideEachOther();
    void WritesThePdfRecordWithThePlot();
    void ARecordOfAFileThatIsGoneIsNotWritten();
    void RecordIntoAFolderThatIsNoneIsTold();
};

void TestCompareFiles::CopiesChosenRowsWithHeadings() {
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

void TestCompareFiles::CopiesTheTableWithoutFormulas() {
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

void TestCompareFiles::SavesTheTableAsCsvAndPdf() {
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

void TestCompareFiles::ANameWithoutAnEndingGetsThatOfTheChosenKind() {
    CompareProgram program;
    program.ShowFour();
    for (const bool isPdf : {false, true}) {
        Answers answers;
        const QString name = isPdf ? u"MW-3.1"_s : u"table"_s;
        answers.Dialog<QFileDialog>([&](QFileDialog& dialog) {
            if (isPdf)
                dialog.selectNameFilter(u"PDF (*.pdf)(*.pdf)"_s);
            auto* edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
            edit->setText(program.Path(name));
            QTest::keyClick(edit, Qt::Key_Return);
        });
        program.Click(u"CompareSave"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(!QFile::exists(program.Path(name)));
        const QByteArray saved = BytesOf(program.Path(name + (isPdf ? u".pdf"_s : u".csv"_s)));
        QVERIFY(saved.startsWith(isPdf ? "%PDF-" : "number,"));
    }
    // What stands there under the whole name is asked for.
    Answers answers;
    answers.FileName(program.Path(u"table"_s))
        .BoxAbout(u"table.csv"_s, QMessageBox::No)
        .CancelFileName();
    program.Click(u"CompareSave"_s);
    QVERIFY2(answers.AllGiven(), answers.Complaints());
}

void TestCompareFiles::SaysItselfWhatWasSaved() {
    CompareProgram program;
    program.ShowFour();
    auto& text = program.Find<QLabel>(u"CompareStatusText"_s);
    QVERIFY(program.Frm().isAncestorOf(&text));
    QCOMPARE(text.text(), QString());
    const int height = text.parentWidget()->height();
    Answers answers;
    answers.FileName(program.Path(u"table.csv"_s));
    program.Click(u"CompareSave"_s);
    QCOMPARE(text.text(), u"Saved table as "_s + program.Path(u"table.csv"_s));
    QVERIFY(!program.Find<QLabel>(u"CompareStatusTime"_s).text().isEmpty());
    QCOMPARE(text.parentWidget()->height(), height);
    // The main window, which may be all that is left on the screen, says it too.
    QCOMPARE(program.Find<QLabel>(u"StatusText"_s).text(), text.text());
    QVERIFY(QDir(program.Path(QString())).mkpath(u"full/test 1-record.txt"_s));
    program.ClickRow(0);
    AnswerRecordDialog(answers, program.Path(u"full"_s), TextFilter);
    answers.BoxAbout(u"Replace 1 file?"_s, QMessageBox::Yes)
        .Box(u"Quarnel"_s, u"75 Path/File access error"_s);
    program.Click(u"CompareRecord"_s);
    QCOMPARE(text.text(), u"Not saved: "_s + program.Path(u"full/test 1-record.txt"_s));
    answers.FileName(program.Path(u"plot.svg"_s));
    Find<QAction>(program.Find(u"ComparePlot"_s), u"SavePicture"_s).trigger();
    QCOMPARE(text.text(), u"Saved plot as "_s + program.Path(u"plot.svg"_s));
    QVERIFY2(answers.AllGiven(), answers.Complaints());
}

void TestCompareFiles::NeverSavesOverAProject() {
    CompareProgram program;
    program.ShowFour();
    program.Write(u"own.csv"_s, Falling("MW-3", 0.03));
    program.DropAndRead({u"own.csv"_s});
    const QByteArray before = BytesOf(program.Path(u"own.csv"_s));
    Answers answers;
    answers.FileName(program.Path(u"own.csv"_s))
        .BoxAbout(u"already exists"_s, QMessageBox::Yes)
        .Box(u"Quarnel"_s, u"The table needs a file of its own."_s);
    program.Click(u"CompareSave"_s);
    QVERIFY2(answers.AllGiven(), answers.Complaints());
    QCOMPARE(BytesOf(program.Path(u"own.csv"_s)), before);
}

void TestCompareFiles::WritesARecordForEachChosenRow() {
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

void TestCompareFiles::AsksBeforeItReplacesRecords() {
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

void TestCompareFiles::WritesRecordsOfOneNameBesideEachOther() {
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

void TestCompareFiles::WritesThePdfRecordWithThePlot() {
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

void TestCompareFiles::ARecordOfAFileThatIsGoneIsNotWritten() {
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

void TestCompareFiles::RecordIntoAFolderThatIsNoneIsTold() {
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

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestCompareFiles)

#include "test_compare_files.moc"
