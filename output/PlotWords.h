#pragma once

#include "kcompute/Computation.h"
#include "kcompute/UseIgnore.h"
#include "recovery/RecoveryData.h"

#include <cstddef>
#include <string>

namespace quarnel {

/// A point (counted from 0) in words: "12: 4.0 sec, 0.608 m, Ignore". Row number, time as typed, Y
/// as the grids show it, in the units of `recovery`, and the mark it has.
std::string PointInWords(const RecoveryData& recovery, std::size_t point, Mark mark);

/// The plot of a computation in words, for who cannot see it: how many points there are and how
/// many of them were used, `k` (K with its unit; nothing is said where that is empty), and what
/// the axes span.
std::string PlotInWords(const Computation& computation, const std::string& k);

} // namespace quarnel
