#pragma once

#include "output/FontMeasure.h"
#include "output/PlotWidget.h"
#include "output/PrintedPlot.h"
#include "output/SummaryReport.h"
#include "tests/gui/ToldTruth.h"
#include "tests/gui/WindowTestSupport.h"

#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QString>
#include <QStringList>
#include <QTableView>
#include <initializer_list>

namespace quarnel::windowtest {

/// The program as someone uses it who computes, edits and looks at everything that shows the
/// result.
class TruthProgram : public Program {
public:
    enum Column { TimeColumn = 1, LevelColumn = 2 };
    static constexpr int CriteriaColumn = 3;

    // ---- What a user does ----------------------------------------------------------------------

    void OpenThroughMenu(const QString& path) {
        Answers answers;
        answers.FileName(path);
        Choose(u"mnuOpenFile"_s);
    }
    void NewThroughMenu() {
        Answers answers;
        answers.Dialog<QMessageBox>([](QMessageBox& box) {
            QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
        });
        Choose(u"mnuNew"_s);
    }
    /// Clicks a tab and answers what it says.
    void Visit(int tab) {
        const Answers answers;
        ClickTab(tab);
    }
    void GoTo(int tab) {
        if (SelectedTab() != tab)
            Visit(tab);
    }
    /// Clicks a button of the window and answers what it says.
    void Press(const char* button) {
        const Answers answers;
        QTest::mouseClick(&Find(QString::fromLatin1(button)), Qt::LeftButton);
        QCoreApplication::processEvents();
    }
    void Compute() {
        GoTo(5);
        Press("CmdComputeK");
    }
    void TypeGeometry(int index, const QString& text) {
        GoTo(3);
        TypeInto(Find<QLineEdit>(u"WellGeoText"_s, index), text);
    }
    void TypePreSlug(const QString& text) {
        GoTo(4);
        TypeInto(Find<QLineEdit>(u"RecDatPreSlugHeadText"_s), text);
    }
    /// Types into a cell of the readings; rows count from 1.
    void TypeReading(int row, Column column, const QString& text) {
        GoTo(4);
        auto& grid = Find<QTableView>(u"RecDatGrid"_s);
        ClickCell(grid, row, column);
        grid.setFocus();
        QTest::keyClick(&grid, Qt::Key_Delete);
        QTest::keyClicks(&grid, text);
        QTest::keyClick(&grid, Qt::Key_Tab);
    }
    void PressGridKey(Qt::Key key, Qt::KeyboardModifiers modifiers) {
        GoTo(4);
        auto& grid = Find<QTableView>(u"RecDatGrid"_s);
        grid.setFocus();
        QTest::keyClick(&grid, key, modifiers);
    }
    /// Chooses entry `position` of a list with the keyboard.
    void ChooseEntry(const QString& name, int position) {
        GoTo(name.startsWith(u"Cmbo"_s) ? 5 : name.startsWith(u"RecDat"_s) ? 4 : 3);
        auto& list = Find<QComboBox>(name);
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_Home);
        for (int i = 0; i < position; ++i)
            QTest::keyClick(&list, Qt::Key_Down);
    }
    /// Types a mark's key on points first to last, counted from 1.
    void Mark(int first, int last, char key) {
        Window().activateWindow();
        GoTo(5);
        auto& grid = Marks();
        ClickCell(grid, first, CriteriaColumn);
        if (last != first)
            ClickCell(grid, last, CriteriaColumn, Qt::ShiftModifier);
        QTest::keyClick(&grid, key);
    }

    // ---- What the user sees --------------------------------------------------------------------

    QTableView& Marks() { return Find<QTableView>(u"RecDatWeightGrid"_s); }
    PlotWidget& Plot() { return Find<PlotWidget>(u"Plot1"_s); }
    QLabel& KLabel() { return Find<QLabel>(u"ComputedKLabel"_s); }
    QString K() { return KLabel().text(); }
    QString KUnits() {
        return Find<QComboBox>(u"CmboKLengthUnits"_s).currentText() + u'/' +
               Find<QComboBox>(u"CmboKTimeUnits"_s).currentText();
    }
    QString MarkAt(int row) {
        return Marks().model()->index(row - 1, CriteriaColumn).data().toString();
    }
    bool ComputePanelIsOpen() { return Plot().isVisible(); }
    /// What a line of warning says; empty where it is not to be seen.
    QString Says(const QString& label) {
        QCoreApplication::processEvents();
        const auto& said = Find<QLabel>(label);
        return said.isVisible() ? said.text() : QString();
    }
    bool KIsGreyed() { return KLabel().foregroundRole() == QPalette::PlaceholderText; }
    QDialog& Details() { return Find<QDialog>(u"ComputedYFrm"_s); }
    QString DetailsText() { return Find<QPlainTextEdit>(u"SummaryText"_s).toPlainText(); }
    /// The rows of the details grid, its headings before them.
    QList<QStringList> DetailsGrid() {
        const QAbstractItemModel& model = *Find<QTableView>(u"ComputeYGrid"_s).model();
        QList<QStringList> rows(1);
        for (int column = 0; column < model.columnCount(); ++column)
            rows[0].append(model.headerData(column, Qt::Horizontal).toString());
        for (int row = 0; row < model.rowCount(); ++row) {
            rows.append(QStringList());
            for (int column = 0; column < model.columnCount(); ++column)
                rows.back().append(model.index(row, column).data().toString().trimmed());
        }
        return rows;
    }
    QString Report() {
        return QString::fromStdString(
            ReportBytes(Window().Current().state, Window().Current().computation.get()));
    }
    /// The printed page on Letter paper.
    Drawing Page() {
        Paper letter;
        letter.printableWidth = 11520;
        letter.printableHeight = 15120;
        return DrawPlotPage(Window().Current(), letter, FontMeasure(QFont(u"Arial"_s)));
    }
    /// The picture that Ctrl+C on the plot puts on the clipboard; empty when it puts none.
    QByteArray Picture() {
        QGuiApplication::clipboard()->setText(u"no picture"_s);
        auto& copy = windowtest::Find<QAction>(Plot(), u"CopyPlot"_s);
        copy.trigger();
        return QGuiApplication::clipboard()->mimeData()->data(u"image/svg+xml"_s);
    }

    /// What of all that shows the result tells of something else than the rest; empty when all tell
    /// of one computation, or all of none.
    QString Disagreement() {
        QCoreApplication::processEvents();
        const Account report = ReadReport(Report());
        return K().isEmpty() && report.k.isEmpty() ? DisagreementOfNone(report)
                                                   : DisagreementOfOne(report);
    }

private:
    static void ClickCell(QTableView& grid, int row, int column,
                          Qt::KeyboardModifiers modifiers = {}) {
        const QModelIndex index = grid.model()->index(row - 1, column);
        grid.scrollTo(index);
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, modifiers,
                          grid.visualRect(index).center());
    }
    bool PageSays(const Drawing& page, const QString& text) {
        return ReadDrawing(page).labels.contains(text);
    }
    QString DisagreementOfNone(const Account& report);
    QString DisagreementOfOne(const Account& report);
    QString DetailsDisagreement(const Account& report);
};

inline QString TruthProgram::DisagreementOfNone(const Account& report) {
    if (!report.lines.isEmpty() || !report.rows.isEmpty())
        return u"There is no K, but the report tells of a computation"_s;
    if (!Plot().Shown().IsEmpty() || !Picture().isEmpty())
        return u"There is no K, but a plot"_s;
    if (!DetailsText().isEmpty() || DetailsGrid().size() > 1)
        return u"There is no K, but there are details"_s;
    const ToldPlot page = ReadDrawing(Page());
    if (!page.labels.filter(u"Conductivity"_s).isEmpty() || page.line || !page.red.isEmpty())
        return u"There is no K, but the page tells of a fit"_s;
    if (ComputePanelIsOpen() && !Says(u"StaleText"_s).isEmpty())
        return u"There is nothing that could be old"_s;
    return {};
}

inline QString TruthProgram::DetailsDisagreement(const Account& report) {
    if (!Details().isVisible())
        return {};
    const Account details = ReadDetails(DetailsText());
    if (details.k != report.k || details.lines != report.lines ||
        details.headings != report.headings || details.rows != report.rows)
        return u"The details differ from the report:\n"_s + DetailsText() + u"\n---\n"_s + Report();
    const auto apart = [](QString heading) { return heading.replace(u"Y("_s, u"Y ("_s); };
    QList<QStringList> grid = {{u"Sample\n Number"_s, report.headings[0], apart(report.headings[2]),
                                apart(report.headings[3])}};
    for (qsizetype row = 0; row < report.rows.size(); ++row)
        grid.append({QString::number(row + 1), report.rows[row][0], report.rows[row][2],
                     report.rows[row][3]});
    if (DetailsGrid() != grid)
        return u"The details grid differs from the report"_s;
    return {};
}

inline QString TruthProgram::DisagreementOfOne(const Account& report) {
    if (report.k != u"Hydraulic Conductivity: "_s + K() + u' ' + KUnits())
        return u"The report says "_s + report.k + u", the window "_s + K() + u' ' + KUnits();
    if (report.lines.size() != 14)
        return u"The report lacks lines: "_s + report.lines.join(u'|');
    const Drawing page = Page();
    if (!PageSays(page, report.k))
        return u"The page does not say "_s + report.k;
    const ToldPlot screen = ReadDrawing(Plot().Shown());
    if (const QString why = PlotDisagreement(screen, report); !why.isEmpty())
        return u"On screen "_s + why;
    if (const QString why = PlotDisagreement(ReadDrawing(page), report); !why.isEmpty())
        return u"On the page "_s + why;
    ToldPlot picture = ReadDrawing(ReadSvg(Picture()));
    if (picture.labels != screen.labels)
        return u"The picture has other labels than the screen"_s;
    picture.lowestDecade = screen.lowestDecade;
    picture.highestDecade = screen.highestDecade;
    if (const QString why = PlotDisagreement(picture, report); !why.isEmpty())
        return u"In the picture "_s + why;
    return DetailsDisagreement(report);
}

} // namespace quarnel::windowtest
