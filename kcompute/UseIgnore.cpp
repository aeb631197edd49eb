#include "kcompute/UseIgnore.h"

#include "project/Texts.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace quarnel {

namespace {

/// How many entries a key may keep in the list.
using KeyCounts = std::unordered_map<std::string, std::size_t>;

/// For each key of `keys` the number of points that still say "Ignore".
void CountIgnored(const RecoveryPointList& points, const std::vector<Mark>& marks,
                  KeyCounts& keys) {
    for (std::size_t k = 0; k < marks.size(); ++k) {
        if (marks[k] != Mark::Ignore)
            continue;
        if (const auto found = keys.find(IgnoreKey(points[k])); found != keys.end())
            ++found->second;
    }
}

/// Keeps, of each key that is counted, the first so many entries; other keys stay.
void KeepCounted(std::vector<std::string>& ignoreKeys, KeyCounts& counts) {
    std::erase_if(ignoreKeys, [&counts](const std::string& key) {
        const auto found = counts.find(std::string(TrimBlanks(key)));
        if (found == counts.end())
            return false;
        if (found->second == 0)
            return true;
        --found->second;
        return false;
    });
}

} // namespace

std::string_view MarkText(Mark mark) {
    return mark == Mark::Use ? "Use" : "Ignore";
}

std::string IgnoreKey(const RecoveryPoint& point) {
    std::string key(point.timeText.View());
    key += point.levelText.View();
    return std::string(TrimBlanks(key));
}

bool AreSameReadings(const RecoveryPointList& a, const RecoveryPointList& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const RecoveryPoint& x, const RecoveryPoint& y) {
                          return x.timeText.View() == y.timeText.View() &&
                                 x.levelText.View() == y.levelText.View();
                      });
}

std::vector<Mark> RestoredMarks(const std::vector<std::string>& ignoreKeys,
                                const RecoveryPointList& points) {
    std::vector<Mark> marks(points.size(), Mark::Use);
    std::unordered_set<std::string_view> keys;
    for (const std::string& key : ignoreKeys)
        keys.insert(TrimBlanks(key));
    for (std::size_t k = 0; k < points.size() && !keys.empty(); ++k)
        if (keys.erase(IgnoreKey(points[k])) > 0)
            marks[k] = Mark::Ignore;
    return marks;
}

Mark MarkAfter(MarkKey key, Mark before) {
    if (key == MarkKey::TurnOver)
        return before == Mark::Use ? Mark::Ignore : Mark::Use;
    return key == MarkKey::Use ? Mark::Use : Mark::Ignore;
}

void SetMarks(std::vector<std::string>& ignoreKeys, const RecoveryPointList& points,
              std::vector<Mark>& marks, std::size_t first, std::span<const Mark> newMarks) {
    KeyCounts usedAgain;
    for (std::size_t i = 0; i < newMarks.size(); ++i) {
        Mark& mark = marks[first + i];
        if (mark == newMarks[i])
            continue;
        mark = newMarks[i];
        if (mark == Mark::Ignore)
            ignoreKeys.push_back(IgnoreKey(points[first + i]));
        else
            usedAgain.emplace(IgnoreKey(points[first + i]), 0);
    }
    if (usedAgain.empty())
        return;
    CountIgnored(points, marks, usedAgain);
    KeepCounted(ignoreKeys, usedAgain);
}

} // namespace quarnel
