#include "kcompute/Computation.h"

#include "kcompute/NumberToText.h"
#include "kcompute/UseIgnore.h"
#include "project/FixedLists.h"
#include "project/Texts.h"
#include "recovery/RecoveryData.h"
#include "wellgeometry/WellDimensions.h"

#include <algorithm>
#include <array>

namespace quarnel {

namespace {

bool IsSameWell(const WellDimensions& well, const ProjectState& state) {
    const std::array<const std::string*, 6> texts = {&well.H.text,  &well.Lw.text, &well.Le.text,
                                                     &well.dw.text, &well.dc.text, &well.dporText};
    for (std::size_t i = 0; i < texts.size(); ++i) {
        std::string_view now = TrimBlanks(state.WellGeoText[i]);
        // An empty porosity is taken as "0".
        if (i == GeoDpor && now.empty())
            now = "0";
        if (now != *texts[i])
            return false;
    }
    return well.verticalUnit == state.WellGeoVertUnitsDDL &&
           well.radialUnit == state.WellGeoRadUnitsDDL;
}

/// What the readings are. Changes in head need neither a slug test type nor a reading from before.
bool AreSameSettings(const RecoveryData& recovery, const ProjectState& state) {
    if (recovery.dataType != state.RecDatDataTypeDDL ||
        recovery.timeUnit != state.RecDatTimeUnitsDDL ||
        recovery.levelUnit != state.RecDatWaterLevelUnitsDDL)
        return false;
    return recovery.dataType == ChangeInHead ||
           (recovery.slugTestType == state.RecDatSlugTestTypeDDL &&
            recovery.preSlugText == TrimBlanks(state.RecDatPreSlugHeadText));
}

/// Whether two lists of points stand for the same readings.
bool AreSamePoints(const RecoveryPointList& points, const RecoveryPointList& others) {
    return std::equal(points.begin(), points.end(), others.begin(), others.end(),
                      [](const RecoveryPoint& a, const RecoveryPoint& b) {
                          return a.timeText.View() == b.timeText.View() &&
                                 a.levelText.View() == b.levelText.View();
                      });
}

/// Blank rows are no readings.
bool AreSameReadings(const RecoveryPointList& points, const ProjectState& state) {
    std::size_t k = 0;
    for (const RecoveryRow& row : state.RecDatGrid) {
        const std::string_view time = TrimBlanks(row.time);
        const std::string_view level = TrimBlanks(row.level);
        if (time.empty() && level.empty())
            continue;
        if (k == points.size() || time != points[k].timeText.View() ||
            level != points[k].levelText.View())
            return false;
        ++k;
    }
    return k == points.size();
}

/// The list holds the marks while no points are prepared; points whose Y is not above 0 say
/// "Ignore" whatever it holds.
bool AreRememberedMarks(const Computation& computation, const ProjectState& state) {
    const RecoveryPointList& points = *computation.recovery.RecoveryPoints;
    const std::vector<Mark> marks = RestoredMarks(state.IgnoreKeyList, points);
    for (std::size_t k = 0; k < points.size(); ++k)
        if (marks[k] != computation.marks[k] && points[k].yCm > 0)
            return false;
    return true;
}

bool AreSameMarks(const Computation& computation, const ProjectState& state,
                  const WorkingValues& working) {
    const RecoveryPointList& points = *computation.recovery.RecoveryPoints;
    // Marks prepared for other readings, since put back, say nothing about these.
    if (working.marks.size() != points.size() ||
        !AreSamePoints(points, *working.recovery.RecoveryPoints))
        return AreRememberedMarks(computation, state);
    for (std::size_t k = 0; k < points.size(); ++k)
        if (working.marks[k] != computation.marks[k] && points[k].y > 0 && points[k].yCm > 0)
            return false;
    return true;
}

} // namespace

bool AreSameReadings(const Computation& computation, const ProjectState& state) {
    return AreSameReadings(*computation.recovery.RecoveryPoints, state);
}

bool IsCurrent(const Computation& computation, const ProjectState& state,
               const WorkingValues& working) {
    return IsSameWell(computation.geometry, state) &&
           AreSameSettings(computation.recovery, state) && AreSameReadings(computation, state) &&
           AreSameMarks(computation, state, working);
}

double FittedY(const Computation& computation, std::size_t point) {
    const double levelUnitPerCm = 1 / UnitFactorToCm(computation.recovery.levelUnit);
    return FittedYCm(computation.line, (*computation.recovery.RecoveryPoints)[point].timeSec) *
           levelUnitPerCm;
}

std::string FittedYText(const Computation& computation, std::size_t point) {
    return ThreeFigureText(FittedY(computation, point));
}

} // namespace quarnel
