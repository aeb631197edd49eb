#include "output/PlotWords.h"

#include "kcompute/NumberToText.h"
#include "project/FixedLists.h"
#include "project/Texts.h"
#include "recovery/RecoveryDa.h"

namespace quarnel {

namespace {

std::string TimeUnitOf(const RecoveryData& recovery) {
    return std::string(NameAt(TimeUnitNames, recovery.timeUnit));
}

std::string LevelUnitOf(const RecoveryData& recovery) {
    return std::string(NameAt(LengthUnitNames, recovery.levelUnit));
}

} // namespace

std::string PointInWords(const RecoveryData& recovery, std::size_t point, Mark mark) {
    const RecoveryPoint& told = (*recovery.RecoveryPoints)[point];
    return std::to_string(point + 1) + ": " + told.timeText.ToString() + " " +
           TimeUnitOf(recovery) + ", " + std::string(TrimBlanks(YText(told))) + " " +
           LevelUnitOf(recovery) + ", " + std::string(MarkText(mark));
}

std::string PlotInWords(const Computation& computation, const std::string& k) {
    const RecoveryData& recovery = computation.recovery;
    const PlotBounds& bounds = recovery.bounds;
    std::string words = std::to_string(recovery.RecoveryPoints->size()) + " points, " +
                        std::to_string(computation.usedCount) + " used in the fit. ";
    if (!k.empty())
        words += "Hydraulic conductivity " + k + ". ";
    return words + "Time from 0 to " +
           NumberToText(TwoDecimals, static_cast<float>(bounds.PlotMaxTime)) + " " +
           TimeUnitOf(recovery) + ", Y from " + DoubleToText(bounds.PlotYAxisMin) + " to " +
           DoubleToText(bounds.PlotYAxisMax) + " " + LevelUnitOf(recovery) + ".";
}

} // namespace quarnel
