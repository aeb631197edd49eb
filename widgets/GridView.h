#pragma once

#include <QTableView>

namespace quarnel {

/// A table as all grids of the recovery data look: two-line headings that are never cut, a first
/// column wide enough for a row number of seven digits, rows of one height so that a million of
/// them scroll like fifty.
class GridView : public QTableView {
    Q_OBJECT
public:
    explicit GridView(QWidget* parent = nullptr);
    void setModel(QAbstractItemModel* model) override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void FitToFont();
};

} // namespace quarnel
