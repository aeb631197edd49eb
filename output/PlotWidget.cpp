#include "output/PlotWidget.h"

#include "kcompute/Computation.h"
#include "output/DrawingPainter.h"
#include "output/PlotExport.h"
#include "project/Files.h"
#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <utility>

namespace quarnel {

namespace {

/// From this size on no label runs into another.
constexpr int LeastWidth = 4700;
constexpr int LeastHeight = 3800;
constexpr int UsualWidth = 9500;
constexpr int UsualHeight = 6500;

struct PictureKind {
    const char* filter;
    const char* ending;
};
constexpr std::array<PictureKind, 3> PictureKinds = {
    {{"PDF (*.pdf)", "pdf"}, {"SVG (*.svg)", "svg"}, {"PNG (*.png)", "png"}}};

/// Asks for the name of a picture. One that ends in no kind of picture, as "MW-3.1" does, gets the
/// ending of the chosen kind, before the dialog asks whether the file exists.
class PictureDialog : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

protected:
    void accept() override {
        auto* name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        if (name != nullptr && !IsFolder(name->text()) && !IsPicture(name->text()))
            name->setText(name->text() + QLatin1Char('.') + defaultSuffix());
        QFileDialog::accept();
    }

private:
    bool IsFolder(const QString& name) const {
        return name.isEmpty() || directory().exists(name + QLatin1Char('/'));
    }
    static bool IsPicture(const QString& name) {
        return std::any_of(PictureKinds.begin(), PictureKinds.end(), [&](const PictureKind& kind) {
            return name.endsWith(QLatin1Char('.') + QLatin1String(kind.ending),
                                 Qt::CaseInsensitive);
        });
    }
};

QColor Between(const QColor& a, const QColor& b, double part) {
    const auto mix = [part](int from, int to) { return qRound(from + (to - from) * part); };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

Inks InksOf(const QPalette& palette) {
    const QColor base = palette.color(QPalette::Base);
    Inks inks;
    inks.ink = palette.color(QPalette::Text);
    inks.grid = Between(base, inks.ink, 0.2);
    // Pure blue drowns in a dark surface.
    if (base.lightness() < inks.ink.lightness())
        inks.halo = Between(base, inks.ink, 0.55);
    return inks;
}

} // namespace

PlotWidget::PlotWidget(QWidget* parent)
    : QFrame(parent) {
    setObjectName(QStringLiteral("Plot1"));
    setAccessibleName(tr("Plot of Y against time"));
    setToolTip(tr("Change in head Y (logarithmic) against time: red points enter the fit, blue "
                  "points do not. Right click to copy the plot or to save it as a picture."));
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);

    copy_ = new QAction(tr("&Copy"), this);
    copy_->setObjectName(QStringLiteral("CopyPlot"));
    copy_->setShortcut(QKeySequence::Copy);
    copy_->setShortcutContext(Qt::WidgetShortcut);
    connect(copy_, &QAction::triggered, this, &PlotWidget::Copy);
    save_ = new QAction(tr("&Save as Picture..."), this);
    save_->setObjectName(QStringLiteral("SavePlot"));
    connect(save_, &QAction::triggered, this, &PlotWidget::SaveAsPicture);
    addActions({copy_, save_});
    DrawAgain();
}

double PlotWidget::TwipsPerPixel() const {
    return TwipsPerInch / logicalDpiX();
}

QSize PlotWidget::PixelsOf(int widthTwips, int heightTwips) const {
    return {qCeil(widthTwips / TwipsPerPixel()), qCeil(heightTwips / TwipsPerPixel())};
}

QSize PlotWidget::sizeHint() const {
    return PixelsOf(UsualWidth, UsualHeight);
}

QSize PlotWidget::minimumSizeHint() const {
    return PixelsOf(LeastWidth, LeastHeight);
}

void PlotWidget::ShowComputation(ComputationPtr computation) {
    computation_ = std::move(computation);
    DrawAgain();
}

void PlotWidget::DrawAgain() {
    const QSizeF size = QSizeF(contentsRect().size()) * TwipsPerPixel();
    drawing_ = computation_ ? DrawPlot(PlotContents(*computation_),
                                       ScreenPlotLayout(size.width(), size.height()))
                            : Drawing();
    copy_->setEnabled(!drawing_.IsEmpty());
    save_->setEnabled(!drawing_.IsEmpty());
    update();
}

void PlotWidget::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    QPainter painter(this);
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = contentsRect();
        option.backgroundColor = palette().color(backgroundRole());
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
    if (!computation_)
        painter.drawText(contentsRect(), Qt::AlignCenter | Qt::TextWordWrap,
                         QStringLiteral("Press Compute K/ Plot"));
    painter.setClipRect(contentsRect());
    painter.translate(contentsRect().topLeft());
    painter.scale(1 / TwipsPerPixel(), 1 / TwipsPerPixel());
    PaintDrawing(painter, drawing_, InksOf(palette()));
}

void PlotWidget::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    DrawAgain();
}

void PlotWidget::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    menu.addActions(actions());
    menu.exec(event->globalPos());
}

void PlotWidget::focusInEvent(QFocusEvent* event) {
    QFrame::focusInEvent(event);
    update();
}

void PlotWidget::focusOutEvent(QFocusEvent* event) {
    QFrame::focusOutEvent(event);
    update();
}

void PlotWidget::Copy() {
    const BusyPointer busy;
    auto picture = std::make_unique<QMimeData>();
    picture->setImageData(PlotAsImage(drawing_));
    picture->setData(QStringLiteral("image/svg+xml"), PlotAsSvg(drawing_));
    QApplication::clipboard()->setMimeData(picture.release());
}

void PlotWidget::SaveAsPicture() {
    PictureDialog dialog(this, tr("Save Plot as Picture"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    QStringList filters;
    for (const PictureKind& kind : PictureKinds)
        filters.append(QLatin1String(kind.filter));
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(QLatin1String(PictureKinds.front().ending));
    connect(&dialog, &QFileDialog::filterSelected, &dialog,
            [&dialog, &filters](const QString& filter) {
                const auto kind =
                    static_cast<std::size_t>(std::max<qsizetype>(0, filters.indexOf(filter)));
                dialog.setDefaultSuffix(QLatin1String(PictureKinds[kind].ending));
            });
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const QString path = dialog.selectedFiles().constFirst();
    FileFailure failure = FileFailure::None;
    {
        const BusyPointer busy;
        failure = ExportPlot(drawing_, ToUtf8(path));
    }
    if (failure == FileFailure::None)
        return;
    Q_EMIT FileFailed(QStringLiteral("Not saved: ") + path);
    ShowMessage(this, ToQString(FileErrorMessage(failure)));
}

} // namespace quarnel
