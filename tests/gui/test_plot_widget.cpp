#include "tests/gui/WindowTestSupport.h"

#include "output/PlotWidget.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMimeData>
#include <QProcess>

namespace quarnel::windowtest {

namespace {

/// The Pratt County test on the compute tab, its K not yet computed.
class PlotProgram : public Program {
public:
    PlotProgram() {
        Window().OpenPath(SourceFile("examples/pratt-county-1998.qn2"));
        ClickTab(5);
        QGuiApplication::clipboard()->clear();
    }
    void Compute() { QTest::mouseClick(&Find(u"CmdComputeK"_s), Qt::LeftButton); }
    PlotWidget& Plot() { return Find<PlotWidget>(u"Plot1"_s); }

    /// Opens the plot's menu as a right click does and lets `act` work on it.
    void WithMenu(const std::function<void(QMenu&)>& act) {
        bool seen = false;
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &look, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (menu == nullptr || seen)
                return;
            seen = true;
            act(*menu);
            menu->close();
        });
        look.start(5);
        const QPoint centre = Plot().rect().center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, centre, Plot().mapToGlobal(centre));
        QApplication::sendEvent(&Plot(), &event);
        if (!seen)
            qFatal("The plot has no menu");
    }
    void ChooseInMenu(const char* name) {
        WithMenu([this, name](QMenu& menu) {
            auto& action = windowtest::Find<QAction>(Plot(), QString::fromLatin1(name));
            QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(&action).center());
        });
    }
};

QByteArray FileBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// What pdftotext reads in a file; nothing where that is no PDF.
QString PdfText(const QString& path) {
    QProcess process;
    process.start(u"pdftotext"_s, {path, u"-"_s});
    process.waitForFinished(-1);
    return QString::fromUtf8(process.readAllStandardOutput());
}

int Count(const QImage& image, const QColor& colour) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == colour ? 1 : 0;
    return count;
}

bool CopiedAnImage() {
    const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
    return copied != nullptr && copied->hasImage();
}

} // namespace

class TestPlotWidget : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { folder_ = std::make_unique<QTemporaryDir>(); }

    void WithoutAPlotNothingCanBeCopiedOrSaved() {
        PlotProgram program;
        QStringList captions, enabled;
        program.WithMenu([&](QMenu& menu) {
            for (const QAction* action : menu.actions()) {
                if (action->isSeparator())
                    continue;
                captions << action->text();
                if (action->isEnabled())
                    enabled << action->text();
            }
        });
        QCOMPARE(captions, QStringList({u"&Use\tU"_s, u"&Ignore\tI"_s, u"&Turn Over\tSpace"_s,
                                        u"Use &Only These"_s, u"&Copy"_s, u"&Save as Picture..."_s,
                                        u"Show &Head Range 0.20-0.30"_s, u"&Legend on Pictures"_s,
                                        u"&Diagnostics"_s}));
        QCOMPARE(enabled, QStringList({u"&Diagnostics"_s}));
        QTest::keyClick(&program.Plot(), Qt::Key_C, Qt::ControlModifier);
        QVERIFY(!CopiedAnImage());
    }

    void TheMenuCopiesThePlotAsPixelsAndLines() {
        PlotProgram program;
        program.Compute();
        program.ChooseInMenu("CopyPlot");
        QVERIFY(CopiedAnImage());
        const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
        const QImage image = qvariant_cast<QImage>(copied->imageData());
        QVERIFY(Count(image, QColor(255, 0, 0)) > 100);
        QVERIFY(Count(image, QColor(0, 0, 255)) > 100);
        QVERIFY(copied->data(u"image/svg+xml"_s).contains("Time (sec)</text>"));
    }

    void CtrlCCopiesThePlotThatHasTheFocus() {
        PlotProgram program;
        program.Compute();
        program.Plot().setFocus();
        QTest::keyClick(&program.Plot(), Qt::Key_C, Qt::ControlModifier);
        QVERIFY(CopiedAnImage());
    }

    void ASavedSvgHoldsTextAsTextAndCirclesAsCircles() {
        const QByteArray svg = FileBytes(Saved(u"plot.svg"_s));
        QVERIFY(svg.contains("<text"));
        for (const char* text : {"Time (sec)", "Y(m)", "0.00"})
            QVERIFY2(svg.contains(QByteArray(">") + text + "</text>"), text);
        QVERIFY(svg.contains("<circle") || svg.contains("<ellipse"));
        QVERIFY(svg.contains("#ff0000"));
        QVERIFY(svg.contains("#0000ff"));
        QVERIFY(!svg.contains("<image"));
    }

    void ASavedPdfHoldsTextThatCanBeFound() {
        const QString text = PdfText(Saved(u"plot.pdf"_s));
        for (const QString& wanted : {u"Time (sec)"_s, u"Y(m)"_s, u"0.00"_s})
            QVERIFY2(text.contains(wanted), qPrintable(text));
    }

    void ASavedPngShowsBothKindsOfPoints() {
        const QImage image(Saved(u"plot.png"_s));
        QVERIFY(image.width() > 500 && image.height() > 500);
        QCOMPARE(image.pixelColor(0, 0), QColor(Qt::white));
        QVERIFY(Count(image, QColor(255, 0, 0)) > 100);
        QVERIFY(Count(image, QColor(0, 0, 255)) > 100);
    }

    void TheChosenKindGivesANameItsEnding() {
        PlotProgram program;
        program.Compute();
        const QString path = folder_->filePath(u"named"_s);
        Answers answers;
        answers.Dialog<QFileDialog>([path](QFileDialog& dialog) {
            dialog.selectNameFilter(u"PNG (*.png)(*.png)"_s);
            auto* edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
            edit->setText(path);
            QTest::keyClick(edit, Qt::Key_Return);
        });
        program.ChooseInMenu("SavePlot");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(FileBytes(path + u".png"_s).startsWith("\x89PNG"));
    }

    void ANameThatEndsInNoKindOfPictureGetsTheChosenEnding() {
        PlotProgram program;
        program.Compute();
        for (const QString& name : {u"MW-3.1"_s, u"plot.jpg"_s}) {
            Answers answers;
            answers.FileName(folder_->filePath(name));
            program.ChooseInMenu("SavePlot");
            QVERIFY2(answers.AllGiven(), answers.Complaints());
            QVERIFY(!QFile::exists(folder_->filePath(name)));
            QVERIFY(FileBytes(folder_->filePath(name + u".pdf"_s)).startsWith("%PDF"));
        }
        // And what stands there under that name is asked for.
        Answers answers;
        answers.FileName(folder_->filePath(u"MW-3.1"_s));
        answers.BoxAbout(u"MW-3.1.pdf"_s, QMessageBox::No).CancelFileName();
        program.ChooseInMenu("SavePlot");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    void APictureNeverReplacesItsProject() {
        PlotProgram program;
        const QString path = folder_->filePath(u"own.svg"_s);
        QVERIFY(QFile::copy(SourceFile("examples/pratt-county-1998.qn2"), path));
        program.Window().OpenPath(path);
        const QByteArray before = FileBytes(path);
        program.ClickTab(5);
        program.Compute();
        Answers answers;
        answers.FileName(path)
            .BoxAbout(u"own.svg"_s, QMessageBox::Yes)
            .Box(u"Quarnel"_s, u"The plot needs a file of its own."_s);
        program.ChooseInMenu("SavePlot");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(FileBytes(path), before);
    }

    void APictureThatCannotBeWrittenSaysWhy() {
        PlotProgram program;
        program.Compute();
        const QString gone = folder_->filePath(u"gone"_s);
        QVERIFY(QDir().mkpath(gone));
        Answers answers;
        answers.Dialog<QFileDialog>([gone](QFileDialog& dialog) {
            dialog.setDirectory(gone);
            auto* edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
            edit->setText(gone + u"/plot.png"_s);
            connect(&dialog, &QDialog::accepted, &dialog,
                    [gone] { QDir(gone).removeRecursively(); });
            QTest::keyClick(edit, Qt::Key_Return);
        });
        answers.Box(u"Quarnel"_s, u"76 Path not found"_s);
        program.ChooseInMenu("SavePlot");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Find<QLabel>(u"StatusText"_s).text(),
                 u"Not saved: "_s + gone + u"/plot.png"_s);
    }

    void ACancelledSaveWritesNothing() {
        PlotProgram program;
        program.Compute();
        const QString path = folder_->filePath(u"cancelled.png"_s);
        Answers answers;
        answers.Dialog<QFileDialog>([path](QFileDialog& dialog) {
            dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(path);
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        program.ChooseInMenu("SavePlot");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(QDir(folder_->path()).isEmpty());
    }

    void PicturesAreInkOnWhiteInADarkPalette() {
        const QPalette before = QApplication::palette();
        QPalette dark(QColor(40, 40, 40), QColor(30, 30, 30));
        dark.setColor(QPalette::Base, Qt::black);
        dark.setColor(QPalette::Text, Qt::white);
        QApplication::setPalette(dark);
        const QImage image(Saved(u"dark.png"_s));
        QApplication::setPalette(before);
        QCOMPARE(image.pixelColor(0, 0), QColor(Qt::white));
        QVERIFY(Count(image, Qt::black) > 100);
    }

private:
    /// Saves the plot of the example under `name` by the menu; the path it has then.
    QString Saved(const QString& name) {
        PlotProgram program;
        program.Compute();
        const QString path = folder_->filePath(name);
        Answers answers;
        answers.FileName(path);
        program.ChooseInMenu("SavePlot");
        if (!answers.AllGiven())
            qFatal("%s", answers.Complaints().constData());
        return path;
    }

    std::unique_ptr<QTemporaryDir> folder_;
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestPlotWidget)

#include "test_plot_widget.moc"
