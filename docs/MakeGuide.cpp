// Turns the user guide from Markdown into the HTML that the program shows: make_guide IN.md
// OUT.html

#include <QFile>
#include <QGuiApplication>
#include <QTextDocument>
#include <cstdio>

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
    const QByteArray html = guide.toHtml().toUtf8();
    return out.write(html) == html.size() && out.flush() ? 0 : 1;
}
