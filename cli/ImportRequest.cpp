#include "cli/ImportRequest.h"

#include "loggerfiles/Thinning.h"
#include "project/Texts.h"
#include "system/Locale.h"
#include "system/OpenFile.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quarnel {

namespace {

/// Where `name` stands among `names`, as the value of an enum.
template <typename Value, std::size_t N>
bool TakeName(std::string_view name, const std::array<std::string_view, N>& names,
              std::optional<Value>& value) {
    const auto found = std::find(names.begin(), names.end(), name);
    if (found != names.end())
        value = static_cast<Value>(found - names.begin());
    return found != names.end();
}

std::string Quoted(std::string_view what, const std::string& text) {
    return "There is no " + std::string(what) + " '" + text + "'.";
}

std::string TakeFormat(const CommandLine& commandLine, ImportRequest& request) {
    const std::string format = commandLine.IsSet("format") ? commandLine.Value("format") : "table";
    request.asJson = format == "json";
    return format == "table" || format == "json" ? "" : Quoted("format", format);
}

std::string TakeType(const CommandLine& commandLine, ImportRequest& request) {
    const std::string type = commandLine.Value("type");
    return TakeName(type, DataTypeLetters, request.choices.dataType) ? "" : Quoted("type", type);
}

std::string TakeSourceUnit(const CommandLine& commandLine, ImportRequest& request) {
    const std::string unit = commandLine.Value("source-unit");
    request.choices.readings.sourceUnit = KnownWaterUnit(unit);
    return request.choices.readings.sourceUnit ? "" : Quoted("unit", unit);
}

std::string TakeLevelUnit(const CommandLine& commandLine, ImportRequest& request) {
    const std::string unit = commandLine.Value("unit");
    return TakeName(unit, LengthUnitNames, request.choices.readings.levelUnit)
               ? ""
               : Quoted("unit", unit);
}

std::string TakeDateOrder(const CommandLine& commandLine, ImportRequest& request) {
    constexpr std::array<std::string_view, 2> Orders = {"mdy", "dmy"}; // by DateOrder
    const std::string order = commandLine.Value("date-order");
    return TakeName(order, Orders, request.reading.dateOrder) ? "" : Quoted("date order", order);
}

std::string TakeTimeUnit(const CommandLine& commandLine, ImportRequest& request) {
    const std::string unit = commandLine.Value("time-unit");
    return TakeName(unit, TimeUnitNames, request.reading.timeUnit) ? "" : Quoted("time unit", unit);
}

std::string TakeStaticLevel(const CommandLine& commandLine, ImportRequest& request) {
    const std::string level = commandLine.Value("static");
    request.choices.staticLevel = ParseNumber(level, SystemDecimalSeparator());
    return request.choices.staticLevel ? "" : "'" + level + "' is not a number.";
}

std::string TakeThinning(const CommandLine& commandLine, ImportRequest& request) {
    const std::optional<double> perDecade = ParseNumber(commandLine.Value("thin"));
    if (!perDecade || *perDecade != std::floor(*perDecade) || *perDecade < 1 ||
        *perDecade > MostRowsPerDecade)
        return "The readings a decade must be a whole number from 1 to " +
               std::to_string(MostRowsPerDecade) + ".";
    request.choices.thinnedPerDecade = static_cast<int>(*perDecade);
    return "";
}

struct ValueOption {
    std::string_view name;
    std::string (*take)(const CommandLine& commandLine, ImportRequest& request);
};

constexpr std::array<ValueOption, 7> ValueOptions = {{{"type", TakeType},
                                                      {"source-unit", TakeSourceUnit},
                                                      {"unit", TakeLevelUnit},
                                                      {"date-order", TakeDateOrder},
                                                      {"time-unit", TakeTimeUnit},
                                                      {"static", TakeStaticLevel},
                                                      {"thin", TakeThinning}}};

std::optional<std::string> ValueIfSet(const CommandLine& commandLine, std::string_view option) {
    return commandLine.IsSet(option) ? std::optional(commandLine.Value(option)) : std::nullopt;
}

std::string TakeFiles(const CommandLine& commandLine, ImportRequest& request) {
    const std::vector<std::string> files = commandLine.Files();
    if (files.size() != 1)
        return "Exactly one logger file is needed.";
    request.file = files.front();
    request.listOnly = commandLine.IsSet("list");
    request.out = commandLine.Value("o");
    if (request.listOnly)
        return commandLine.IsSet("o") ? "With --list no file is written (-o)." : "";
    if (request.out.empty())
        return "No output file is named (-o).";
    request.from = commandLine.Value("from");
    if (commandLine.IsSet("from") && request.from.empty())
        return "No project is named (--from).";
    request.barometer = commandLine.Value("barometer");
    if (commandLine.IsSet("barometer") && request.barometer.empty())
        return "No barometer file is named (--barometer).";
    // A slip of the fingers must not put a project in the place of a logger's file.
    if (IsSameFile(request.out, request.file) || IsSameFile(request.out, request.barometer))
        return "The project needs a file of its own.";
    return "";
}

} // namespace

void AddImportOptions(CommandLine& commandLine) {
    commandLine.AddOption("o", "The project to write.", "NEW.qn2");
    commandLine.AddOption("from", "Take all but the readings from this project.", "PROJECT");
    commandLine.AddOption("channel", "Take channel N, as --list counts them.", "N");
    commandLine.AddOption("type", "Depth to water, head or change in head.", "D|H|Y");
    commandLine.AddOption("source-unit", "Unit of the file's readings: psi, kPa, cm ...", "U");
    commandLine.AddOption("unit", "Unit to write the levels in.", "in|ft|cm|m");
    commandLine.AddOption("date-order", "Month or day first in 03/05/2024.", "mdy|dmy");
    commandLine.AddOption("time-unit", "Unit of times that are numbers.", "sec|min|hr|day");
    commandLine.AddOption("start", "First reading after the slug.", "TIME");
    commandLine.AddOption("end", "Last reading to import.", "TIME");
    commandLine.AddOption("static", "Static level, in the unit written.", "LEVEL");
    commandLine.AddOption("barometer", "Subtract the air pressure of this logger.", "FILE");
    commandLine.AddOption("thin", "Keep about P readings a decade of time.", "P");
    commandLine.AddOption("list", "Only show the channels; no -o.");
    commandLine.AddOption("format", "To read (the default), or everything.", "table|json");
    commandLine.AddArgument("LOGGER", "A file of a pressure or level logger, or a text table.");
}

std::string TakeImportRequest(const CommandLine& commandLine, ImportRequest& request) {
    std::string fault = TakeFormat(commandLine, request);
    for (const ValueOption& option : ValueOptions)
        if (fault.empty() && commandLine.IsSet(option.name))
            fault = option.take(commandLine, request);
    if (fault.empty())
        fault = TakeFiles(commandLine, request);
    request.channel = ValueIfSet(commandLine, "channel");
    request.start = ValueIfSet(commandLine, "start");
    request.end = ValueIfSet(commandLine, "end");
    return fault;
}

} // namespace quarnel
