#pragma once

#include "GridTestSupport.h"

#include <string>
#include <vector>

/// The recovery grid told a second time, as slowly and plainly as it can be: whole copies instead
/// of a history of changes, rows added and removed one by one. What it does is what the grid has to
/// do.
namespace quarnel::gridtest {

class GridModel {
public:
    GridModel() { rows_.resize(50); }

    const Cells& AllCells() const { return rows_; }
    const GridSelection& Selection() const { return selection_; }
    bool CanUndo() const { return !done_.empty(); }
    bool CanRedo() const { return !undone_.empty(); }

    void Select(GridSelection selection);
    void Focus() { StopTyping(); }
    void Type(const std::string& characters);
    void Backspace();
    void Next();
    void Previous();
    std::string CopyText() const;
    void Clear();
    std::string Paste(std::string text);
    void Insert(int count, bool after);
    void Delete();
    void Sort();
    void Undo();
    void Redo();

private:
    struct Snapshot {
        Cells before;
        Cells after;
        GridSelection selectionBefore;
        GridSelection selectionAfter;
    };

    std::string& Cell(std::size_t row, int column);
    void Commit(const Cells& before, GridSelection after);
    void Leave(GridSelection after);
    void StopTyping();
    void Show();

    Cells rows_;
    GridSelection selection_;
    std::string buffer_;
    bool typing_ = false;
    std::vector<Snapshot> done_;
    std::vector<Snapshot> undone_;
};

} // namespace quarnel::gridtest
