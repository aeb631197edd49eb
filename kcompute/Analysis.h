#pragma once

#include "kcompute/ComputationDetails.h"
#include "project/Files.h"
#include "project/GlobalDeclar.h"

#include <string>

namespace quarnel {

/// One analysis: the project, what was computed from it, and what the last computation keeps. The
/// window and the terminal program hold one each and hand it to the routines.
struct Analysis {
    ProjectState state;
    ComputedValues computed;
    ComputationDetails details;
};

/// Which tab holds the data at fault.
enum class FaultyTab { None, WellGeometry, RecoveryData };

/// How far a preparation came.
struct Preparation {
    Result result; ///< the error that ended it, else the worst warning (of Le/rw or of Y)
    FaultyTab faultyTab = FaultyTab::None;
    bool geometryAccepted = false;
    bool coefficientsComputed = false;
    bool pointsChecked = false; ///< the recovery data passed with at least one point
    std::string coefficientWarning;
    std::string yWarning;
};

/// Back to a new project: clears project, computed values and kept details; the consultant stays.
void ResetAnalysis(Analysis& analysis);

/// Opens a project file of either format. A recognised file replaces everything, an unrecognised or
/// unreadable one leaves everything as it was.
ReadReport OpenProjectFile(const std::string& path, Analysis& analysis);

/// Checks the recovery data, computes Y and restores the marks. The points are gone after an error.
Result CheckDataShowYs(Analysis& analysis);

/// Everything that must stand before K can be computed: geometry, coefficients, points with Y,
/// marks.
Preparation PrepareComputation(Analysis& analysis);

/// Gathers, fits, computes K and keeps the details. An error leaves the details of the last
/// successful computation as they are.
Result ComputeAndKeep(Analysis& analysis);

/// The text of K in the chosen units, "" while no computation is current. The kept K line follows
/// the units.
std::string ShowComputedK(Analysis& analysis);

} // namespace quarnel
