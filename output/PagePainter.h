#pragma once

#include "kcompute/Analysis.h"
#include "output/Drawing.h"
#include "output/ReportPages.h"
#include "output/TextMeasure.h"

#include <QByteArray>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QString>
#include <cstddef>
#include <functional>
#include <memory>

namespace quarnel {

/// Pages ready to be painted, one after the other.
struct Pages {
    std::size_t count = 0;
    std::function<Drawing(std::size_t)> page; ///< counted from 0
};

/// Hands back the pages of a document for a sheet of paper.
using PagesFor = std::function<Pages(const Paper&)>;

/// How large a text is in the font of the pages.
std::shared_ptr<const TextMeasure> PageMeasure();

/// The printed plot: one page, with what the circles mean where `showLegend` asks for it. The
/// analysis must outlive the pages.
Pages PlotPages(const Analysis& analysis, const Paper& paper, bool showLegend = false);
/// The summary report. The analysis must outlive the pages.
Pages SummaryReportPages(const Analysis& analysis, const Paper& paper);

/// The printable area and margins of a page layout, in twips.
Paper PaperOf(const QPageLayout& layout);

/// The page of a PDF that no printer asks for: Letter or A4 as the country uses, with the margins
/// that most printers need.
QPageLayout PdfPageLayout();

/// Paints all pages on a printer or PDF writer, in Arial. Positions count from the printable area,
/// so the device must not be set to its full page. False when the device cannot be painted on or
/// gives up between two pages.
bool PaintPages(QPagedPaintDevice& device, const Pages& pages);

/// The pages as the bytes of a PDF file, fonts included; empty when they could not be made.
QByteArray PdfOfPages(const QPageLayout& layout, const QString& title, const PagesFor& pagesFor);

} // namespace quarnel
