#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quarnel {

/// A printer of the system with the sheet that lies in it. Lengths in points (1/72 inch); a sheet
/// without a width is unknown.
struct Printer {
    std::string name;
    double sheetWidth = 0, sheetHeight = 0;
    double marginLeft = 0, marginTop = 0, marginRight = 0, marginBottom = 0; ///< beyond its reach
};

/// The user's default printer; nothing where there is none, or no printing system.
std::optional<Printer> DefaultPrinter();

/// Hands a PDF to a printer's queue, straight from memory: no file waits on a disk of this
/// program's that could fill up unseen. Returns why the queue did not take the whole of it, in the
/// printing system's own words, and nothing when it did. What was handed over of a document that
/// was not taken is cancelled, so that no piece of it is printed.
std::optional<std::string> RefusalOfPrinting(const Printer& printer, const std::string& title,
                                             std::string_view pdf);

/// Whether a printer stands still, so that its queue keeps what it takes.
bool IsStopped(const Printer& printer);

} // namespace quarnel
