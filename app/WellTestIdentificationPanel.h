#pragma once

#include "app/Panel.h"

namespace quarnel {

class WellTestIdentificationPanel : public Panel {
    Q_OBJECT
public:
    explicit WellTestIdentificationPanel(Analysis& analysis, QWidget* parent = nullptr);
    void ShowState() override;
};

} // namespace quarnel
