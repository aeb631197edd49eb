#pragma once

#include "kcompute/Analysis.h"

#include <QDialog>

namespace quarnel {

/// The window "Print The Plot".
class PrtPlotFrm : public QDialog {
    Q_OBJECT
public:
    explicit PrtPlotFrm(Analysis& analysis, QWidget* parent = nullptr);
    /// Shows the analysis again, after New, Open or a computation.
    void ShowState();

private:
    Analysis& analysis_;
};

} // namespace quarnel
