#pragma once

#include "kcompute/Analysis.h"
#include "project/Result.h"

#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

/// One project read, prepared and computed as the window does it, and how far that came.
struct AnalysisRun {
    std::string file; ///< the path as the user gave it
    ComputationStatus status = ComputationStatus::Ok;
    std::vector<std::string> messages; ///< in the order they arose
    std::string failure;               ///< the first message of an error; "" without one
    bool isRead = false;               ///< the file was one of ours; false leaves all else empty
    bool geometryAccepted = false;
    bool coefficientsComputed = false;
    bool pointsChecked = false; ///< the recovery data passed with at least one point
    Analysis analysis;

    bool KIsComputed() const { return analysis.computation != nullptr; }
};

/// Reads the project at `path`, restores its marks, prepares and computes. Failures are in the
/// status and the messages. `decimalSeparator` is the one of the user's locale, which typed numbers
/// may use beside ".". May be called on several threads at a time.
AnalysisRun RunAnalysis(const std::string& path, std::string_view decimalSeparator);

} // namespace quarnel
