#pragma once

#include <QBasicTimer>
#include <QStringList>
#include <QTableView>
#include <optional>

namespace quarnel {

/// A cell of a grid as its view counts: rows and columns from 0, column 0 the row number.
struct ViewCell {
    int row = 0;
    int column = 1;
    friend bool operator==(const ViewCell&, const ViewCell&) = default;
};

/// Where a selection began, which is the current cell, and where it ends.
struct ViewBlock {
    ViewCell current;
    ViewCell end;
};

/// A table as all grids of the program look and are used: two-line headings that are never cut, a
/// first column of row numbers that is wide enough for them and is no data, rows of one height so
/// that a million of them scroll like fifty. One block is selected, by mouse or keys: Shift moves
/// its end, Ctrl goes far, a row number selects the row, a heading the column. Ctrl+A, Ctrl+C and
/// Shift+F10 do what they do everywhere.
class GridView : public QTableView {
    Q_OBJECT
public:
    static constexpr int FirstColumn = 1; ///< behind the row numbers

    explicit GridView(QWidget* parent = nullptr);
    void setModel(QAbstractItemModel* model) override;

    /// The widest text to expect in each column; a column is never narrower than that needs.
    void SetWidestTexts(const QStringList& texts);
    /// As narrow as its columns may be; a layout with room makes them wider, up to what still reads
    /// as one row.
    QSize sizeHint() const override;

    /// What is selected; the current cell alone where nothing is.
    virtual ViewBlock SelectedCells() const;
    /// Selects a block; corners beyond the grid are brought to its edge. The end is kept in view.
    virtual void SelectCells(ViewBlock block);
    void selectAll() override;
    /// The selected cells as text: TAB between cells, a line feed behind each row.
    virtual QString BlockText() const;
    virtual void Copy();

protected:
    /// Shows `block` as the selected one, with `seen` scrolled into view.
    void MarkBlock(ViewBlock block, ViewCell seen);
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void changeEvent(QEvent* event) override;

    /// Each takes a key that is its own and says whether it was.
    bool PressMovingKey(const QKeyEvent& event);
    bool PressCommandKey(const QKeyEvent& event);
    int LastColumn() const;
    int LastRow() const;

private:
    std::optional<ViewCell> MovingTarget(const QKeyEvent& event, ViewCell from) const;
    ViewCell NearestCell(QPoint position) const;
    void DragTo(QPoint position);
    void EndDrag();
    void SelectColumn(int column);
    void OpenMenuAtCurrentCell();
    void FitToFont();
    void FitNumberColumn();
    int WidestTextWidth(int column) const;

    bool dragging_ = false; ///< the left button was pressed in the grid and is held
    bool wholeRows_ = false;
    QPoint dragPosition_;
    QBasicTimer dragTimer_; ///< goes on scrolling while the pointer is held outside
    QStringList widestTexts_;
    int numberDigits_ = 0; ///< that the first column has room for
};

} // namespace quarnel
