#pragma once

#include "kcompute/Analysis.h"

#include <QAbstractTableModel>

namespace quarnel {

/// The rows of the details grid: sample number, time as entered, Y and fitted Y of every kept
/// point. The texts are made when a view asks for them.
class FittedYModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { SampleColumn = 0, TimeColumn = 1, YColumn = 2, FitYColumn = 3 };
    static constexpr int Columns = 4;

    explicit FittedYModel(Analysis& analysis, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Shows the kept points, or the headings only.
    void Fill();
    void Empty();
    /// The unit lists changed.
    void ShowHeadings();

private:
    void SetRows(int count);
    std::string TextAt(std::size_t row, int column) const;

    Analysis& analysis_;
    int rowCount_ = 0; ///< as told to the view, however the details change meanwhile
};

} // namespace quarnel
