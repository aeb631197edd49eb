#include "kcompute/UseIgnore.h"

#include "project/Texts.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace quarnel {

namespace {

bool EqualsWord(std::string_view criterion, std::string_view upperCaseWord) {
    const std::string_view trimmed = TrimBlanks(criterion);
    return trimmed.size() == upperCaseWord.size() && ContainsIgnoringCase(trimmed, upperCaseWord);
}

/// Drops, for each key, as many entries as `removals` counts, the first ones of the list.
void RemoveKeys(std::vector<std::string>& keys, std::unordered_map<std::string, int>& removals) {
    std::erase_if(keys, [&removals](const std::string& key) {
        const auto found = removals.find(std::string(TrimBlanks(key)));
        if (found == removals.end() || found->second == 0)
            return false;
        --found->second;
        return true;
    });
}

} // namespace

std::string IgnoreKey(const RecoveryPoint& point) {
    std::string key(point.timeText.View());
    key += point.levelText.View();
    return std::string(TrimBlanks(key));
}

bool IsUse(std::string_view criterion) {
    return criterion == UseMark || EqualsWord(criterion, "USE");
}

bool IsIgnore(std::string_view criterion) {
    return criterion == IgnoreMark || EqualsWord(criterion, "IGNORE");
}

void RestoreMarks(const ProjectState& state, ComputedValues& computed) {
    const RecoveryPointList& points = *computed.RecoveryPoints;
    computed.Criteria.assign(points.size(), CellText(UseMark));
    std::unordered_set<std::string_view> keys;
    for (const std::string& key : state.IgnoreKeyList)
        keys.insert(TrimBlanks(key));
    for (std::size_t k = 0; k < points.size() && !keys.empty(); ++k)
        if (keys.erase(IgnoreKey(points[k])) > 0)
            computed.Criteria[k] = CellText(IgnoreMark);
}

void ChangeMarks(ProjectState& state, ComputedValues& computed, std::size_t first, std::size_t last,
                 MarkKey key) {
    std::unordered_map<std::string, int> removals;
    std::vector<std::string> additions;
    for (std::size_t k = first; k <= last && k < computed.Criteria.size(); ++k) {
        CellText& mark = computed.Criteria[k];
        const bool wasIgnored = IsIgnore(mark);
        const bool ignore = key == MarkKey::Ignore || (key == MarkKey::TurnOver && IsUse(mark));
        mark = CellText(ignore ? IgnoreMark : UseMark);
        if (ignore == wasIgnored)
            continue;
        std::string pointKey = IgnoreKey((*computed.RecoveryPoints)[k]);
        if (ignore)
            additions.push_back(std::move(pointKey));
        else
            ++removals[pointKey];
    }
    if (!removals.empty())
        RemoveKeys(state.IgnoreKeyList, removals);
    state.IgnoreKeyList.insert(state.IgnoreKeyList.end(),
                               std::make_move_iterator(additions.begin()),
                               std::make_move_iterator(additions.end()));
}

} // namespace quarnel
