#pragma once

#include "kcompute/Analysis.h"

#include <QWidget>

namespace quarnel {

/// One panel of the main window, bound to the analysis: what the user types goes into the state at
/// once, and ShowState shows the state again after New, Open or a check that trimmed texts.
class Panel : public QWidget {
public:
    explicit Panel(Analysis& analysis, QWidget* parent = nullptr)
        : QWidget(parent)
        , analysis_(analysis) {}
    virtual void ShowState() = 0;

protected:
    Analysis& analysis_;
};

} // namespace quarnel
