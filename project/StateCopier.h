#pragma once

#include "project/ProjectState.h"

#include <cstddef>
#include <string>
#include <vector>

namespace quarnel {

/// All that is small enough to be compared and copied at once, whoever waits for it: the typed
/// texts, the choices and the picture; neither the readings nor the marks.
ProjectState WithoutReadings(const ProjectState& state);
/// Whether two projects have the same of it.
bool HaveSameTexts(const ProjectState& a, const ProjectState& b);
/// Gives `state` the texts, choices and picture of `texts`.
void TakeTexts(const ProjectState& texts, ProjectState& state);

/// A copy of a project in the pieces that it was made of.
struct CopiedState {
    ProjectState texts; ///< without its readings and marks
    std::vector<std::vector<RecoveryRow>> rows;
    std::vector<std::vector<std::string>> keys;

    /// Puts the pieces together; nothing is left in them.
    ProjectState Join();
};

/// Copies a project piece by piece: a million readings take longer than a person at the keyboard
/// is to wait for, a piece of them does not. All of it throws std::bad_alloc where memory is short;
/// the copy is to be started again then.
class StateCopier {
public:
    /// A copy begins, or begins again since the readings or marks have changed. The pieces that
    /// stand are written over.
    void Start(const ProjectState& state);
    bool IsCopying() const { return isCopying_; }
    /// Copies one piece of `state`, whose readings and marks must be those of the time of Start;
    /// where their number is another one the copy begins again. Whether the copy is whole now; its
    /// texts are those of the last call.
    bool CopyPiece(const ProjectState& state);
    /// The whole copy; the next one starts from nothing.
    CopiedState Take();

private:
    std::size_t rowCount_ = 0; ///< at the start
    std::size_t keyCount_ = 0;
    std::size_t rowPieces_ = 0; ///< that stand
    std::size_t keyPieces_ = 0;
    bool isCopying_ = false;
    CopiedState copy_;
};

} // namespace quarnel
