#pragma once

#include <QTableView>

namespace quarnel {

/// The table of the window "Compare Projects": whole rows are chosen, headings sort, by the
/// keyboard from the menu too. Enter and a double click ask for the row's project, Ctrl+C for a
/// copy.
class CompareGrid : public QTableView {
    Q_OBJECT
public:
    explicit CompareGrid(QWidget* parent = nullptr);
    void setModel(QAbstractItemModel* model) override;

    /// Said while there are no rows.
    void SetEmptyText(const QString& text);
    /// Makes the columns as wide as their first texts, with a limit to each.
    void FitColumns();

Q_SIGNALS:
    void OpenRequested(const QModelIndex& index);
    void CopyRequested();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void FitToFont();
    void SortByCurrentColumn();
    void OpenCurrent();

    QString emptyText_;
};

} // namespace quarnel
