#include "cli/CommandLine.h"
#include "compare/CompareLines.h"
#include "compare/CompareRun.h"
#include "compare/CompareStatistics.h"
#include "compare/NormalizedDrawing.h"
#include "compare/ProjectList.h"
#include "kcompute/Analysis.h"
#include "kcompute/ComputeK.h"
#include "output/PagePainter.h"
#include "output/PlotDrawing.h"
#include "output/PlotExport.h"
#include "output/ReportPages.h"
#include "project/Files.h"
#include "project/Result.h"
#include "project/Texts.h"
#include "system/InOrder.h"
#include "system/Locale.h"
#include "system/OpenFile.h"
#include "system/ReplaceFile.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Paints for quarnel-cli, which runs without Qt Gui itself.

namespace quarnel {

namespace {

constexpr const char* Usage =
    "Usage: quarnel-plot -o OUT.pdf|OUT.svg|OUT.png [--head-range] FILE\n"
    "       quarnel-plot -o OUT.pdf|OUT.svg|OUT.png --normalized FILE...\n";

/// A plot on screen is this large; a picture of it is too (twips).
constexpr double PictureWidth = 11520;
constexpr double PictureHeight = 8640;

bool HasEnding(const std::string& path, std::string_view upperCaseEnding) {
    return UpperCaseAscii(path).ends_with(upperCaseEnding);
}

void Say(const std::string& file, const std::string& message) {
    std::fprintf(stderr, "%s: %s\n", file.c_str(), message.c_str());
}

FileFailure Write(const Analysis& analysis, const std::string& out, bool showHeadRange) {
    if (!HasEnding(out, ".PDF")) {
        PlotLayout layout = ScreenPlotLayout(PictureWidth, PictureHeight);
        layout.showHeadRange = showHeadRange;
        return ExportPlot(DrawPlot(PlotContents(*analysis.computation), layout), out);
    }
    const QByteArray bytes =
        PdfOfPages(PdfPageLayout(), QStringLiteral("Slug test plot"),
                   [&analysis](const Paper& paper) { return PlotPages(analysis, paper); });
    if (bytes.isEmpty())
        return FileFailure::OutOfMemory;
    return SaveFileBytes(out, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

int PlotFile(const std::string& file, const std::string& out, bool showHeadRange) {
    Analysis analysis;
    analysis.state.DecimalSeparator = SystemDecimalSeparator();
    const ReadReport report = OpenProjectFile(file, analysis);
    for (const std::string& message : report.messages)
        Say(file, message);
    if (report.format == FileFormat::Unrecognised)
        return Failed;
    const Preparation preparation = PrepareComputation(analysis);
    for (const std::string& warning : {preparation.coefficientWarning, preparation.yWarning})
        if (!warning.empty())
            Say(file, warning);
    Result result = preparation.result;
    if (!result.IsError())
        result = Compute(analysis);
    if (result.IsError()) {
        Say(file, result.message);
        return Failed;
    }
    if (!analysis.computation->line.Falls())
        Say(file, std::string(RisingSlopeMessage));
    const FileFailure failure = Write(analysis, out, showHeadRange);
    if (failure != FileFailure::None)
        Say(out, FileErrorMessage(failure));
    return failure == FileFailure::None && report.messages.empty() ? Done : Failed;
}

/// Says what is wrong with each file. Whether all is well.
bool SayFaults(const std::vector<CompareRow>& rows, const Comparison& comparison) {
    bool isWell = true;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const ComparedRow& compared = comparison.rows[i];
        const std::string& fault = rows[i].failure.empty() ? compared.reason : rows[i].failure;
        if (!fault.empty())
            Say(rows[i].file, fault);
        isWell = isWell && rows[i].failure.empty() && compared.status != CompareStatus::Failed;
    }
    return isWell;
}

/// Draws the tests of the first group by well on one axis.
int PlotNormalized(const std::vector<std::string>& files, const std::string& out) {
    const std::string separator = SystemDecimalSeparator();
    CompareKeep keep;
    keep.points = true;
    PathResolver paths;
    std::vector<CompareRow> rows;
    ReadCompareRows(
        files, DefaultJobs(),
        [&](const std::string& file) { return ReadCompareRow(file, separator, keep, paths); },
        [&rows](std::size_t, CompareRow row) { rows.push_back(std::move(row)); });
    const Comparison comparison = CompareRows(rows, CompareSettings());
    const bool isWell = SayFaults(rows, comparison);
    const Drawing drawing =
        comparison.groups.empty()
            ? Drawing()
            : DrawNormalized(NormalizedCurves(rows, comparison.groups.front().counted), false,
                             PictureWidth, PictureHeight);
    if (drawing.IsEmpty()) {
        Say("quarnel-plot", std::string(NoTestCountedText));
        return Failed;
    }
    const FileFailure failure = ExportPlot(drawing, out);
    if (failure != FileFailure::None)
        Say(out, FileErrorMessage(failure));
    return failure == FileFailure::None && isWell ? Done : Failed;
}

} // namespace

/// Command lines are bytes in no particular encoding: one character for each keeps every file name.
QStringList Arguments(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLatin1(argv[i]));
    return arguments;
}

int RunPlot(const QStringList& arguments) {
    QCommandLineParser parser;
    const QCommandLineOption out(QStringLiteral("o"), QStringLiteral("The file to write."),
                                 QStringLiteral("OUT"));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Prints this help."));
    parser.addOption(out);
    parser.addOption(help);
    const QCommandLineOption headRange(QStringLiteral("head-range"),
                                       QStringLiteral("Shows 0.20 to 0.30 of H0."));
    parser.addOption(headRange);
    const QCommandLineOption normalized(QStringLiteral("normalized"),
                                        QStringLiteral("Draws all tests of a well on one axis."));
    parser.addOption(normalized);
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The project."));
    const bool parsed = parser.parse(arguments);
    const std::string target = parser.value(out).toLatin1().toStdString();
    const bool known =
        HasEnding(target, ".PDF") || HasEnding(target, ".SVG") || HasEnding(target, ".PNG");
    if (parsed && parser.isSet(help)) {
        std::fputs(Usage, stdout);
        return std::fflush(stdout) == 0 ? Done : Failed;
    }
    std::vector<std::string> files;
    const QStringList named = parser.positionalArguments();
    for (const QString& file : named)
        files.push_back(file.toLatin1().toStdString());
    const bool isNormalized = parser.isSet(normalized);
    const bool isOneOrMany =
        isNormalized ? !files.empty() && !parser.isSet(headRange) : files.size() == 1;
    if (!parsed || !isOneOrMany || !known) {
        std::fputs(Usage, stderr);
        return WrongUse;
    }
    // A slip of the fingers must not put a picture in the place of the project.
    for (const std::string& file : files)
        if (IsSameFile(target, file)) {
            Say("quarnel-plot", "The plot needs a file of its own.");
            return WrongUse;
        }
    return isNormalized ? PlotNormalized(ProjectsNamed(files), target)
                        : PlotFile(files.front(), target, parser.isSet(headRange));
}

} // namespace quarnel

int main(int argc, char** argv) {
    // Painting on paper and pictures needs fonts but no screen.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Qt remarks on surroundings that a painting program has no use for, such as the missing
    // runtime folder of a scheduled job; standard error holds only what is to be said of the files.
    QLoggingCategory::setFilterRules(QStringLiteral("*.warning=false"));
    const QStringList arguments = quarnel::Arguments(argc, argv);
    const QGuiApplication application(argc, argv);
    return quarnel::RunPlot(arguments);
}
