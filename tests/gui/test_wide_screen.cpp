// Widths, heights and places on a wide screen.

#include "tests/gui/ImportTestSupport.h"
#include "tests/gui/ScreenTestSupport.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTabWidget>
#include <QTableView>
#include <QTextBlock>
#include <QTextLayout>

namespace quarnel::windowtest {

namespace {

int DigitsWide(const QWidget& control, int digits) {
    return control.fontMetrics().horizontalAdvance(QLatin1Char('0')) * digits;
}

} // namespace

class TestWideScreen : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void BoxesAreAsWideAsWhatTheyHold() {
        ScreenProgram program;
        for (int tab = 1; tab < Tabs; ++tab) {
            program.ClickTab(tab);
            for (const QLineEdit* box : program.Page().widget()->findChildren<QLineEdit*>())
                if (box->isVisible())
                    QVERIFY2(box->width() <= DigitsWide(*box, 44), qPrintable(box->objectName()));
        }
        for (const int zip : {SiteZip, ClientZip, ConsultantZip}) {
            const auto& box = program.Find<QLineEdit>(u"SiteIDText"_s, zip);
            QVERIFY(box.width() <= DigitsWide(box, 14));
            QVERIFY(box.width() >= DigitsWide(box, 10));
        }
    }

    void CellsAreAsWideAsWhatTheyHold() {
        ScreenProgram program;
        program.ClickTab(4);
        QTest::mouseClick(&program.Find(u"CmdRecDatCheckData"_s), Qt::LeftButton);
        for (const char* name : {"RecDatGrid", "RecDatCheckGrid", "RecDatWeightGrid"}) {
            const auto& grid = program.Find<QTableView>(QString::fromLatin1(name));
            for (int column = 0; column < grid.model()->columnCount(); ++column)
                QVERIFY2(grid.columnWidth(column) <= DigitsWide(grid, 32), name);
        }
    }

    void AllGridsHaveRowsOfOneHeightAndNumbersToTheRight() {
        ScreenProgram program;
        QTest::mouseClick(&program.Find(u"CmdDetails"_s), Qt::LeftButton);
        const int height = program.Find<QTableView>(u"RecDatGrid"_s).rowHeight(0);
        for (const char* name :
             {"RecDatGrid", "RecDatCheckGrid", "RecDatWeightGrid", "ComputeYGrid"}) {
            const auto& grid = program.Find<QTableView>(QString::fromLatin1(name));
            QVERIFY2(grid.rowHeight(0) == height, name);
            for (int column = 0; column < grid.model()->columnCount(); ++column)
                QVERIFY2(grid.model()->index(0, column).data(Qt::TextAlignmentRole).toInt() ==
                             int(Qt::AlignRight | Qt::AlignVCenter),
                         name);
        }
    }

    /// A row of one line, in whatever window and room it stands.
    void AllTablesOfAllWindowsHaveRowsOfOneHeight() {
        ScreenProgram program;
        for (const char* opener : {"mnuDiagnostics", "mnuCompareProjects"})
            program.Choose(QString::fromLatin1(opener));
        auto& tabs = program.Find<QTabWidget>(u"DiagnosticsTabs"_s);
        for (int page = 0; page < tabs.count(); ++page)
            tabs.setCurrentIndex(page);
        QTest::mouseClick(&program.Find(u"CmdDetails"_s), Qt::LeftButton);
        QWidget& compare = program.Find(u"CompareProjectsFrm"_s);
        Answers answers;
        answers.FileName(SourceFile("examples/pratt-county-1998.qn2"));
        QTest::mouseClick(&Find(compare, u"CompareAdd"_s), Qt::LeftButton);
        QTRY_VERIFY(Find<QTableView>(compare, u"CompareGrid"_s).model()->rowCount() > 0);
        LoggerFiles files;
        ImportForm import(files.Write(u"a.csv"_s, SecondsTable(41)));
        QList<QTableView*> tables = program.Window().findChildren<QTableView*>();
        tables += import.Form().findChildren<QTableView*>();
        const int height = program.Find<QTableView>(u"RecDatGrid"_s).rowHeight(0);
        int compared = 0;
        for (const QTableView* table : tables) {
            int least = table->model()->rowCount() > 0 ? table->rowHeight(0) : height;
            for (int row = 0; row < table->model()->rowCount() && row < 20; ++row)
                least = std::min(least, table->rowHeight(row));
            QVERIFY2(least == height, qPrintable(table->objectName()));
            compared += table->model()->rowCount() > 0 ? 1 : 0;
        }
        QVERIFY(compared >= 9);
    }

    /// The last column of pixels in a cell that holds ink, from the cell's right edge.
    void NumbersEndAtTheSameDistanceFromTheirCellsEdge() {
        ScreenProgram program;
        program.ClickTab(4);
        QTest::mouseClick(&program.Find(u"CmdRecDatCheckData"_s), Qt::LeftButton);
        QList<int> distances;
        for (const char* name : {"RecDatGrid", "RecDatCheckGrid"}) {
            auto& grid = program.Find<QTableView>(QString::fromLatin1(name));
            const QModelIndex index = grid.model()->index(4, 1);
            const QRect cell = grid.visualRect(index);
            // Neither grid lines nor frames belong to the text.
            const QImage image = grid.viewport()->grab(cell.adjusted(1, 2, -1, -2)).toImage();
            int right = image.width() - 1;
            const auto hasInk = [&image](int x) {
                for (int y = 0; y < image.height(); ++y)
                    if (image.pixelColor(x, y) != image.pixelColor(0, 0))
                        return true;
                return false;
            };
            while (right > 0 && !hasInk(right))
                --right;
            distances << image.width() - right;
        }
        QCOMPARE(distances[0], distances[1]);
        QVERIFY(distances[0] < 10);
    }

    void TheEmptyCheckGridShowsNoSelectedCell() {
        ScreenProgram program;
        Answers answers;
        answers.Box(u"Quarnel"_s,
                    u"New Project will clear existing data. Make sure you have saved current "
                    u"information to a file before proceeding.\r\n Do you want to proceed with New "
                    u"Project?"_s,
                    QMessageBox::Yes);
        program.Choose(u"mnuNew"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        program.ClickTab(4);
        auto& grid = program.Find<QTableView>(u"RecDatCheckGrid"_s);
        QCOMPARE(grid.model()->rowCount(), 1);
        QVERIFY(!grid.selectionModel()->hasSelection());
        const QColor highlight = grid.palette().color(QPalette::Highlight);
        const QImage image = grid.viewport()->grab().toImage();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                QVERIFY(image.pixelColor(x, y) != highlight);
    }

    void ChoosingAnotherDataTypeMovesNothing() {
        ScreenProgram program;
        program.ClickTab(4);
        auto& types = program.Find<QComboBox>(u"RecDatDataTypeDDL"_s);
        types.setFocus();
        QTest::keyClick(&types, Qt::Key_Home);
        QVERIFY(program.Find(u"RecDatPreSlugHeadText"_s).isVisible());
        QTest::qWait(0);
        const auto before = PlacesOf(program.Window());
        QTest::keyClick(&types, Qt::Key_End);
        QVERIFY(!program.Find(u"RecDatPreSlugHeadText"_s).isVisible());
        QTest::qWait(0);
        ExpectSamePlaces(before, PlacesOf(program.Window()));
    }

    void OpeningInsertRowsMovesNothingAndHidesNoReading() {
        ScreenProgram program;
        program.ClickTab(4);
        const auto before = PlacesOf(program.Window());
        QTest::mouseClick(&program.Find(u"CmdInsertRows"_s), Qt::LeftButton);
        const QWidget& panel = program.Find(u"InsertRowsPanel"_s);
        QVERIFY(program.IsWhollySeen(panel));
        QTest::qWait(0);
        ExpectSamePlaces(before, PlacesOf(program.Window()));
        QVERIFY(!program.OnPage(panel).intersects(program.OnPage(program.Find(u"RecDatGrid"_s))));
        // What stands on the page beneath must not shine through.
        QVERIFY(panel.autoFillBackground());
    }

    void TheDetailsOpenLargeEnoughForTheirLines() {
        ScreenProgram program;
        QTest::mouseClick(&program.Find(u"CmdDetails"_s), Qt::LeftButton);
        auto& text = program.Find<QPlainTextEdit>(u"SummaryText"_s);
        QVERIFY(text.toPlainText().contains(u"Hydraulic Conductivity"_s));
        int shown = 0;
        for (QTextBlock block = text.document()->begin(); block.isValid(); block = block.next()) {
            QVERIFY2(block.layout()->lineCount() <= 1, qPrintable(block.text()));
            ++shown;
        }
        const QSize screen = text.screen()->availableSize();
        const QRect window = text.window()->geometry();
        QVERIFY(QRect(QPoint(), screen).contains(window));
        // All of the account down to the table of points, however long that is.
        const int rows = text.viewport()->height() / text.fontMetrics().lineSpacing();
        QVERIFY(rows >=
                std::min(shown, screen.height() * 3 / 4 / text.fontMetrics().lineSpacing()));
    }

    void ALongNameMakesTheDetailsWider() {
        ScreenProgram program;
        QTest::mouseClick(&program.Find(u"CmdDetails"_s), Qt::LeftButton);
        QWidget& details = program.Find(u"ComputedYFrm"_s);
        const int usual = details.width();
        details.close();
        const QString name = QString(100, QLatin1Char('W'));
        program.State().WellTestIDTxt[WellLabel] = ToUtf8(name);
        QTest::mouseClick(&program.Find(u"CmdDetails"_s), Qt::LeftButton);
        QVERIFY(details.width() > usual);
        auto& text = program.Find<QPlainTextEdit>(u"SummaryText"_s);
        for (QTextBlock block = text.document()->begin(); block.isValid(); block = block.next())
            QVERIFY2(block.layout()->lineCount() <= 1, qPrintable(block.text()));
    }
};

} // namespace quarnel::windowtest

int main(int argc, char** argv) {
    return quarnel::windowtest::RunOnScreen<quarnel::windowtest::TestWideScreen>("1920x1080", argc,
                                                                                 argv);
}

#include "test_wide_screen.moc"
