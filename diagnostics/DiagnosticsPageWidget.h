#pragma once

#include "diagnostics/DiagnosticsPages.h"
#include "widgets/PageScroll.h"

class QLabel;
class QVBoxLayout;

namespace quarnel {

/// One page of the window "Diagnostics": it scrolls where its window is small, and says why where
/// it has nothing to show.
class DiagnosticsPageWidget : public PageScroll {
    Q_OBJECT
public:
    explicit DiagnosticsPageWidget(const QString& name);

    /// Shows the page of one computation. `percent` is the change of each entry for "What Moves K".
    void ShowPage(Diagnostics& diagnostics, const DiagnosticsLines& lines, double percent);
    /// Shows that there is no computation.
    void ShowNothing();

protected:
    virtual void Fill(Diagnostics& diagnostics, const DiagnosticsLines& lines, double percent) = 0;

    /// What the page is built from, from top to bottom.
    QVBoxLayout* Rows() { return rows_; }
    /// A sentence under the last row; its text can be selected.
    QLabel* AddSentence(const QString& name);

private:
    QLabel* nothing_ = nullptr;
    QWidget* content_ = nullptr;
    QVBoxLayout* rows_ = nullptr;
};

/// A label for sentences: plain text in as many lines as it needs, to be selected with mouse or
/// keys.
QLabel* MakeSentence(const QString& name);
/// Shows a sentence, or takes no room where there is none.
void ShowSentence(QLabel* label, const std::string& sentence);

} // namespace quarnel
