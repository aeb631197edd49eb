#pragma once

#include "kcompute/Analysis.h"

#include <QMainWindow>
#include <QTabBar>
#include <array>

namespace quarnel {

class ComputePanel;
class ComputedYFrm;
class Panel;
class PrtPlotFrm;
class PrtResults;
class RecoveryDataPanel;

/// The main window: tab strip, six panels, menus. It holds the one analysis of the program.
class BRMainForm : public QMainWindow {
    Q_OBJECT
public:
    explicit BRMainForm(QWidget* parent = nullptr);

    /// Shows the window.
    void StartUp();
    /// Makes panel `panel` (1 to 6) visible and hides all others.
    void DisplaySelectedPanel(int panel);
    /// Shows the whole analysis again, in every panel and window, after New or Open.
    void ShowState();
    /// Opens the project at `path` as the Open command does once a file is chosen.
    void OpenPath(const QString& path);

    Analysis& Current() { return analysis_; }

private:
    Analysis analysis_;
};

} // namespace quarnel
