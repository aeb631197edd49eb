#pragma once

#include "compare/CompareStatistics.h"
#include "kcompute/NumberToText.h"
#include "project/FixedLists.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace quarnel::test {

inline constexpr CompareUnit MetresADay{Metre, Day};

/// A row with a K (cm/s), as a project in m/day would leave it.
inline CompareRow RowWithK(const std::string& label, double kCmPerSec, double firstYCm = 50) {
    static int number = 0;
    CompareRow row;
    row.file = "wells/test " + std::to_string(++number) + ".qn2";
    row.resolvedFile = "/" + row.file;
    row.isRead = true;
    row.wellLabel = label;
    row.slugTestType = "Rising head";
    row.pointCount = 61;
    row.kCmPerSec = kCmPerSec;
    row.kText = ThreeFigureText(KInUnit(kCmPerSec, MetresADay));
    row.kLengthUnit = Metre;
    row.kTimeUnit = Day;
    row.usedCount = 3;
    row.firstYCm = firstYCm;
    return row;
}

/// A row of a project that was read, but whose K could not be computed.
inline CompareRow RowWithoutK(const std::string& label, const std::string& message) {
    CompareRow row = RowWithK(label, 1);
    row.kCmPerSec.reset();
    row.firstYCm.reset();
    row.kText.clear();
    row.kLengthUnit = row.kTimeUnit = -1;
    row.failure = message;
    return row;
}

/// A row of a file that could not be read.
inline CompareRow RowNotRead(const std::string& message) {
    CompareRow row;
    row.file = "missing.qn2";
    row.resolvedFile = "/missing.qn2";
    row.failure = message;
    return row;
}

inline std::vector<std::string> GroupNames(const Comparison& comparison) {
    std::vector<std::string> names;
    for (const CompareGroup& group : comparison.groups)
        names.push_back(group.name);
    return names;
}

} // namespace quarnel::test
