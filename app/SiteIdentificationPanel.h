#pragma once

#include "app/Panel.h"

namespace quarnel {

class SiteIdentificationPanel : public Panel {
    Q_OBJECT
public:
    explicit SiteIdentificationPanel(Analysis& analysis, QWidget* parent = nullptr);
    void ShowState() override;
};

} // namespace quarnel
