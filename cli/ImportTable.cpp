#include "cli/ImportOutput.h"

#include "loggerfiles/ImportTexts.h"
#include "loggerfiles/KindNames.h"
#include "project/PlainText.h"
#include "project/TextColumns.h"
#include "project/Texts.h"

#include <algorithm>

namespace quarnel {

namespace {

std::string Line(std::string_view label, std::string_view value) {
    constexpr std::size_t LabelWidth = 20;
    return "    " + PaddedRight(label, LabelWidth) + std::string(value) + "\n";
}

std::string Count(std::size_t count) {
    return std::to_string(count);
}

std::string FileLines(const LoggerRecord& record) {
    std::string lines = Line("Format", record.formatName);
    if (record.location)
        lines += Line("Location", PlainText(*record.location));
    if (record.serial)
        lines += Line("Serial number", PlainText(*record.serial));
    return lines;
}

/// "1 LEVEL, cm".
std::string ChannelText(const LoggerRecord& record, std::size_t number) {
    const LoggerChannel& channel = record.channels[number];
    std::string text = Count(number + 1) + " " + channel.name;
    if (!channel.unit.empty())
        text += ", " + channel.unit;
    return PlainText(text);
}

std::string LengthText(std::string_view number, const ImportPlan& plan) {
    return std::string(number) + " " +
           std::string(NameAt(LengthUnitNames, plan.readings->LevelUnit()));
}

std::string StaticLevelText(const ImportPlan& plan) {
    if (!plan.staticLevel)
        return std::string(NotApplicable);
    const std::size_t rows = plan.staticRows.Count();
    return LengthText(plan.StaticText(), plan) +
           (rows == 0 ? " as given"
                      : ", median of " + Count(rows) + (rows == 1 ? " reading" : " readings"));
}

std::string TimeZeroText(const ImportPlan& plan) {
    const LoggerRecord& record = plan.file->reading.record;
    return RecordTimeText(record, plan.readings->Times()[*plan.start]) +
           (record.timesAreClock ? "" : " sec") + ", row " + Count(*plan.start + 1);
}

std::string RowsText(const ImportPlan& plan) {
    std::string text = Count(plan.RowsBefore()) + " before, " + Count(plan.RowsImported()) +
                       " imported, " + Count(plan.RowsAfter()) + " after";
    if (plan.choices.thinnedPerDecade)
        text += "; thinned from " + Count(plan.RowsOfTest());
    return text;
}

} // namespace

void WriteChannelTable(const std::string& path, const LoggerReading& reading, Output& output) {
    const LoggerRecord& record = reading.record;
    output.Write(PlainText(path) + "\n" + FileLines(record));
    output.Write(Line("Rows", Count(record.times.size())));
    output.Write("\n  Channels\n");
    std::size_t width = 0;
    for (std::size_t i = 0; i < record.channels.size(); ++i)
        width = std::max(width, CharacterCount(ChannelText(record, i)));
    for (std::size_t i = 0; i < record.channels.size(); ++i)
        output.Write("    " + PaddedRight(ChannelText(record, i), width) + "  " +
                     std::string(ChannelKindText(record.channels[i].kind)) + "\n");
}

void WriteImportTable(const ImportRun& run, Output& output) {
    const ImportPlan& plan = *run.plan;
    const LoggerRecord& record = plan.file->reading.record;
    output.Write(PlainText(run.file) + "\n" + FileLines(record));
    output.Write(Line("Channel", ChannelText(record, plan.readings->Channel())));
    output.Write(Line("Data type", TrimBlanks(NameAt(DataTypeNames, plan.dataType))));
    output.Write(Line("Time zero", TimeZeroText(plan)));
    output.Write(Line("Rows", RowsText(plan)));
    output.Write(Line("Static level", StaticLevelText(plan)));
    output.Write(Line("First Y", LengthText(ReadingText(plan.firstY).View(), plan)));
    if (plan.readings->AirPressureSubtracted())
        output.Write(Line("Air pressure from", PlainText(run.barometer)));
    output.Write(Line("Written to", PlainText(run.out)));
    output.Write("\n    " + plan.StateLine() + "\n");
}

} // namespace quarnel
