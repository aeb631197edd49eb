#include "loggerfiles/ImportTableModel.h"

#include "loggerfiles/ImportTexts.h"
#include "recovery/RecoveryDa.h"
#include "widgets/QtTexts.h"

namespace quarnel {

ImportTableModel::ImportTableModel(QObject* parent)
    : ColumnTableModel(Columns(), parent) {}

std::vector<TableColumn> ImportTableModel::Columns() {
    const auto levelUnit = [this] {
        return plan_ && plan_->readings ? plan_->readings->LevelUnit() : Metre;
    };
    return {{[] { return ToHeading(SampleHeading()); },
             [](std::size_t row) { return QString::number(row + 1); }, true},
            {[] { return ToHeading(TimeHeading(Second)); },
             [this](std::size_t row) { return ToQString(plan_->TextsAt(row).time.View()); }},
            {[this, levelUnit] {
                 return ToHeading(
                     RecoveryHeading(plan_ ? plan_->dataType : GroundwaterHead, levelUnit()));
             },
             [this](std::size_t row) { return ToQString(plan_->TextsAt(row).level.View()); }},
            {[levelUnit] { return ToHeading(YHeading(levelUnit())); },
             [this](std::size_t row) {
                 return ToQString(ReadingText(RoundReading(plan_->YAt(row))).View());
             }}};
}

void ImportTableModel::ShowPlan(std::shared_ptr<const ImportPlan> plan) {
    const std::size_t rows = plan->CanBeImported() ? plan->RowsImported() : 0;
    ShowRows(rows, [this, &plan] { plan_ = std::move(plan); });
    ShowHeadings();
}

} // namespace quarnel
