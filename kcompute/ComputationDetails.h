#pragma once

#include "kcompute/KComputations.h"
#include "project/GlobalDeclar.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace quarnel {

/// What a successful computation keeps, until the next one, for the details window, the report and
/// the printed page. New and Open empty it, so that no report joins one well's name with another's
/// K.
struct ComputationDetails {
    bool isFilled = false;

    std::string kLine; ///< as KLine; rewritten when K is shown in other units
    std::string monitoringWellLine, testDateLine;
    std::string slopeLine, interceptLine;
    std::string timeHeading, yHeading, fitYHeading, criteriaHeading;
    std::string hLine, lwLine, leLine, dwLine, rwLine, dcLine, rcLine, porosityLine, reLine;
    std::string leOverRwLine, aLine, bLine, cLine, lnReOverRwLine;
    std::string slugTestTypeLine, dataTypeLine, staticLevelLine;
    std::string coefficientMessage; ///< the warning of a clamped Le/rw, or empty

    /// The points as computed, and for each whether the fit used it (1) or not (0).
    std::shared_ptr<const RecoveryPointList> points = std::make_shared<RecoveryPointList>();
    std::vector<std::uint8_t> used;
    FittedLine line;
    double levelUnitPerCm = 1; ///< turns cm into the entered level unit
    std::string dataTypeLetter, timeUnitName, levelUnitName;
};

/// Builds the kept lines from a computation that has just succeeded.
ComputationDetails BuildComputationDetails(const ProjectState& state,
                                           const ComputedValues& computed);

/// The fitted Y of a kept point (counted from 0), entered level unit; 0 where ln(Y in cm) is -30 or
/// less.
double FittedY(const ComputationDetails& details, std::size_t point);
/// The same as text: mode 2, "" beyond single precision.
std::string FittedYText(const ComputationDetails& details, std::size_t point);

/// "Hydraulic Conductivity: ", K in the chosen units, one blank, length unit, "/", time unit; ""
/// while no computation is current.
std::string KLine(const ProjectState& state, const ComputedValues& computed);

/// The account of the computation that the details window shows: the kept lines section by section,
/// then the points with their criteria in aligned columns; each line ended by CR LF. Empty while no
/// details are kept.
std::string SummaryText(const ComputationDetails& details);

} // namespace quarnel
