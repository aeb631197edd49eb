#pragma once

#include "kcompute/UseIgnore.h"
#include "recovery/RecoveryData.h"
#include "wellgeometry/WellDimensions.h"

#include <string>
#include <vector>

namespace quarnel {

/// What the Bouwer-Rice curves give for a well, each number with its text.
struct BouwerRiceValues {
    double leOverRw = 0;
    double A = 0; ///< dimensionless, like B and C
    double B = 0;
    double C = 0;
    double lnReOverRw = 0;
    std::string leOverRwText, aText, bText, cText, lnReOverRwText;
    std::string message; ///< the warning of a clamped Le/rw, or empty
};

/// What a check or a preparation leaves for "Compute K/ Plot"; made anew from the project by each,
/// never saved.
struct WorkingValues {
    WellDimensions geometry;
    BouwerRiceValues coefficients;
    RecoveryData recovery;
    /// The mark of each point, as the Use/Ignore grid shows it; empty until they are restored.
    std::vector<Mark> marks;
};

/// Empties every entered and derived value, the coefficients, the points and their marks, so that
/// nothing of an earlier check survives a failed one. The memory of the points serves the next.
void ClearComputedValues(WorkingValues& working);

} // namespace quarnel
