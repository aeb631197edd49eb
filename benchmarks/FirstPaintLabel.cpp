// The floor of a start: an empty window with one label.

#include "FirstPaint.h"

#include <QApplication>
#include <QLabel>
#include <QMainWindow>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QMainWindow window;
    window.setCentralWidget(new QLabel(QStringLiteral("Quarnel"), &window));
    new FirstPaint(&window);
    window.show();
    return QApplication::exec();
}
