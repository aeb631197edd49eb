#pragma once

#include "loggerfiles/ImportPlan.h"
#include "widgets/ColumnTableModel.h"

#include <memory>

namespace quarnel {

/// The rows that an import brings: number, time, reading and Y, made from the plan when a view asks
/// for them.
class ImportTableModel : public ColumnTableModel {
    Q_OBJECT
public:
    explicit ImportTableModel(QObject* parent = nullptr);

    void ShowPlan(std::shared_ptr<const ImportPlan> plan);

private:
    std::vector<TableColumn> Columns();

    std::shared_ptr<const ImportPlan> plan_;
};

} // namespace quarnel
