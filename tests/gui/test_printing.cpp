#include "tests/gui/IppServer.h"
#include "tests/gui/WindowTestSupport.h"

#include "system/PrintQueue.h"

#include <QProcess>

namespace quarnel::windowtest {

namespace {

using Manner = IppServer::Manner;

/// The Pratt County test, computed in the window, its plot ready to be printed.
class PrintingProgram : public Program {
public:
    PrintingProgram() {
        Window().OpenPath(SourceFile("examples/pratt-county-1998.qn2"));
        ClickTab(5);
        QTest::mouseClick(&Find(u"CmdComputeK"_s), Qt::LeftButton);
        QTest::mouseClick(&Find(u"CmdPrintPlot"_s), Qt::LeftButton);
    }
    QDialog& Dialog() { return Find<QDialog>(u"PrtPlotFrm"_s); }
    void Print() {
        QTest::mouseClick(&windowtest::Find(Dialog(), u"CmdPrtPlot"_s), Qt::LeftButton);
    }
    /// Prints, and sees the box that says the printer did not take it, for a reason holding
    /// `words`.
    void PrintInVain(const QString& words) {
        Answers answers;
        QString said;
        answers.Dialog<QMessageBox>([&said](QMessageBox& box) {
            said = box.text();
            box.accept();
        });
        Print();
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        const QString start =
            u"The printer \"Office\" did not take the document \"Slug test plot\" ("_s;
        QVERIFY2(said.startsWith(start), qPrintable(said));
        QVERIFY2(said.contains(words), qPrintable(said));
        QVERIFY(Dialog().isVisible());
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }
};

QString Output(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitCode() != 0)
        qFatal("%s failed", qPrintable(program));
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace

class TestPrinting : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        QVERIFY(folder_.isValid());
        // Neither the printers of this machine nor those its user has chosen.
        qputenv("CUPS_SERVER", server_.Address().c_str());
        qputenv("HOME", folder_.path().toUtf8());
        qunsetenv("PRINTER");
        qunsetenv("LPDEST");
    }

    void AnAcceptedDocumentIsTheWholePage() {
        server_.Behave(Manner::Accepts);
        PrintingProgram program;
        program.Print();
        QVERIFY(!program.Dialog().isVisible());
        const auto jobs = server_.Jobs();
        QCOMPARE(jobs.size(), std::size_t{1});
        QCOMPARE(jobs[0].title, "Slug test plot");
        QVERIFY(jobs[0].whole && !jobs[0].cancelled);
        const QString path = folder_.filePath(u"printed.pdf"_s);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(jobs[0].document.data(), static_cast<qint64>(jobs[0].document.size()));
        file.close();
        QVERIFY(Output(u"pdftotext"_s, {path, u"-"_s}).contains(u"Conductivity: 3.6 m/day"_s));
        // The sheet that lies in the printer.
        const QString facts = Output(u"pdfinfo"_s, {path});
        QVERIFY2(facts.contains(u"(A4)"_s), qPrintable(facts));
    }

    void TheDefaultPrinterIsReadWithItsSheet() {
        server_.Behave(Manner::Accepts);
        const auto printer = DefaultPrinter();
        QVERIFY(printer.has_value());
        QCOMPARE(printer->name, "Office");
        QVERIFY(qAbs(printer->sheetWidth - 595.3) < 0.1);
        QVERIFY(qAbs(printer->sheetHeight - 841.9) < 0.1);
        for (const double margin :
             {printer->marginLeft, printer->marginTop, printer->marginRight, printer->marginBottom})
            QVERIFY(qAbs(margin - 18) < 0.01);
        QVERIFY(!IsStopped(*printer));
    }

    void ARefusalIsToldInThePrintersWords() {
        server_.Behave(Manner::Refuses);
        PrintingProgram program;
        program.PrintInVain(u"not accepting jobs"_s);
        QVERIFY(server_.Jobs().empty());
    }

    void AStoppedPrinterKeepsTheDocument() {
        server_.Behave(Manner::IsStopped);
        PrintingProgram program;
        Answers answers;
        answers.Box(u"Quarnel"_s,
                    u"The printer \"Office\" is stopped. It has taken the document \"Slug test "
                    u"plot\" and prints it when it is started again."_s);
        program.Print();
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(!program.Dialog().isVisible());
        QVERIFY(server_.Jobs().size() == 1 && server_.Jobs()[0].whole);
    }

    void APrinterThatVanishesHasNotTakenTheDocument() {
        server_.Behave(Manner::Vanishes);
        PrintingProgram program;
        program.PrintInVain(QString());
        QVERIFY(server_.Jobs().size() == 1 && !server_.Jobs()[0].whole);
        QVERIFY(server_.Requests() < 100);
    }

    void AQueueWithoutRoomIsToldAndTheRestCancelled() {
        server_.Behave(Manner::HasNoRoom);
        PrintingProgram program;
        program.PrintInVain(QString());
        QVERIFY(server_.Jobs().size() == 1 && !server_.Jobs()[0].whole);
        QVERIFY(server_.Jobs()[0].cancelled);
        QVERIFY(server_.Requests() < 100);
    }

    void WithoutAPrinterThePageCanBeSaved() {
        server_.Behave(Manner::NoPrinter);
        PrintingProgram program;
        Answers answers;
        answers.BoxAbout(u"The system has no default printer."_s, QMessageBox::No);
        program.Print();
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(program.Dialog().isVisible());
    }

private:
    QTemporaryDir folder_;
    IppServer server_;
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestPrinting)

#include "test_printing.moc"
