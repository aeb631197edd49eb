#include "project/FixedLists.h"

namespace quarnel {

namespace {

constexpr std::array<double, 4> CmPerLengthUnit = {2.54, 30.48, 1.0, 100.0};
constexpr std::array<double, 4> SecPerTimeUnit = {1.0, 60.0, 3600.0, 86400.0};

double FactorAt(const std::array<double, 4>& factors, int position) {
    return position >= 0 && position < 4 ? factors[static_cast<std::size_t>(position)] : 0.0;
}

} // namespace

double UnitFactorToCm(int lengthUnit) {
    return FactorAt(CmPerLengthUnit, lengthUnit);
}

double UnitFactorToSec(int timeUnit) {
    return FactorAt(SecPerTimeUnit, timeUnit);
}

} // namespace quarnel
