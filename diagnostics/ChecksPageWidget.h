#pragma once

#include "diagnostics/DiagnosticsPageWidget.h"

namespace quarnel {

class DiagnosticsGrid;

/// The page "Checks": what speaks against the method here, cautions above notes.
class ChecksPageWidget : public DiagnosticsPageWidget {
    Q_OBJECT
public:
    ChecksPageWidget();

protected:
    void Fill(Diagnostics& diagnostics, const DiagnosticsLines& lines, double percent) override;

private:
    DiagnosticsGrid* grid_ = nullptr;
    QLabel* note_ = nullptr;
};

} // namespace quarnel
