#pragma once

#include "kcompute/Computation.h"
#include "project/ProjectState.h"

#include <cstddef>
#include <limits>
#include <string>

namespace quarnel {

/// The lines by which the details window and the report tell of a computation, with its own texts
/// and units.
struct ComputationLines {
    explicit ComputationLines(const Computation& computation);

    std::string slope, intercept;
    std::string h, lw, le, dw, rw, dc, rc, porosity, re;
    std::string leOverRw, a, b, c, lnReOverRw;
    std::string coefficientWarning; ///< of a clamped Le/rw, or empty
    std::string slugTestType, dataType, staticLevel;
};

/// The headings of a table of points: those of the computation, or with none the ones that the
/// lists of `state` give.
struct PointHeadings {
    PointHeadings(const ProjectState& state, const Computation* computation);

    std::string time;    ///< "Time (sec)"
    std::string reading; ///< "D(ft)"
    std::string y;       ///< "Y(ft)"
    std::string fitY;    ///< "Fit Y(ft)"
    std::string criteria = "Fit Criteria";
};

/// The account of a computation that the details window shows: K in the units chosen in `state`,
/// well and test as they stand there, the lines of the computation section by section, then the
/// points with their criteria in columns aligned by characters; each line ended by CR LF. Empty
/// without a computation. `mostPoints` cuts the table of points.
std::string SummaryText(const ProjectState& state, const Computation* computation,
                        std::size_t mostPoints = std::numeric_limits<std::size_t>::max());

} // namespace quarnel
