// What stands for something can be seen on every palette, and the legend goes where it was asked
// for.

#include "tests/gui/WindowTestSupport.h"

#include "output/PlotDrawing.h"
#include "output/PlotWidget.h"
#include "wellgeometry/WellSectionPicture.h"

#include <QCheckBox>
#include <QContextMenuEvent>
#include <QProcess>
#include <cmath>

namespace quarnel::windowtest {

namespace {

/// Web Content Accessibility Guidelines 2.1, 1.4.11: graphical objects have 3:1 at least.
constexpr double Least = 3;

double Luminance(const QColor& colour) {
    const auto linear = [](int part) {
        const double share = part / 255.0;
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.red()) + 0.7152 * linear(colour.green()) +
           0.0722 * linear(colour.blue());
}

double Contrast(const QColor& a, const QColor& b) {
    const double one = Luminance(a);
    const double other = Luminance(b);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

QPalette PaletteOf(const QColor& text, const QColor& window, const QColor& base) {
    QPalette palette(window, window);
    for (const QPalette::ColorRole role :
         {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(role, text);
    palette.setColor(QPalette::Base, base);
    return palette;
}

void AddPalettes() {
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("light") << PaletteOf(Qt::black, QColor(239, 239, 239), Qt::white);
    QTest::newRow("grey") << PaletteOf(Qt::black, QColor(200, 200, 200), QColor(220, 220, 220));
    QTest::newRow("dark") << PaletteOf(QColor(252, 252, 252), QColor(42, 46, 50),
                                       QColor(27, 30, 32));
    QTest::newRow("darker") << PaletteOf(Qt::white, QColor(36, 36, 36), QColor(30, 30, 30));
    QTest::newRow("middle") << PaletteOf(QColor(230, 230, 230), QColor(64, 64, 64),
                                         QColor(72, 72, 72));
    QTest::newRow("black") << PaletteOf(Qt::white, Qt::black, Qt::black);
}

/// The program with the Pratt County test computed, in a palette of its own.
class ContrastProgram {
public:
    explicit ContrastProgram(const QPalette& palette)
        : before_(QApplication::palette()) {
        QApplication::setPalette(palette);
        program_ = std::make_unique<Program>();
        program_->Window().OpenPath(SourceFile("examples/pratt-county-1998.qn2"));
        program_->ClickTab(5);
        QTest::mouseClick(&program_->Find(u"CmdComputeK"_s), Qt::LeftButton);
    }
    ~ContrastProgram() {
        program_.reset();
        QApplication::setPalette(before_);
    }
    ContrastProgram(const ContrastProgram&) = delete;
    ContrastProgram& operator=(const ContrastProgram&) = delete;

    PlotWidget& Plot() { return program_->Find<PlotWidget>(u"Plot1"_s); }
    /// The greatest contrast with the ground that is found around a place of the plot (twips).
    double Seen(const QImage& image, double x, double y, double reach) {
        const double pixels = Plot().logicalDpiX() / TwipsPerInch;
        const QPointF at = Plot().contentsRect().topLeft() + QPointF(x, y) * pixels;
        const QColor ground = QApplication::palette().color(QPalette::Base);
        double best = 0;
        for (int row = qFloor(at.y() - reach * pixels); row <= at.y() + reach * pixels; ++row)
            for (int column = qFloor(at.x() - reach * pixels); column <= at.x() + reach * pixels;
                 ++column)
                if (image.rect().contains(column, row))
                    best = std::max(best, Contrast(image.pixelColor(column, row), ground));
        return best;
    }

private:
    QPalette before_;
    std::unique_ptr<Program> program_;
};

/// A mark of the series, painted large on the ground of the inks.
QImage PaintedMark(int series, bool isFilled, const Inks& inks) {
    constexpr int Size = 60;
    constexpr double TwipsAcross = 150;
    QImage image(Size, Size, QImage::Format_RGB32);
    image.fill(inks.ground);
    Drawing drawing;
    drawing.marks.push_back({TwipsAcross / 2, TwipsAcross / 2, TwipsAcross / 3, series, isFilled});
    QPainter painter(&image);
    painter.scale(Size / TwipsAcross, Size / TwipsAcross);
    PaintDrawing(painter, drawing, inks);
    return image;
}

QByteArray FileBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestContrast : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EveryInkThatMeansSomethingStandsOut_data() { AddPalettes(); }
    void EveryInkThatMeansSomethingStandsOut() {
        QFETCH(QPalette, palette);
        const QColor ground = palette.color(QPalette::Base);
        const Inks inks = ScreenInks(palette);
        const auto stands = [&ground](const QColor& colour, const QColor& halo) {
            return Contrast(colour, ground) >= Least ||
                   (halo.isValid() && Contrast(halo, ground) >= Least);
        };
        QVERIFY(stands(inks.ink, QColor()));
        QVERIFY(stands(inks.grey, QColor()));
        QVERIFY(stands(Qt::red, inks.halo));
        QVERIFY(stands(Qt::blue, inks.halo));
        QVERIFY(stands(Qt::red, inks.lineHalo));
    }

    void EverySeriesStandsOut_data() {
        AddPalettes();
        QTest::newRow("paper") << QPalette();
    }
    void EverySeriesStandsOut() {
        QFETCH(QPalette, palette);
        const Inks inks =
            QByteArray(QTest::currentDataTag()) == "paper" ? Inks() : ScreenInks(palette);
        for (int series = 0; series < MarkSeriesCount; ++series) {
            QVERIFY2(Contrast(SeriesColour(series, inks), inks.ground) >= Least,
                     qPrintable(QString::number(series)));
            for (const bool isFilled : {false, true}) {
                const QImage mark = PaintedMark(series, isFilled, inks);
                double best = 0;
                for (int y = 0; y < mark.height(); ++y)
                    for (int x = 0; x < mark.width(); ++x)
                        best = std::max(best, Contrast(mark.pixelColor(x, y), inks.ground));
                QVERIFY2(best >= Least, qPrintable(QString::number(series)));
            }
        }
    }

    void EverySeriesHasAShapeOfItsOwn() {
        QList<QImage> shapes;
        for (int series = 0; series < MarkSeriesCount; ++series) {
            QImage shape = PaintedMark(series, true, Inks());
            for (int y = 0; y < shape.height(); ++y)
                for (int x = 0; x < shape.width(); ++x)
                    if (shape.pixelColor(x, y) != QColor(Qt::white))
                        shape.setPixelColor(x, y, Qt::black);
            QVERIFY(!shapes.contains(shape));
            shapes.append(shape);
        }
    }

    void WhatIsSeenOfTheLegendStandsOut_data() { AddPalettes(); }
    void WhatIsSeenOfTheLegendStandsOut() {
        QFETCH(QPalette, palette);
        ContrastProgram program(palette);
        const Drawing& legend = program.Plot().ShownLegend();
        QCOMPARE(legend.circles.size(), std::size_t(2));
        const QImage image = program.Plot().grab().toImage();
        for (const DrawingCircle& circle : legend.circles)
            QVERIFY(program.Seen(image, circle.x, circle.y, circle.radius + 30) >= Least);
    }

    void WhatIsSeenOfPointsAndLineStandsOut_data() { AddPalettes(); }
    void WhatIsSeenOfPointsAndLineStandsOut() {
        QFETCH(QPalette, palette);
        ContrastProgram program(palette);
        const Drawing& plot = program.Plot().Shown();
        const QImage image = program.Plot().grab().toImage();
        for (const DrawingCircle& circle : plot.circles)
            QVERIFY(program.Seen(image, circle.x, circle.y, circle.radius + 30) >= Least);
        for (const DrawingLine& line : plot.lines)
            if (line.colour == DrawingColour::Red)
                for (const double part : {0.45, 0.55, 0.95})
                    QVERIFY(program.Seen(image, line.x1 + (line.x2 - line.x1) * part,
                                         line.y1 + (line.y2 - line.y1) * part, 30) >= Least);
    }

    /// The colours of the picture that carry a meaning, against those they stand on.
    void TheLinesOfTheWellPictureStandOut_data() { AddPalettes(); }
    void TheLinesOfTheWellPictureStandOut() {
        QFETCH(QPalette, palette);
        QFile file(u":/wellgeometry/well-section-0.svg"_s);
        WellSectionPicture picture(file.fileName());
        QVERIFY(picture.IsValid() && file.open(QIODevice::ReadOnly));
        const QColor ink = palette.color(QPalette::WindowText);
        const bool dark = IsDarkPalette(palette);
        const QString drawing = RecolouredWellSection(QString::fromUtf8(file.readAll()), ink, dark);
        const QColor waterTable(dark ? u"#7cc0f7"_s : u"#1565a6"_s);
        for (const QColor& soil : {QColor(dark ? u"#5a4826"_s : u"#f1dfb5"_s),
                                   QColor(dark ? u"#2c3f47"_s : u"#d4e1df"_s)}) {
            QVERIFY(drawing.contains(soil.name()));
            QVERIFY(Contrast(ink, soil) >= Least);
            QVERIFY(Contrast(waterTable, soil) >= Least);
        }
    }

    void AnOldKIsGreyYetReadable_data() { AddPalettes(); }
    void AnOldKIsGreyYetReadable() {
        QFETCH(QPalette, palette);
        const QPalette before = QApplication::palette();
        QApplication::setPalette(palette);
        {
            Program program;
            const QPalette own = program.Find<QLabel>(u"ComputedKLabel"_s).palette();
            QVERIFY(Contrast(own.color(QPalette::PlaceholderText), own.color(QPalette::Window)) >=
                    Least);
        }
        QApplication::setPalette(before);
    }
};

class TestLegend : public QObject {
    Q_OBJECT

    static constexpr const char* Words = "used in the fit";

private Q_SLOTS:
    void init() { folder_ = std::make_unique<QTemporaryDir>(); }

    void TheScreenHasALegendWhereItHasAPlot() {
        ContrastProgram program((QApplication::palette()));
        const Drawing& legend = program.Plot().ShownLegend();
        QCOMPARE(legend.labels.size(), std::size_t(2));
        QCOMPARE(legend.labels[0].text, Words);
        QCOMPARE(legend.labels[1].text, "not used");
        QVERIFY(legend.circles[0].colour == DrawingColour::Red);
        QVERIFY(legend.circles[1].colour == DrawingColour::Blue);
        // Above the plot, where nothing else stands.
        for (const DrawingLine& line : program.Plot().Shown().lines)
            QVERIFY(legend.circles[0].y + legend.circles[0].radius < std::min(line.y1, line.y2));
        Program empty;
        QVERIFY(empty.Find<PlotWidget>(u"Plot1"_s).ShownLegend().IsEmpty());
    }

    void TheLegendStandsInOneRowInTheMiddleAboveThePlot() {
        ContrastProgram program((QApplication::palette()));
        const Drawing& plot = program.Plot().Shown();
        const Drawing& legend = program.Plot().ShownLegend();
        const double row = ScreenPlotLayout(plot.width, plot.height).top / 2;
        for (std::size_t i = 0; i < 2; ++i) {
            QCOMPARE(legend.circles[i].y, row);
            QCOMPARE(legend.labels[i].y, row);
        }
    }

    void APictureHasTheLegendOnlyWhenItIsTicked() {
        ContrastProgram program((QApplication::palette()));
        const QByteArray without = Saved(program.Plot(), u"without.svg"_s);
        QVERIFY(!without.contains(Words));
        auto& tick = Find<QAction>(program.Plot(), u"LegendOnPictures"_s);
        QVERIFY(!tick.isChecked());
        Choose(program.Plot(), tick);
        QVERIFY(tick.isChecked());
        const QByteArray with = Saved(program.Plot(), u"with.svg"_s);
        QVERIFY(with.contains(Words));
        QCOMPARE(with.count("<circle"), without.count("<circle") + 2);
        Choose(program.Plot(), tick);
        QCOMPARE(Saved(program.Plot(), u"again.svg"_s), without);
    }

    void ThePrintedPageHasTheLegendOnlyWhenItIsTicked() {
        Program program;
        program.Window().OpenPath(SourceFile("examples/pratt-county-1998.qn2"));
        program.ClickTab(5);
        QTest::mouseClick(&program.Find(u"CmdComputeK"_s), Qt::LeftButton);
        auto& tick = program.Find<QCheckBox>(u"LegendOnPage"_s);
        QVERIFY(!tick.isChecked());
        QVERIFY(!Printed(program, u"without.pdf"_s).contains(QLatin1String(Words)));
        QTest::mouseClick(&program.Find(u"CmdPrintPlot"_s), Qt::LeftButton);
        QTest::mouseClick(&tick, Qt::LeftButton, {}, QPoint(10, tick.height() / 2));
        QVERIFY(tick.isChecked());
        QVERIFY(Printed(program, u"with.pdf"_s).contains(QLatin1String(Words)));
    }

private:
    /// Chooses an entry of the plot's menu as a right click and a click do.
    static void Choose(PlotWidget& plot, QAction& entry) {
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &look, [&entry] {
            if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
                QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(&entry).center());
        });
        look.start(5);
        const QPoint centre = plot.rect().center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, centre, plot.mapToGlobal(centre));
        QApplication::sendEvent(&plot, &event);
    }

    QByteArray Saved(PlotWidget& plot, const QString& name) {
        const QString path = folder_->filePath(name);
        Answers answers;
        answers.FileName(path);
        Choose(plot, Find<QAction>(plot, u"SavePlot"_s));
        if (!answers.AllGiven())
            qFatal("%s", answers.Complaints().constData());
        return FileBytes(path);
    }

    /// The text of the page printed to a PDF under `name`.
    QString Printed(Program& program, const QString& name) {
        const QString path = folder_->filePath(name);
        QTest::mouseClick(&program.Find(u"CmdPrintPlot"_s), Qt::LeftButton);
        Answers answers;
        answers.BoxAbout(u"PDF"_s, QMessageBox::Yes).FileName(path);
        QTest::mouseClick(&program.Find(u"CmdPrtPlot"_s), Qt::LeftButton);
        if (!answers.AllGiven())
            qFatal("%s", answers.Complaints().constData());
        QProcess process;
        process.start(u"pdftotext"_s, {path, u"-"_s});
        process.waitForFinished(-1);
        return QString::fromUtf8(process.readAllStandardOutput());
    }

    std::unique_ptr<QTemporaryDir> folder_;
};

} // namespace quarnel::windowtest

int main(int argc, char** argv) {
    using namespace quarnel::windowtest;
    const int contrast = Run<TestContrast>(argc, argv);
    return Run<TestLegend>(argc, argv) + contrast;
}

#include "test_contrast.moc"
