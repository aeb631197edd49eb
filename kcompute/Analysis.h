#pragma once

#include "kcompute/Computation.h"
#include "kcompute/WorkingValues.h"
#include "project/Files.h"
#include "project/ProjectState.h"
#include "project/Result.h"
#include "recovery/RecoveryData.h"

#include <string>

namespace quarnel {

/// One analysis: the project, its file, what its last check or preparation left, and its
/// computation. The
/// window and the terminal program hold one each and hand it to the routines.
struct Analysis {
    ProjectState state;
    FileOnDisk file;
    WorkingValues working;
    ComputationPtr computation; ///< null before the first, and after New, Open or one that failed
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

/// Back to a new project: clears project, working values and computation; the consultant stays.
void ResetAnalysis(Analysis& analysis);

/// Opens a project file of either format. A recognised file replaces everything, an unrecognised or
/// unreadable one leaves everything as it was.
ReadReport OpenProjectFile(const std::string& path, Analysis& analysis);

/// Checks the recovery data, computes Y and restores the marks. The points are gone after an error.
Result CheckDataShowYs(Analysis& analysis);

/// Everything that must stand before K can be computed: geometry, coefficients, points with Y,
/// marks.
Preparation PrepareComputation(Analysis& analysis);

/// "Compute K/ Plot": gathers, fits and computes K. A success makes a new computation, an error
/// leaves none.
Result Compute(Analysis& analysis);

/// Whether there is a computation and the project still says what it was made from.
bool HasCurrentComputation(const Analysis& analysis);

} // namespace quarnel
