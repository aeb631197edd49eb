// The panels "Site Identification" and "Well and Slug Test Identification": every box takes what is
// typed, keeps it as typed, and gives it to the file under its key.

#include "tests/gui/WindowTestSupport.h"

#include "project/FieldTables.h"
#include "system/OpenFile.h"

#include <QGroupBox>

namespace quarnel::windowtest {

namespace {

const QString NewQuestion =
    u"New Project will clear existing data. Make sure you have saved current "
    u"information to a file before proceeding.\r\n Do you want to proceed "
    u"with New Project?"_s;

QLineEdit& SiteBox(Program& program, int index) {
    return program.Find<QLineEdit>(u"SiteIDText"_s, index);
}
QLineEdit& WellBox(Program& program, int index) {
    return program.Find<QLineEdit>(u"WellTestIDTxt"_s, index);
}

/// The caption of the frame around a box, "" for none.
QString FrameOf(const QWidget& box) {
    const auto* frame = qobject_cast<QGroupBox*>(box.parentWidget());
    return frame == nullptr ? QString() : frame->title();
}

/// A label's text without the mark of its letter.
QString Plain(const QLabel& label) {
    return label.text().remove(u'&');
}

/// Types a text of its own into every box of both panels.
void TypeEverything(Program& program) {
    program.ClickTab(1);
    for (int i = 0; i < 20; ++i)
        TypeInto(SiteBox(program, i), u"site %1"_s.arg(i));
    program.ClickTab(2);
    for (int i = 0; i < 6; ++i)
        TypeInto(WellBox(program, i), u"well %1"_s.arg(i));
    TypeInto(program.Find<QLineEdit>(u"VolumeOfSlugText"_s), u"1.5 L"_s);
}

} // namespace

class TestIdentification : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // ---- What the panels look like --------------------------------------------------------------

    void EverySiteBoxHasItsLabelInItsFrame() {
        Program program;
        for (const IdentificationField& field : SiteIDFields) {
            QLineEdit& box = SiteBox(program, field.index);
            auto& label = program.Find<QLabel>(u"SiteIDLbl"_s, field.index);
            QCOMPARE(Plain(label), ToQString(field.label));
            QCOMPARE(label.buddy(), static_cast<QWidget*>(&box));
            QCOMPARE(FrameOf(box), ToQString(field.group));
            QVERIFY(!box.toolTip().isEmpty());
        }
    }

    void EveryWellBoxHasItsLabel() {
        Program program;
        program.ClickTab(2);
        for (const IdentificationField& field : WellTestIDFields)
            QCOMPARE(Plain(program.Find<QLabel>(u"WellTestID"_s, field.index)),
                     ToQString(field.label));
        auto& volume = program.Find<QLabel>(u"VolumeOfSlugLbl"_s);
        QCOMPARE(Plain(volume), u" Volume of Slug (L)"_s);
        QCOMPARE(volume.buddy()->objectName(), u"VolumeOfSlugText"_s);
    }

    void NoTwoFieldsOfAPanelShareALetter() {
        Program program;
        for (const char* label : {"SiteIDLbl_", "WellTestID_"}) {
            QStringList letters = {u"f"_s, u"b"_s}; // the menu bar's
            for (const QLabel* each : program.Window().findChildren<QLabel*>()) {
                const qsizetype mark = each->text().indexOf(u'&');
                if (each->objectName().startsWith(QLatin1String(label)) && mark >= 0)
                    letters << QString(each->text().at(mark + 1).toLower());
            }
            QVERIFY(letters.size() > 5);
            QCOMPARE(letters.removeDuplicates(), 0);
        }
    }

    void AltAndItsLetterReachesABox() {
        Program program;
        program.Window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&program.Window()));
        SiteBox(program, SiteName).setFocus();
        QTest::keyClick(&program.Window(), Qt::Key_J, Qt::AltModifier);
        QVERIFY(SiteBox(program, ClientJobNumber).hasFocus());
    }

    void TabGoesThroughTheBoxesInTheOrderTheyAreRead() {
        Program program;
        program.Window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&program.Window()));
        SiteBox(program, LustNo).setFocus();
        for (const IdentificationField& field : SiteIDFields) {
            QCOMPARE(QApplication::focusWidget()->objectName(),
                     u"SiteIDText_%1"_s.arg(field.index));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        program.ClickTab(2);
        WellBox(program, WellLabel).setFocus();
        for (const IdentificationField& field : WellTestIDFields) {
            QCOMPARE(QApplication::focusWidget()->objectName(),
                     u"WellTestIDTxt_%1"_s.arg(field.index));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(QApplication::focusWidget()->objectName(), u"VolumeOfSlugText"_s);
    }

    // ---- What they keep -------------------------------------------------------------------------

    void AfterNewTheConsultantKeepsItsTextAndEveryOtherFieldIsEmpty() {
        Program program;
        TypeEverything(program);
        Answers answers;
        answers.Box(u"Quarnel"_s, NewQuestion, QMessageBox::Yes);
        program.Choose(u"mnuNew"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        for (int i = 0; i < 20; ++i) {
            const bool consultant = i >= 11 && i <= 17;
            const QString expected = consultant ? u"site %1"_s.arg(i) : QString();
            QCOMPARE(SiteBox(program, i).text(), expected);
            QCOMPARE(ToQString(program.State().SiteIDText[static_cast<std::size_t>(i)]), expected);
        }
        for (int i = 0; i < 6; ++i)
            QCOMPARE(WellBox(program, i).text(), QString());
        QCOMPARE(program.Find<QLineEdit>(u"VolumeOfSlugText"_s).text(), QString());
    }

    void AFieldLeftEmptyIsWrittenAndReadBackAsAnEmptyText() {
        const QTemporaryDir folder;
        const std::string path = ToUtf8(folder.filePath(u"empty.qn2"_s));
        Program program;
        TypeEverything(program);
        program.ClickTab(1);
        TypeInto(SiteBox(program, SiteCity), QString());
        program.ClickTab(2);
        TypeInto(WellBox(program, TestBy2), QString());
        TypeInto(program.Find<QLineEdit>(u"VolumeOfSlugText"_s), QString());
        FileOnDisk file;
        QVERIFY(WriteProjectFile(path, program.State(), file).isSaved);
        const FileBytes bytes = ReadFileBytes(path);
        for (const char* record :
             {"\"SITEID\",\"SITECITY\",\"\"\r\n", "\"WELLID\",\"TESTBY2\",\"\"\r\n",
              "\"WELLID\",\"SLUGVOLUME\",\"\"\r\n"})
            QVERIFY2(bytes.View().find(record) != std::string_view::npos, record);

        TypeInto(program.Find<QLineEdit>(u"VolumeOfSlugText"_s), u"changed"_s);
        program.Window().OpenPath(ToQString(path));
        QCOMPARE(SiteBox(program, SiteCity).text(), QString());
        QCOMPARE(SiteBox(program, SiteAddress).text(), u"site 2"_s);
        QCOMPARE(WellBox(program, TestBy2).text(), QString());
        QCOMPARE(WellBox(program, TestBy3).text(), u"well 5"_s);
        QCOMPARE(program.Find<QLineEdit>(u"VolumeOfSlugText"_s).text(), QString());
    }

    void TheTestDateAcceptsAnyText() {
        Program program;
        program.ClickTab(2);
        for (const QString& date : {u"13/45/2000"_s, u"the day after"_s, u"04.12.98"_s}) {
            TypeInto(WellBox(program, TestDate), date);
            QCOMPARE(ToQString(program.State().WellTestIDTxt[TestDate]), date);
        }
    }

    void BlanksStayAsTyped() {
        Program program;
        TypeInto(SiteBox(program, SiteName), u"  Corner  Fuel Stop "_s);
        QCOMPARE(program.State().SiteIDText[SiteName], "  Corner  Fuel Stop ");
        program.ClickTab(2);
        program.ClickTab(1);
        QCOMPARE(SiteBox(program, SiteName).text(), u"  Corner  Fuel Stop "_s);
    }

    void EachBoxGoesIntoTheFileUnderItsKey() {
        Program program;
        TypeEverything(program);
        const std::string text = ProjectFileText(program.State()).text;
        const auto holds = [&text](std::string_view section, std::string_view key,
                                   const QString& value) {
            return text.find("\"" + std::string(section) + "\",\"" + std::string(key) + "\",\"" +
                             ToUtf8(value) + "\"\r\n") != std::string::npos;
        };
        for (const IdentificationField& field : SiteIDFields)
            QVERIFY(holds("SITEID", field.key, u"site %1"_s.arg(field.index)));
        for (const IdentificationField& field : WellTestIDFields)
            QVERIFY(holds("WELLID", field.key, u"well %1"_s.arg(field.index)));
        QVERIFY(holds("WELLID", "SLUGVOLUME", u"1.5 L"_s));
        QVERIFY(holds("SITEID", "CFNAME", u"site 15"_s) && holds("SITEID", "CFZIP", u"site 11"_s));
        QVERIFY(holds("WELLID", "ANAYSBY", u"well 2"_s));
    }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestIdentification)
#include "test_identification.moc"
