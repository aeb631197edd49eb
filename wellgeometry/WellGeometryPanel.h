#pragma once

#include "app/Panel.h"

namespace quarnel {

/// The panel "Well Geometry": six texts, two unit lists, two drawn well sections, "Check Data".
class WellGeometryPanel : public Panel {
    Q_OBJECT
public:
    explicit WellGeometryPanel(Analysis& analysis, QWidget* parent = nullptr);
    void ShowState() override;
};

} // namespace quarnel
