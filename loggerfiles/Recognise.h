#pragma once

#include <cstddef>
#include <string_view>

namespace quarnel {

/// The kinds of logger files, in the order in which they are recognised.
enum class LoggerFormat {
    SolinstXle,
    InSituHtml,
    DiverMon,
    DiverCsv,
    SolinstCsv,
    HoboCsv,
    TextTable
};

/// The name shown for a format.
std::string_view FormatName(LoggerFormat format);

/// What kind of file `text` is, by its first 64 KiB.
LoggerFormat RecogniseLoggerFile(std::string_view text);

/// The part of `text` that a file is recognised by.
std::string_view HeadOf(std::string_view text);

} // namespace quarnel
