#pragma once

#include "kcompute/Computation.h"
#include "output/DrawingWidget.h"

namespace quarnel {

/// The plot area `Plot1`: shows the plot of one computation. Its context menu shows besides the
/// range of the head that is recommended for the fit.
class PlotWidget : public DrawingWidget {
    Q_OBJECT
public:
    explicit PlotWidget(QWidget* parent = nullptr);

    /// Shows the plot of a computation, or with none an empty area that says how to get one.
    void ShowComputation(ComputationPtr computation);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    QAction* headRange_ = nullptr;
};

} // namespace quarnel
