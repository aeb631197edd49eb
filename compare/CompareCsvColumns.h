#pragma once

#include <cstddef>
#include <string_view>

namespace quarnel {

/// The columns of the CSV of many tests, for its writer and its reader.
enum CompareCsvColumn : std::size_t {
    CsvNumber = 0,
    CsvWellLabel,
    CsvTestDate,
    CsvSlugTestType,
    CsvUsedCount,
    CsvPointCount,
    CsvFirstYCm,
    CsvKCommon,
    CsvKText,
    CsvKLengthUnit,
    CsvKTimeUnit,
    CsvHalfWidthPercent,
    CsvHalfWidthKind,
    CsvHeadMax,
    CsvHeadMin,
    CsvCautions,
    CsvNotes,
    CsvFile,
    CsvStatus,
    CsvReason,
    CsvGroup,
    CompareCsvColumnCount
};

inline constexpr std::string_view CompareCsvHeader =
    "number,well_label,test_date,slug_test_type,used_count,point_count,first_y_cm,k_common,k_text,"
    "k_length_unit,k_time_unit,half_width_percent,half_width_kind,head_max,head_min,cautions,notes,"
    "file,status,reason,group\n";

/// Stands between the names of cautions or notes.
inline constexpr std::string_view CheckNameGap = "; ";

} // namespace quarnel
