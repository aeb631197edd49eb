#include "compare/CompareStatistics.h"

#include "compare/Labels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <unordered_map>
#include <unordered_set>

namespace quarnel {

namespace {

template <std::size_t N>
std::optional<int> PositionOf(const std::array<std::string_view, N>& names, std::string_view name) {
    const auto* const found = std::find(names.begin(), names.end(), name);
    return found != names.end() ? std::optional<int>(static_cast<int>(found - names.begin()))
                                : std::nullopt;
}

bool HasOwnUnit(const CompareRow& row) {
    return UnitFactorToCm(row.kLengthUnit) > 0 && UnitFactorToSec(row.kTimeUnit) > 0;
}

CompareUnit CommonUnit(std::span<const CompareRow> rows, const CompareSettings& settings) {
    if (settings.unit)
        return *settings.unit;
    for (const CompareRow& row : rows)
        if (row.kCmPerSec && HasOwnUnit(row))
            return {row.kLengthUnit, row.kTimeUnit};
    return UnitOfNewProject;
}

std::string_view WellOf(const CompareRow& row) {
    return row.wellLabel.empty() ? NoWellLabel : std::string_view(row.wellLabel);
}

std::string GroupName(const CompareRow& row, Grouping grouping) {
    if (grouping == Grouping::None)
        return std::string(AllTests);
    std::string name;
    if (grouping == Grouping::Site) {
        name = row.siteName.empty() ? NoSiteName : std::string_view(row.siteName);
        name += SiteGap;
    }
    return name += WellOf(row);
}

/// What the rows of one group share.
std::string GroupKey(const CompareRow& row, Grouping grouping) {
    if (grouping == Grouping::None)
        return {};
    std::string key = FoldedCase(row.wellLabel);
    if (grouping == Grouping::Site)
        key += '\n' + FoldedCase(row.siteName);
    return key;
}

/// Puts the rows side by side, one after the other.
class Comparer {
public:
    Comparer(std::span<const CompareRow> rows, const CompareSettings& settings)
        : rows_(rows) {
        comparison_.unit = CommonUnit(rows, settings);
        comparison_.grouping = settings.grouping;
        comparison_.rows.reserve(rows.size());
    }

    Comparison Take();

private:
    void Add(std::size_t index);
    std::size_t GroupOf(const CompareRow& row);
    void Judge(const CompareRow& row, bool isRepeated, ComparedRow& compared) const;
    void Finish(CompareGroup& group);
    std::vector<double> CountedK(const std::vector<std::size_t>& counted) const;

    std::span<const CompareRow> rows_;
    Comparison comparison_;
    std::unordered_map<std::string, std::size_t> groupsByKey_;
    std::unordered_set<std::string_view> filesAbove_;
};

std::size_t Comparer::GroupOf(const CompareRow& row) {
    const Grouping grouping = comparison_.grouping;
    const auto [found, isNew] =
        groupsByKey_.try_emplace(GroupKey(row, grouping), comparison_.groups.size());
    if (isNew) {
        CompareGroup& group = comparison_.groups.emplace_back();
        group.name = GroupName(row, grouping);
        group.isOneWell = grouping != Grouping::None && !row.wellLabel.empty();
    }
    return found->second;
}

void Comparer::Judge(const CompareRow& row, bool isRepeated, ComparedRow& compared) const {
    if (row.kCmPerSec)
        compared.k = KInUnit(*row.kCmPerSec, comparison_.unit);
    compared.reason = row.isRead ? row.failure : std::string(NotReadReason) + row.failure;
    if (isRepeated) {
        compared.status = CompareStatus::NotCounted;
        compared.reason = StandsAboveReason;
    } else if (!compared.k) {
        compared.status = CompareStatus::Failed;
    } else if (*compared.k > 0 && std::isfinite(*compared.k)) {
        compared.status = CompareStatus::Counted;
    } else {
        compared.status = CompareStatus::NotCounted;
        compared.reason = NotAboveZeroReason;
    }
}

void Comparer::Add(std::size_t index) {
    const CompareRow& row = rows_[index];
    ComparedRow& compared = comparison_.rows.emplace_back();
    const bool isRepeated = row.isRepeated || (!row.resolvedFile.empty() &&
                                               !filesAbove_.insert(row.resolvedFile).second);
    Judge(row, isRepeated, compared);
    if (!row.isRead)
        return;
    compared.group = GroupOf(row);
    if (isRepeated)
        return;
    CompareGroup& group = comparison_.groups[*compared.group];
    group.tests.push_back(index);
    if (compared.status == CompareStatus::Counted)
        group.counted.push_back(index);
}

std::vector<double> Comparer::CountedK(const std::vector<std::size_t>& counted) const {
    std::vector<double> k;
    k.reserve(counted.size());
    for (const std::size_t index : counted)
        k.push_back(*comparison_.rows[index].k);
    return k;
}

void Comparer::Finish(CompareGroup& group) {
    group.statistics = ComputeKStatistics(CountedK(group.counted));
    comparison_.testCount += group.tests.size();
    comparison_.countedCount += group.counted.size();
    if (!group.isOneWell)
        return;
    std::vector<RepeatTest> tests;
    tests.reserve(group.counted.size());
    for (const std::size_t index : group.counted)
        tests.push_back({rows_[index].firstYCm.value_or(0), *comparison_.rows[index].k});
    group.repeats = ComputeRepeatTests(tests);
}

Comparison Comparer::Take() {
    for (std::size_t index = 0; index < rows_.size(); ++index)
        Add(index);
    for (CompareGroup& group : comparison_.groups)
        Finish(group);
    std::vector<std::size_t> counted;
    for (std::size_t index = 0; index < rows_.size(); ++index)
        if (comparison_.rows[index].status == CompareStatus::Counted)
            counted.push_back(index);
    comparison_.all = ComputeKStatistics(CountedK(counted));
    return std::move(comparison_);
}

} // namespace

std::optional<int> LengthUnitNamed(std::string_view name) {
    return PositionOf(LengthUnitNames, name);
}

std::optional<int> TimeUnitNamed(std::string_view name) {
    return PositionOf(TimeUnitNames, name);
}

std::optional<CompareUnit> CompareUnitNamed(std::string_view name) {
    const std::size_t slash = name.find('/');
    if (slash == std::string_view::npos)
        return std::nullopt;
    const std::optional<int> length = LengthUnitNamed(name.substr(0, slash));
    const std::optional<int> time = TimeUnitNamed(name.substr(slash + 1));
    return length && time ? std::optional<CompareUnit>({*length, *time}) : std::nullopt;
}

std::string NameOf(const CompareUnit& unit) {
    return std::string(NameAt(LengthUnitNames, unit.length)) + "/" +
           std::string(NameAt(TimeUnitNames, unit.time));
}

double KInUnit(double kCmPerSec, const CompareUnit& unit) {
    // In the order in which the display of K multiplies, so that both show the same.
    const double lengthFactor = 1 / UnitFactorToCm(unit.length);
    return UnitFactorToSec(unit.time) * kCmPerSec * lengthFactor;
}

std::optional<KStatistics> ComputeKStatistics(std::span<const double> k) {
    if (k.empty())
        return std::nullopt;
    KStatistics statistics;
    statistics.n = k.size();
    const auto n = static_cast<double>(k.size());
    double sum = 0;
    double sumOfLn = 0;
    for (const double each : k) {
        sum += each;
        sumOfLn += std::log(each);
    }
    const double meanLn = sumOfLn / n;
    statistics.geometricMean = std::exp(meanLn);
    statistics.arithmeticMean = sum / n;
    const auto [minimum, maximum] = std::ranges::minmax(k);
    statistics.minimum = minimum;
    statistics.maximum = maximum;
    statistics.maximumOverMinimum = maximum / minimum;
    if (k.size() == 1)
        return statistics;
    double squares = 0;
    for (const double each : k) {
        const double deviation = std::log(each) - meanLn;
        squares += deviation * deviation;
    }
    statistics.sdLog10 = std::sqrt(squares / (n - 1)) / std::numbers::ln10;
    return statistics;
}

Comparison CompareRows(std::span<const CompareRow> rows, const CompareSettings& settings) {
    return Comparer(rows, settings).Take();
}

} // namespace quarnel
