#pragma once

#include "tests/gui/WindowTestSupport.h"

#include "compare/CompareGrid.h"
#include "compare/CompareProjectsFrm.h"
#include "compare/CompareTableModel.h"
#include "output/DrawingWidget.h"
#include "project/ProjectFileDialogs.h"

#include <QComboBox>
#include <QDir>
#include <QDropEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>

/// What the tests of the window "Compare Projects" share.
namespace quarnel::windowtest {

inline const QString EmptyText = u"Add the projects to compare, or drop them here."_s;
inline const QString SkinLine = u"Agreement does not rule out a skin around the screen."_s;

inline QByteArray BytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void WriteBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

/// A test of a well with exact readings that fall by `rate` a second.
inline ProjectState Falling(const std::string& well, double rate, double first = 50) {
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

} // namespace quarnel::windowtest
