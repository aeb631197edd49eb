#include "project/Files.h"

#include "project/ItemReader.h"
#include "project/ProjectReaders.h"
#include "project/TextEncoding.h"
#include "project/Texts.h"
#include "system/OpenFile.h"

#include <algorithm>
#include <array>
#include <new>
#include <utility>

namespace quarnel {

namespace {

/// Recognises the format of a file's text and reads it.
void ReadRecognised(std::string_view text, ProjectState& state, ReadReport& report) {
    ItemReader reader(text);
    if (!reader.HasLine()) {
        report.AddFailure(FileFailure::InputPastEnd);
        return;
    }
    std::array<std::string_view, 5> lines;
    lines[0] = reader.NextLine();
    if (ContainsIgnoringCase(lines[0], "QUARNEL PROJECT FILE")) {
        ReadProjectFile(reader, text, state, report);
    } else {
        std::size_t read = 1;
        while (read < lines.size() && reader.HasLine())
            lines[read++] = reader.NextLine();
        if (read < lines.size() || lines[4].find(" Le ") == std::string_view::npos) {
            report.AddMessage(std::string(NotAnInputFileMessage));
            return;
        }
        ReadLegacyInputFile(reader, lines, state, report);
    }
}

} // namespace

void ReadReport::AddMessage(const std::string& message) {
    if (std::find(messages.begin(), messages.end(), message) == messages.end())
        messages.push_back(message);
}

void ReadReport::AddFailure(FileFailure failure) {
    if (failure != FileFailure::None)
        AddMessage(FileErrorMessage(failure));
}

bool IsWhole(const ReadReport& report) {
    return report.format == FileFormat::Current && report.messages.empty() &&
           report.passedOverCount == 0;
}

ReadReport OpenProjectFile(const std::string& path, ProjectState& state, FileOnDisk& file) {
    FileOnDisk opened;
    ReadReport report;
    try {
        opened.CurrentProjectFile = path; // before anything changes that memory may run out for
        const FileBytes bytes = ReadFileBytes(path);
        if (bytes.failure == FileFailure::None)
            report = OpenProjectBytes(bytes.View(), state);
        else
            report.AddFailure(bytes.failure);
        opened.version = bytes.version;
    } catch (const std::bad_alloc&) {
        report.AddFailure(FileFailure::OutOfMemory);
    }
    opened.isWhole = IsWhole(report);
    if (report.format != FileFormat::Unrecognised)
        file = std::move(opened);
    return report;
}

ReadReport OpenProjectFile(const std::string& path, ProjectState& state) {
    FileOnDisk file;
    return OpenProjectFile(path, state, file);
}

ReadReport OpenProjectBytes(std::string_view bytes, ProjectState& state) {
    ReadReport report;
    try {
        if (IsValidUtf8(bytes))
            ReadRecognised(bytes, state, report);
        else
            ReadRecognised(Windows1252ToUtf8(bytes), state, report);
    } catch (const std::bad_alloc&) {
        // The rows read so far stay; handing them over takes no memory.
        if (!state.RecoveryDataTexts.empty())
            state.RecDatGrid = std::exchange(state.RecoveryDataTexts, {});
        report.AddFailure(FileFailure::OutOfMemory);
    }
    return report;
}

} // namespace quarnel
