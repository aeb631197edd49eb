#pragma once

#include "loggerfiles/RecordBuilder.h"

namespace quarnel {

/// Reads an In-Situ HTML report. The cells of the row marked `isi-data-table` are the headings,
/// those with an `isi-parameter-type` name channels; rows marked `isi-data-row` are the data, their
/// first cell is the time. Times without fractions take their differences from `isi-timestamp`
/// (milliseconds).
void ReadInSituReport(std::string_view text, RecordBuilder& builder);

} // namespace quarnel
