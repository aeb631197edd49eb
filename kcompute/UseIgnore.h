#pragma once

#include "recovery/RecoveryData.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

/// Whether a point enters the fit.
enum class Mark : std::uint8_t { Use, Ignore };

/// "Use" or "Ignore", as grids, reports and files of other programs show a mark.
std::string_view MarkText(Mark mark);

/// The key by which a point's mark is remembered: its time text joined directly to its reading
/// text, trimmed. Different points can share a key ("1" with "59.41", "15" with "9.41").
std::string IgnoreKey(const RecoveryPoint& point);

/// The mark of each point: "Ignore" for the first point of each key of the list, "Use" for all
/// others. A key that matches no point stays in the list until the next gathering.
std::vector<Mark> RestoredMarks(const std::vector<std::string>& ignoreKeys,
                                const RecoveryPointList& points);

/// What a key does to marks: turn over (space), Use ("U"), Ignore ("I").
enum class MarkKey { TurnOver, Use, Ignore };

/// Applies a key to the marks of points first..last (counted from 0, both included, cut to the
/// points there are) and carries each change into the list of ignore keys at once: "Ignore" appends
/// the point's key, "Use" leaves the key in the list once for each other point with that key that
/// still says "Ignore". So marks survive a look at another tab and a save before the next
/// computation.
void ChangeMarks(std::vector<std::string>& ignoreKeys, const RecoveryPointList& points,
                 std::vector<Mark>& marks, std::size_t first, std::size_t last, MarkKey key);

} // namespace quarnel
