#pragma once

#include "diagnostics/DiagnosticsPageWidget.h"

namespace quarnel {

class DrawingWidget;
struct FileOnDisk;

/// The page "Residuals": the readings with their lines above what is left between them.
class ResidualsPageWidget : public DiagnosticsPageWidget {
    Q_OBJECT
public:
    /// `project` is the open project, whose file no picture may replace.
    explicit ResidualsPageWidget(const FileOnDisk& project);
    /// Lets go of the diagnostics, which are drawn from as long as they are shown.
    void Release();

Q_SIGNALS:
    /// A picture went into a file or could not be written; `said` names the file.
    void Told(const QString& said);

protected:
    void Fill(Diagnostics& diagnostics, const DiagnosticsLines& lines, double percent) override;

private:
    DrawingWidget* AddPicture(const FileOnDisk& project, const QString& name,
                              const QString& accessibleName, const QString& toolTip);

    DrawingWidget* segments_ = nullptr;
    DrawingWidget* residuals_ = nullptr;
};

} // namespace quarnel
