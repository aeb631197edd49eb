#pragma once

#include "loggerfiles/LoggerRecord.h"
#include "project/CellText.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quarnel {

// How an import writes its numbers, and how times are read back that the user gives in the same
// form.

/// A time since the start of the test (microseconds, 0 or more) in seconds, with at most 3
/// decimals, half away from zero, and no trailing zeros: "2", "0.5".
CellText ElapsedText(std::int64_t microseconds);

/// A reading rounded to 6 decimals, without trailing zeros: "4.4261".
CellText ReadingText(double reading);

/// A time of `record` as it is shown: "2024-03-05 11:59:00.25", "11:59:00" where there are no
/// dates, and the file's seconds ("60.5") where its times are plain numbers.
std::string RecordTimeText(const LoggerRecord& record, std::int64_t time);

/// The day of a time of a record with dates: "2024-03-05".
std::string DayText(std::int64_t time);

/// The time in `record` that a user names as RecordTimeText shows it (seconds and fraction may be
/// left out, "T" may stand for the blank), or as seconds since its first row. Nothing where `text`
/// is neither.
std::optional<std::int64_t> RecordTimeOf(const LoggerRecord& record, std::string_view text);

} // namespace quarnel
