#include "project/CsvLine.h"

#include "project/PlainText.h"

namespace quarnel {

bool LooksLikeFormula(std::string_view text) {
    constexpr std::string_view FormulaStart = "=+-@\t\r\n";
    const std::size_t start = text.find_first_not_of('\'');
    return start != std::string_view::npos &&
           FormulaStart.find(text[start]) != std::string_view::npos;
}

void CsvLine::Add(std::string_view text) {
    if (!line_.empty())
        line_ += ',';
    line_ += text;
}

void CsvLine::Add(bool reached, double number) {
    Add(reached ? ExactNumber(number) : std::string());
}

void CsvLine::AddForeign(std::string_view text) {
    std::string quoted = "\"";
    if (LooksLikeFormula(text))
        quoted += '\'';
    for (const char character : WellFormedUtf8(text))
        quoted += character == '"' ? std::string("\"\"") : std::string(1, character);
    Add(quoted + '"');
}

} // namespace quarnel
