#pragma once

#include "diagnostics/DiagnosticsPageWidget.h"

namespace quarnel {

class DiagnosticsGrid;

/// The page "Statistics": what the fit says of itself, the slug's volume and Hvorslev's K.
class StatisticsPageWidget : public DiagnosticsPageWidget {
    Q_OBJECT
public:
    StatisticsPageWidget();

protected:
    void Fill(Diagnostics& diagnostics, const DiagnosticsLines& lines, double percent) override;

private:
    DiagnosticsGrid* grid_ = nullptr;
    QLabel* intervalNote_ = nullptr;
    QLabel* slugVolume_ = nullptr;
    QLabel* hvorslev_ = nullptr;
};

} // namespace quarnel
