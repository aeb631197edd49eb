#pragma once

#include "loggerfiles/RecordBuilder.h"

namespace quarnel {

/// Whether `head` begins with "Plot Title", or has a heading with "Date Time" and either "#" or a
/// line "Serial Number:" above it.
bool IsHoboCsv(std::string_view head);

/// Reads a HOBO CSV file. Rows of events have no reading and are passed over; the title of the plot
/// is the location.
void ReadHoboCsv(std::string_view text, RecordBuilder& builder);

} // namespace quarnel
