#include "project/CsvLine.h"

#include "project/PlainText.h"

namespace quarnel {

void CsvLine::Add(std::string_view text) {
    if (!line_.empty())
        line_ += ',';
    line_ += text;
}

void CsvLine::Add(bool reached, double number) {
    Add(reached ? ExactNumber(number) : std::string());
}

void CsvLine::AddForeign(std::string_view text) {
    constexpr std::string_view FormulaStart = "=+-@\t\r\n";
    std::string quoted = "\"";
    if (!text.empty() && FormulaStart.find(text.front()) != std::string_view::npos)
        quoted += '\'';
    for (const char character : WellFormedUtf8(text))
        quoted += character == '"' ? std::string("\"\"") : std::string(1, character);
    Add(quoted + '"');
}

} // namespace quarnel
