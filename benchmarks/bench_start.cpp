// Time from a process's start to its first painted window, beside an empty window with one label,
// the two started in turn: on the X display there is, and without any display.

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>
#include <spawn.h>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr int Starts = 40;

/// The environment with another way to the screen, as a process takes it.
class Environment {
public:
    explicit Environment(const std::string& platform) {
        constexpr std::string_view Name = "QT_QPA_PLATFORM=";
        for (char** variable = environ; *variable != nullptr; ++variable)
            if (!std::string_view(*variable).starts_with(Name))
                texts_.emplace_back(*variable);
        texts_.push_back(std::string(Name) + platform);
        for (std::string& text : texts_)
            pointers_.push_back(text.data());
        pointers_.push_back(nullptr);
    }
    char** Pointers() { return pointers_.data(); }

private:
    std::vector<std::string> texts_;
    std::vector<char*> pointers_;
};

/// Milliseconds until `program` has painted; negative when it did not.
double MillisecondsToFirstPaint(const char* program, Environment& environment) {
    int ends[2] = {-1, -1};
    if (pipe(ends) != 0)
        return -1;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, ends[0]);
    std::string name = program;
    char* arguments[] = {name.data(), nullptr};
    pid_t child = 0;
    const auto start = std::chrono::steady_clock::now();
    const int failed =
        posix_spawn(&child, program, &actions, nullptr, arguments, environment.Pointers());
    close(ends[1]);
    char byte = 0;
    const bool painted = failed == 0 && read(ends[0], &byte, 1) == 1;
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - start;
    close(ends[0]);
    posix_spawn_file_actions_destroy(&actions);
    if (failed == 0)
        waitpid(child, nullptr, 0);
    return painted ? taken.count() : -1;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void StartToFirstPaint(benchmark::State& state, const char* platform) {
    Environment environment(platform);
    std::vector<double> program;
    std::vector<double> label;
    while (state.KeepRunning()) {
        program.push_back(MillisecondsToFirstPaint(FIRST_PAINT_PROGRAM, environment));
        label.push_back(MillisecondsToFirstPaint(FIRST_PAINT_LABEL, environment));
        if (program.back() < 0 || label.back() < 0) {
            state.SkipWithError("a window was not painted");
            return;
        }
    }
    state.counters["program_ms"] = Median(program);
    state.counters["label_ms"] = Median(label);
    state.counters["ratio"] = Median(program) / Median(label);
}
void Register(const char* name, const char* platform) {
    benchmark::RegisterBenchmark(name, StartToFirstPaint, platform)
        ->Iterations(Starts)
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (std::getenv("DISPLAY") != nullptr)
        Register("StartToFirstPaint/display", "xcb");
    Register("StartToFirstPaint/offscreen", "offscreen");
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
