#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

/// Takes lines of CSV apart as CsvLine writes them: columns between commas, in quotes where they
/// hold a comma, a quote (twice) or a line end; lines ended by LF or CR LF.
class CsvReader {
public:
    explicit CsvReader(std::string_view text)
        : text_(text) {}

    bool AtEnd() const { return text_.empty(); }
    std::size_t BytesLeft() const { return text_.size(); }
    /// The columns of the next line. False where it is not whole: a quote is not closed, something
    /// stands behind one, or the text ends before the line does.
    bool NextLine(std::vector<std::string>& columns);

private:
    bool TakeColumn(std::string& column);
    bool TakeQuoted(std::string& column);

    std::string_view text_;
};

/// The text that CsvLine::AddForeign wrote as `column`: without the apostrophe that keeps a
/// spreadsheet from computing it.
std::string_view ForeignText(std::string_view column);

} // namespace quarnel
