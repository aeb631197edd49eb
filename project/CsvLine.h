#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace quarnel {

/// Whether a spreadsheet would take a text for a formula, or it is one that was kept from that by
/// an apostrophe. Such a text gets one more, so that a reader can take it off again.
bool LooksLikeFormula(std::string_view text);

/// Gathers the columns of one line of CSV.
class CsvLine {
public:
    /// A text of the program or a number, which need no quotes.
    void Add(std::string_view text);
    /// A number, or an empty column where it was not reached.
    void Add(bool reached, double number);
    void Add(std::optional<double> number) { Add(number.has_value(), number.value_or(0)); }
    /// A text that came from outside: always quoted, never a formula.
    void AddForeign(std::string_view text);
    /// The line with its end.
    std::string Text() && { return std::move(line_) + "\n"; }

private:
    std::string line_;
};

} // namespace quarnel
