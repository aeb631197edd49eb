#pragma once

#include "recovery/RecoveryData.h"

#include <cstddef>
#include <cstdint>
#include <span>
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

/// Whether both lists hold the same readings, as typed and in the same order.
bool AreSameReadings(const RecoveryPointList& a, const RecoveryPointList& b);

/// The mark of each point: "Ignore" for the first point of each key of the list, "Use" for all
/// others. A key that matches no point stays in the list until the next gathering.
std::vector<Mark> RestoredMarks(const std::vector<std::string>& ignoreKeys,
                                const RecoveryPointList& points);

/// What a key does to marks: turn over (space), Use ("U"), Ignore ("I").
enum class MarkKey { TurnOver, Use, Ignore };

/// The mark that a key gives to a point with the mark `before`.
Mark MarkAfter(MarkKey key, Mark before);

/// Gives the points from `first` on (counted from 0) new marks and carries each change into the
/// list of ignore keys at once: "Ignore" appends the point's key, "Use" leaves the key in the list
/// once for each other point with that key that still says "Ignore". So marks survive a look at
/// another tab and a save before the next computation.
void SetMarks(std::vector<std::string>& ignoreKeys, const RecoveryPointList& points,
              std::vector<Mark>& marks, std::size_t first, std::span<const Mark> newMarks);

} // namespace quarnel
