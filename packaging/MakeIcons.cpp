// Paints the program's icon in the sizes that desktops look for: make_icons IN.svg OUT-FOLDER
// SIZE... Each becomes OUT-FOLDER/SIZE.png.

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

namespace {

bool PaintIcon(QSvgRenderer& drawing, const QString& folder, const QByteArray& size) {
    const int side = size.toInt();
    if (side <= 0)
        return false;
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.end();
    return image.save(folder + QLatin1Char('/') + QString::number(side) + QStringLiteral(".png"));
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc < 4) {
        std::fputs("Usage: make_icons IN.svg OUT-FOLDER SIZE...\n", stderr);
        return 2;
    }
    QSvgRenderer drawing(QFile::decodeName(argv[1]));
    bool written = drawing.isValid();
    for (int i = 3; i < argc; ++i)
        written = written && PaintIcon(drawing, QFile::decodeName(argv[2]), argv[i]);
    if (!written)
        std::fputs("make_icons: the icon cannot be painted\n", stderr);
    return written ? 0 : 1;
}
