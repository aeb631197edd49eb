#pragma once

#include "diagnostics/DiagnosticsPageWidget.h"

namespace quarnel {

class DrawingWidget;

/// The page "Residuals": the readings with their lines above what is left between them.
class ResidualsPageWidget : public DiagnosticsPageWidget {
    Q_OBJECT
public:
    ResidualsPageWidget();
    /// Lets go of the diagnostics, which are drawn from as long as they are shown.
    void Release();

protected:
    void Fill(Diagnostics& diagnostics, const DiagnosticsLines& lines, double percent) override;

private:
    DrawingWidget* AddPicture(const QString& name, const QString& accessibleName,
                              const QString& toolTip);

    DrawingWidget* segments_ = nullptr;
    DrawingWidget* residuals_ = nullptr;
};

} // namespace quarnel
