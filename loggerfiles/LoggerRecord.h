#pragma once

#include "project/GlobalDeclar.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

// ---- What a logger file holds -------------------------------------------------------------------

/// What a channel measures, told from its heading and unit.
enum class ChannelKind { Level, DepthToWater, ChangeInHead, Pressure, Temperature, Other };

/// Why a row of the file gives no reading.
enum class LeftOutReason { NotATime, NotANumber };

/// A row of the file that gives no reading.
struct LeftOutRow {
    std::size_t line = 0; ///< of the file, counted from 1
    std::string text;     ///< what is no time or no number, UTF-8, at most 80 bytes of it
    LeftOutReason reason = LeftOutReason::NotATime;
};

/// "Row 7: '24:00:00' is not a time."
std::string LeftOutMessage(const LeftOutRow& row);

/// The rows left out: all of them counted, the first twenty of them kept.
struct LeftOutRows {
    static constexpr std::size_t KeptRows = 20;
    std::size_t count = 0;
    std::vector<LeftOutRow> first; ///< at most KeptRows, in the order of their lines

    void Add(std::size_t line, std::string_view text, LeftOutReason reason);
};

/// One column of readings.
struct LoggerChannel {
    std::string name; ///< as the file has it, without its unit
    std::string unit; ///< as the file spells it, "" where it names none
    ChannelKind kind = ChannelKind::Other;
    std::vector<double> values; ///< one a row of the record; NaN where the row has no number
    LeftOutRows notNumbers;     ///< the rows of `values` that are NaN and are told to the user
};

/// The rows of a logger file that have a time. `times`, `lines` and the values of every channel
/// have the same length.
struct LoggerRecord {
    std::string formatName;              ///< "Solinst XLE" ... "Text table", as shown
    std::optional<std::string> location; ///< of the well, where the file names it
    std::optional<std::string> serial;   ///< serial number, where the file names it

    /// True: dates or times of day, `times` being microseconds since 1970-01-01 00:00:00 by the
    /// logger's own clock, without any time zone. Without a date (`hasDates` false) they count from
    /// the midnight before the first row. False: plain numbers, microseconds since the file's zero.
    bool timesAreClock = false;
    bool hasDates = false;
    std::vector<std::int64_t> times;     ///< in microseconds; never falling unless `fault` says so
    std::vector<std::uint32_t> lines;    ///< line of the file of each row, counted from 1
    std::vector<LoggerChannel> channels; ///< each with at least one number, in the file's order
};

// ---- Reading ------------------------------------------------------------------------------------

/// Which of the first two numbers of a date like 03/05/2024 is the month.
enum class DateOrder { MonthDay, DayMonth };

class RecordBuilder;

/// Reads the rows of a Solinst XLE file, whose text (UTF-8, no mark) is `text`.
using XleReader = void (*)(std::string_view text, RecordBuilder& builder);

/// What the user chose for a file that leaves it open, and what the caller lends.
struct ReadOptions {
    std::optional<DateOrder> dateOrder; ///< unset: told from the rows
    std::optional<TimeUnit> timeUnit;   ///< of times that are plain numbers; unset: as the heading
    /// The XML parser is part of Qt, which the core does not know: ReadXle of XleReader.h where
    /// there is Qt. Without it such a file is a fault.
    XleReader xleReader = nullptr;
    /// Called now and then with the bytes read and those to read; false stops the reading.
    std::function<bool(std::size_t done, std::size_t all)> progress;
};

/// What reading a logger file gives.
struct LoggerReading {
    LoggerRecord record;
    LeftOutRows leftOut;            ///< rows that have no time; those without a number are told by
                                    ///< the channel that is chosen
    std::vector<std::string> notes; ///< told to the user, the import goes on
    std::string fault;              ///< not empty: there is no import; the sentence for the user
    bool isCancelled = false;       ///< `progress` said stop; the record is empty

    /// Dates like 03/05/2024 that are valid both ways. `dateOrder` is the one `record` was read by;
    /// while it is unset the rows do not tell, the times are month/day, and the user must choose.
    bool bothDateOrders = false;
    std::optional<DateOrder> dateOrder;
    bool DateOrderIsOpen() const { return bothDateOrders && !dateOrder; }

    /// The times are plain numbers and no heading names their unit: `timeUnit`, seconds unless
    /// chosen otherwise.
    bool timeUnitIsOpen = false;
    TimeUnit timeUnit = Second; ///< the one that `record` was read by
};

/// Reads the bytes of a logger file of any known format. `name` is the file's name without its
/// folder, as messages show it. Never fails but by `fault`; where the times fall, the record is
/// there all the same, to be looked at.
LoggerReading ReadLoggerBytes(std::string_view bytes, const std::string& name,
                              const ReadOptions& options);

/// The same for the file at `path` (UTF-8). A file that cannot be read (a folder, a pipe, no
/// permission) gives the text of FileErrorMessage as its fault.
LoggerReading ReadLoggerFile(const std::string& path, const ReadOptions& options);

/// "The dates of NAME can be read as month/day or day/month. Please give --date-order."
std::string OpenDateOrderMessage(std::string_view name);

/// The last part of `path`, as messages show it.
std::string FileNameOf(const std::string& path);

// ---- Channels -----------------------------------------------------------------------------------

/// The kind told by a channel's heading and unit, case ignored: see LoggerRecord.cpp.
ChannelKind KindOfChannel(std::string_view name, std::string_view unit);

/// The channel taken unless the user chooses: the first of depth to water, change in head or level;
/// else the first pressure; else the first other; else the first. 0 when there is none.
std::size_t ChannelChosenFirst(const std::vector<LoggerChannel>& channels);

/// "Depth is taken; ..." when the record has both a depth (or level) and a pressure, else "".
std::string DepthAndPressureNote(const std::vector<LoggerChannel>& channels);

/// The data type a channel of `kind` is imported as.
DataType DataTypeOfKind(ChannelKind kind);

/// The rows that give no reading when `channel` is chosen: those without a time and those without a
/// number there, the first twenty of both in the order of their lines.
LeftOutRows LeftOutOfChannel(const LoggerReading& reading, std::size_t channel);

} // namespace quarnel
