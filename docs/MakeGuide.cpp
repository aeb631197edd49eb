// Turns the user guide from Markdown into the HTML that the program shows: make_guide IN.md
// OUT.html

#include <QFile>
#include <QGuiApplication>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFragment>
#include <QTextImageFormat>
#include <cstdio>

namespace {

/// Pictures of whole windows are shown as wide as a line of text.
constexpr double MostPictureWidth = 590;

void FitPictures(QTextDocument& guide) {
    for (QTextBlock block = guide.begin(); block.isValid(); block = block.next())
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            QTextImageFormat picture = piece.fragment().charFormat().toImageFormat();
            if (!picture.isValid())
                continue;
            picture.setWidth(MostPictureWidth);
            QTextCursor cursor(&guide);
            cursor.setPosition(piece.fragment().position());
            cursor.setPosition(piece.fragment().position() + piece.fragment().length(),
                               QTextCursor::KeepAnchor);
            cursor.setCharFormat(picture);
        }
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 3) {
        std::fputs("Usage: make_guide IN.md OUT.html\n", stderr);
        return 2;
    }
    QFile in(QFile::decodeName(argv[1]));
    QFile out(QFile::decodeName(argv[2]));
    if (!in.open(QIODevice::ReadOnly) || !out.open(QIODevice::WriteOnly)) {
        std::fputs("make_guide: cannot open its files\n", stderr);
        return 1;
    }
    QTextDocument guide;
    guide.setMarkdown(QString::fromUtf8(in.readAll()), QTextDocument::MarkdownDialectGitHub);
    FitPictures(guide);
    const QByteArray html = guide.toHtml().toUtf8();
    return out.write(html) == html.size() && out.flush() ? 0 : 1;
}
