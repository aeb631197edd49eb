#pragma once

#include "loggerfiles/ImportPlan.h"

#include <QPixmap>
#include <QWidget>
#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace quarnel {

class ImportHandleWidget;

/// The lines of the preview, in the order in which Tab goes through them.
enum class ImportHandle { StaticFrom, StaticTo, Start, End };
inline constexpr std::size_t ImportHandleCount = 4;

/// The row at which each line stands, by ImportHandle; a line without one is not shown.
using ImportMarks = std::array<std::optional<std::size_t>, ImportHandleCount>;

/// The preview `ImportPreview`: a whole record, reading against time, with the static span and the
/// lines of start and end to be moved. The curve is drawn once for each size and view; what moves
/// is drawn over it, so that a line follows the mouse in records of any length. The wheel zooms
/// time, a double click shows all.
class ImportPreviewWidget : public QWidget {
    Q_OBJECT
public:
    explicit ImportPreviewWidget(QWidget* parent = nullptr);

    void ShowPlan(std::shared_ptr<const ImportPlan> plan, const ImportMarks& marks);

    /// Where the reading of a row stands, in pixels across; outside of the plot where the view does
    /// not show it.
    int ColumnOfRow(std::size_t row) const;
    /// The row nearest to a pixel column.
    std::size_t RowAtColumn(int x) const;
    /// Shows the whole record.
    void ShowAll();
    /// Times at the left and right edge of the plot, microseconds.
    double ViewFrom() const { return from_; }
    double ViewTo() const { return to_; }

    /// The word above the line of start or end.
    struct Caption {
        ImportHandle handle;
        QString text;
        QRect rect;
    };
    /// Those that are seen; none stands on the other or on the axis.
    std::vector<Caption> Captions() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user moves a line to `row`.
    void HandleMoved(quarnel::ImportHandle handle, std::size_t row);
    /// The plot was clicked beside all lines, nearest to the reading of `row`.
    void RowClicked(std::size_t row);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    ImportHandleWidget* MakeHandle(ImportHandle handle);
    void Step(ImportHandle handle, int rows);
    void SendToEnd(ImportHandle handle, bool last);
    void FindRange();
    void SetView(double from, double to);
    /// Brings a line that is moved by keys into the view.
    void BringIntoView(std::size_t row);
    void PlaceHandles();
    QRect Plot() const;
    double ColumnOfTime(double time) const;
    void DrawCurve();
    void PaintAxes(QPainter& painter) const;
    void PaintMarks(QPainter& painter) const;
    void PartCaptions(QRect& first, QRect& second) const;
    bool HasRows() const;

    std::shared_ptr<const ImportPlan> plan_;
    ImportMarks marks_;
    std::array<ImportHandleWidget*, ImportHandleCount> handles_{};
    double firstTime_ = 0, lastTime_ = 1; ///< of the record, microseconds
    double from_ = 0, to_ = 1;            ///< of the view
    double least_ = 0, greatest_ = 1;     ///< of the record's readings, level unit
    QPixmap curve_;                       ///< null: to be drawn again
};

} // namespace quarnel
