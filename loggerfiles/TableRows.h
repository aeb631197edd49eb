#pragma once

#include "loggerfiles/FieldSplitter.h"
#include "loggerfiles/LoggerText.h"
#include "loggerfiles/RecordBuilder.h"

namespace quarnel {

/// No column of that number.
inline constexpr std::size_t NoColumn = static_cast<std::size_t>(-1);

/// Which fields of a row hold its time.
struct TimeColumns {
    TimeForm form = TimeForm::Number;
    std::size_t time = NoColumn;      ///< the date, or all of the time
    std::size_t clock = NoColumn;     ///< the clock time beside the date
    std::size_t halfOfDay = NoColumn; ///< AM or PM, a field of its own between blanks

    /// The first field behind the time.
    std::size_t End() const;
};

/// Finds the time of a row: its first date with a clock time, or clock time. With `numbersToo` the
/// field `numberColumn` is one where there is no such and it holds a number.
std::optional<TimeColumns> FindTime(const std::vector<std::string_view>& fields, bool comma,
                                    std::size_t numberColumn = NoColumn);

/// A column of readings.
struct ReadingColumn {
    std::size_t field = 0;
    std::size_t channel = 0;
};

/// How the rows of a delimited table stand.
struct TableLayout {
    char delimiter = ',';
    bool comma = false; ///< numbers may have a decimal comma
    TimeColumns time;
    std::size_t fraction = NoColumn;     ///< a column of fractions of a second
    std::int64_t fractionMicros = 0;     ///< one of which is so many microseconds
    std::string_view timeHeading;        ///< names the unit of times that are plain numbers
    std::vector<ReadingColumn> readings; ///< from left to right
    std::string_view lastLine;  ///< a line beginning so ends the rows; "" where nothing does
    bool shortRowsPass = false; ///< rows that end before the first reading are passed over
};

/// Finds the time columns in the first row of `lines` that has a date or a clock time and puts them
/// into `layout`; the row's fields into `fields`. False where no row has one.
bool FindTimeBelow(LineReader lines, TableLayout& layout, std::vector<std::string_view>& fields);

/// Reads the rows of `lines` up to the text's end.
void ReadTableRows(LineReader& lines, const TableLayout& layout, RecordBuilder& builder);

} // namespace quarnel
