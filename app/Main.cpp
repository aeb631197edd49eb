#include "app/BRMainForm.h"
#include "app/MainGlobal.h"
#include "app/QuarnelApplication.h"
#include "system/EndSignals.h"

#include <QCommandLineParser>
#include <cstdio>
#include <filesystem>
#include <string>

namespace {

void SetUp(QCommandLineParser& parser) {
    parser.setApplicationDescription(
        QStringLiteral("Analyses a slug test in a groundwater well by the Bouwer-Rice method."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("project"),
                                 QStringLiteral("Project to open (.qn2), an old input file "
                                                "(.in), or a logger's file to import."),
                                 QStringLiteral("[project]"));
}

/// Command lines are bytes in no particular encoding: one character for each keeps every file name.
QStringList Arguments(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLatin1(argv[i]));
    return arguments;
}

/// The full path of a file named on the command line.
std::string FullPath(const QString& argument) {
    const std::string name = argument.toLatin1().toStdString();
    std::error_code unknown;
    const std::filesystem::path path = std::filesystem::absolute(name, unknown);
    return unknown ? name : path.lexically_normal().string();
}

/// Help and version are for a terminal and must not need a display. They end the program.
void AnswerWithoutDisplay(QCommandLineParser& parser, int& argc, char** argv) {
    const QStringList arguments = Arguments(argc, argv);
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
    // The application has taken the words that are for the toolkit out of argc and argv.
    parser.process(Arguments(argc, argv));
    const QStringList projects = parser.positionalArguments();
    if (projects.size() > 1) {
        std::fputs("quarnel: one project at a time; see quarnel --help\n", stderr);
        return 2;
    }
    const auto window = quarnel::SetUpMainWindow();
    quarnel::ResetProject(*window);
    window->StartUp();
    const quarnel::EndSignals endSignals([&window] { window->KeepRecoveryCopy(); });
    // In the event loop: only there a request to end is heard while a question stands.
    QMetaObject::invokeMethod(
        window.get(),
        [&window, &projects] {
            if (!window->OfferLeftCopies() && !projects.isEmpty())
                window->OpenNamed(FullPath(projects.constFirst()));
        },
        Qt::QueuedConnection);
    return quarnel::QuarnelApplication::exec();
}
