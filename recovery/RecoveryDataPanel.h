#pragma once

#include "app/Panel.h"

namespace quarnel {

/// The panel "Recovery Data": measurement settings, the grid of readings with its commands, and the
/// check grid that shows Y.
class RecoveryDataPanel : public Panel {
    Q_OBJECT
public:
    explicit RecoveryDataPanel(Analysis& analysis, QWidget* parent = nullptr);
    /// Shows the project again; New and Open come through here, so the editing history starts
    /// afresh.
    void ShowState() override;
    /// Shows what a preparation left: trimmed cells and pre-slug text, and Y in the check grid.
    void ShowPreparedData();

Q_SIGNALS:
    /// A unit or type list changed, so headings elsewhere follow.
    void HeadingsChanged();
};

} // namespace quarnel
