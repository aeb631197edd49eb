#include "project/FieldTables.h"
#include "project/Files.h"
#include "project/Texts.h"

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

/// A list's name and position; a position that names no entry ends the section.
template <std::size_t N>
FileFailure WritePosition(RecordWriter& out, std::string_view section, std::string_view key,
                          const std::array<std::string_view, N>& names, int position) {
    if (position < 0 || static_cast<std::size_t>(position) >= N)
        return FileFailure::InvalidPropertyValue;
    out.Quoted(section).Quoted(key).Quoted(NameAt(names, position)).Number(position).End();
    return FileFailure::None;
}

void WriteSiteId(RecordWriter& out, const ProjectState& state) {
    for (const IdentificationField& field : SiteIDFields)
        WriteText(out, "SITEID", field.key,
                  state.SiteIDText[static_cast<std::size_t>(field.index)]);
}

void WriteWellId(RecordWriter& out, const ProjectState& state) {
    for (const int index : WellTestIDFileOrder) {
        const auto at = static_cast<std::size_t>(index);
        WriteText(out, "WELLID", WellTestIDFields[at].key, state.WellTestIDTxt[at]);
    }
    WriteText(out, "WELLID", SlugVolumeKey, state.VolumeOfSlugText);
}

FileFailure WriteWellGeo(RecordWriter& out, const ProjectState& state) {
    for (std::size_t i = 0; i < WellGeoFields.size(); ++i)
        WriteText(out, "WELLGEO", WellGeoFields[i].key, state.WellGeoText[i]);
    FileFailure failure =
        WritePosition(out, "WELLGEO", "VERMEASUNITS", LengthUnitNames, state.WellGeoVertUnitsDDL);
    if (failure == FileFailure::None)
        failure = WritePosition(out, "WELLGEO", "RADMEASUNITS", LengthUnitNames,
                                state.WellGeoRadUnitsDDL);
    if (failure == FileFailure::None)
        out.Quoted("WELLGEO").Quoted("PICSELECT").Number(state.SSRibbon1Pressed ? 1 : 2).End();
    return failure;
}

FileFailure WriteRecoverySettings(RecordWriter& out, const ProjectState& state) {
    FileFailure failure =
        WritePosition(out, "RECDATA", "TIMEUNITS", TimeUnitNames, state.RecDatTimeUnitsDDL);
    if (failure == FileFailure::None)
        failure = WritePosition(out, "RECDATA", "WATERUNITS", LengthUnitNames,
                                state.RecDatWaterLevelUnitsDDL);
    if (failure == FileFailure::None)
        failure =
            WritePosition(out, "RECDATA", "HEADMEASMETHOD", DataTypeNames, state.RecDatDataTypeDDL);
    if (failure == FileFailure::None)
        failure = WritePosition(out, "RECDATA", "SLUGTESTTYPE", SlugTestTypeNames,
                                state.RecDatSlugTestTypeDDL);
    return failure;
}

FileFailure WriteRecData(RecordWriter& out, const ProjectState& state) {
    if (const FileFailure failure = WriteRecoverySettings(out, state); failure != FileFailure::None)
        return failure;
    WriteText(out, "RECDATA", "PRESLUG", state.RecDatPreSlugHeadText);
    for (const RecoveryRow& row : state.RecDatGrid) {
        const std::string_view time = TrimBlanks(row.time);
        const std::string_view level = TrimBlanks(row.level);
        if (!time.empty() || !level.empty())
            out.Quoted("RECDATA").Quoted("DATAPOINT").Quoted(time).Quoted(level).End();
    }
    return FileFailure::None;
}

void WritePlotInfo(RecordWriter& out, const ProjectState& state) {
    for (std::size_t i = 0; i < state.PlotText.size(); ++i)
        if (!TrimBlanks(state.PlotText[i]).empty())
            WriteText(out, "PLOTINFO", "TITLE" + std::to_string(i), state.PlotText[i]);
    out.Quoted("PLOTINFO").Quoted("KTIMEUNITS").Number(state.CmboKTimeUnits).End();
    out.Quoted("PLOTINFO").Quoted("KLENGTHUNITS").Number(state.CmboKLengthUnits).End();
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
        out.Quoted("LSWEIGHT").Quoted(key).End();
    WritePlotInfo(out, state);
    out.Quoted("END OF FILE").End();
    return {out.Take(), std::move(failures.messages)};
}

} // namespace quarnel
