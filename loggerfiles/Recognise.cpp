#include "loggerfiles/Recognise.h"

#include "loggerfiles/DiverFile.h"
#include "loggerfiles/HoboCsv.h"
#include "loggerfiles/SolinstCsv.h"
#include "project/Texts.h"

namespace quarnel {

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
    if (head.find("<Body_xle") != std::string_view::npos)
        return LoggerFormat::SolinstXle;
    if (ContainsIgnoringCase(head, "ISI-DATA-TABLE") ||
        ContainsIgnoringCase(head, "ID=\"ISI-REPORT\""))
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
