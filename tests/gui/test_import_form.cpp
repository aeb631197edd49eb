// The window "Import Readings": what it shows of a file, and what each control makes of it.

#include "tests/gui/ImportTestSupport.h"

#include <QScreen>
#include <QWheelEvent>

namespace quarnel::windowtest {

namespace {

/// Dates that are valid both ways and tell nothing: the first of either order, a month apart.
QByteArray TableOfEitherOrder() {
    QByteArray text = "Time,Level (m)\n";
    for (int i = 1; i <= 11; ++i)
        text += QStringLiteral("%1/%2/2024 00:00:00,")
                    .arg(i, 2, 10, QLatin1Char('0'))
                    .arg(i + 1, 2, 10, QLatin1Char('0'))
                    .toLatin1() +
                (i < 7 ? QByteArray("5") : QByteArray::number(4 + i / 100.0)) + "\n";
    return text;
}

void Wheel(QWidget& widget, QPoint at, int delta) {
    QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, delta}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

} // namespace

class ImportFormTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // ---- What a file is told as

    void EachGivenFileIsShown_data() {
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("state");
        QTest::newRow("solinst_xle.xle")
            << u"solinst_xle.xle: Solinst XLE, location MW-7, serial number 2000001, 140 rows, "
               u"2024-03-05 11:58:20 to 2024-03-05 12:02:58"_s
            << u"120 of 140 readings, from 2024-03-05 11:59:00, static level 5 m, Rising head."_s;
        QTest::newRow("diver_mon.mon")
            << u"diver_mon.mon: Diver MON, Solinst LEV, location MW-7, serial number ..00-A0001  "
               u"216., 140 "
               u"rows, 2024-03-05 11:58:20 to 2024-03-05 12:02:58"_s
            << u"120 of 140 readings, from 2024-03-05 11:59:00, static level 1533.5 cm, Rising "
               u"head."_s;
        QTest::newRow("solinst_csv_old.csv")
            << u"solinst_csv_old.csv: Solinst CSV, location MW-7, serial number 1000001, 140 rows, "
               u"2024-03-05 11:58:20 to 2024-03-05 12:02:58"_s
            << u"120 of 140 readings, from 2024-03-05 11:59:00, static level 500 cm, Rising head."_s;
        QTest::newRow("generic_csv_depth.csv")
            << u"generic_csv_depth.csv: Text table, 140 rows, 2024-03-05 11:58:20 to 2024-03-05 "
               u"12:02:58"_s
            << u"120 of 140 readings, from 2024-03-05 11:59:00, static level 12 ft, Rising head."_s;
    }
    void EachGivenFileIsShown() {
        QFETCH(QString, format);
        QFETCH(QString, state);
        ImportForm form(CaseFile(QString::fromLatin1(QTest::currentDataTag())));
        QCOMPARE(form.Form().windowTitle(), u"Import Readings"_s);
        QCOMPARE(form.Form().size(),
                 QSize(900, 640).boundedTo(form.Form().screen()->availableSize()));
        QCOMPARE(form.Label(u"ImportFormat"_s), format);
        QCOMPARE(form.StateText(), state);
        QCOMPARE(form.Text(u"ImportStart"_s), u"2024-03-05 11:59:00"_s);
        QCOMPARE(form.Text(u"ImportEnd"_s), u"2024-03-05 12:02:58"_s);
        QCOMPARE(form.Text(u"ImportStaticFrom"_s), u"2024-03-05 11:58:20"_s);
        QCOMPARE(form.Text(u"ImportStaticTo"_s), u"2024-03-05 11:58:58"_s);
        QCOMPARE(form.Rows(), 120);
        QVERIFY(form.Ok().isEnabled());
        QVERIFY(!form.Find<QCheckBox>(u"ImportThin"_s).isVisible());
        QVERIFY(!form.Find(u"ImportTimeUnit"_s).isVisible());
    }

    void TheTableHoldsTimeReadingAndYOfTheRowsToCome() {
        ImportForm form(CaseFile(u"solinst_xle.xle"_s));
        QCOMPARE(form.Cell(1, 1), u"0"_s);
        QCOMPARE(form.Cell(1, 2), u"4.4"_s);
        QCOMPARE(form.Cell(1, 3), u"0.6"_s);
        QCOMPARE(form.Cell(3, 1), u"4"_s);
        QCOMPARE(form.Cell(3, 2), u"4.451"_s);
        QCOMPARE(form.Cell(120, 1), u"238"_s);
        QCOMPARE(form.Cell(120, 2), u"4.997"_s);
    }

    // ---- Lists

    void AnotherChannelIsAnotherRecord() {
        ImportForm form(CaseFile(u"solinst_xle.xle"_s));
        QCOMPARE(form.Chosen(u"ImportChannel"_s), u"1 LEVEL, m"_s);
        form.Type(u"ImportEnd"_s, u"100"_s);
        form.Choose(u"ImportChannel"_s, u"2 TEMPERATURE, °C"_s);
        QCOMPARE(form.Plan().readings->Channel(), std::size_t{1});
        QVERIFY(!form.Ok().isEnabled());
        QCOMPARE(form.Chosen(u"ImportSourceUnit"_s), u"Please choose"_s);
        QCOMPARE(form.Messages().last(),
                 u"The unit '°C' is not known. Please choose the unit of the readings."_s);
        form.Choose(u"ImportChannel"_s, u"1 LEVEL, m"_s);
        QCOMPARE(form.Text(u"ImportEnd"_s), u"2024-03-05 12:02:58"_s);
        QVERIFY(form.Ok().isEnabled());
    }

    void TheTypeOfDataDecidesWhatRises() {
        ImportForm form(CaseFile(u"solinst_xle.xle"_s));
        QCOMPARE(form.Find<QComboBox>(u"ImportDataType"_s).currentIndex(), int{GroundwaterHead});
        const QString depth =
            form.Find<QComboBox>(u"ImportDataType"_s).itemText(DepthToGroundwater);
        const QString change = form.Find<QComboBox>(u"ImportDataType"_s).itemText(ChangeInHead);
        form.Choose(u"ImportDataType"_s, depth);
        QVERIFY(form.StateText().endsWith(u"Falling head."_s));
        form.Choose(u"ImportDataType"_s, change);
        QVERIFY(form.StateText().endsWith(u"change in head."_s));
        QVERIFY(!form.Find(u"ImportStatic"_s).isEnabled());
        QVERIFY(!form.Find(u"ImportStaticFromHandle"_s).isVisible());
        QCOMPARE(form.Text(u"ImportStatic"_s), QString());
    }

    void UnitsConvertTheReadings() {
        ImportForm form(CaseFile(u"solinst_xle.xle"_s));
        QCOMPARE(form.Chosen(u"ImportUnit"_s), u"m"_s);
        form.Choose(u"ImportUnit"_s, u"cm"_s);
        QVERIFY(form.StateText().contains(u"static level 500 cm"_s));
        QCOMPARE(form.Cell(1, 2), u"440"_s);
        form.Choose(u"ImportSourceUnit"_s, u"cm"_s);
        QVERIFY(form.StateText().contains(u"static level 5 cm"_s));
    }

    void AnUnknownUnitIsAsked() {
        LoggerFiles files;
        ImportForm form(files.Write(u"a.csv"_s, SecondsTable(60, "time (s),Level (furlong)")));
        QVERIFY(!form.Ok().isEnabled());
        QCOMPARE(form.Messages(), QStringList{u"The unit 'furlong' is not known. Please choose the "
                                              u"unit of the readings."_s});
        QCOMPARE(form.Find<QComboBox>(u"ImportSourceUnit"_s).count(), WaterUnitCount + 1);
        form.Choose(u"ImportSourceUnit"_s, u"ft"_s);
        QVERIFY(form.Ok().isEnabled());
        QCOMPARE(form.Find<QComboBox>(u"ImportSourceUnit"_s).count(), WaterUnitCount);
        QVERIFY(form.StateText().contains(u"static level 5 ft"_s));
    }

    void AnOpenDateOrderIsAsked() {
        LoggerFiles files;
        ImportForm form(files.Write(u"a.csv"_s, TableOfEitherOrder()));
        QVERIFY(form.Find(u"ImportDateOrder"_s).isVisible());
        QCOMPARE(form.Chosen(u"ImportDateOrder"_s), u"Please choose"_s);
        QVERIFY(!form.Ok().isEnabled());
        QCOMPARE(form.Messages().last(), u"The dates of a.csv can be read as month/day or "
                                         u"day/month. Please choose the order of the dates."_s);
        form.Choose(u"ImportDateOrder"_s, u"month/day/year"_s);
        QCOMPARE(form.Text(u"ImportStart"_s), u"2024-07-08 00:00:00"_s);
        QVERIFY(form.Ok().isEnabled());
        form.Choose(u"ImportDateOrder"_s, u"day/month/year"_s);
        QCOMPARE(form.Text(u"ImportStart"_s), u"2024-08-07 00:00:00"_s);
        QVERIFY(form.Find(u"ImportDateOrder"_s).isVisible());
        QCOMPARE(form.Find<QComboBox>(u"ImportDateOrder"_s).count(), 2);
    }

    void ATestWithinADayNeedsNoAnswer() {
        ImportForm form(CaseFile(u"generic_csv_depth.csv"_s));
        QCOMPARE(form.Chosen(u"ImportDateOrder"_s), u"month/day/year"_s);
        QCOMPARE(form.Messages(), QStringList{u"The dates can be read both ways; the times since "
                                              u"the start are the same."_s});
        form.Choose(u"ImportDateOrder"_s, u"day/month/year"_s);
        QCOMPARE(form.Text(u"ImportStart"_s), u"2024-05-03 11:59:00"_s);
        QCOMPARE(form.Rows(), 120);
    }

    void AnOpenTimeUnitIsAsked() {
        LoggerFiles files;
        ImportForm form(files.Write(u"a.csv"_s, SecondsTable(60, "time,Level (m)", 60)));
        QVERIFY(form.Find(u"ImportTimeUnit"_s).isVisible());
        QCOMPARE(form.Chosen(u"ImportTimeUnit"_s), u"sec"_s);
        form.Choose(u"ImportTimeUnit"_s, u"min"_s);
        QCOMPARE(form.Cell(2, 1), u"2"_s);
        QCOMPARE(form.Text(u"ImportStart"_s), u"40"_s);
        QVERIFY(form.Find(u"ImportTimeUnit"_s).isVisible());
    }

    // ---- Lines

    void EachLineFollowsTheMouse() {
        ImportForm form(CaseFile(u"solinst_xle.xle"_s));
        form.Drag(u"ImportStartHandle"_s, 25);
        QCOMPARE(*form.Plan().start, std::size_t{25});
        QCOMPARE(form.Text(u"ImportStart"_s), u"2024-03-05 11:59:10"_s);
        form.Drag(u"ImportEndHandle"_s, 99);
        QCOMPARE(form.Plan().end, std::size_t{99});
        QCOMPARE(form.Rows(), 75);
        form.Drag(u"ImportStaticFromHandle"_s, 4);
        form.Drag(u"ImportStaticToHandle"_s, 11);
        QCOMPARE(form.Plan().staticRows, (RowSpan{4, 12}));
        QCOMPARE(form.Text(u"ImportStaticFrom"_s), u"2024-03-05 11:58:28"_s);
        QCOMPARE(form.Text(u"ImportStaticTo"_s), u"2024-03-05 11:58:42"_s);
    }

    void LinesDoNotPassEachOther() {
        ImportForm form(CaseFile(u"solinst_xle.xle"_s));
        form.Drag(u"ImportEndHandle"_s, 5);
        QCOMPARE(form.Plan().end, std::size_t{20});
        form.Drag(u"ImportStartHandle"_s, 90);
        QCOMPARE(*form.Plan().start, std::size_t{20});
        form.Drag(u"ImportStaticToHandle"_s, 3);
        form.Drag(u"ImportStaticFromHandle"_s, 50);
        QCOMPARE(form.Plan().staticRows, (RowSpan{3, 4}));
    }

    void EachLineMovesByKeys() {
        ImportForm form(CaseFile(u"solinst_xle.xle"_s));
        form.Press(u"ImportStartHandle"_s, Qt::Key_Right);
        QCOMPARE(*form.Plan().start, std::size_t{21});
        form.Press(u"ImportStartHandle"_s, Qt::Key_Right, Qt::ShiftModifier);
        QCOMPARE(*form.Plan().start, std::size_t{31});
        form.Press(u"ImportStartHandle"_s, Qt::Key_Left);
        QCOMPARE(*form.Plan().start, std::size_t{30});
        form.Press(u"ImportEndHandle"_s, Qt::Key_Left, Qt::ShiftModifier);
        QCOMPARE(form.Plan().end, std::size_t{129});
        form.Press(u"ImportEndHandle"_s, Qt::Key_End);
        QCOMPARE(form.Plan().end, std::size_t{139});
        form.Press(u"ImportEndHandle"_s, Qt::Key_Home);
        QCOMPARE(form.Plan().end, std::size_t{30});
        form.Press(u"ImportStaticFromHandle"_s, Qt::Key_Right, Qt::ShiftModifier);
        form.Press(u"ImportStaticToHandle"_s, Qt::Key_Left);
        QCOMPARE(form.Plan().staticRows.first, std::size_t{10});
        form.Press(u"ImportStaticFromHandle"_s, Qt::Key_Home);
        QCOMPARE(form.Plan().staticRows.first, std::size_t{0});
        form.Press(u"ImportStaticToHandle"_s, Qt::Key_End);
        QCOMPARE(form.Plan().staticRows.end, std::size_t{140});
    }

    void TheWheelZoomsTimeAndADoubleClickShowsAll() {
        ImportForm form(CaseFile(u"solinst_xle.xle"_s));
        ImportPreviewWidget& preview = form.Preview();
        const double from = preview.ViewFrom();
        const double to = preview.ViewTo();
        const QPoint under(preview.ColumnOfRow(70), preview.height() / 2);
        for (int i = 0; i < 8; ++i)
            Wheel(preview, under, 120);
        QVERIFY(preview.ViewTo() - preview.ViewFrom() < (to - from) / 5);
        QVERIFY(std::abs(preview.ColumnOfRow(70) - under.x()) <= 6);
        form.Press(u"ImportEndHandle"_s, Qt::Key_Left); // is brought into the view
        QVERIFY(preview.rect().contains(preview.ColumnOfRow(138), 10));
        QTest::mouseDClick(&preview, Qt::LeftButton, {}, under);
        QCOMPARE(preview.ViewFrom(), from);
        QCOMPARE(preview.ViewTo(), to);
        for (int i = 0; i < 3; ++i)
            Wheel(preview, under, -120);
        QCOMPARE(preview.ViewTo(), to);
    }

    // ---- Boxes

    void BoxesTakeClockTimesAndSeconds() {
        ImportForm form(CaseFile(u"solinst_xle.xle"_s));
        form.Type(u"ImportStart"_s, u"2024-03-05 11:59:03"_s);
        QCOMPARE(form.Text(u"ImportStart"_s), u"2024-03-05 11:59:04"_s);
        form.Type(u"ImportEnd"_s, u"201.5"_s);
        QCOMPARE(form.Text(u"ImportEnd"_s), u"2024-03-05 12:01:40"_s);
        form.Type(u"ImportStaticFrom"_s, u"10"_s);
        form.Type(u"ImportStaticTo"_s, u"2024-03-05T11:58:40"_s);
        QCOMPARE(form.Plan().staticRows, (RowSpan{5, 11}));
        form.Type(u"ImportStart"_s, QString());
        QCOMPARE(form.Text(u"ImportStart"_s), u"2024-03-05 11:59:00"_s);
    }

    void ATypedStaticLevelOverridesTheSpanUntilItIsEmptied() {
        ImportForm form(CaseFile(u"solinst_xle.xle"_s));
        form.Type(u"ImportStatic"_s, u"5.25"_s);
        QVERIFY(form.StateText().contains(u"static level 5.25 m"_s));
        QCOMPARE(form.Cell(1, 3), u"0.85"_s);
        QCOMPARE(form.Text(u"ImportStaticFrom"_s), QString());
        form.Type(u"ImportStatic"_s, QString());
        QCOMPARE(form.Text(u"ImportStatic"_s), u"5"_s);
        QCOMPARE(form.Text(u"ImportStaticFrom"_s), u"2024-03-05 11:58:20"_s);
    }

    void ATimeTypedIntoTheSpanTakesTheWordFromATypedLevel() {
        ImportForm form(CaseFile(u"solinst_xle.xle"_s));
        form.Type(u"ImportStatic"_s, u"5.25"_s);
        form.Type(u"ImportStaticTo"_s, u"20"_s);
        QCOMPARE(form.Messages(), QStringList());
        QCOMPARE(form.Plan().staticRows, (RowSpan{0, 11}));
        QCOMPARE(form.Text(u"ImportStatic"_s), u"5"_s);
    }

    void WithoutAClockTimesAreTheFilesOwnSeconds() {
        LoggerFiles files;
        QByteArray text = "time (s),Level (m)\n";
        for (int row = 0; row < 60; ++row)
            text += QByteArray::number(100.5 + 2 * row) + "," + LevelText(row) + "\n";
        ImportForm form(files.Write(u"a.csv"_s, text));
        QCOMPARE(form.Text(u"ImportStart"_s), u"140.5"_s);
        form.Type(u"ImportStart"_s, u"142.5"_s);
        QCOMPARE(*form.Plan().start, std::size_t{21});
        QCOMPARE(form.Text(u"ImportStart"_s), u"142.5"_s);
        form.State().DecimalSeparator = ",";
        form.Type(u"ImportEnd"_s, u"152,5"_s);
        QCOMPARE(form.Plan().end, std::size_t{26});
    }

    void AFileThatHasGoneMeanwhileLeavesAllAsItWas() {
        LoggerFiles files;
        const QString path = files.Write(u"a.csv"_s, SecondsTable(60, "time,Level (m)"));
        ImportForm form(path);
        QVERIFY(QFile::remove(path));
        Answers answers;
        answers.Box(u"Import Readings"_s, u"53 File not found"_s);
        form.Choose(u"ImportTimeUnit"_s, u"min"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(form.Chosen(u"ImportTimeUnit"_s), u"sec"_s);
        QVERIFY(form.Ok().isEnabled());
    }

    void WhatCannotBeTakenIsToldAndGreysOk() {
        ImportForm form(CaseFile(u"solinst_xle.xle"_s));
        form.Type(u"ImportStart"_s, u"noon"_s);
        QCOMPARE(form.Messages(), QStringList{u"'noon' is not a time."_s});
        QCOMPARE(form.Text(u"ImportStart"_s), u"noon"_s);
        QVERIFY(!form.Ok().isEnabled());
        form.Type(u"ImportStart"_s, u"2025-01-01 00:00:00"_s);
        QCOMPARE(form.Messages(),
                 QStringList{u"There is no reading from 2025-01-01 00:00:00 on."_s});
        form.Type(u"ImportStart"_s, u"50"_s);
        QVERIFY(form.Ok().isEnabled());
        form.Type(u"ImportStatic"_s, u"five"_s);
        QCOMPARE(form.Messages(), QStringList{u"'five' is not a number."_s});
        form.Type(u"ImportStatic"_s, QString());
        form.Type(u"ImportEnd"_s, u"20"_s);
        QCOMPARE(form.Messages(), QStringList{u"The end lies before the start."_s});
        QVERIFY(!form.Ok().isEnabled());
        form.Type(u"ImportEnd"_s, QString());
        form.Type(u"ImportStaticTo"_s, u"0"_s);
        form.Type(u"ImportStaticFrom"_s, u"10"_s);
        QCOMPARE(form.Messages(), QStringList{u"The static level would have no readings."_s});
    }

    void EnterInABoxTakesItsTextAndClosesNothing() {
        ImportForm form(CaseFile(u"solinst_xle.xle"_s));
        form.Type(u"ImportEnd"_s, u"100"_s);
        QVERIFY(form.Form().isVisible());
        QCOMPARE(form.Rows(), 31);
        QTest::keyClick(&form.Find(u"ImportEnd"_s), Qt::Key_Return);
        QVERIFY(!form.Form().isVisible());
        QCOMPARE(form.Form().result(), int{QDialog::Accepted});
    }

    // ---- Records with faults

    void NoStartIsShownByAClick() {
        LoggerFiles files;
        QByteArray text = "time (s),Level (m)\n";
        for (int row = 0; row < 60; ++row)
            text += QByteArray::number(row) + "," + QByteArray::number(5 - row / 100.0) + "\n";
        ImportForm form(files.Write(u"a.csv"_s, text));
        QCOMPARE(form.Messages(), QStringList{u"No start of the test was found. Please click the "
                                              u"first reading after the slug."_s});
        QVERIFY(!form.Ok().isEnabled());
        QCOMPARE(form.StateText(), QString());
        QCOMPARE(form.Rows(), 0);
        ImportPreviewWidget& preview = form.Preview();
        const QPoint at(preview.ColumnOfRow(30), preview.height() / 2);
        QTest::mouseClick(&preview, Qt::LeftButton, {}, at);
        QCOMPARE(*form.Plan().start, std::size_t{30});
        QVERIFY(form.Ok().isEnabled());
        QTest::mouseClick(&preview, Qt::LeftButton, {}, {preview.ColumnOfRow(40), at.y()});
        QCOMPARE(*form.Plan().start, std::size_t{30}); // only where none is found
    }

    void WhoHasOnlyTheKeyboardReadsWhyOkIsGreyed() {
        LoggerFiles files;
        QByteArray text = "time (s),Displacement (m)\n";
        for (int row = 0; row < 60; ++row)
            text += QByteArray::number(row) + "," + QByteArray::number(0.5 - row / 200.0) + "\n";
        ImportForm form(files.Write(u"a.csv"_s, text));
        auto& why = form.Find<QLabel>(u"ImportWhyNot"_s);
        const QString reason = u"OK is greyed: No start of the test was found. Please click the "
                               u"first reading after the slug. Or type its time into Start "
                               u"(Alt+A)."_s;
        QVERIFY(why.isVisible());
        QCOMPARE(why.text(), reason);
        QCOMPARE(form.Ok().accessibleDescription(), reason);
        QCOMPARE(form.Form().accessibleDescription(), reason);
        QVERIFY(why.geometry().bottom() < form.Ok().y());
        QVERIFY(form.Ok().y() - why.geometry().bottom() < 3 * why.fontMetrics().height());
        QTest::keyClick(&form.Form(), Qt::Key_A, Qt::AltModifier);
        QVERIFY(form.Find(u"ImportStart"_s).hasFocus());
        QTest::keyClicks(&form.Find(u"ImportStart"_s), u"1"_s);
        QTest::keyClick(&form.Find(u"ImportStart"_s), Qt::Key_Return);
        QVERIFY(form.Ok().isEnabled());
        QVERIFY(!why.isVisible());
        QCOMPARE(form.Ok().accessibleDescription(), QString());
        form.Type(u"ImportEnd"_s, u"never"_s);
        QCOMPARE(why.text(), u"OK is greyed: 'never' is not a time."_s);
    }

    void AFileWithoutAUnitIsToldSo() {
        LoggerFiles files;
        ImportForm form(files.Write(u"a.csv"_s, SecondsTable(41, "time (s),Level")));
        const QString sentence =
            u"The file names no unit. Please choose the unit of the readings."_s;
        QCOMPARE(form.Messages(), QStringList{sentence});
        QCOMPARE(form.Label(u"ImportWhyNot"_s), u"OK is greyed: "_s + sentence);
        form.Choose(u"ImportSourceUnit"_s, u"m"_s);
        QVERIFY(form.Ok().isEnabled());
    }

    void WordsAboveTheLinesStandOnNothing() {
        LoggerFiles files;
        ImportForm form(files.Write(u"a.csv"_s, SecondsTable(41)));
        ImportPreviewWidget& preview = form.Preview();
        for (const auto& [start, end] : {std::pair(u"0"_s, u"0"_s),
                                         {u"0"_s, u"2"_s},
                                         {u"40"_s, u"42"_s},
                                         {u"78"_s, u"80"_s}}) {
            form.Type(u"ImportStart"_s, start);
            form.Type(u"ImportEnd"_s, end);
            const auto captions = preview.Captions();
            QCOMPARE(captions.size(), std::size_t(2));
            QVERIFY(captions[0].rect.right() < captions[1].rect.left());
            // Left of it stands the unit.
            QVERIFY(captions[0].rect.left() >= preview.ColumnOfRow(0));
            QVERIFY(captions[1].rect.right() < preview.width());
        }
    }

    void FallingTimesAreShownAndGoNoFurther() {
        LoggerFiles files;
        QByteArray text = SecondsTable(60);
        text += "3,5\n4,5\n";
        ImportForm form(files.Write(u"a.csv"_s, text));
        QCOMPARE(form.Messages(), QStringList{u"The times do not rise at row 62."_s});
        QVERIFY(!form.Ok().isEnabled());
        QVERIFY(!form.Find(u"ImportStartHandle"_s).isVisible());
        QVERIFY(!form.Preview().grab().isNull());
        QTest::keyClick(&form.Form(), Qt::Key_Return);
        QVERIFY(form.Form().isVisible());
    }

    void RowsLeftOutAreNamed() {
        LoggerFiles files;
        QByteArray text = SecondsTable(60);
        text.replace("\n10,5\n", "\nten,5\n").replace("\n12,5\n", "\n12,dry\n");
        ImportForm form(files.Write(u"a.csv"_s, text));
        QCOMPARE(form.Messages(), QStringList({u"Row 7: 'ten' is not a time."_s,
                                               u"Row 8: 'dry' is not a number."_s}));
        QVERIFY(form.Ok().isEnabled());
    }

    // ---- Thinning and air pressure

    void ThinningIsOfferedAboveTwoThousandRows() {
        LoggerFiles files;
        ImportForm few(files.Write(u"few.csv"_s, SecondsTable(2020)));
        QCOMPARE(few.Plan().RowsOfTest(), std::size_t{2000});
        QVERIFY(!few.Find(u"ImportThin"_s).isVisible());
        ImportForm form(files.Write(u"many.csv"_s, SecondsTable(2021)));
        auto& thin = form.Find<QCheckBox>(u"ImportThin"_s);
        QVERIFY(thin.isVisible());
        QVERIFY(!thin.isChecked());
        QCOMPARE(thin.text().remove(u'&'), u"Keep about 20 readings a decade of time"_s);
        QCOMPARE(form.Rows(), 2001);
        thin.setFocus();
        QTest::keyClick(&thin, Qt::Key_Space);
        const auto rows = static_cast<int>(form.Plan().thinnedRows.size());
        QVERIFY(rows > 20 && rows < 100);
        QCOMPARE(form.Rows(), rows);
        QVERIFY(form.StateText().startsWith(QString::number(rows) + u" of 2021 readings"_s));
        form.Press(u"ImportEndHandle"_s, Qt::Key_Left); // 2,000 rows: no longer offered
        QVERIFY(!thin.isVisible());
        QCOMPARE(form.Rows(), 2000);
    }

    void ABarometerIsSubtractedAndTakenBack() {
        LoggerFiles files;
        ImportForm form(files.Write(u"a.csv"_s, ClockTable(60, "Time,Pressure (mH2O)")));
        const QString air =
            files.Write(u"air.csv"_s, ClockTable(62, "Time,Baro pressure (cmH2O)", -2, "100"));
        Answers answers;
        answers.FileName(air);
        auto& button = form.Find<QPushButton>(u"ImportBarometer"_s);
        QTest::mouseClick(&button, Qt::LeftButton);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(form.Messages(), QStringList{u"The air pressure of air.csv is subtracted."_s});
        QCOMPARE(form.Text(u"ImportStatic"_s), u"4"_s);
        QTest::mouseClick(&button, Qt::LeftButton);
        QCOMPARE(form.Text(u"ImportStatic"_s), u"5"_s);
    }

    void ABarometerThatFallsShortOrIsNoneSubtractsNothing() {
        LoggerFiles files;
        ImportForm form(files.Write(u"a.csv"_s, ClockTable(60, "Time,Pressure (mH2O)")));
        const QString brief =
            files.Write(u"air.csv"_s, ClockTable(59, "Time,Baro pressure (cmH2O)", 0, "100"));
        const QString level = files.Write(u"b.csv"_s, ClockTable(60));
        Answers answers;
        answers.FileName(level).Box(u"Import Readings"_s,
                                    u"No pressure channel was found in b.csv."_s);
        auto& button = form.Find<QPushButton>(u"ImportBarometer"_s);
        QTest::mouseClick(&button, Qt::LeftButton);
        QVERIFY(form.Ok().isEnabled());
        answers.FileName(brief);
        QTest::mouseClick(&button, Qt::LeftButton);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(form.Messages(), QStringList{u"The barometer file does not cover the test."_s});
        QCOMPARE(form.Text(u"ImportStatic"_s), u"5"_s);
    }

    // ---- Without a mouse, in a large font

    void TabGoesThroughEverythingAlsoInALargeFontAndASmallWindow() {
        const QFont usual = QApplication::font();
        QFont large = usual;
        large.setPointSizeF(usual.pointSizeF() * 2);
        QApplication::setFont(large);
        ImportForm form(CaseFile(u"solinst_xle.xle"_s));
        form.Form().resize(800, 560);
        QCoreApplication::processEvents();
        QCOMPARE(form.Form().size(), QSize(800, 560));
        QStringList reached;
        QRect viewport = form.Form().rect();
        for (int i = 0; i < 40; ++i) {
            QWidget* focus = QApplication::focusWidget();
            if (focus == nullptr || reached.contains(focus->objectName()))
                break;
            reached.append(focus->objectName());
            // What has the keyboard is in sight.
            const QRect seen(focus->mapTo(&form.Form(), QPoint()), focus->size());
            QVERIFY2(viewport.intersects(seen) && !focus->visibleRegion().isEmpty(),
                     qPrintable(focus->objectName()));
            QTest::keyClick(focus, Qt::Key_Tab);
        }
        QApplication::setFont(usual);
        const QStringList expected = {u"ImportChannel"_s,
                                      u"ImportDataType"_s,
                                      u"ImportSourceUnit"_s,
                                      u"ImportUnit"_s,
                                      u"ImportStaticFromHandle"_s,
                                      u"ImportStaticToHandle"_s,
                                      u"ImportStartHandle"_s,
                                      u"ImportEndHandle"_s,
                                      u"ImportStaticFrom"_s,
                                      u"ImportStaticTo"_s,
                                      u"ImportStatic"_s,
                                      u"ImportStart"_s,
                                      u"ImportEnd"_s,
                                      u"ImportTable"_s,
                                      u"ImportMessages"_s,
                                      u"ImportBarometer"_s,
                                      u"ImportOK"_s,
                                      u"ImportCancel"_s};
        QCOMPARE(reached, expected);
    }

    void EscapeClosesTheWindowFromEveryControl() {
        for (const QString& name :
             {u"ImportTable"_s, u"ImportMessages"_s, u"ImportStart"_s, u"ImportEndHandle"_s}) {
            ImportForm form(CaseFile(u"solinst_xle.xle"_s));
            form.Find(name).setFocus();
            QTest::keyClick(&form.Find(name), Qt::Key_Escape);
            QVERIFY2(!form.Form().isVisible(), qPrintable(name));
            QCOMPARE(form.Form().result(), int{QDialog::Rejected});
        }
    }

    void TheWholeImportNeedsOnlyTheKeyboard() {
        ImportForm form(CaseFile(u"solinst_xle.xle"_s));
        const auto press = [](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
            QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        };
        for (int i = 0; i < 6; ++i)
            press(Qt::Key_Tab);
        press(Qt::Key_Right);
        press(Qt::Key_Tab);
        press(Qt::Key_Left, Qt::ShiftModifier);
        press(Qt::Key_Return);
        QCOMPARE(form.Form().result(), int{QDialog::Accepted});
        QCOMPARE(*form.Plan().start, std::size_t{21});
        QCOMPARE(form.Plan().end, std::size_t{129});
    }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::ImportFormTest)
#include "test_import_form.moc"
