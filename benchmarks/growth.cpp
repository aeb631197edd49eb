// growth: how the cost of each work grows with the number of readings and with the length of a
// text, from a thousand to a million. Ends with 1 where something grows faster than n log n (texts:
// than n) from one size to the next.

#include "app/BRMainForm.h"
#include "app/MainGlobal.h"
#include "app/QuarnelApplication.h"
#include "benchmarks/LoggerProject.h"
#include "output/PagePainter.h"
#include "output/SummaryReport.h"
#include "project/TextEncoding.h"
#include "recovery/GridEditor.h"

#include <QAbstractButton>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace quarnel;

constexpr std::array<std::size_t, 4> Sizes{1'000, 10'000, 100'000, 1'000'000};
constexpr int RecoveryDataTab = 4;
constexpr int ComputeTab = 5;
/// Below this a work costs what it costs without any data, in milliseconds.
constexpr double Unmeasurable = 2;
/// A size that leaves a cache behind costs more for each reading; a faster growth costs ten times.
constexpr double Slack = 2.5;
constexpr int Times = 3;

/// Processor time of this process: what other programs do meanwhile does not count.
double Milliseconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// Something whose cost is measured: `prepare` is not part of it.
struct Work {
    std::string name;
    std::function<void(std::size_t size)> prepare;
    std::function<void()> run;
};

double Cost(const Work& work, std::size_t size) {
    double least = 0;
    for (int i = 0; i < Times; ++i) {
        work.prepare(size);
        const double start = Milliseconds();
        work.run();
        const double taken = Milliseconds() - start;
        least = i == 0 ? taken : std::min(least, taken);
    }
    return least;
}

double NLogN(std::size_t n) {
    return static_cast<double>(n) * std::log(static_cast<double>(n));
}

double N(std::size_t n) {
    return static_cast<double>(n);
}

/// Prints the cost of each work at each size. How many of them grow too fast.
int Measure(const char* title, const std::vector<Work>& works, double (*bound)(std::size_t)) {
    std::printf("%-34s", title);
    for (const std::size_t size : Sizes)
        std::printf("%12zu", size);
    std::printf("  ms\n");
    int tooFast = 0;
    for (const Work& work : works) {
        std::printf("%-34s", work.name.c_str());
        double before = 0;
        bool isTooFast = false;
        for (std::size_t i = 0; i < Sizes.size(); ++i) {
            const double cost = Cost(work, Sizes[i]);
            std::printf("%12.2f", cost);
            std::fflush(stdout);
            isTooFast |= i > 0 && cost > Slack * std::max(before, Unmeasurable) * bound(Sizes[i]) /
                                             bound(Sizes[i - 1]);
            before = cost;
        }
        std::printf("%s\n", isTooFast ? "  GROWS TOO FAST" : "");
        tooFast += isTooFast ? 1 : 0;
    }
    std::printf("\n");
    return tooFast;
}

void SettleEvents() {
    for (int i = 0; i < 5; ++i)
        QCoreApplication::processEvents();
}

/// What is measured, made anew for each measurement.
struct Desk {
    Analysis analysis;
    std::string bytes;
    GridRows rows;
    std::unique_ptr<GridEditor> editor;
    std::unique_ptr<BRMainForm> window;

    void TakeReadings(std::size_t count) {
        analysis = Analysis();
        analysis.state = bench::MakeProject(count);
    }
    void TakeComputation(std::size_t count) {
        TakeReadings(count);
        PrepareComputation(analysis);
        Compute(analysis);
    }
    void TakeText(std::size_t length, bool hasBlanks) {
        TakeComputation(Sizes.front());
        std::string text(length, 'x');
        for (std::size_t i = 7; hasBlanks && i < length; i += 8)
            text[i] = ' ';
        analysis.state.SiteIDText[SiteName] = text;
        analysis.state.PlotText[0] = text;
        analysis.state.PlotText[1] = text;
    }
    /// The text of the site's name in a cell of the grid as well.
    void TakeCell() {
        analysis.state.RecDatGrid.front().level = analysis.state.SiteIDText[SiteName];
    }
    void TakeWindow() {
        window.reset();
        window = SetUpMainWindow();
        ResetProject(*window);
        window->Current().state = analysis.state;
        window->ShowState();
        window->StartUp();
        SettleEvents();
    }
    void Click(const char* name) {
        window->findChild<QAbstractButton*>(QString::fromLatin1(name))->click();
        SettleEvents();
    }
    void ShowTab(int tab) {
        window->SelectTab(tab);
        SettleEvents();
        window->grab();
    }
    void ShowTabs() {
        window->ShowState();
        for (int tab = 1; tab <= ComputeTab; ++tab)
            ShowTab(tab);
        Click("CmdComputeK");
        window->grab();
    }
};

Paper Letter() {
    return PaperOf(PdfPageLayout());
}

std::vector<Work> WorksOnReadings(Desk& desk) {
    const auto readings = [&desk](std::size_t count) { desk.TakeReadings(count); };
    const auto computation = [&desk](std::size_t count) { desk.TakeComputation(count); };
    return {
        {"open",
         [&desk](std::size_t count) {
             desk.TakeReadings(count);
             desk.bytes = EncodeFileText(ProjectFileText(desk.analysis.state).text);
         },
         [&desk] { OpenProjectBytes(desk.bytes, desk.analysis.state); }},
        {"save, without the disk", readings,
         [&desk] { desk.bytes = EncodeFileText(ProjectFileText(desk.analysis.state).text); }},
        {"check data, show Y", readings, [&desk] { CheckDataShowYs(desk.analysis); }},
        {"prepare and compute K", readings,
         [&desk] {
             PrepareComputation(desk.analysis);
             Compute(desk.analysis);
         }},
        {"sort by time", computation,
         [&desk] {
             desk.editor.reset();
             desk.rows = desk.analysis.state.RecDatGrid;
             desk.editor = std::make_unique<GridEditor>(desk.rows);
             desk.editor->SortByTime(*desk.analysis.computation->recovery.RecoveryPoints);
         }},
        {"cut every row and undo",
         [&desk](std::size_t count) {
             desk.TakeReadings(count);
             desk.editor.reset();
             desk.rows = desk.analysis.state.RecDatGrid;
             desk.editor = std::make_unique<GridEditor>(desk.rows);
         },
         [&desk] {
             desk.editor->Select({{1, TimeColumn}, {desk.rows.size(), ReadingColumn}});
             desk.editor->DeleteRows();
             desk.editor->Undo();
         }},
        {"report as text", computation,
         [&desk] { SummaryReportText(desk.analysis.state, desk.analysis.computation.get()); }},
        {"report broken into pages", computation,
         [&desk] { SummaryReportPages(desk.analysis, Letter()); }},
        {"printed plot", computation, [&desk] { PlotPages(desk.analysis, Letter()).page(0); }},
        {"compute tab, K and plot on screen",
         [&desk](std::size_t count) {
             desk.TakeReadings(count);
             desk.TakeWindow();
         },
         [&desk] {
             desk.window->SelectTab(ComputeTab);
             desk.Click("CmdComputeK");
         }},
    };
}

std::vector<Work> WorksOnTexts(Desk& desk, bool hasBlanks) {
    const auto text = [&desk, hasBlanks](std::size_t length) { desk.TakeText(length, hasBlanks); };
    return {
        {"save and open",
         [&desk, text](std::size_t length) {
             text(length);
             desk.TakeCell();
         },
         [&desk] {
             desk.bytes = EncodeFileText(ProjectFileText(desk.analysis.state).text);
             OpenProjectBytes(desk.bytes, desk.analysis.state);
         }},
        {"report as text", text,
         [&desk] { SummaryReportText(desk.analysis.state, desk.analysis.computation.get()); }},
        {"report as PDF", text,
         [&desk] {
             PdfOfPages(PdfPageLayout(), QString(), [&desk](const Paper& paper) {
                 return SummaryReportPages(desk.analysis, paper);
             });
         }},
        {"printed plot as PDF", text,
         [&desk] {
             PdfOfPages(PdfPageLayout(), QString(),
                        [&desk](const Paper& paper) { return PlotPages(desk.analysis, paper); });
         }},
        {"five pages on screen",
         [&desk, text](std::size_t length) {
             text(length);
             desk.TakeWindow();
         },
         [&desk] { desk.ShowTabs(); }},
        {"one cell on screen",
         [&desk, text](std::size_t length) {
             text(length);
             desk.TakeCell();
             desk.TakeWindow();
         },
         [&desk] { desk.ShowTab(RecoveryDataTab); }},
    };
}

} // namespace

int main(int argc, char** argv) {
    const QuarnelApplication application(argc, argv);
    Desk desk;
    int tooFast = Measure("readings", WorksOnReadings(desk), NLogN);
    tooFast += Measure("characters of a text of words", WorksOnTexts(desk, true), N);
    tooFast += Measure("characters of one word", WorksOnTexts(desk, false), N);
    if (tooFast > 0)
        std::printf("%d grow too fast\n", tooFast);
    return tooFast > 0 ? 1 : 0;
}
