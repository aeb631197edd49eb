// The floor of a start: an empty window with one label, as large as the program's own, since
// filling a screen takes its time whatever is on it.

#include "FirstPaint.h"

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QScreen>

namespace {
/// What the main window leaves free of the screen, in pixels.
constexpr QSize Margins(13, 33);
} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QMainWindow window;
    window.setCentralWidget(new QLabel(QStringLiteral("Quarnel"), &window));
    new FirstPaint(&window);
    window.resize(QGuiApplication::primaryScreen()->size() - Margins);
    window.show();
    return QApplication::exec();
}
