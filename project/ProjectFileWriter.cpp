#include "project/FieldTables.h"
#include "project/Files.h"
#include "project/ProjectState.h"
#include "project/Texts.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace quarnel {

namespace {

/// Builds records: text items in quotes, whole numbers plain, commas between, CR LF behind.
class RecordWriter {
public:
    RecordWriter& Quoted(std::string_view text) {
        Separate();
        text_ += '"';
        text_ += text;
        text_ += '"';
        return *this;
    }
    RecordWriter& Number(int number) {
        Separate();
        text_ += std::to_string(number);
        return *this;
    }
    void End() {
        text_ += "\r\n";
        lineStart_ = true;
    }
    std::string Take() { return std::move(text_); }

private:
    void Separate() {
        if (!lineStart_)
            text_ += ',';
        lineStart_ = false;
    }

    std::string text_;
    bool lineStart_ = true;
};

void WriteText(RecordWriter& out, std::string_view section, std::string_view key,
               std::string_view text) {
    out.Quoted(section).Quoted(key).Quoted(TrimBlanks(text)).End();
}

void WriteSiteId(RecordWriter& out, const ProjectState& state) {
    for (const IdentificationField& field : SiteIDFields)
        WriteText(out, SiteIDSection, field.key,
                  state.SiteIDText[static_cast<std::size_t>(field.index)]);
}

void WriteWellId(RecordWriter& out, const ProjectState& state) {
    for (const int index : WellTestIDFileOrder) {
        const auto at = static_cast<std::size_t>(index);
        WriteText(out, WellIDSection, WellTestIDFields[at].key, state.WellTestIDTxt[at]);
    }
    WriteText(out, WellIDSection, SlugVolumeKey, state.VolumeOfSlugText);
}

/// Each list's name and position; a position that names no entry ends the section.
FileFailure WriteLists(RecordWriter& out, std::string_view section,
                       std::span<const ListField> lists, const ProjectState& state) {
    for (const ListField& list : lists) {
        const int position = state.*list.position;
        if (position < 0 || static_cast<std::size_t>(position) >= list.names.size())
            return FileFailure::InvalidPropertyValue;
        out.Quoted(section).Quoted(list.key);
        out.Quoted(list.names[static_cast<std::size_t>(position)]).Number(position).End();
    }
    return FileFailure::None;
}

FileFailure WriteWellGeo(RecordWriter& out, const ProjectState& state) {
    for (std::size_t i = 0; i < WellGeoFields.size(); ++i)
        WriteText(out, WellGeoSection, WellGeoFields[i].key, state.WellGeoText[i]);
    const FileFailure failure = WriteLists(out, WellGeoSection, WellGeoLists, state);
    if (failure == FileFailure::None)
        out.Quoted(WellGeoSection).Quoted(PictureKey).Number(state.SSRibbon1Pressed ? 1 : 2).End();
    return failure;
}

FileFailure WriteRecData(RecordWriter& out, const ProjectState& state) {
    if (const FileFailure failure = WriteLists(out, RecDataSection, RecDataLists, state);
        failure != FileFailure::None)
        return failure;
    WriteText(out, RecDataSection, PreSlugKey, state.RecDatPreSlugHeadText);
    for (const RecoveryRow& row : state.RecDatGrid) {
        const std::string_view time = TrimBlanks(row.time);
        const std::string_view level = TrimBlanks(row.level);
        if (!time.empty() || !level.empty())
            out.Quoted(RecDataSection).Quoted(DataPointKey).Quoted(time).Quoted(level).End();
    }
    return FileFailure::None;
}

void WritePlotInfo(RecordWriter& out, const ProjectState& state) {
    for (std::size_t i = 0; i < state.PlotText.size(); ++i)
        if (!TrimBlanks(state.PlotText[i]).empty())
            WriteText(out, PlotInfoSection, PlotTitleKeys[i], state.PlotText[i]);
    for (const ListField& list : PlotInfoLists)
        out.Quoted(PlotInfoSection).Quoted(list.key).Number(state.*list.position).End();
}

} // namespace

ProjectText ProjectFileText(const ProjectState& state) {
    RecordWriter out;
    ReadReport failures;
    out.Quoted("QUARNEL PROJECT FILE").End();
    out.Quoted("VERSION").Quoted("3.0").End();
    WriteSiteId(out, state);
    WriteWellId(out, state);
    failures.AddFailure(WriteWellGeo(out, state));
    failures.AddFailure(WriteRecData(out, state));
    for (const std::string& key : state.IgnoreKeyList)
        out.Quoted(IgnoreKeySection).Quoted(key).End();
    WritePlotInfo(out, state);
    out.Quoted("END OF FILE").End();
    return {out.Take(), std::move(failures.messages)};
}

} // namespace quarnel
