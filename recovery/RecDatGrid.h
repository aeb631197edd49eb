#pragma once

#include "recovery/GridEditing.h"
#include "recovery/GridEditor.h"
#include "recovery/RecoveryGridModel.h"
#include "widgets/GridView.h"

#include <cstddef>
#include <string>

namespace quarnel {

/// The entry grid of the recovery data: turns keys, clicks and the clipboard into calls of the
/// editor, and shows where the editor's selection stands.
class RecDatGrid : public GridView {
    Q_OBJECT
public:
    explicit RecDatGrid(RecoveryGridModel& model, QWidget* parent = nullptr);

    GridEditor& Editor() { return model_.Editor(); }
    /// Shows the editor's selection after a change, with the current cell in view.
    void ShowSelection();
    /// Makes `cell` the current one, in view, with the keyboard on it.
    void GoTo(GridCell cell);

    void Cut();
    void Paste();
    void Undo();
    void Redo();

    ViewBlock SelectedCells() const override;
    void SelectCells(ViewBlock block) override;
    void Copy() override;

Q_SIGNALS:
    /// The clipboard's `text` was pasted, as far as it could be, of which `rows` rows.
    void Pasted(const QString& text, std::size_t rows);
    /// The last change was taken back or, `undone` false, made again.
    void TookBack(bool undone);
    /// The grid got or lost the keyboard.
    void FocusChanged(bool hasFocus);

protected:
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

private:
    bool PressEditingKey(const QKeyEvent& event);
    bool PressTypingKey(const QKeyEvent& event);
    void ShowSelectionAt(ViewCell seen);
    void PutOnClipboard(const std::string& text);
    void TakeOverSelection();

    RecoveryGridModel& model_;
    bool showing_ = false; ///< the selection is being shown, not chosen by somebody else
};

} // namespace quarnel
