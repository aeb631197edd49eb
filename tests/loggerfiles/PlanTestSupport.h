#pragma once

#include "loggerfiles/ImportPlan.h"

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace quarnel::test {

inline constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();
inline constexpr std::int64_t OneSecond = 1'000'000;
/// 2024-03-05 11:58:20 in microseconds.
inline constexpr std::int64_t FirstTime = 1'709'639'900 * OneSecond;

/// A file "logger.csv" with one channel "NAME" in `unit`, a reading every two seconds from 11:58:20
/// on.
inline std::shared_ptr<LoggerFile> FileOf(const std::vector<double>& readings,
                                          const std::string& name = "Level",
                                          const std::string& unit = "m") {
    auto file = std::make_shared<LoggerFile>();
    file->name = "logger.csv";
    LoggerRecord& record = file->reading.record;
    record.formatName = "Text table";
    record.timesAreClock = true;
    record.hasDates = true;
    for (std::size_t i = 0; i < readings.size(); ++i) {
        record.times.push_back(FirstTime + static_cast<std::int64_t>(i) * 2 * OneSecond);
        record.lines.push_back(static_cast<std::uint32_t>(i + 2));
    }
    record.channels.push_back({name, unit, KindOfChannel(name, unit), readings, {}});
    return file;
}

inline void AddChannel(LoggerFile& file, const std::string& name, const std::string& unit,
                       const std::vector<double>& values) {
    file.reading.record.channels.push_back({name, unit, KindOfChannel(name, unit), values, {}});
}

/// `before` readings around 5, the slug of `slug`, and `after` readings that come back to 5 by a
/// tenth of the distance each.
inline std::vector<double> SlugTest(std::size_t before, double slug, std::size_t after) {
    std::vector<double> readings;
    for (std::size_t i = 0; i < before; ++i)
        readings.push_back(i % 3 == 1 ? 5.001 : i % 3 == 2 ? 4.999 : 5);
    for (std::size_t i = 0; i < after; ++i)
        readings.push_back(std::round((5 + slug * std::pow(0.9, static_cast<double>(i))) * 1e4) /
                           1e4);
    return readings;
}

using Plan = std::shared_ptr<const ImportPlan>;

/// The messages of a plan as one text, each on a line of its own.
inline std::string MessageLines(const ImportPlan& plan) {
    std::string lines;
    for (const std::string& message : plan.messages)
        lines += message + "\n";
    return lines;
}

/// The rows to come as one text, "time level" each on a line of its own.
inline std::string RowLines(const ImportPlan& plan) {
    std::string lines;
    for (std::size_t i = 0; i < plan.RowsImported(); ++i) {
        const RecoveryRow row = plan.TextsAt(i);
        lines += row.time.ToString() + " " + row.level.ToString() + "\n";
    }
    return lines;
}

} // namespace quarnel::test
