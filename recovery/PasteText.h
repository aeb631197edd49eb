#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quarnel {

/// What a paste into the grid says afterwards.
struct PasteText {
    std::string said; ///< "Pasted 61 rows", and what of the clipboard's text was passed over
    /// Whether text was passed over, or came into one column, that an import might read.
    bool offersImport = false;
};

/// What is to be said of pasting `clipboardText`, of which the grid took `rows` rows. Only what
/// a line end follows is a row, and only TABs separate cells; a number of `decimalSeparator` is one
/// cell.
PasteText TextOfPaste(std::string_view clipboardText, std::size_t rows,
                      std::string_view decimalSeparator);

} // namespace quarnel
