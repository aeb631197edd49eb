#pragma once

#include "loggerfiles/LoggerRecord.h"
#include "tests/fuzz/FuzzProperties.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace quarnel::fuzz {

inline void CheckLeftOut(const LeftOutRows& rows) {
    Require(rows.first.size() == std::min(rows.count, LeftOutRows::KeptRows));
    for (const LeftOutRow& row : rows.first)
        Require(row.line > 0 && row.text.size() <= 80);
}

/// What holds for every record, whatever the file was.
inline void CheckRecord(const LoggerReading& reading, std::size_t fileSize) {
    const LoggerRecord& record = reading.record;
    CheckLeftOut(reading.leftOut);
    Require(record.lines.size() == record.times.size());
    std::size_t cells = record.times.capacity();
    for (const LoggerChannel& channel : record.channels) {
        Require(channel.values.size() == record.times.size());
        CheckLeftOut(channel.notNumbers);
        Require(std::any_of(channel.values.begin(), channel.values.end(),
                            [](double value) { return std::isfinite(value); }));
        cells += channel.values.capacity();
    }
    // Memory follows the file's size, never a number in it.
    Require(cells <= 2'000'000 + 8 * fileSize);
    if (!reading.fault.empty())
        return;
    Require(record.times.size() >= 2 && !record.channels.empty());
    Require(reading.DateOrderIsOpen() || std::is_sorted(record.times.begin(), record.times.end()));
    Require(std::adjacent_find(record.lines.begin(), record.lines.end(),
                               [](auto a, auto b) { return b < a; }) == record.lines.end());
    Require(ChannelChosenFirst(record.channels) < record.channels.size());
}

/// Reads `bytes` as they are and behind `start`, which makes them a file of one format.
inline void CheckLogger(const std::uint8_t* data, std::size_t size, const char* start,
                        XleReader xleReader = nullptr) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    ReadOptions options;
    options.xleReader = xleReader;
    for (const std::string& file : {bytes, start + bytes}) {
        const LoggerReading reading = ReadLoggerBytes(file, "file", options);
        CheckRecord(reading, file.size());
        if (!reading.bothDateOrders)
            continue;
        // An open order is settled by the user's word, whichever it is.
        for (const DateOrder order : {DateOrder::MonthDay, DateOrder::DayMonth}) {
            ReadOptions chosen = options;
            chosen.dateOrder = order;
            const LoggerReading settled = ReadLoggerBytes(file, "file", chosen);
            CheckRecord(settled, file.size());
            Require(!settled.DateOrderIsOpen());
        }
    }
}

} // namespace quarnel::fuzz
