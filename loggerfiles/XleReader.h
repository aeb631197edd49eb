#pragma once

#include "loggerfiles/LoggerRecord.h"

namespace quarnel {

/// Reads a Solinst XLE file: `<Log>`s with `Date`, `Time`, `ms`, `ch1` and so on; the names and
/// units of the channels are in `ChN_data_header`. All other elements are passed over. A file that
/// is cut or damaged keeps the `<Log>`s before and says so. Lend it to ReadOptions::xleReader.
void ReadXle(std::string_view text, RecordBuilder& builder);

} // namespace quarnel
