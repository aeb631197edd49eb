// Pasting, sorting, deleting and typing in the recovery grid, each beside its floor.

#include "app/BRMainForm.h"
#include "app/MainGlobal.h"
#include "app/QuarnelApplication.h"
#include "app/RecoveryCopy.h"
#include "recovery/GridEditor.h"
#include "recovery/RecoveryDa.h"

#include <QKeyEvent>
#include <QStandardPaths>
#include <QTableView>
#include <QTimer>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <random>

namespace {

using namespace quarnel;

constexpr std::size_t PastedRows = 100'000;
constexpr std::size_t SortedRows = 1'000'000;

std::string BlockText() {
    std::string text;
    for (std::size_t row = 0; row < PastedRows; ++row)
        text += std::to_string(row) + ".5\t" + std::to_string(1.0 / static_cast<double>(row + 1)) +
                "\r\n";
    return text;
}

/// The floor of a paste: the same text cut into the same cells.
void SplitText(benchmark::State& state) {
    const std::string text = BlockText();
    for (auto _ : state) {
        std::vector<std::string_view> cells;
        for (std::size_t start = 0; start < text.size();) {
            const std::size_t end = text.find_first_of("\t\r", start);
            cells.push_back(std::string_view(text).substr(start, end - start));
            start = end + (text[end] == '\t' ? 1 : 2);
        }
        benchmark::DoNotOptimize(cells.data());
    }
}

void PasteRows(benchmark::State& state) {
    const std::string text = BlockText();
    for (auto _ : state) {
        state.PauseTiming();
        GridRows rows(MinimumGridRows);
        GridEditor editor(rows);
        state.ResumeTiming();
        if (!editor.Paste(text).empty() || rows.size() != PastedRows)
            state.SkipWithError("not pasted");
    }
}

RecoveryPointList ShuffledPoints() {
    std::mt19937 random(1);
    std::vector<double> times(SortedRows);
    for (std::size_t i = 0; i < SortedRows; ++i)
        times[i] = static_cast<double>(i) / 10;
    std::shuffle(times.begin(), times.end(), random);
    RecoveryPointList points(SortedRows);
    for (std::size_t i = 0; i < SortedRows; ++i) {
        points[i].time = times[i];
        points[i].timeText = std::to_string(times[i]);
        points[i].levelText = "1.5";
    }
    return points;
}

GridRows RowsOf(const RecoveryPointList& points) {
    GridRows rows;
    for (const RecoveryPoint& point : points)
        rows.push_back({point.timeText, point.levelText});
    return rows;
}

/// The floor of a sort: the order of the same keys, and the texts moved into it.
void StableSortKeysAndMoveTexts(benchmark::State& state) {
    const RecoveryPointList points = ShuffledPoints();
    for (auto _ : state) {
        std::vector<std::size_t> order(points.size());
        for (std::size_t i = 0; i < order.size(); ++i)
            order[i] = i;
        std::stable_sort(order.begin(), order.end(), [&points](std::size_t a, std::size_t b) {
            return points[a].time < points[b].time;
        });
        GridRows sorted;
        sorted.reserve(order.size());
        for (const std::size_t i : order)
            sorted.push_back({points[i].timeText, points[i].levelText});
        benchmark::DoNotOptimize(sorted.data());
    }
}

void SortRows(benchmark::State& state) {
    const RecoveryPointList points = ShuffledPoints();
    for (auto _ : state) {
        state.PauseTiming();
        GridRows rows = RowsOf(points);
        GridEditor editor(rows);
        state.ResumeTiming();
        editor.SortByTime(points);
        benchmark::DoNotOptimize(rows.data());
    }
}

/// The floor of deleting rows and taking it back: the rows moved out and in.
void MoveRowsOutAndIn(benchmark::State& state) {
    GridRows rows(SortedRows, {"1.5", "2.5"});
    for (auto _ : state) {
        GridRows taken(std::make_move_iterator(rows.begin()),
                       std::make_move_iterator(rows.begin() + PastedRows));
        rows.erase(rows.begin(), rows.begin() + PastedRows);
        rows.insert(rows.begin(), std::make_move_iterator(taken.begin()),
                    std::make_move_iterator(taken.end()));
        benchmark::DoNotOptimize(rows.data());
    }
}

void DeleteRowsAndUndo(benchmark::State& state) {
    GridRows rows(SortedRows, {"1.5", "2.5"});
    GridEditor editor(rows);
    for (auto _ : state) {
        editor.Select({{1, TimeColumn}, {PastedRows, ReadingColumn}});
        editor.DeleteRows();
        editor.Undo();
        benchmark::DoNotOptimize(rows.data());
    }
}

/// A thousand keys typed and painted in a grid of a million rows, in the window itself.
void KeystrokeInAMillionRows(benchmark::State& state) {
    const auto window = SetUpMainWindow();
    ResetProject(*window);
    window->Current().state.RecDatGrid.assign(SortedRows, {"1.5", "2.5"});
    window->ShowState();
    window->StartUp();
    window->findChild<QTabBar*>(QStringLiteral("TabStrip2"))->setCurrentIndex(3);
    auto* grid = window->findChild<QTableView*>(QStringLiteral("RecDatGrid"));
    grid->setFocus();
    QApplication::processEvents();
    std::vector<double> milliseconds;
    constexpr int Keys = 1000;
    for (auto _ : state) {
        for (int i = 0; i < Keys; ++i) {
            const bool moves = i % 5 == 4;
            QKeyEvent key(QEvent::KeyPress, moves ? Qt::Key_Return : Qt::Key_7, Qt::NoModifier,
                          moves ? QString() : QStringLiteral("7"));
            const auto start = std::chrono::steady_clock::now();
            QApplication::sendEvent(grid, &key);
            QApplication::processEvents();
            const std::chrono::duration<double, std::milli> took =
                std::chrono::steady_clock::now() - start;
            milliseconds.push_back(took.count());
        }
    }
    std::sort(milliseconds.begin(), milliseconds.end());
    state.counters["median_ms"] = milliseconds[milliseconds.size() / 2];
    state.counters["worst_ms"] = milliseconds.back();
}

/// Keys in a grid of a million rows while the recovery copy of it is made: all that happens from
/// one key to the next, save the painting that a key may call for.
void KeyWhileARecoveryCopyIsMade(benchmark::State& state) {
    const auto window = SetUpMainWindow();
    ResetProject(*window);
    window->Current().state.RecDatGrid.assign(SortedRows, {"1.5", "2.5"});
    window->ShowState();
    window->StartUp();
    window->findChild<QTabBar*>(QStringLiteral("TabStrip2"))->setCurrentIndex(3);
    auto* grid = window->findChild<QTableView*>(QStringLiteral("RecDatGrid"));
    auto* copy = window->findChild<RecoveryCopy*>();
    auto* copying = window->findChild<QTimer*>(QStringLiteral("RecoveryCopying"));
    grid->setFocus();
    QApplication::processEvents();
    double worst = 0;
    double turns = 0;
    for (auto _ : state) {
        copy->NoteEdit();
        window->findChild<QTimer*>(QStringLiteral("RecoveryTimer"))->start(0);
        for (bool isOver = false; !isOver; ++turns) {
            const bool wasCopying = copying->isActive();
            QKeyEvent key(QEvent::KeyPress, Qt::Key_Shift, Qt::ShiftModifier);
            const auto start = std::chrono::steady_clock::now();
            QApplication::sendEvent(grid, &key);
            QApplication::processEvents();
            const std::chrono::duration<double, std::milli> took =
                std::chrono::steady_clock::now() - start;
            worst = std::max(worst, took.count());
            isOver = wasCopying && !copying->isActive();
        }
        state.PauseTiming();
        if (!copy->WriteNow())
            state.SkipWithError("not copied");
        state.ResumeTiming();
    }
    copy->Remove();
    state.counters["worst_ms"] = worst;
    state.counters["turns"] = turns / static_cast<double>(state.iterations());
}

} // namespace

int main(int argc, char** argv) {
    QStandardPaths::setTestModeEnabled(true); // the copies of whoever runs this stay theirs
    QuarnelApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    constexpr auto Unit = benchmark::kMillisecond;
    benchmark::RegisterBenchmark("SplitText", SplitText)->Unit(Unit);
    benchmark::RegisterBenchmark("PasteRows", PasteRows)->Unit(Unit);
    benchmark::RegisterBenchmark("StableSortKeysAndMoveTexts", StableSortKeysAndMoveTexts)
        ->Unit(Unit);
    benchmark::RegisterBenchmark("SortRows", SortRows)->Unit(Unit);
    benchmark::RegisterBenchmark("MoveRowsOutAndIn", MoveRowsOutAndIn)->Unit(Unit);
    benchmark::RegisterBenchmark("DeleteRowsAndUndo", DeleteRowsAndUndo)->Unit(Unit);
    benchmark::RegisterBenchmark("KeystrokeInAMillionRows", KeystrokeInAMillionRows)
        ->Unit(Unit)
        ->Iterations(1);
    benchmark::RegisterBenchmark("KeyWhileARecoveryCopyIsMade", KeyWhileARecoveryCopyIsMade)
        ->Unit(Unit)
        ->Iterations(10);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
