#pragma once

#include "project/GlobalDeclar.h"
#include "recovery/GridEditing.h"
#include "recovery/GridEditor.h"

#include <QAbstractTableModel>
#include <array>

namespace quarnel {

/// The recovery grid's rows as a table: row number, time, reading. It stands directly over the
/// project's rows and keeps nothing of its own for each of them.
class RecoveryGridModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit RecoveryGridModel(ProjectState& state, QObject* parent = nullptr);

    GridEditor& Editor() { return editor_; }
    const GridEditor& Editor() const { return editor_; }

    /// The rows were replaced as a whole, by New or Open.
    void ShowState();
    /// A check has trimmed cells: the same rows, other texts.
    void ShowTrimmedCells();
    /// The headings follow the lists of types and units.
    void ShowHeadings();

    /// Puts other readings and settings in the place of all, as one step of the history.
    void ReplaceAll(GridRows rows, ReadingSettings settings);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

Q_SIGNALS:
    /// A step of the history has changed the settings of the readings along with the rows.
    void SettingsChanged();
    /// Rows were edited; a mere showing of cells tells of no edit.
    void RowsEdited();

private:
    void Exchange(RowExchange& exchange);

    ProjectState& state_;
    GridEditor editor_;
};

} // namespace quarnel
