#pragma once

#include "loggerfiles/RecordBuilder.h"

namespace quarnel {

/// Whether the first line of `head` is that of these loggers' files and a line is `[Data]`.
bool IsDiverMon(std::string_view head);

/// The same with a line that begins "Date/time".
bool IsDiverCsv(std::string_view head);

/// Reads a MON or LEV file: settings by sections, `[Data]`, a count that is not trusted, rows by
/// blanks. The times are those of the rows; the start time of the header is written in other orders
/// by some versions.
void ReadDiverMon(std::string_view text, RecordBuilder& builder);

/// Reads the CSV form: the same settings, a heading, rows by commas or semicolons.
void ReadDiverCsv(std::string_view text, RecordBuilder& builder);

} // namespace quarnel
