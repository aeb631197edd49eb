#pragma once

#include "loggerfiles/LoggerRecord.h"
#include "tests/CoreTestSupport.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>

namespace quarnel::test {

/// Reads `text` as the file "log.csv".
inline LoggerReading Read(std::string_view text, const ReadOptions& options = {}) {
    return ReadLoggerBytes(text, "log.csv", options);
}

/// The time of row `row` as "Y-m-d H:M:S.mmm" (microseconds behind the dot), for clock times.
inline std::string ClockText(std::int64_t micros) {
    const std::chrono::sys_time<std::chrono::microseconds> time{std::chrono::microseconds(micros)};
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date{day};
    const std::chrono::hh_mm_ss clock{time - day};
    char text[64];
    std::snprintf(
        text, sizeof text, "%04d-%02u-%02u %02d:%02d:%02d.%06d", int(date.year()),
        unsigned(date.month()), unsigned(date.day()), static_cast<int>(clock.hours().count()),
        static_cast<int>(clock.minutes().count()), static_cast<int>(clock.seconds().count()),
        static_cast<int>(clock.subseconds().count()));
    return text;
}

/// The times of all rows in seconds since the first.
inline std::vector<double> Seconds(const LoggerReading& reading) {
    std::vector<double> seconds;
    for (const std::int64_t time : reading.record.times)
        seconds.push_back(static_cast<double>(time - reading.record.times.front()) / 1e6);
    return seconds;
}

/// "name|unit" of every channel.
inline std::vector<std::string> ChannelTexts(const LoggerReading& reading) {
    std::vector<std::string> texts;
    for (const LoggerChannel& channel : reading.record.channels)
        texts.push_back(channel.name + "|" + channel.unit);
    return texts;
}

/// The messages of the rows left out when `channel` is chosen.
inline std::vector<std::string> LeftOut(const LoggerReading& reading, std::size_t channel = 0) {
    std::vector<std::string> texts;
    for (const LeftOutRow& row : LeftOutOfChannel(reading, channel).first)
        texts.push_back(LeftOutMessage(row));
    return texts;
}

} // namespace quarnel::test
