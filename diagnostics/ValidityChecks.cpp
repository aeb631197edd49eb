#include "diagnostics/ValidityChecks.h"

#include "kcompute/KComputations.h"
#include "wellgeometry/WellGeometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>

namespace quarnel {

namespace {

constexpr double LeRwLowest = 3.8;
constexpr double LeRwHighest = 2000;
constexpr double LeRwSteepBelow = 8;
constexpr double GreatestScreenPart = 0.1;
constexpr double GreatestWettedPart = 0.2;
constexpr double FewestSteps = 20;
constexpr double SwingPart = 0.05;
constexpr std::size_t FewestSwings = 3;
constexpr double ShortPart = 0.3;
constexpr double ShortSeconds = 10;
constexpr std::size_t ShortCount = 10;
constexpr double UpwardRatio = 1.25;
constexpr double DownwardRatio = 0.8;
constexpr std::size_t FewestOfWindow = 3;
constexpr double TailPart = 0.05;
constexpr std::size_t LastReadings = 3;
constexpr std::size_t FewUsed = 5;
constexpr double UsualPorosityPercent = 30;

constexpr std::array<std::string_view, 19> CheckNames = {
    "LE_RW_END",      "LE_RW_LOW",    "LN_CAP",     "NEAR_FULL",   "ACCURACY",
    "DPOR_SUBMERGED", "DPOR_MISSING", "H0_SCREEN",  "H0_WETTED",   "H0_STEPS",
    "OSCILLATION",    "SHORT",        "CURVED_UP",  "CURVED_DOWN", "NOT_RECOVERED",
    "TAIL",           "TIME_ORDER",   "TIME_EQUAL", "FEW_POINTS"};

/// Goes through the checks of one computation in their order.
class Checker {
public:
    Checker(const Computation& computation, const TestSeries& series)
        : computation_(computation)
        , well_(computation.geometry)
        , points_(*computation.recovery.RecoveryPoints)
        , series_(series) {}

    void CheckWell();
    void CheckPorosity();
    void CheckFirstChange(std::optional<double> readingStepCm);
    void CheckSwing();
    void CheckDuration();
    void CheckCurvature(const CurvatureWindows& windows);
    void CheckEnd(const std::vector<SensitivityEntry>& staticLevel);
    void CheckTimes();
    std::vector<CheckFinding> Take() { return std::move(findings_); }

private:
    CheckFinding& Add(CheckId id, CheckLevel level, double value) {
        CheckFinding& finding = findings_.emplace_back();
        finding.id = id;
        finding.level = level;
        finding.value = value;
        return finding;
    }
    void NameK(CheckFinding& finding, std::optional<double> k) const {
        finding.kCmPerSec = k;
        finding.changePercent = ChangePercent(computation_, k);
    }
    void CheckTail(const std::vector<SensitivityEntry>& staticLevel);

    const Computation& computation_;
    const WellDimensions& well_;
    const RecoveryPointList& points_;
    const TestSeries& series_;
    std::vector<CheckFinding> findings_;
};

void Checker::CheckWell() {
    const double leOverRw = computation_.coefficients.leOverRw;
    if (IsLeRwAtEnd(leOverRw))
        Add(CheckId::LeRwEnd, CheckLevel::Caution, leOverRw);
    if (IsLeRwLow(leOverRw))
        Add(CheckId::LeRwLow, CheckLevel::Note, leOverRw);
    if (LnCapApplies(well_))
        NameK(Add(CheckId::LnCap, CheckLevel::Caution, LnBelowWell(well_)),
              KWithLnCap(computation_));
    const double hMinusLwCm = well_.H.cm - well_.Lw.cm;
    if (IsNearFull(hMinusLwCm, well_.dw.radiusCm))
        NameK(Add(CheckId::NearFull, CheckLevel::Caution, hMinusLwCm),
              KAsFullyPenetrating(computation_));
    Add(CheckId::Accuracy, CheckLevel::Note, well_.Le.cm / well_.Lw.cm);
}

void Checker::CheckPorosity() {
    const double percent = well_.n * 100;
    const bool below = static_cast<float>(well_.Le.value) < static_cast<float>(well_.Lw.value);
    if (percent > 0 && below)
        NameK(Add(CheckId::DporSubmerged, CheckLevel::Caution, percent),
              KWithPorosity(computation_, 0));
    if (percent == 0 && IsScreenAtWaterTable(well_) && well_.dw.value > well_.dc.value)
        NameK(Add(CheckId::DporMissing, CheckLevel::Note, percent),
              KWithPorosity(computation_, UsualPorosityPercent));
}

void Checker::CheckFirstChange(std::optional<double> readingStepCm) {
    const double h0 = series_.FirstYCm();
    const double part = h0 / well_.Le.cm;
    if (IsLargeAgainstScreen(h0, well_.Le.cm))
        Add(CheckId::H0Screen, CheckLevel::Note, part);
    if (IsScreenAtWaterTable(well_) && ChangesWettedLength(h0, well_.Le.cm))
        Add(CheckId::H0Wetted, CheckLevel::Caution, part);
    if (readingStepCm && IsFewSteps(h0, *readingStepCm))
        Add(CheckId::H0Steps, CheckLevel::Caution, h0 / *readingStepCm);
}

void Checker::CheckSwing() {
    if (series_.ValidPoints().size() == points_.size())
        return; // nothing lies below the static level
    std::vector<double> y;
    y.reserve(points_.size());
    for (const std::size_t i : series_.Order())
        y.push_back(points_[i].y);
    if (!IsOscillating(y, series_.FirstY()))
        return;
    const auto first = std::find_if(y.begin(), y.end(), [](double value) { return value > 0; });
    Add(CheckId::Oscillation, CheckLevel::Caution,
        *std::min_element(first, y.end()) / series_.FirstY());
}

void Checker::CheckDuration() {
    const std::vector<std::size_t>& valid = series_.ValidPoints();
    const auto reached = std::find_if(valid.begin(), valid.end(), [&](std::size_t i) {
        return points_[i].y <= ShortPart * series_.FirstY();
    });
    if (reached == valid.end())
        return;
    const double seconds = points_[*reached].timeSec - points_[valid.front()].timeSec;
    const auto count = static_cast<std::size_t>(reached - valid.begin()) + 1;
    if (IsShort(seconds, count))
        Add(CheckId::Short, CheckLevel::Note, seconds).count = count;
}

void Checker::CheckCurvature(const CurvatureWindows& windows) {
    const auto& [early, late] = windows;
    if (early.pointCount < FewestOfWindow || late.pointCount < FewestOfWindow)
        return;
    if (!(early.kCmPerSec.value_or(0) > 0) || !(late.kCmPerSec.value_or(0) > 0))
        return;
    const double ratio = *early.kCmPerSec / *late.kCmPerSec;
    if (IsCurvedUp(ratio))
        Add(CheckId::CurvedUp, CheckLevel::Caution, ratio);
    if (IsCurvedDown(ratio))
        Add(CheckId::CurvedDown, CheckLevel::Caution, ratio);
}

void Checker::CheckEnd(const std::vector<SensitivityEntry>& staticLevel) {
    const std::vector<std::size_t>& order = series_.Order();
    if (order.size() >= LastReadings) {
        double least = points_[order.back()].y;
        for (auto i = order.end() - static_cast<std::ptrdiff_t>(LastReadings); i != order.end();
             ++i)
            least = std::min(least, points_[*i].y);
        if (least > TailPart * series_.FirstY())
            Add(CheckId::NotRecovered, CheckLevel::Note, least / series_.FirstY());
    }
    CheckTail(staticLevel);
}

void Checker::CheckTail(const std::vector<SensitivityEntry>& staticLevel) {
    const std::vector<double>& y = series_.UsedY();
    const auto count = std::count_if(
        y.begin(), y.end(), [&](double value) { return IsInTail(value, series_.FirstY()); });
    if (count == 0)
        return;
    CheckFinding& finding = Add(CheckId::Tail, CheckLevel::Caution, static_cast<double>(count));
    finding.count = static_cast<std::size_t>(count);
    for (const SensitivityEntry& entry : staticLevel)
        if (entry.changePercent)
            finding.changePercent =
                std::max(finding.changePercent.value_or(0), std::fabs(*entry.changePercent));
}

/// How many times stand there more than once, each of them counted; in order.
std::size_t CountOfShared(std::span<const double> times) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < times.size(); ++i) {
        const bool likeLast = i > 0 && times[i - 1] == times[i];
        const bool likeNext = i + 1 < times.size() && times[i + 1] == times[i];
        if (likeLast || likeNext)
            ++count;
    }
    return count;
}

void Checker::CheckTimes() {
    const auto falls = std::adjacent_find(
        points_.begin(), points_.end(),
        [](const RecoveryPoint& a, const RecoveryPoint& b) { return b.timeSec < a.timeSec; });
    if (falls != points_.end())
        Add(CheckId::TimeOrder, CheckLevel::Note, static_cast<double>(falls - points_.begin()) + 2);
    if (const std::size_t shared = CountOfShared(series_.Used().timeSec); shared > 0)
        Add(CheckId::TimeEqual, CheckLevel::Note, static_cast<double>(shared)).count = shared;
    const std::size_t used = series_.UsedPoints().size();
    if (IsFewPoints(used))
        Add(CheckId::FewPoints, CheckLevel::Note, static_cast<double>(used)).count = used;
}

} // namespace

std::string_view CheckName(CheckId id) {
    return CheckNames[static_cast<std::size_t>(id)];
}

bool IsLeRwAtEnd(double leOverRw) {
    return leOverRw <= LeRwLowest || leOverRw >= LeRwHighest;
}

bool IsLeRwLow(double leOverRw) {
    return leOverRw > LeRwLowest && leOverRw < LeRwSteepBelow;
}

bool IsLnBeyondCap(double lnBelow) {
    return lnBelow > GreatestLnBelowWell;
}

bool IsNearFull(double hMinusLwCm, double rwCm) {
    return hMinusLwCm >= FullPenetrationCm && hMinusLwCm < rwCm;
}

bool IsLargeAgainstScreen(double firstYCm, double leCm) {
    return firstYCm > GreatestScreenPart * leCm;
}

bool ChangesWettedLength(double firstYCm, double leCm) {
    return firstYCm > GreatestWettedPart * leCm;
}

bool IsFewSteps(double firstYCm, double stepCm) {
    return firstYCm < FewestSteps * stepCm;
}

bool IsCurvedUp(double ratioOfK) {
    return ratioOfK > UpwardRatio;
}

bool IsCurvedDown(double ratioOfK) {
    return ratioOfK < DownwardRatio;
}

bool IsFewPoints(std::size_t usedCount) {
    return usedCount < FewUsed;
}

bool HasUsedTail(const TestSeries& series) {
    return std::ranges::any_of(series.UsedY(),
                               [&series](double y) { return IsInTail(y, series.FirstY()); });
}

bool IsInTail(double y, double firstY) {
    return y < TailPart * firstY;
}

bool IsShort(double seconds, std::size_t validCount) {
    return seconds < ShortSeconds && validCount < ShortCount;
}

bool IsOscillating(std::span<const double> y, double firstY) {
    std::size_t inARow = 0;
    bool begun = false;
    for (const double value : y) {
        begun = begun || value > 0;
        inARow = begun && value < -SwingPart * firstY ? inARow + 1 : 0;
        if (inARow >= FewestSwings)
            return true;
    }
    return false;
}

std::vector<CheckFinding> ComputeChecks(const Computation& computation, const TestSeries& series,
                                        const CurvatureWindows& windows,
                                        const std::vector<SensitivityEntry>& staticLevel,
                                        std::optional<double> readingStepCm) {
    Checker checker(computation, series);
    checker.CheckWell();
    checker.CheckPorosity();
    checker.CheckFirstChange(readingStepCm);
    checker.CheckSwing();
    checker.CheckDuration();
    checker.CheckCurvature(windows);
    checker.CheckEnd(staticLevel);
    checker.CheckTimes();
    return checker.Take();
}

} // namespace quarnel
