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
void ReadRecognised(std::string_view text, const std::string& path, ProjectState& state,
                    ReadReport& report) {
    ItemReader reader(text);
    if (!reader.HasLine()) {
        report.AddFailure(FileFailure::InputPastEnd);
        return;
    }
    std::array<std::string_view, 5> lines;
    lines[0] = reader.NextLine();
    if (ContainsIgnoringCase(lines[0], "QUARNEL PROJECT FILE")) {
        report.format = FileFormat::Current;
        ReadProjectFile(reader, text, path, state, report);
    } else {
        std::size_t read = 1;
        while (read < lines.size() && reader.HasLine())
            lines[read++] = reader.NextLine();
        if (read < lines.size() || lines[4].find(" Le ") == std::string_view::npos) {
            report.AddMessage(std::string(NotAnInputFileMessage));
            return;
        }
        report.format = FileFormat::Legacy;
        ReadLegacyInputFile(reader, lines, path, state, report);
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

ReadReport OpenProjectFile(const std::string& path, ProjectState& state) {
    const FileBytes bytes = ReadFileBytes(path);
    if (bytes.failure != FileFailure::None) {
        ReadReport report;
        report.AddFailure(bytes.failure);
        return report;
    }
    return OpenProjectBytes(bytes.View(), path, state);
}

ReadReport OpenProjectBytes(std::string_view bytes, const std::string& path, ProjectState& state) {
    ReadReport report;
    std::string original;
    try {
        original = path;
        if (IsValidUtf8(bytes))
            ReadRecognised(bytes, path, state, report);
        else
            ReadRecognised(Windows1252ToUtf8(bytes), path, state, report);
    } catch (const std::bad_alloc&) {
        // The rows read so far stay; handing them over takes no memory.
        if (!state.RecoveryDataTexts.empty())
            state.RecDatGrid = std::exchange(state.RecoveryDataTexts, {});
        report.AddFailure(FileFailure::OutOfMemory);
    }
    if (report.format != FileFormat::Unrecognised &&
        (!report.messages.empty() || report.format == FileFormat::Legacy))
        state.OriginalToKeep = std::move(original);
    return report;
}

} // namespace quarnel
