#pragma once

#include "diagnostics/DiagnosticsPageWidget.h"

class QSpinBox;

namespace quarnel {

class DiagnosticsGrid;

/// The page "What Moves K": K with one entry changed at a time, the greatest change first.
class SensitivityPageWidget : public DiagnosticsPageWidget {
    Q_OBJECT
public:
    SensitivityPageWidget();

    /// The change of each entry, 1 to 50.
    double Percent() const;

Q_SIGNALS:
    void PercentChanged();

protected:
    void Fill(Diagnostics& diagnostics, const DiagnosticsLines& lines, double percent) override;

private:
    void ShowBars(const SensitivityPage& page);

    QSpinBox* percent_ = nullptr;
    QLabel* largest_ = nullptr;
    DiagnosticsGrid* grid_ = nullptr;
    QLabel* details_ = nullptr;
    QLabel* note_ = nullptr;
};

} // namespace quarnel
