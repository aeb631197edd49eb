#include "loggerfiles/Recognise.h"

#include "loggerfiles/DiverFile.h"
#include "loggerfiles/HoboCsv.h"
#include "loggerfiles/LoggerText.h"
#include "loggerfiles/SolinstCsv.h"

namespace quarnel {

namespace {

bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

} // namespace

std::string_view HeadOf(std::string_view text) {
    constexpr std::size_t HeadBytes = std::size_t{64} << 10U;
    return text.substr(0, HeadBytes);
}

std::string_view FormatName(LoggerFormat format) {
    switch (format) {
    case LoggerFormat::SolinstXle:
        return "Solinst XLE";
    case LoggerFormat::InSituHtml:
        return "In-Situ HTML";
    case LoggerFormat::DiverMon:
        return "Diver MON, Solinst LEV";
    case LoggerFormat::DiverCsv:
        return "Diver CSV";
    case LoggerFormat::SolinstCsv:
        return "Solinst CSV";
    case LoggerFormat::HoboCsv:
        return "HOBO CSV";
    default:
        return "Text table";
    }
}

LoggerFormat RecogniseLoggerFile(std::string_view text) {
    const std::string_view head = HeadOf(text);
    if (Contains(head, "<Body_xle"))
        return LoggerFormat::SolinstXle;
    if (Contains(head, "isi-data-table") || Contains(head, "id=\"isi-report\""))
        return LoggerFormat::InSituHtml;
    if (IsDiverMon(head))
        return LoggerFormat::DiverMon;
    if (IsDiverCsv(head))
        return LoggerFormat::DiverCsv;
    if (IsSolinstCsv(head))
        return LoggerFormat::SolinstCsv;
    return IsHoboCsv(head) ? LoggerFormat::HoboCsv : LoggerFormat::TextTable;
}

} // namespace quarnel
