#include "output/PlotExport.h"

#include "output/DrawingPainter.h"
#include "project/Texts.h"
#include "system/ReplaceFile.h"

#include <QBuffer>
#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace quarnel {

namespace {

constexpr int SvgDpi = 96;
constexpr int ImageDpi = 300;
/// Pixels across and down that an image may have: a screen-sized drawing has far fewer.
constexpr double MostPixels = 16000;
constexpr double MetresPerInch = 0.0254;

/// What every picture looks like, wherever it was made: ink on white, in the font of the printed
/// page.
Inks PictureInks() {
    Inks inks;
    inks.fontFamily = QStringLiteral("Arial");
    return inks;
}

bool EndsWith(const std::string& path, std::string_view upperCaseEnding) {
    return path.size() > upperCaseEnding.size() && UpperCaseAscii(path).ends_with(upperCaseEnding);
}

QByteArray PlotAsPng(const Drawing& drawing) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    PlotAsImage(drawing).save(&buffer, "PNG");
    return bytes;
}

} // namespace

QByteArray PlotAsSvg(const Drawing& drawing) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setTitle(QStringLiteral("Slug test recovery"));
    generator.setResolution(SvgDpi);
    const QSizeF size(drawing.width * SvgDpi / TwipsPerInch,
                      drawing.height * SvgDpi / TwipsPerInch);
    generator.setSize(QSize(qCeil(size.width()), qCeil(size.height())));
    generator.setViewBox(QRectF(QPointF(0, 0), size));
    QPainter painter(&generator);
    painter.scale(SvgDpi / TwipsPerInch, SvgDpi / TwipsPerInch);
    PaintDrawing(painter, drawing, PictureInks());
    painter.end();
    return bytes;
}

QByteArray PlotAsPdf(const Drawing& drawing) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(static_cast<int>(TwipsPerInch));
    writer.setTitle(QStringLiteral("Slug test recovery"));
    writer.setCreator(QStringLiteral("Quarnel"));
    writer.setPageSize(
        QPageSize(QSizeF(drawing.width / TwipsPerPoint, drawing.height / TwipsPerPoint),
                  QPageSize::Point, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    QPainter painter(&writer);
    PaintDrawing(painter, drawing, PictureInks());
    painter.end();
    return bytes;
}

QImage PlotAsImage(const Drawing& drawing) {
    const double scale =
        std::min(ImageDpi / TwipsPerInch, MostPixels / std::max(drawing.width, drawing.height));
    QImage image(qCeil(drawing.width * scale), qCeil(drawing.height * scale), QImage::Format_RGB32);
    image.setDotsPerMeterX(qRound(scale * TwipsPerInch / MetresPerInch));
    image.setDotsPerMeterY(image.dotsPerMeterX());
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(scale, scale);
    PaintDrawing(painter, drawing, PictureInks());
    painter.end();
    return image;
}

FileFailure ExportPlot(const Drawing& drawing, const std::string& path) {
    if (!(drawing.width > 0 && drawing.height > 0))
        return FileFailure::InvalidProcedureCall;
    QByteArray bytes;
    if (EndsWith(path, ".PDF"))
        bytes = PlotAsPdf(drawing);
    else if (EndsWith(path, ".SVG"))
        bytes = PlotAsSvg(drawing);
    else if (EndsWith(path, ".PNG"))
        bytes = PlotAsPng(drawing);
    else
        return FileFailure::BadFileName;
    if (bytes.isEmpty())
        return FileFailure::OutOfMemory;
    return SaveFileBytes(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

} // namespace quarnel
