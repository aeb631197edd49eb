#pragma once

#include "project/GlobalDeclar.h"

#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

inline constexpr std::string_view UseMark = "Use";
inline constexpr std::string_view IgnoreMark = "Ignore";

/// The key by which a point's mark is remembered: its time text joined directly to its reading
/// text, trimmed. Different points can share a key ("1" with "59.41", "15" with "9.41").
std::string IgnoreKey(const RecoveryPoint& point);

/// What a criterion says, without regard to case and surrounding blanks.
bool IsUse(std::string_view criterion);
bool IsIgnore(std::string_view criterion);

/// Writes "Use" for every point, then "Ignore" for the first point of each key of the list. A key
/// that matches no point stays in the list until the next gathering.
void RestoreMarks(const ProjectState& state, ComputedValues& computed);

/// What a key does to marks: turn over (space), Use ("U"), Ignore ("I").
enum class MarkKey { TurnOver, Use, Ignore };

/// Applies a key to the marks of points first..last (counted from 0, both included, cut to the
/// points there are) and carries each change into the ignore-key list at once: "Ignore" appends the
/// point's key, "Use" removes one such key.
void ChangeMarks(ProjectState& state, ComputedValues& computed, std::size_t first, std::size_t last,
                 MarkKey key);

} // namespace quarnel
