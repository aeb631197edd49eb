#pragma once

#include <QString>
#include <cstddef>

namespace quarnel {

/// Why the printing system (CUPS) refused the document this thread has just handed over, in the
/// system's own words; empty when it took it. Qt hands a document over when its painter ends and
/// keeps the answer to itself, so this asks CUPS, whose last answer is kept per thread. To be
/// called right after the painter's end.
QString RefusalOfLastDocument();

/// Whether the folder in which a document waits on its way to the printer has room for so many
/// pages. Qt writes it there without looking whether the disk took it, and a cut document would
/// come out of the printer as if it were whole.
bool HasRoomForPages(std::size_t pages);

} // namespace quarnel
