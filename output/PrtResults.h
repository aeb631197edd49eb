#pragma once

#include "kcompute/Analysis.h"
#include "output/OutputFile.h"

#include <QDialog>
#include <array>

class QPushButton;
class QRadioButton;

namespace quarnel {

class StaleLabel;

/// The window "Print/Save the Results": the summary report into a text file or onto paper.
class PrtResults : public QDialog {
    Q_OBJECT
public:
    explicit PrtResults(Analysis& analysis, QWidget* parent = nullptr);
    /// Back to the first choice, after New or Open.
    void ShowState();
    void ShowStale(bool stale);

Q_SIGNALS:
    /// The report went into a file or could not be written; `said` names the file.
    void Told(const QString& said);

private:
    void ShowChoice();
    void Carry();
    OutputOwner Owner();
    void SaveToFile();
    void SendToPrinter();
    void SaveAsPdf();

    Analysis& analysis_;
    StaleLabel* stale_ = nullptr;
    std::array<QRadioButton*, 2> Option1 = {};
    QPushButton* CmdPrtResults = nullptr;
};

} // namespace quarnel
