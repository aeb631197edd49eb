#pragma once

#include "kcompute/Analysis.h"
#include "output/OutputFile.h"

#include <QDialog>
#include <array>

class QCheckBox;

namespace quarnel {

class StaleLabel;
class TextBox;

/// The window "Print The Plot": up to three title lines, and one printed page. It hides when it is
/// closed, so the titles stay for the next time.
class PrtPlotFrm : public QDialog {
    Q_OBJECT
public:
    explicit PrtPlotFrm(Analysis& analysis, QWidget* parent = nullptr);
    /// Shows the titles of the project again, after New or Open.
    void ShowState();
    void ShowStale(bool stale);

Q_SIGNALS:
    /// The page went into a file or could not be written; `said` names the file.
    void Told(const QString& said);

private:
    OutputOwner Owner();
    void Print();
    void SaveAsPdf();
    void HideAfter(bool done);

    Analysis& analysis_;
    StaleLabel* stale_ = nullptr;
    std::array<TextBox*, 3> PlotText = {};
    QCheckBox* legendOnPage_ = nullptr;
};

} // namespace quarnel
