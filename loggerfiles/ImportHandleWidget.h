#pragma once

#include <QWidget>

namespace quarnel {

/// One of the lines of the import's preview that can be moved: dragged with the mouse, or, with the
/// keyboard on it, by arrows (Shift: ten rows), Home and End. It knows nothing of rows: it says how
/// it is moved, and is put where it belongs.
class ImportHandleWidget : public QWidget {
    Q_OBJECT
public:
    /// On which half of the plot the mouse finds it, so that two lines at one place can both be
    /// taken, and on which side of its line.
    enum class Half { Upper, Lower };
    enum class Side { Left, Right };

    ImportHandleWidget(const QString& name, const QString& caption, Half half, Side side,
                       QWidget* parent);

    /// Width of what the mouse takes hold of, beside the line.
    int Grip() const;
    /// Puts its line at `x` of a plot that fills `plot`.
    void PlaceAt(int x, const QRect& plot);
    /// The row it stands at, of rows 0 to `last`, and its time, which a screen reader and the tool
    /// tip tell.
    void ShowRow(int row, int last, const QString& time);
    int Row() const { return row_; }
    int LastRow() const { return lastRow_; }
    const QString& Time() const { return time_; }

Q_SIGNALS:
    /// The mouse has dragged the line to `x` of the parent.
    void DraggedTo(int x);
    /// A key moves it by so many rows.
    void Stepped(int rows);
    /// A key moves it to the first row, or to the last.
    void SentToEnd(bool last);
    void FocusChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QString caption_;
    QString time_;
    int row_ = 0;
    int lastRow_ = 0;
    Half half_;
    Side side_;
    int lineX_ = 0;   ///< of the line, within this widget
    int grabbed_ = 0; ///< how far from the line the mouse took hold
};

} // namespace quarnel
