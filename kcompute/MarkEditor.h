#pragma once

#include "kcompute/UseIgnore.h"
#include "kcompute/WorkingValues.h"
#include "project/ProjectState.h"
#include "recovery/RecoveryData.h"

#include <cstddef>
#include <vector>

namespace quarnel {

/// The points first..last, both included, counted from 0.
struct PointRun {
    std::size_t first = 0;
    std::size_t last = 0;
    friend bool operator==(const PointRun&, const PointRun&) = default;
};
/// Points as runs that rise and do not touch.
using PointRuns = std::vector<PointRun>;

/// Changes the marks of the prepared points, each command as one step that can be undone, and
/// carries every change into the ignore keys of the project at once. The steps hold as long as the
/// points are the same readings: a look at another tab keeps them, an edited reading ends them.
class MarkEditor {
public:
    MarkEditor(ProjectState& state, WorkingValues& working);

    /// Applies a key to the points of the runs (counted from 0, cut to the points there are), as
    /// one step.
    void Press(MarkKey key, const PointRuns& runs);
    /// "Use" for these points (rising, counted from 0), "Ignore" for all others.
    void UseOnly(const std::vector<std::size_t>& points);

    bool CanUndo() const { return !undo_.empty(); }
    bool CanRedo() const { return !redo_.empty(); }
    void Undo();
    void Redo();

    /// To be called when the points were made anew; forgets the steps if they are other readings.
    void PointsWereMade();

private:
    /// What one command changed.
    struct Step {
        PointRuns toUse;
        PointRuns toIgnore;
    };

    /// Takes over marks of points `first` on; one step of the history unless nothing changes.
    void Take(std::size_t first, const std::vector<Mark>& marks);
    /// Gives the points of a step other marks, all at once.
    void Set(const PointRuns& toUse, const PointRuns& toIgnore);

    ProjectState& state_;
    WorkingValues& working_;
    SharedPoints points_; ///< that the steps were made on
    std::vector<Step> undo_;
    std::vector<Step> redo_;
};

} // namespace quarnel
