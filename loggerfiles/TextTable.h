#pragma once

#include "loggerfiles/RecordBuilder.h"

namespace quarnel {

/// Reads any table of text. Its delimiter is the first of TAB, semicolon, comma and runs of blanks
/// that cuts its lines with digits into equally many fields, two or more; its heading, where it has
/// one, the line above the first row of data. Finds no rows where the text is no such table.
void ReadTextTable(std::string_view text, RecordBuilder& builder);

} // namespace quarnel
