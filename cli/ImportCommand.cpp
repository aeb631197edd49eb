#include "cli/Commands.h"
#include "cli/ImportOutput.h"
#include "cli/ImportRequest.h"
#include "cli/Output.h"
#include "cli/SaveAndTell.h"
#include "loggerfiles/ImportMessages.h"
#include "loggerfiles/ImportTexts.h"
#include "loggerfiles/XleReader.h"
#include "project/Files.h"
#include "project/ProjectState.h"
#include "project/Texts.h"
#include "system/Locale.h"

#include <unistd.h>

namespace quarnel {

namespace {

/// An import on its way: what was asked, and how far it came.
struct Import {
    const CommandLine& commandLine;
    ImportRequest& request;
    std::shared_ptr<const LoggerFile> file;
    ImportRun run;
};

std::shared_ptr<const LoggerFile> Read(const std::string& path, const ImportRequest& request) {
    ReadOptions options = request.reading;
    options.xleReader = ReadXle;
    return std::make_shared<const LoggerFile>(
        LoggerFile{FileNameOf(path), ReadLoggerFile(path, options)});
}

ExitStatus Fail(const std::string& file, std::string_view message) {
    PrintMessage(file, message);
    return Failed;
}

/// Without a fault the channels are shown even where an import would ask for more.
ExitStatus List(const Import& import) {
    const LoggerReading& reading = import.file->reading;
    if (!reading.fault.empty())
        return Fail(import.request.file, reading.fault);
    Output output(STDOUT_FILENO);
    for (const std::string& message : LeftOutMessages(reading.leftOut))
        PrintMessage(import.request.file, message);
    if (import.request.asJson) {
        JsonWriter json(output);
        WriteChannelJson(import.request.file, reading, json);
    } else {
        WriteChannelTable(import.request.file, reading, output);
    }
    return FinishOutput(output, Done);
}

/// The channel of the number that the user gave, counted from 1.
bool TakeChannel(Import& import) {
    if (!import.request.channel)
        return true;
    const std::optional<double> number = ParseNumber(*import.request.channel);
    for (std::size_t i = 0; i < import.file->reading.record.channels.size(); ++i)
        if (number && *number == static_cast<double>(i + 1))
            import.request.choices.readings.channel = i;
    return import.request.choices.readings.channel.has_value();
}

/// Rows of the times that the user named; they count in the channel that is taken. "" or what is
/// wrong with the words.
std::string TakeTimes(Import& import, const ImportPlan& plan, std::string& fault) {
    const LoggerRecord& record = import.file->reading.record;
    ImportChoices& choices = import.request.choices;
    for (const auto& [text, isStart] :
         {std::pair(import.request.start, true), std::pair(import.request.end, false)}) {
        if (!text)
            continue;
        const std::optional<std::int64_t> time = RecordTimeOf(record, *text);
        if (!time)
            return "'" + *text + "' is not a time.";
        (isStart ? choices.start : choices.end) =
            isStart ? plan.FirstRowFrom(*time) : plan.LastRowUntil(*time);
        if (!(isStart ? choices.start : choices.end))
            fault = "There is no reading " + std::string(isStart ? "from " : "until ") + *text +
                    (isStart ? " on." : ".");
    }
    return "";
}

/// The project that takes the readings; false where it cannot be read whole.
bool ReadProject(const std::string& path, ProjectState& state, FileOnDisk& file) {
    const ReadReport report = OpenProjectFile(path, state, file);
    for (const std::string& message : report.messages)
        PrintMessage(path, message);
    return report.messages.empty();
}

ExitStatus Write(const Import& import) {
    ProjectState state;
    state.DecimalSeparator = SystemDecimalSeparator();
    FileOnDisk file;
    const std::string& from = import.request.from;
    if (from.empty())
        NameProjectAfterImport(*import.run.plan, state);
    else if (!ReadProject(from, state, file))
        return Failed;
    ApplyImport(*import.run.plan, state);
    return SaveAndTell(import.request.out, state, file).isSaved ? Done : Failed;
}

/// Rows that were left out are told on standard error whatever the format; JSON holds all else.
void PrintNotes(const Import& import) {
    const ImportPlan& plan = *import.run.plan;
    const std::vector<std::string> leftOut =
        LeftOutMessages(LeftOutOfChannel(plan.file->reading, plan.readings->Channel()));
    for (const std::string& message : import.request.asJson ? leftOut : plan.messages)
        PrintMessage(import.request.file, message);
}

ExitStatus Tell(const Import& import) {
    PrintNotes(import);
    Output output(STDOUT_FILENO);
    if (import.request.asJson) {
        JsonWriter json(output);
        WriteImportJson(import.run, json);
    } else {
        WriteImportTable(import.run, output);
    }
    return FinishOutput(output, Done);
}

ExitStatus FailByPlan(const Import& import) {
    for (const std::string& message : import.run.plan->messages)
        PrintMessage(import.request.file, message);
    return Failed;
}

ExitStatus RunImport(Import& import) {
    ImportRequest& request = import.request;
    import.run = {request.file, request.barometer, request.out,
                  PlanImport(import.file, request.choices)};
    const LoggerReading& reading = import.file->reading;
    if (!reading.fault.empty() || reading.record.channels.empty())
        return FailByPlan(import);
    if (!TakeChannel(import))
        return import.commandLine.ReportWrongUse("There is no channel " + *request.channel + ".");
    if (!request.barometer.empty())
        request.choices.readings.barometer = Read(request.barometer, request);
    import.run.plan = PlanImport(import.file, request.choices, import.run.plan.get());
    std::string fault;
    if (const std::string wrong = TakeTimes(import, *import.run.plan, fault); !wrong.empty())
        return import.commandLine.ReportWrongUse(wrong);
    if (!fault.empty())
        return Fail(request.file, fault);
    import.run.plan = PlanImport(import.file, request.choices, import.run.plan.get());
    if (!import.run.plan->CanBeImported())
        return FailByPlan(import);
    const ExitStatus written = Write(import);
    return written == Done ? Tell(import) : written;
}

} // namespace

ExitStatus ImportCommand(const Words& words) {
    CommandLine commandLine(
        "import LOGGER -o NEW.qn2 [options]",
        "Turns the readings of a logger's own file into a project: finds the start of the\n"
        "test and the static level, and says what it took. What a file leaves open is\n"
        "chosen by an option. NEW is replaced without asking; a file there that does not\n"
        "read whole as a project is kept beside it as NEW.bak first.\n"
        "TIME is a clock time as \"2024-03-05 11:59:00\" or seconds since the first row.\n"
        "The exit status is 0 when the project is written; rows that were left out are\n"
        "told. It is 1 when the file gives no test; then nothing is written.");
    AddImportOptions(commandLine);
    if (const auto status = commandLine.Parse(words))
        return *status;
    ImportRequest request;
    if (const std::string wrong = TakeImportRequest(commandLine, request); !wrong.empty())
        return commandLine.ReportWrongUse(wrong);
    Import import{commandLine, request, Read(request.file, request), {}};
    return request.listOnly ? List(import) : RunImport(import);
}

} // namespace quarnel
