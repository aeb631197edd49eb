#include "tests/gui/WindowTestSupport.h"

#include "wellgeometry/WellSectionPicture.h"

#include <QComboBox>
#include <QPushButton>

namespace quarnel::windowtest {

class TestWellGeometryPanel : public QObject {
    Q_OBJECT

    static void TypeWell(Program& program, const QStringList& texts) {
        program.ClickTab(3);
        for (int i = 0; i < texts.size(); ++i)
            TypeInto(program.Find<QLineEdit>(u"WellGeoText"_s, i), texts[i]);
    }

    /// Presses "Check Data" and expects one box.
    static void CheckSays(Program& program, const QString& title, const QString& text) {
        Answers answers;
        answers.Box(title, text);
        QTest::mouseClick(&program.Find(u"SSCmdWellGeoCheckData"_s), Qt::LeftButton);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
    }

private Q_SLOTS:
    void CheckDataSaysWhatIsWrong_data() {
        QTest::addColumn<QStringList>("texts");
        QTest::addColumn<QString>("message");
        const QString dc = u"dc, well casing diameter,"_s;
        const QString porosity = u"dpor, drained filter pack porosity,"_s;
        QTest::newRow("H of blanks only")
            << QStringList{u"   "_s, u""_s} << u"Well Geometry: H must have a value."_s;
        QTest::newRow("H 0") << QStringList{u"0"_s} << u"Well Geometry: H must be > 0."_s;
        QTest::newRow("H -3") << QStringList{u"-3"_s} << u"Well Geometry: H must be > 0."_s;
        QTest::newRow("H no number")
            << QStringList{u"12,5,1"_s, u"x"_s}
            << u"Well Geometry: H cannot be evaluated as a number. Please re-enter."_s;
        QTest::newRow("dc missing") << QStringList{u"10"_s, u"8"_s, u"5"_s, u"8"_s, u""_s}
                                    << u"Well Geometry: "_s + dc + u" must have a value."_s;
        QTest::newRow("dpor 100.5")
            << QStringList{u"10"_s, u"8"_s, u"5"_s, u"8"_s, u"2"_s, u"100.5"_s}
            << u"Well Geometry: "_s + porosity + u" must be from 0 to 100 %."_s;
        QTest::newRow("Lw > H and dc > dw")
            << QStringList{u"10"_s, u"11"_s, u"5"_s, u"2"_s, u"8"_s, u"0"_s}
            << u"Well Geometry: dc must be <= dw, well casing diameter must be <= well borehole "
               u"diameter."_s;
        QTest::newRow("Le > Lw") << QStringList{u"10"_s, u"5"_s, u"8"_s, u"8"_s, u"2"_s, u"0"_s}
                                 << u"Well Geometry: Le must <= Lw."_s;
    }

    void CheckDataSaysWhatIsWrong() {
        QFETCH(QStringList, texts);
        QFETCH(QString, message);
        Program program;
        TypeWell(program, texts);
        CheckSays(program, u"Data Error"_s, message);
    }

    void CheckDataSaysThatAllIsRight() {
        Program program;
        TypeWell(program, {u" 10 "_s, u"10"_s, u"10"_s, u"4"_s, u"4"_s, u""_s});
        CheckSays(program, u"Quarnel"_s, u"Well Geometry data is complete and consistent."_s);
        // The box shows the text as the check left it.
        QCOMPARE(program.Find<QLineEdit>(u"WellGeoText"_s, 0).text(), u"10"_s);
    }

    void ACheckBesideAFailedOneKeepsWhatWasTyped() {
        Program program;
        TypeWell(program, {u"abc"_s, u"1e1"_s, u"x"_s});
        CheckSays(program, u"Data Error"_s,
                  u"Well Geometry: H cannot be evaluated as a number. Please re-enter."_s);
        QCOMPARE(program.State().WellGeoText[GeoH], "abc");
        QCOMPARE(program.State().WellGeoText[GeoLw], "1e1");
        QCOMPARE(program.State().WellGeoText[GeoLe], "x");
    }

    void ANewProjectShowsTheWaterTableAboveTheScreen() {
        Program program;
        program.ClickTab(3);
        QVERIFY(program.Find<QAbstractButton>(u"SSRibbon1"_s).isChecked());
        QVERIFY(!program.Find<QAbstractButton>(u"SSRibbon2"_s).isChecked());
        QVERIFY(program.Find(u"Image1"_s, 0).isVisible());
        QVERIFY(!program.Find(u"Image1"_s, 1).isVisible());
    }

    void ARibbonReleasesTheOtherAndChangesThePictureOnly() {
        Program program;
        TypeWell(program, {u"10"_s, u"8"_s});
        const auto texts = program.State().WellGeoText;
        QTest::mouseClick(&program.Find(u"SSRibbon2"_s), Qt::LeftButton);
        QVERIFY(!program.Find<QAbstractButton>(u"SSRibbon1"_s).isChecked());
        QVERIFY(!program.Find(u"Image1"_s, 0).isVisible());
        QVERIFY(program.Find(u"Image1"_s, 1).isVisible());
        QVERIFY(!program.State().SSRibbon1Pressed);
        QCOMPARE(program.State().WellGeoText, texts);
        QTest::mouseClick(&program.Find(u"SSRibbon1"_s), Qt::LeftButton);
        QVERIFY(program.State().SSRibbon1Pressed);
        QVERIFY(program.Find(u"Image1"_s, 0).isVisible());
    }

    void UnitListsGoIntoTheState() {
        Program program;
        program.ClickTab(3);
        auto& vertical = program.Find<QComboBox>(u"WellGeoVertUnitsDDL"_s);
        vertical.setFocus();
        QTest::keyClick(&vertical, Qt::Key_End);
        QCOMPARE(program.State().WellGeoVertUnitsDDL, int(Metre));
        auto& radial = program.Find<QComboBox>(u"WellGeoRadUnitsDDL"_s);
        radial.setFocus();
        QTest::keyClick(&radial, Qt::Key_Down);
        QCOMPARE(program.State().WellGeoRadUnitsDDL, int(Foot));
    }

    void EveryFieldSaysWhatItMeans() {
        Program program;
        for (int i = 0; i < 6; ++i)
            QVERIFY(program.Find(u"WellGeoText"_s, i).toolTip().size() > 10);
        QVERIFY(program.Find(u"WellGeoText"_s, 0).toolTip().contains(u"impervious bottom"_s));
        QCOMPARE(program.Find<QLabel>(u"WellGeoLbl"_s, 6).text(), u"% (0 to 100)"_s);
    }
};

class TestWellSectionPicture : public QObject {
    Q_OBJECT

    static QString Drawing(int picture) {
        QFile file(u":/wellgeometry/well-section-%1.svg"_s.arg(picture));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    /// How many pixels have exactly this colour.
    static int Count(const QImage& image, const QColor& colour) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y) == colour ? 1 : 0;
        return count;
    }

private Q_SLOTS:
    void EveryPartIsLabelled_data() {
        QTest::addColumn<int>("picture");
        QTest::newRow("water table above the screen") << 0;
        QTest::newRow("water table in the screen") << 1;
    }

    void EveryPartIsLabelled() {
        QFETCH(int, picture);
        const WellSectionPicture shown(u":/wellgeometry/well-section-%1.svg"_s.arg(picture));
        QVERIFY(shown.IsValid());
        const QString drawing = Drawing(picture);
        for (const auto& label :
             {u"ground surface"_s, u"borehole"_s, u"well casing"_s, u"well screen"_s,
              u"filter pack"_s, u"bentonite"_s, u"water table"_s, u"impervious bottom"_s, u">H<"_s,
              u">Lw<"_s, u">Le<"_s, u">dw<"_s, u">dc<"_s})
            QVERIFY2(drawing.contains(label), qPrintable(label));
        QVERIFY(!shown.accessibleName().isEmpty());
    }

    void OnlyThePictureWithoutDrainageSaysSo() {
        const QString note = u"drained filter pack porosity = 0!<"_s;
        QVERIFY(Drawing(0).contains(note));
        QVERIFY(!Drawing(1).contains(note));
    }

    void LinesTakeTheColourOfTheText() {
        WellSectionPicture picture(u":/wellgeometry/well-section-0.svg"_s);
        picture.resize(720, 840);
        QPalette palette;
        for (const QColor ink : {QColor(1, 2, 3), QColor(250, 251, 252)}) {
            palette.setColor(QPalette::WindowText, ink);
            palette.setColor(QPalette::Window,
                             ink.lightness() > 128 ? QColor(30, 30, 30) : QColor(240, 240, 240));
            picture.setPalette(palette);
            QVERIFY(Count(picture.grab().toImage(), ink) > 2000);
        }
    }

    void KeepsItsShapeInAnyRoom() {
        WellSectionPicture picture(u":/wellgeometry/well-section-1.svg"_s);
        picture.resize(900, 420);
        const QRectF wide = picture.PictureRect();
        picture.resize(360, 900);
        const QRectF tall = picture.PictureRect();
        QVERIFY(qAbs(wide.width() / wide.height() - tall.width() / tall.height()) < 1e-9);
        QCOMPARE(wide.height(), 420.0);
        QCOMPARE(tall.width(), 360.0);
    }

    void APictureThatIsNotThereStaysEmpty() {
        const WellSectionPicture picture(u":/wellgeometry/none.svg"_s);
        QVERIFY(!picture.IsValid());
        QVERIFY(picture.PictureRect().isEmpty());
    }
};

} // namespace quarnel::windowtest

int main(int argc, char** argv) {
    using namespace quarnel::windowtest;
    const int panel = Run<TestWellGeometryPanel>(argc, argv);
    return Run<TestWellSectionPicture>(argc, argv) + panel;
}

#include "test_well_geometry_panel.moc"
