#pragma once

#include "diagnostics/DiagnosticsPageWidget.h"

class QPushButton;

namespace quarnel {

class DiagnosticsGrid;

/// The page "Head Windows": K from other readings, two straight segments, and the buttons that mark
/// the readings of one of them.
class HeadWindowsPageWidget : public DiagnosticsPageWidget {
    Q_OBJECT
public:
    HeadWindowsPageWidget();

    /// Whether the readings are still those of the computation, so that they can be marked.
    void AllowMarks(bool allowed);

Q_SIGNALS:
    void MarkHeadRange();
    void MarkFirstSegment();
    void MarkSecondSegment();

protected:
    void Fill(Diagnostics& diagnostics, const DiagnosticsLines& lines, double percent) override;

private:
    QPushButton* AddButton(QLayout* row, const QString& name, const QString& text,
                           const QString& toolTip, void (HeadWindowsPageWidget::*command)());
    void EnableButtons();

    DiagnosticsGrid* grid_ = nullptr;
    QLabel* segments_ = nullptr;
    QPushButton* markHeadRange_ = nullptr;
    QPushButton* markFirst_ = nullptr;
    QPushButton* markSecond_ = nullptr;
    bool allowed_ = false;
    bool hasSegments_ = false;
};

} // namespace quarnel
