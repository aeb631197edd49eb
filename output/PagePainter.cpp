#include "output/PagePainter.h"

#include "kcompute/Analysis.h"
#include "output/DrawingPainter.h"
#include "output/FontMeasure.h"
#include "output/PrintedPlot.h"

#include <QBuffer>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <memory>

namespace quarnel {

namespace {

constexpr double UsualMarginPoints = 18;

/// Inks of paper: black on white, whatever the desktop's colours are.
Inks PaperInks() {
    Inks inks;
    inks.fontFamily = QStringLiteral("Arial");
    return inks;
}

} // namespace

std::shared_ptr<const TextMeasure> PageMeasure() {
    return std::make_shared<FontMeasure>(QFont(PaperInks().fontFamily));
}

Pages PlotPages(const Analysis& analysis, const Paper& paper, bool showLegend) {
    return {1, [&analysis, paper, showLegend](std::size_t) {
                return DrawPlotPage(analysis, paper, *PageMeasure(), showLegend);
            }};
}

Pages SummaryReportPages(const Analysis& analysis, const Paper& paper) {
    const auto measure = PageMeasure();
    const auto report = std::make_shared<ReportPages>(analysis, paper, *measure);
    return {report->Count(), [measure, report](std::size_t page) { return report->Page(page); }};
}

Paper PaperOf(const QPageLayout& layout) {
    const QRectF area = layout.paintRect(QPageLayout::Point);
    const QMarginsF margins = layout.margins(QPageLayout::Point);
    Paper paper;
    paper.printableWidth = area.width() * TwipsPerPoint;
    paper.printableHeight = area.height() * TwipsPerPoint;
    paper.marginLeft = margins.left() * TwipsPerPoint;
    paper.marginTop = margins.top() * TwipsPerPoint;
    paper.marginRight = margins.right() * TwipsPerPoint;
    paper.marginBottom = margins.bottom() * TwipsPerPoint;
    // Margins of our own, as a PDF has them, take ink; those that a printer cannot reach do not.
    QPageLayout inPoints = layout;
    inPoints.setUnits(QPageLayout::Point);
    paper.reachRight = (margins.right() - inPoints.minimumMargins().right()) * TwipsPerPoint;
    return paper;
}

QPageLayout PdfPageLayout() {
    const bool letter = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    return {QPageSize(letter ? QPageSize::Letter : QPageSize::A4), QPageLayout::Portrait,
            QMarginsF(UsualMarginPoints, UsualMarginPoints, UsualMarginPoints, UsualMarginPoints),
            QPageLayout::Point};
}

bool PaintPages(QPagedPaintDevice& device, const Pages& pages) {
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    painter.scale(device.logicalDpiX() / TwipsPerInch, device.logicalDpiY() / TwipsPerInch);
    const Inks inks = PaperInks();
    for (std::size_t page = 0; page < pages.count; ++page) {
        if (page > 0 && !device.newPage())
            return false;
        PaintDrawing(painter, pages.page(page), inks);
    }
    return painter.end();
}

QByteArray PdfOfPages(const QPageLayout& layout, const QString& title, const PagesFor& pagesFor) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(title);
    writer.setCreator(QStringLiteral("Quarnel"));
    writer.setPageLayout(layout);
    if (!PaintPages(writer, pagesFor(PaperOf(layout))))
        return {};
    return bytes;
}

} // namespace quarnel
