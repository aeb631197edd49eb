#pragma once

#include "kcompute/Computation.h"
#include "output/PlotDrawing.h"

#include <QFrame>

class QAction;

namespace quarnel {

/// The plot area `Plot1`: shows the plot of one computation, drawn again for every size of the
/// area. Its context menu copies the plot or saves it as a picture.
class PlotWidget : public QFrame {
    Q_OBJECT
public:
    explicit PlotWidget(QWidget* parent = nullptr);

    /// Shows the plot of a computation, or with none an empty area that says how to get one.
    void ShowComputation(ComputationPtr computation);

    /// What is shown, in twips; empty without a computation.
    const Drawing& Shown() const { return drawing_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// A picture could not be written; `said` names its file.
    void FileFailed(const QString& said);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    double TwipsPerPixel() const;
    QSize PixelsOf(int widthTwips, int heightTwips) const;
    void DrawAgain();
    void Copy();
    void SaveAsPicture();

    ComputationPtr computation_; ///< what the plot is drawn from; null for none
    Drawing drawing_;
    QAction* copy_ = nullptr;
    QAction* save_ = nullptr;
};

} // namespace quarnel
