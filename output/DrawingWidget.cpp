#include "output/DrawingWidget.h"

#include "output/OutputFile.h"
#include "output/PlotExport.h"
#include "output/PlotLegend.h"
#include "project/ProjectFileDialogs.h"
#include "widgets/AccessibleRole.h"
#include "widgets/Colours.h"
#include "widgets/MessageBoxes.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <algorithm>
#include <memory>
#include <string>

namespace quarnel {

namespace {

const QList<FileKind>& PictureKinds() {
    static const QList<FileKind> kinds = {
        {QStringLiteral("PDF (*.pdf)(*.pdf)"), QStringLiteral(".pdf")},
        {QStringLiteral("SVG (*.svg)(*.svg)"), QStringLiteral(".svg")},
        {QStringLiteral("PNG (*.png)(*.png)"), QStringLiteral(".png")}};
    return kinds;
}

} // namespace

Inks ScreenInks(const QPalette& palette) {
    const QColor base = palette.color(QPalette::Base);
    Inks inks;
    inks.ground = base;
    inks.ink = palette.color(QPalette::Text);
    inks.grid = Between(base, inks.ink, 0.2);
    inks.grey = WithContrast(Between(base, inks.ink, 0.5), base, inks.ink, SignContrast);
    inks.band = Between(base, QColor(240, 180, 0), 0.2);
    // Pure blue drowns in a dark surface, pure red in one of middle brightness.
    const bool redDrowns = ContrastOf(Qt::red, base) < SignContrast;
    if (redDrowns || ContrastOf(Qt::blue, base) < SignContrast)
        inks.halo = WithContrast(Between(base, inks.ink, 0.55), base, inks.ink, SignContrast);
    if (redDrowns)
        inks.lineHalo = inks.halo;
    inks.usedFill = Qt::red;
    return inks;
}

DrawingWidget::DrawingWidget(const FileOnDisk& project, QWidget* parent)
    : QFrame(parent)
    , project_(project) {
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    SetAccessibleRole(this, QAccessible::Chart);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);

    copy_ = new QAction(QStringLiteral("&Copy Picture"), this);
    copy_->setObjectName(QStringLiteral("CopyPicture"));
    copy_->setShortcut(QKeySequence::Copy);
    copy_->setShortcutContext(Qt::WidgetShortcut);
    connect(copy_, &QAction::triggered, this, &DrawingWidget::Copy);
    save_ = new QAction(QStringLiteral("&Save As Picture..."), this);
    save_->setObjectName(QStringLiteral("SavePicture"));
    connect(save_, &QAction::triggered, this, &DrawingWidget::SaveAsPicture);
    legendOnPictures_ = new QAction(QStringLiteral("&Legend on Pictures"), this);
    legendOnPictures_->setObjectName(QStringLiteral("LegendOnPictures"));
    legendOnPictures_->setCheckable(true);
    addActions({copy_, save_});
    DrawAgain();
}

double DrawingWidget::TwipsPerPixel() const {
    return TwipsPerInch / logicalDpiX();
}

QSize DrawingWidget::PixelsOf(int widthTwips, int heightTwips) const {
    return {qCeil(widthTwips / TwipsPerPixel()), qCeil(heightTwips / TwipsPerPixel())};
}

void DrawingWidget::Show(DrawFor draw, const QString& sentence, DrawFor drawLegend) {
    draw_ = std::move(draw);
    drawLegend_ = std::move(drawLegend);
    sentence_ = sentence;
    DrawAgain();
}

void DrawingWidget::DrawAgain() {
    const QSizeF size = QSizeF(contentsRect().size()) * TwipsPerPixel();
    drawing_ = draw_ ? draw_(size.width(), size.height()) : Drawing();
    legend_ =
        drawLegend_ && !drawing_.IsEmpty() ? drawLegend_(size.width(), size.height()) : Drawing();
    legendOnPictures_->setEnabled(!legend_.IsEmpty());
    copy_->setEnabled(!drawing_.IsEmpty());
    save_->setEnabled(!drawing_.IsEmpty());
    picture_ = QPixmap();
    update();
}

QPointF DrawingWidget::ToTwips(QPointF position) const {
    return (position - contentsRect().topLeft()) * TwipsPerPixel();
}

QPointF DrawingWidget::ToPixels(double x, double y) const {
    return contentsRect().topLeft() + QPointF(x, y) / TwipsPerPixel();
}

const QPixmap& DrawingWidget::Picture() {
    const double ratio = devicePixelRatioF();
    const QSize size = (QSizeF(this->size()) * ratio).toSize();
    if (picture_.size() == size && picture_.devicePixelRatio() == ratio)
        return picture_;
    ++timesPainted_;
    picture_ = QPixmap(size);
    picture_.setDevicePixelRatio(ratio);
    // On the ground, not on nothing: letters are smoothed for what lies below them.
    picture_.fill(palette().color(backgroundRole()));
    QPainter painter(&picture_);
    painter.setFont(font());
    painter.translate(contentsRect().topLeft());
    painter.scale(1 / TwipsPerPixel(), 1 / TwipsPerPixel());
    const Inks inks = ScreenInks(palette());
    PaintDrawing(painter, drawing_, inks);
    PaintDrawing(painter, legend_, inks);
    return picture_;
}

void DrawingWidget::PaintOver(QPainter&) {}

void DrawingWidget::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    QPainter painter(this);
    painter.setClipRect(contentsRect());
    if (!drawing_.IsEmpty())
        painter.drawPixmap(0, 0, Picture());
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = contentsRect();
        option.backgroundColor = palette().color(backgroundRole());
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
    if (!draw_)
        painter.drawText(contentsRect(), Qt::AlignCenter | Qt::TextWordWrap, sentence_);
    PaintOver(painter);
}

void DrawingWidget::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    DrawAgain();
}

void DrawingWidget::changeEvent(QEvent* event) {
    QFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange ||
        event->type() == QEvent::StyleChange)
        picture_ = QPixmap();
}

void DrawingWidget::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    menu.addActions(actions());
    menu.exec(event->globalPos());
}

void DrawingWidget::focusInEvent(QFocusEvent* event) {
    QFrame::focusInEvent(event);
    update();
}

void DrawingWidget::focusOutEvent(QFocusEvent* event) {
    QFrame::focusOutEvent(event);
    update();
}

Drawing DrawingWidget::ForPictures() const {
    Drawing drawing = drawing_;
    if (legendOnPictures_->isChecked())
        Place(legend_, 0, 0, drawing);
    return drawing;
}

void DrawingWidget::Copy() {
    const BusyPointer busy;
    const Drawing drawing = ForPictures();
    auto picture = std::make_unique<QMimeData>();
    picture->setImageData(PlotAsImage(drawing));
    picture->setData(QStringLiteral("image/svg+xml"), PlotAsSvg(drawing));
    QApplication::clipboard()->setMimeData(picture.release());
}

void DrawingWidget::SaveAsPicture() {
    const QString path = ChooseNameOfKind(this, QStringLiteral("Save Plot as Picture"),
                                          PictureKinds(), SuggestedFileName(project_, nameEnding_));
    if (path.isEmpty())
        return;
    SaveOutput({this, project_, [this](const QString& said) { Q_EMIT Told(said); }},
               QStringLiteral("plot"), path,
               [this](const std::string& name) { return ExportPlot(ForPictures(), name); });
}

} // namespace quarnel
