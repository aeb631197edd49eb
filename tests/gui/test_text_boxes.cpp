// What the text boxes do with a text, whatever brings it: keys, clipboard, drop, input method or a
// screen reader. Box, project and file hold the same text at once.

#include "project/Files.h"
#include "tests/gui/WindowTestSupport.h"

#include <QAccessible>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>

namespace quarnel::windowtest {

namespace {

bool SavedAs(const std::string& path, Program& program) {
    FileOnDisk file;
    return WriteProjectFile(path, program.State(), file).isSaved;
}

const QString NewQuestion =
    u"New Project will clear existing data. Make sure you have saved current "
    u"information to a file before proceeding.\r\n Do you want to proceed "
    u"with New Project?"_s;

/// A box of each panel and dialog, and the text of the project that it is bound to.
struct BoundBox {
    const char* name;
    int tab; ///< 0 for a dialog
    std::string& (*text)(ProjectState&);
};
const std::array<BoundBox, 12> BoundBoxes = {{
    {"SiteIDText_2", 1, [](ProjectState& s) -> std::string& { return s.SiteIDText[2]; }},
    {"WellTestIDTxt_0", 2, [](ProjectState& s) -> std::string& { return s.WellTestIDTxt[0]; }},
    {"VolumeOfSlugText", 2, [](ProjectState& s) -> std::string& { return s.VolumeOfSlugText; }},
    {"WellGeoText_0", 3, [](ProjectState& s) -> std::string& { return s.WellGeoText[0]; }},
    {"WellGeoText_1", 3, [](ProjectState& s) -> std::string& { return s.WellGeoText[1]; }},
    {"WellGeoText_2", 3, [](ProjectState& s) -> std::string& { return s.WellGeoText[2]; }},
    {"WellGeoText_3", 3, [](ProjectState& s) -> std::string& { return s.WellGeoText[3]; }},
    {"WellGeoText_4", 3, [](ProjectState& s) -> std::string& { return s.WellGeoText[4]; }},
    {"WellGeoText_5", 3, [](ProjectState& s) -> std::string& { return s.WellGeoText[5]; }},
    {"RecDatPreSlugHeadText", 4,
     [](ProjectState& s) -> std::string& { return s.RecDatPreSlugHeadText; }},
    {"PlotText_0", 0, [](ProjectState& s) -> std::string& { return s.PlotText[0]; }},
    {"PlotText_2", 0, [](ProjectState& s) -> std::string& { return s.PlotText[2]; }},
}};

/// How a text comes into a box.
using Bringer = void (*)(QLineEdit&, const QString&);

void Paste(QLineEdit& box, const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
}

void Drop(QLineEdit& box, const QString& text) {
    QMimeData data;
    data.setText(text);
    const QPoint at = box.rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&box, &enter);
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&box, &drop);
}

void Compose(QLineEdit& box, const QString& text) {
    box.setFocus();
    QInputMethodEvent begun(text.left(1), {});
    QApplication::sendEvent(&box, &begun);
    QInputMethodEvent done;
    done.setCommitString(text);
    QApplication::sendEvent(&box, &done);
}

void Dictate(QLineEdit& box, const QString& text) {
    QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&box);
    reader->setText(QAccessible::Value, text);
}

void InsertByReader(QLineEdit& box, const QString& text) {
    QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&box);
    reader->editableTextInterface()->replaceText(0, static_cast<int>(box.text().size()), text);
}

const std::array<std::pair<const char*, Bringer>, 5> Bringers = {
    {{"paste", Paste},
     {"drop", Drop},
     {"input method", Compose},
     {"dictation", Dictate},
     {"screen reader", InsertByReader}}};

QLineEdit& Shown(Program& program, const BoundBox& bound) {
    if (bound.tab > 0) {
        program.ClickTab(bound.tab);
    } else {
        auto& dialog = program.Find<QDialog>(u"PrtPlotFrm"_s);
        dialog.show();
    }
    return program.Find<QLineEdit>(QString::fromLatin1(bound.name));
}

} // namespace

class TestTextBoxes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QGuiApplication::clipboard()->clear(); }

    void WhateverBringsATextItIsInTheProjectAtOnce_data() {
        QTest::addColumn<int>("box");
        QTest::addColumn<int>("way");
        for (std::size_t box = 0; box < BoundBoxes.size(); ++box)
            for (std::size_t way = 0; way < Bringers.size(); ++way)
                QTest::addRow("%s by %s", BoundBoxes[box].name, Bringers[way].first)
                    << int(box) << int(way);
    }

    void WhateverBringsATextItIsInTheProjectAtOnce() {
        QFETCH(int, box);
        QFETCH(int, way);
        const BoundBox& bound = BoundBoxes[static_cast<std::size_t>(box)];
        Program program;
        QLineEdit& edit = Shown(program, bound);
        edit.clear();
        Bringers[static_cast<std::size_t>(way)].second(edit, u" 12.5 "_s);
        QCOMPARE(edit.text(), u" 12.5 "_s);
        QCOMPARE(bound.text(program.State()), " 12.5 ");
        // And a text of several lines, as copied from a letter.
        edit.clear();
        Bringers[static_cast<std::size_t>(way)].second(edit, u"\r\nMain St 1\r\n\nTown\n"_s);
        QCOMPARE(edit.text(), u"Main St 1 Town"_s);
        QCOMPARE(bound.text(program.State()), "Main St 1 Town");
    }

    void ACheckDoesNotEmptyWhatAScreenReaderSet() {
        Program program;
        program.ClickTab(3);
        for (int i = 0; i < 6; ++i)
            Dictate(program.Find<QLineEdit>(u"WellGeoText"_s, i),
                    QStringList{u"10"_s, u"8"_s, u"5"_s, u"8"_s, u"2"_s, u"30"_s}[i]);
        Answers answers;
        answers.Box(u"Quarnel"_s, u"Well Geometry data is complete and consistent."_s);
        QTest::mouseClick(&program.Find(u"SSCmdWellGeoCheckData"_s), Qt::LeftButton);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Find<QLineEdit>(u"WellGeoText"_s, 0).text(), u"10"_s);
    }

    void APastedNumberWithItsLineEndIsANumber() {
        Program program;
        program.ClickTab(3);
        auto& h = program.Find<QLineEdit>(u"WellGeoText"_s, 0);
        Paste(h, u"12.5\r\n"_s);
        QCOMPARE(program.State().WellGeoText[GeoH], "12.5");
        Answers answers;
        answers.Box(u"Data Error"_s, u"Well Geometry: Lw must have a value."_s);
        QTest::mouseClick(&program.Find(u"SSCmdWellGeoCheckData"_s), Qt::LeftButton);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
    }

    void APastedLineMakesNoRecordAndAnAddressKeepsItsSecondLine() {
        const QTemporaryDir folder;
        const std::string path = ToUtf8(folder.filePath(u"lines.qn2"_s));
        Program program;
        Paste(program.Find<QLineEdit>(u"SiteIDText"_s, SiteAddress), u"5 Mill Road\nBack Yard"_s);
        Paste(program.Find<QLineEdit>(u"SiteIDText"_s, SiteName), u"x\nSITEID,LUSTNO,FORGED"_s);
        QVERIFY(SavedAs(path, program));
        program.Window().OpenPath(ToQString(path));
        QCOMPARE(program.State().SiteIDText[SiteAddress], "5 Mill Road Back Yard");
        QCOMPARE(program.State().SiteIDText[SiteName], "x SITEID,LUSTNO,FORGED");
        QCOMPARE(program.State().SiteIDText[LustNo], "");
    }

    void UndoTakesAPasteOfSeveralLinesBackAndBringsWhatItReplaced() {
        Program program;
        auto& box = program.Find<QLineEdit>(u"SiteIDText"_s, SiteAddress);
        TypeInto(box, u"typed with care"_s);
        box.selectAll();
        Paste(box, u"one\ntwo\n"_s);
        QCOMPARE(box.text(), u"one two"_s);
        QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(box.text(), u"typed with care"_s);
        QCOMPARE(program.State().SiteIDText[SiteAddress], "typed with care");
        QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(program.State().SiteIDText[SiteAddress], "one two");
    }

    void APasteIntoTheMiddleLeavesTheCursorBehindIt() {
        Program program;
        auto& box = program.Find<QLineEdit>(u"SiteIDText"_s, SiteAddress);
        TypeInto(box, u"abcd"_s);
        box.setCursorPosition(2);
        Paste(box, u"1\n2"_s);
        QTest::keyClicks(&box, u"!"_s);
        QCOMPARE(box.text(), u"ab1 2!cd"_s);
    }

    void NoBoxCutsALongText() {
        const QTemporaryDir folder;
        const std::string path = ToUtf8(folder.filePath(u"long.qn2"_s));
        const QString text = QString(399'999, u'x') + u'!';
        Program program;
        for (const BoundBox& bound : BoundBoxes) {
            QLineEdit& box = Shown(program, bound);
            box.clear();
            Paste(box, text);
            QCOMPARE(ToQString(bound.text(program.State())), text);
        }
        QVERIFY(SavedAs(path, program));
        program.Window().OpenPath(ToQString(path));
        for (const BoundBox& bound : BoundBoxes) {
            QLineEdit& box = Shown(program, bound);
            QVERIFY(box.text() == text && !box.isReadOnly());
            // Further typing goes on where it is typed.
            box.setFocus();
            QTest::keyClick(&box, Qt::Key_End);
            QTest::keyClicks(&box, u"?"_s);
            QVERIFY(bound.text(program.State()) == ToUtf8(text + u'?'));
        }
    }

    void AFirstByteOrderMarkIsACharacterOfTheText() {
        const QTemporaryDir folder;
        const std::string path = ToUtf8(folder.filePath(u"mark.qn2"_s));
        const QString marked = QChar(0xFEFF) + u"Mill"_s;
        Program program;
        auto& box = program.Find<QLineEdit>(u"SiteIDText"_s, SiteName);
        Paste(box, marked);
        QCOMPARE(box.text(), marked);
        QVERIFY(SavedAs(path, program));
        program.Window().OpenPath(ToQString(path));
        QCOMPARE(box.text(), marked);
        TypeInto(program.Find<QLineEdit>(u"SiteIDText"_s, SiteCity), u"y"_s);
        QCOMPARE(ToQString(program.State().SiteIDText[SiteName]), marked);
    }

    void TheNumberOfRowsTakesADictatedText() {
        Program program;
        program.ClickTab(4);
        QTest::mouseClick(&program.Find(u"CmdInsertRows"_s), Qt::LeftButton);
        Dictate(program.Find<QLineEdit>(u"RecDatInsertRowsText"_s), u"3\n"_s);
        QTest::mouseClick(&program.Find(u"CmdInsertRowsOK"_s), Qt::LeftButton);
        QCOMPARE(program.State().RecDatGrid.size(), std::size_t(53));
    }

    // ---- Undo -----------------------------------------------------------------------------------

    void UndoDoesNotBringBackTheFormerProject_data() {
        QTest::addColumn<bool>("open");
        QTest::newRow("after New") << false;
        QTest::newRow("after Open") << true;
    }

    void UndoDoesNotBringBackTheFormerProject() {
        QFETCH(bool, open);
        Program program;
        for (const BoundBox& bound : BoundBoxes) {
            QLineEdit& box = Shown(program, bound);
            TypeInto(box, u"the former client"_s);
            TypeInto(box, QString());
        }
        program.Find<QDialog>(u"PrtPlotFrm"_s).hide();
        if (open) {
            program.Window().OpenPath(SourceFile("examples/pratt-county-1998.qn2"));
        } else {
            Answers answers;
            answers.Box(u"Quarnel"_s, NewQuestion, QMessageBox::Yes);
            program.Choose(u"mnuNew"_s);
            QVERIFY2(answers.AllGiven(), answers.Complaints());
        }
        for (const BoundBox& bound : BoundBoxes) {
            auto& box = program.Find<QLineEdit>(QString::fromLatin1(bound.name));
            const QString shown = box.text();
            QVERIFY2(!box.isUndoAvailable(), bound.name);
            QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(box.text(), shown);
            QCOMPARE(ToQString(bound.text(program.State())), shown);
        }
    }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestTextBoxes)
#include "test_text_boxes.moc"
