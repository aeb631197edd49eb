#include "loggerfiles/DiverFile.h"
#include "loggerfiles/HoboCsv.h"
#include "loggerfiles/InSituReport.h"
#include "loggerfiles/LoggerText.h"
#include "loggerfiles/Recognise.h"
#include "loggerfiles/RecordBuilder.h"
#include "loggerfiles/SolinstCsv.h"
#include "loggerfiles/TextTable.h"
#include "project/Files.h"

#include <new>

namespace quarnel {

namespace {

void ReadRows(LoggerFormat format, std::string_view text, RecordBuilder& builder) {
    switch (format) {
    case LoggerFormat::SolinstXle:
        return builder.Options().xleReader(text, builder);
    case LoggerFormat::InSituHtml:
        return ReadInSituReport(text, builder);
    case LoggerFormat::DiverMon:
        return ReadDiverMon(text, builder);
    case LoggerFormat::DiverCsv:
        return ReadDiverCsv(text, builder);
    case LoggerFormat::SolinstCsv:
        return ReadSolinstCsv(text, builder);
    case LoggerFormat::HoboCsv:
        return ReadHoboCsv(text, builder);
    default:
        return ReadTextTable(text, builder);
    }
}

LoggerReading Failed(std::string fault) {
    LoggerReading reading;
    reading.fault = std::move(fault);
    return reading;
}

LoggerReading ReadText(std::string_view text, const std::string& name, const ReadOptions& options) {
    const LoggerFormat format = RecogniseLoggerFile(text);
    if (format == LoggerFormat::SolinstXle && options.xleReader == nullptr)
        return Failed(name + " is a Solinst XLE file, which this program was built without.");
    LoggerReading reading;
    reading.record.formatName = FormatName(format);
    RecordBuilder builder(reading, options, text.size());
    ReadRows(format, text, builder);
    const std::optional<DateOrder> again = builder.Finish(name);
    if (again && !reading.isCancelled) {
        LoggerReading second;
        second.record.formatName = reading.record.formatName;
        second.bothDateOrders = reading.bothDateOrders;
        second.dateOrder = reading.dateOrder;
        reading = {};
        RecordBuilder ordered(second, options, text.size(), *again);
        ReadRows(format, text, ordered);
        ordered.Finish(name);
        reading = std::move(second);
    }
    if (reading.isCancelled) {
        reading = {};
        reading.isCancelled = true;
    }
    return reading;
}

} // namespace

LoggerReading ReadLoggerBytes(std::string_view bytes, const std::string& name,
                              const ReadOptions& options) {
    try {
        LoggerText text;
        DecodeLoggerText(bytes, name, text);
        return text.fault.empty() ? ReadText(text.text, name, options) : Failed(text.fault);
    } catch (const std::bad_alloc&) {
        return Failed(FileErrorMessage(FileFailure::OutOfMemory));
    }
}

LoggerReading ReadLoggerFile(const std::string& path, const ReadOptions& options) {
    const FileBytes bytes = ReadFileBytes(path);
    if (bytes.failure != FileFailure::None)
        return Failed(FileErrorMessage(bytes.failure));
    return ReadLoggerBytes(bytes.View(), FileNameOf(path), options);
}

} // namespace quarnel
