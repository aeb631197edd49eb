// Reading logger files of 100 MB, each beside the floor of its kind: for a delimited file a loop
// that reads it and counts separators and line ends outside quotes.

#include "loggerfiles/HtmlScanner.h"
#include "loggerfiles/ImportPlan.h"
#include "loggerfiles/LoggerRecord.h"
#include "project/Files.h"
#ifdef QUARNEL_XLE
#include "loggerfiles/XleReader.h"
#include <QXmlStreamReader>
#endif

#include <benchmark/benchmark.h>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace {

constexpr std::size_t FileBytes = 100'000'000;

/// A file of about a hundred million bytes: what stands above, rows, what stands below.
struct LargeFile {
    std::string path;
    std::size_t rows = 0;
};

template <typename WriteRow>
LargeFile MakeFile(const char* name, const std::string& above, WriteRow writeRow,
                   const std::string& below) {
    LargeFile made{(std::filesystem::temp_directory_path() / name).string()};
    std::string text = above;
    char row[256];
    while (text.size() < FileBytes) {
        const auto tenths = static_cast<unsigned>(made.rows);
        const unsigned second = tenths / 10 % 60;
        const unsigned minute = tenths / 600 % 60;
        const unsigned hour = tenths / 36'000 % 24;
        const unsigned day = tenths / 864'000 % 28 + 1;
        char time[32];
        std::snprintf(time, sizeof time, "%02u:%02u:%02u.%u", hour, minute, second, tenths % 10);
        text.append(row, writeRow(row, sizeof row, day, time, 12.0 + tenths % 997 / 1000.0));
        ++made.rows;
    }
    std::ofstream(made.path, std::ios::binary) << text << below;
    return made;
}

template <typename... Parts>
std::size_t Write(char* row, std::size_t size, const char* format, Parts... parts) {
    return static_cast<std::size_t>(std::snprintf(row, size, format, parts...));
}

const LargeFile& CsvFile() {
    static const LargeFile file = MakeFile(
        "quarnel-bench-logger.csv", "Time,Level (m),Temperature (C)\r\n",
        [](char* row, std::size_t size, unsigned day, const char* time, double level) {
            return Write(row, size, "2024-03-%02u %s,%.4f,%.2f\r\n", day, time, level, 11.3);
        },
        "");
    return file;
}

const LargeFile& HtmlFile() {
    static const LargeFile file = MakeFile(
        "quarnel-bench-logger.html",
        "<table><tr isi-data-table><td>Date Time</td>"
        "<td isi-parameter-type=\"3\">Depth (m)</td></tr>\r\n",
        [](char* row, std::size_t size, unsigned day, const char* time, double level) {
            return Write(row, size,
                         "<tr class=\"data\" isi-data-row><td>2024-03-%02u %s</td>"
                         "<td>%.4f</td></tr>\r\n",
                         day, time, level);
        },
        "</table>");
    return file;
}

/// Reads a file and keeps its bytes.
quarnel::FileBytes Bytes(const LargeFile& file) {
    return quarnel::ReadFileBytes(file.path);
}

void CountSeparators(benchmark::State& state) {
    const LargeFile& file = CsvFile();
    while (state.KeepRunning()) {
        const quarnel::FileBytes bytes = Bytes(file);
        std::size_t separators = 0;
        std::size_t lines = 0;
        bool quoted = false;
        for (const char c : bytes.View()) {
            if (c == '"')
                quoted = !quoted;
            else if (!quoted && c == ',')
                ++separators;
            else if (!quoted && c == '\n')
                ++lines;
        }
        benchmark::DoNotOptimize(separators);
        benchmark::DoNotOptimize(lines);
    }
}

void ReadFile(benchmark::State& state, const LargeFile& file) {
    quarnel::ReadOptions options;
#ifdef QUARNEL_XLE
    options.xleReader = &quarnel::ReadXle;
#endif
    while (state.KeepRunning()) {
        const quarnel::LoggerReading reading = quarnel::ReadLoggerFile(file.path, options);
        if (!reading.fault.empty() || reading.record.times.size() != file.rows) {
            state.SkipWithError("the file was not read whole");
            break;
        }
        benchmark::DoNotOptimize(reading.record.times.data());
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(file.rows) * state.iterations());
}

/// From opening to all that a preview shows: channel, unit, start of the test and static level.
void ReadCsvAndPlan(benchmark::State& state) {
    while (state.KeepRunning()) {
        const auto file = std::make_shared<const quarnel::LoggerFile>(
            quarnel::LoggerFile{"record.csv", quarnel::ReadLoggerFile(CsvFile().path, {})});
        const auto plan = quarnel::PlanImport(file, {});
        if (!plan->readings || plan->RowCount() != CsvFile().rows) {
            state.SkipWithError("the file was not read whole");
            break;
        }
        benchmark::DoNotOptimize(plan->messages.data());
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(CsvFile().rows) * state.iterations());
}

void ScanHtml(benchmark::State& state) {
    const LargeFile& file = HtmlFile();
    while (state.KeepRunning()) {
        const quarnel::FileBytes bytes = Bytes(file);
        quarnel::HtmlScanner scanner(bytes.View());
        std::size_t parts = 0;
        while (scanner.Next() != quarnel::HtmlScanner::Part::End)
            ++parts;
        benchmark::DoNotOptimize(parts);
    }
}

#ifdef QUARNEL_XLE
const LargeFile& XleFile() {
    static const LargeFile file = MakeFile(
        "quarnel-bench-logger.xle",
        "<?xml version=\"1.0\"?>\r\n<Body_xle><Ch1_data_header><Identification>LEVEL"
        "</Identification><Unit>m</Unit></Ch1_data_header><Data>\r\n",
        [](char* row, std::size_t size, unsigned day, const char* time, double level) {
            return Write(row, size,
                         "<Log><Date>2024/03/%02u</Date><Time>%.8s</Time><ms>%c00</ms>"
                         "<ch1>%.4f</ch1></Log>\r\n",
                         day, time, time[9], level);
        },
        "</Data></Body_xle>");
    return file;
}

void PassXml(benchmark::State& state) {
    const LargeFile& file = XleFile();
    while (state.KeepRunning()) {
        const quarnel::FileBytes bytes = Bytes(file);
        QXmlStreamReader xml(
            QByteArray::fromRawData(bytes.data.get(), static_cast<qsizetype>(bytes.size)));
        std::size_t parts = 0;
        for (; !xml.atEnd(); ++parts)
            xml.readNext();
        benchmark::DoNotOptimize(parts);
    }
}
#endif

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const auto add = [](const char* name, auto run) {
        benchmark::RegisterBenchmark(name, run)->Unit(benchmark::kMillisecond);
    };
    add("CountSeparatorsOfCsv", CountSeparators);
    add("ReadCsv", [](benchmark::State& state) { ReadFile(state, CsvFile()); });
    add("ReadCsvAndPlan", ReadCsvAndPlan);
    add("ScanHtml", ScanHtml);
    add("ReadHtml", [](benchmark::State& state) { ReadFile(state, HtmlFile()); });
#ifdef QUARNEL_XLE
    add("PassXml", PassXml);
    add("ReadXle", [](benchmark::State& state) { ReadFile(state, XleFile()); });
#endif
    benchmark::RunSpecifiedBenchmarks();
    for (const char* name :
         {"quarnel-bench-logger.csv", "quarnel-bench-logger.html", "quarnel-bench-logger.xle"})
        std::filesystem::remove(std::filesystem::temp_directory_path() / name);
    return 0;
}
