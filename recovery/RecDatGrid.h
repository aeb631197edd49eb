#pragma once

#include "recovery/RecoveryGridModel.h"
#include "widgets/GridView.h"

#include <QBasicTimer>
#include <optional>

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

    void Copy();
    void Cut();
    void Paste();
    void SelectAllCells();
    void Undo();
    void Redo();

    void selectAll() override { SelectAllCells(); }

Q_SIGNALS:
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
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

private:
    bool PressCommandKey(const QKeyEvent& event);
    bool PressMovingKey(const QKeyEvent& event);
    bool PressTypingKey(const QKeyEvent& event);
    std::optional<GridCell> MovingTarget(const QKeyEvent& event, GridCell from) const;
    GridCell NearestCell(QPoint position) const;
    void DragTo(QPoint position);
    void EndDrag();
    void PutOnClipboard(const std::string& text);
    void MirrorSelection();
    /// The same where only the selection's end moved: then that is kept in view.
    void ShowExtendedSelection();
    void TakeOverSelection();
    void BringIntoView(GridCell cell);

    RecoveryGridModel& model_;
    bool showing_ = false;  ///< the selection is being shown, not chosen by somebody else
    bool dragging_ = false; ///< the left button was pressed in the grid and is held
    bool wholeRows_ = false;
    QPoint dragPosition_;
    QBasicTimer dragTimer_; ///< goes on scrolling while the pointer is held outside
};

} // namespace quarnel
