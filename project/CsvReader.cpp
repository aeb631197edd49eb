#include "project/CsvReader.h"

#include "project/CsvLine.h"

#include <algorithm>

namespace quarnel {

/// Takes what stands between quotes, the opening one being taken already.
bool CsvReader::TakeQuoted(std::string& column) {
    while (!text_.empty()) {
        const std::size_t quote = text_.find('"');
        if (quote == std::string_view::npos)
            return false;
        column += text_.substr(0, quote);
        text_.remove_prefix(quote + 1);
        if (text_.empty() || text_.front() != '"')
            return true;
        column += '"';
        text_.remove_prefix(1);
    }
    return false;
}

bool CsvReader::TakeColumn(std::string& column) {
    if (!text_.empty() && text_.front() == '"') {
        text_.remove_prefix(1);
        return TakeQuoted(column);
    }
    const std::size_t size = std::min(text_.find_first_of(",\r\n"), text_.size());
    column = text_.substr(0, size);
    text_.remove_prefix(size);
    return true;
}

bool CsvReader::NextLine(std::vector<std::string>& columns) {
    columns.clear();
    while (true) {
        if (!TakeColumn(columns.emplace_back()) || text_.empty())
            return false;
        if (text_.starts_with("\r\n"))
            text_.remove_prefix(1);
        const char end = text_.front();
        text_.remove_prefix(1);
        if (end != ',')
            return end == '\n';
    }
}

std::string_view ForeignText(std::string_view column) {
    if (column.starts_with('\'') && LooksLikeFormula(column))
        column.remove_prefix(1);
    return column;
}

} // namespace quarnel
