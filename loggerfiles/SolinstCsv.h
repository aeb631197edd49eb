#pragma once

#include "loggerfiles/RecordBuilder.h"

namespace quarnel {

/// Whether `head` has a line with the fields "Date", "Time" and "ms" or "100 ms".
bool IsSolinstCsv(std::string_view head);

/// Reads a Solinst CSV file. The blocks above the heading name the units, the location and the
/// serial number; in the newer form behind a colon ("UNIT: cm"), in the older one on indented lines
/// below ("Unit", "cm"). A column without a heading is an index and passed over.
void ReadSolinstCsv(std::string_view text, RecordBuilder& builder);

} // namespace quarnel
