#pragma once

#include "diagnostics/DiagnosticsPages.h"
#include "kcompute/Analysis.h"
#include "output/OutputFile.h"

#include <QDialog>
#include <array>
#include <cstddef>
#include <memory>
#include <vector>

class QLabel;
class QPushButton;
class QTabWidget;

namespace quarnel {

class DiagnosticsPageWidget;
class HeadWindowsPageWidget;
class PageScroll;
class ResidualsPageWidget;
class SensitivityPageWidget;

/// The window "Diagnostics": how far the K that is shown can be trusted. It works on the
/// computation of the analysis and changes nothing of it; marks only by its buttons. Nothing is
/// worked out while it is hidden, and a page only when it is looked at.
class DiagnosticsFrm : public QDialog {
    Q_OBJECT
public:
    explicit DiagnosticsFrm(const Analysis& analysis, QWidget* parent = nullptr);
    ~DiagnosticsFrm() override;

    /// Shows the analysis again: another computation, none, or other units of K.
    void ShowState();
    /// Says whether the project still says what the computation was made from, and takes over a
    /// slug volume that was typed since.
    void ShowStale(bool stale);

Q_SIGNALS:
    /// The user wants "Use" for these points of the computation and "Ignore" for all others.
    void UseOnlyRequested(const std::vector<std::size_t>& points);
    /// The sheet or a picture went into a file or could not be written; `said` names the file.
    void Told(const QString& said);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    static constexpr std::size_t PageCount = DiagnosticsPageTitles.size();

    QWidget* BuildHead();
    QTabWidget* BuildTabs();
    QLayout* BuildButtons();

    /// Makes the diagnostics anew where computation or slug volume are others.
    void Renew();
    void Release();
    void ShowHead();
    void FitSentence();
    void ShowStateLine();
    void ShowCurrentPage();
    void ShowOtherPercent();
    DiagnosticsLines Lines() const;
    double Percent() const;

    void MarkHeadRange();
    void MarkFirstSegment();
    void MarkSecondSegment();
    void Copy();
    OutputOwner Owner();
    void Print();
    void SaveAsPdf();

    const Analysis& analysis_;
    ComputationPtr computation_; ///< that `diagnostics_` are of; null while hidden or without one
    std::unique_ptr<Diagnostics> diagnostics_;
    std::string slugVolumeText_; ///< that they were made with
    bool isStale_ = false;
    /// Whether a page shows the diagnostics as they are now.
    std::array<bool, PageCount> isShown_{};

    QLabel* sentence_ = nullptr;
    PageScroll* sentenceArea_ = nullptr;
    QLabel* stateLine_ = nullptr;
    QTabWidget* tabs_ = nullptr;
    std::array<DiagnosticsPageWidget*, PageCount> pages_{};
    HeadWindowsPageWidget* windows_ = nullptr;
    SensitivityPageWidget* sensitivity_ = nullptr;
    ResidualsPageWidget* residuals_ = nullptr;
    std::array<QPushButton*, 3> outputButtons_{};
    QPushButton* close_ = nullptr;
};

} // namespace quarnel
