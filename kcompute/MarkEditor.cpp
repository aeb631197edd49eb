#include "kcompute/MarkEditor.h"

#include "recovery/RecoveryData.h"

#include <algorithm>
#include <utility>

namespace quarnel {

MarkEditor::MarkEditor(ProjectState& state, WorkingValues& working)
    : state_(state)
    , working_(working) {}

void MarkEditor::Press(MarkKey key, const PointRuns& runs) {
    const std::vector<Mark>& marks = working_.marks;
    if (runs.empty() || runs.front().first >= marks.size())
        return;
    const std::size_t first = runs.front().first;
    const std::size_t end = std::min(runs.back().last + 1, marks.size());
    std::vector<Mark> pressed(marks.begin() + static_cast<std::ptrdiff_t>(first),
                              marks.begin() + static_cast<std::ptrdiff_t>(end));
    for (const PointRun& run : runs)
        for (std::size_t k = run.first; k <= run.last && k < end; ++k)
            pressed[k - first] = MarkAfter(key, pressed[k - first]);
    Take(first, pressed);
}

void MarkEditor::UseOnly(const std::vector<std::size_t>& points) {
    std::vector<Mark> marks(working_.marks.size(), Mark::Ignore);
    for (const std::size_t point : points)
        if (point < marks.size())
            marks[point] = Mark::Use;
    Take(0, marks);
}

void MarkEditor::Take(std::size_t first, const std::vector<Mark>& marks) {
    Step step;
    for (std::size_t i = 0; i < marks.size(); ++i) {
        const std::size_t k = first + i;
        if (marks[i] == working_.marks[k])
            continue;
        PointRuns& runs = marks[i] == Mark::Use ? step.toUse : step.toIgnore;
        if (!runs.empty() && runs.back().last + 1 == k)
            runs.back().last = k;
        else
            runs.push_back({k, k});
    }
    if (step.toUse.empty() && step.toIgnore.empty())
        return;
    SetMarks(state_.IgnoreKeyList, *working_.recovery.RecoveryPoints, working_.marks, first, marks);
    points_ = working_.recovery.RecoveryPoints;
    undo_.push_back(std::move(step));
    redo_.clear();
}

void MarkEditor::Set(const PointRuns& toUse, const PointRuns& toIgnore) {
    std::vector<Mark> marks = working_.marks;
    for (const auto& [runs, mark] :
         {std::pair(&toUse, Mark::Use), std::pair(&toIgnore, Mark::Ignore)})
        for (const PointRun& run : *runs)
            std::fill(marks.begin() + static_cast<std::ptrdiff_t>(run.first),
                      marks.begin() + static_cast<std::ptrdiff_t>(run.last) + 1, mark);
    SetMarks(state_.IgnoreKeyList, *working_.recovery.RecoveryPoints, working_.marks, 0, marks);
}

void MarkEditor::Undo() {
    if (undo_.empty())
        return;
    Set(undo_.back().toIgnore, undo_.back().toUse);
    redo_.push_back(std::move(undo_.back()));
    undo_.pop_back();
}

void MarkEditor::Redo() {
    if (redo_.empty())
        return;
    Set(redo_.back().toUse, redo_.back().toIgnore);
    undo_.push_back(std::move(redo_.back()));
    redo_.pop_back();
}

void MarkEditor::PointsWereMade() {
    const SharedPoints& now = working_.recovery.RecoveryPoints;
    if (working_.marks.size() == now->size() && AreSameReadings(*points_, *now)) {
        points_ = now;
        return;
    }
    undo_.clear();
    redo_.clear();
    points_ = SharedPoints();
}

} // namespace quarnel
