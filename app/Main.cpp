#include "app/BRMainForm.h"
#include "app/MainGlobal.h"
#include "app/QuarnelApplication.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <cstdio>

namespace {

void SetUp(QCommandLineParser& parser) {
    parser.setApplicationDescription(
        QStringLiteral("Analyses a slug test in a groundwater well by the Bouwer-Rice method."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("project"),
                                 QStringLiteral("Project to open (.qn2), or an old input file "
                                                "(.in)."),
                                 QStringLiteral("[project]"));
}

/// Help and version are for a terminal and must not need a display. They end the program.
void AnswerWithoutDisplay(QCommandLineParser& parser, int& argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    parser.parse(arguments);
    if (parser.isSet(QStringLiteral("help")) || parser.isSet(QStringLiteral("help-all")) ||
        parser.isSet(QStringLiteral("version"))) {
        const QCoreApplication application(argc, argv);
        quarnel::NameApplication();
        parser.process(arguments);
    }
}

} // namespace

int main(int argc, char** argv) {
    QCommandLineParser parser;
    SetUp(parser);
    AnswerWithoutDisplay(parser, argc, argv);

    quarnel::QuarnelApplication application(argc, argv);
    parser.process(application);
    const QStringList projects = parser.positionalArguments();
    if (projects.size() > 1) {
        std::fputs("quarnel: one project at a time; see quarnel --help\n", stderr);
        return 2;
    }
    const auto window = quarnel::SetUpMainWindow();
    quarnel::ResetProject(*window);
    window->StartUp();
    if (!projects.isEmpty())
        QMetaObject::invokeMethod(
            window.get(),
            [&window, path = QFileInfo(projects.constFirst()).absoluteFilePath()] {
                window->OpenPath(path);
            },
            Qt::QueuedConnection);
    return quarnel::QuarnelApplication::exec();
}
