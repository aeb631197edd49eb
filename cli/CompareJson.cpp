#include "cli/CompareOutput.h"
#include "compare/CompareLines.h"
#include "project/FixedLists.h"

#include <optional>
#include <string_view>

namespace quarnel {

namespace {

/// Writes one comparison, member by member.
class CompareWriter {
public:
    CompareWriter(std::span<const CompareRow> rows, const Comparison& comparison, JsonWriter& json)
        : rows_(rows)
        , comparison_(comparison)
        , json_(json) {}

    void Write();

private:
    void Member(std::string_view key, std::optional<double> number) {
        json_.Key(key);
        number ? json_.Number(*number) : json_.Null();
    }
    void Count(std::string_view key, std::optional<std::size_t> count) {
        Member(key, count ? std::optional<double>(static_cast<double>(*count)) : std::nullopt);
    }
    /// A text, or null where `there` is false.
    void Text(std::string_view key, bool there, std::string_view text) {
        json_.Key(key);
        there ? json_.Text(text) : json_.Null();
    }
    void WriteUnit();
    void WriteTest(std::size_t index);
    void WriteTestTexts(const CompareRow& row);
    void WriteK(const CompareRow& row, const ComparedRow& compared);
    void WriteChecks(std::string_view key, const std::vector<CheckId>& checks);
    void WriteGroup(const CompareGroup& group);
    void WriteStatistics(const std::optional<KStatistics>& statistics);
    void WriteRepeats(const RepeatTests& repeats);
    void WriteRemarks(const RepeatTests& repeats);

    std::span<const CompareRow> rows_;
    const Comparison& comparison_;
    JsonWriter& json_;
};

void CompareWriter::WriteUnit() {
    json_.Key("unit");
    json_.BeginRow();
    json_.Member("length", NameAt(LengthUnitNames, comparison_.unit.length));
    json_.Member("time", NameAt(TimeUnitNames, comparison_.unit.time));
    json_.EndObject();
}

void CompareWriter::WriteTestTexts(const CompareRow& row) {
    Text("well_label", row.isRead, row.wellLabel);
    Text("test_date", row.isRead, row.testDate);
    Text("slug_test_type", row.isRead, row.slugTestType);
}

void CompareWriter::WriteK(const CompareRow& row, const ComparedRow& compared) {
    const bool isShown = !row.kText.empty();
    Member("k_cm_per_sec", row.kCmPerSec);
    Member("k_common", compared.k);
    Text("k_text", isShown, row.kText);
    Text("k_length_unit", isShown, NameAt(LengthUnitNames, row.kLengthUnit));
    Text("k_time_unit", isShown, NameAt(TimeUnitNames, row.kTimeUnit));
    Member("half_width_percent", row.halfWidthPercent);
    Text("half_width_kind", row.halfWidthPercent.has_value(), NameOf(row.halfWidthKind));
    Member("head_max", row.headMax);
    Member("head_min", row.headMin);
}

void CompareWriter::WriteChecks(std::string_view key, const std::vector<CheckId>& checks) {
    json_.Key(key);
    json_.BeginArray();
    for (const CheckId check : checks)
        json_.Text(CheckName(check));
    json_.EndArray();
}

void CompareWriter::WriteTest(std::size_t index) {
    const CompareRow& row = rows_[index];
    const ComparedRow& compared = comparison_.rows[index];
    json_.BeginObject();
    Count("number", index + 1);
    json_.Member("file", row.file);
    json_.Member("status", NameOf(compared.status));
    Text("reason", !compared.reason.empty(), compared.reason);
    WriteTestTexts(row);
    Count("used_count", row.kCmPerSec ? std::optional<std::size_t>(row.usedCount) : std::nullopt);
    Count("point_count", row.pointCount);
    Member("first_y_cm", row.firstYCm);
    WriteK(row, compared);
    WriteChecks("cautions", row.cautions);
    WriteChecks("notes", row.notes);
    Text("group", compared.group.has_value(),
         compared.group ? std::string_view(comparison_.groups[*compared.group].name)
                        : std::string_view());
    json_.EndObject();
}

void CompareWriter::WriteStatistics(const std::optional<KStatistics>& statistics) {
    if (!statistics) {
        json_.Null();
        return;
    }
    json_.BeginObject();
    Count("n", statistics->n);
    json_.Member("geometric_mean", statistics->geometricMean);
    json_.Member("arithmetic_mean", statistics->arithmeticMean);
    json_.Member("minimum", statistics->minimum);
    json_.Member("maximum", statistics->maximum);
    json_.Member("maximum_over_minimum", statistics->maximumOverMinimum);
    Member("sd_log10", statistics->sdLog10);
    json_.EndObject();
}

void CompareWriter::WriteRemarks(const RepeatTests& repeats) {
    json_.Key("remarks");
    json_.BeginArray();
    for (const RepeatRemark& remark : repeats.remarks) {
        json_.BeginRow();
        json_.Member("id", RepeatName(remark.id));
        json_.Member("level", remark.level == CheckLevel::Caution ? "caution" : "note");
        json_.Member("text", RepeatText(remark.id, repeats, comparison_.unit.length));
        json_.EndObject();
    }
    json_.EndArray();
}

void CompareWriter::WriteRepeats(const RepeatTests& repeats) {
    json_.BeginObject();
    json_.Member("head_ratio", repeats.headRatio);
    json_.Member("first_last_head_change_percent", repeats.firstLastHeadChangePercent);
    json_.Member("first_last_k_change_percent", repeats.firstLastKChangePercent);
    json_.Member("greatest_deviation_percent", repeats.greatestDeviationPercent);
    Member("head_dependence_percent", repeats.headDependencePercent);
    WriteRemarks(repeats);
    json_.EndObject();
}

void CompareWriter::WriteGroup(const CompareGroup& group) {
    json_.BeginObject();
    json_.Member("name", group.name);
    Count("test_count", group.tests.size());
    Count("counted", group.counted.size());
    json_.Key("statistics");
    WriteStatistics(group.statistics);
    json_.Key("repeats");
    group.repeats ? WriteRepeats(*group.repeats) : json_.Null();
    json_.EndObject();
}

void CompareWriter::Write() {
    json_.BeginObject();
    WriteUnit();
    json_.Member("group", NameOf(comparison_.grouping));
    json_.Key("tests");
    json_.BeginArray();
    for (std::size_t index = 0; index < rows_.size(); ++index)
        WriteTest(index);
    json_.EndArray();
    json_.Key("groups");
    json_.BeginArray();
    for (const CompareGroup& group : comparison_.groups)
        WriteGroup(group);
    json_.EndArray();
    json_.Key("all");
    WriteStatistics(comparison_.all);
    json_.EndObject();
}

} // namespace

void WriteCompareJson(std::span<const CompareRow> rows, const Comparison& comparison,
                      JsonWriter& json) {
    CompareWriter(rows, comparison, json).Write();
}

} // namespace quarnel
