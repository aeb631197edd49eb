#pragma once

#include "diagnostics/DiagnosticsPages.h"

#include <QAbstractTableModel>
#include <QIcon>
#include <QTableView>
#include <map>
#include <vector>

namespace quarnel {

/// The rows of one page of the diagnostics.
class TextRowsModel : public QAbstractTableModel {
    Q_OBJECT
public:
    /// Where the length of a bar stands: a QPointF of the least and the greatest change, each as a
    /// part of the longest bar, -1 to 1.
    static constexpr int BarRole = Qt::UserRole;

    using QAbstractTableModel::QAbstractTableModel;

    /// Shows other rows; what was said of single rows is forgotten.
    void ShowTexts(PageTexts texts);
    void SetBold(int row);
    void SetToolTip(int row, const QString& toolTip);
    /// An icon before the first text of a row.
    void SetIcon(int row, const QIcon& icon);
    void SetBar(int row, QPointF leastAndGreatest);
    /// The last column holds bars, which are named by `heading`.
    void SetBarHeading(const QString& heading) { barHeading_ = heading; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct RowLook {
        bool isBold = false;
        QString toolTip;
        QIcon icon;
        QPointF bar;
    };
    int TextColumns() const;
    QString Text(const QModelIndex& index) const;
    const RowLook* LookOf(int row) const;
    void LookChanged(int row);

    PageTexts texts_;
    QString barHeading_;
    std::map<int, RowLook> looks_;
};

/// A table of a page of the diagnostics: as high as its rows, so that the page scrolls and not the
/// table in it. One column may take the room that is left and break its texts into lines.
class DiagnosticsGrid : public QTableView {
    Q_OBJECT
public:
    /// `wideColumn` -1: no column takes the room that is left.
    DiagnosticsGrid(const QString& name, const QString& accessibleName, int wideColumn);

    TextRowsModel& Rows() { return model_; }
    /// Shows the rows of a page; the row numbers that were current stay so.
    void ShowTexts(PageTexts texts);

protected:
    void initViewItemOption(QStyleOptionViewItem* option) const override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void FitToTexts();
    void FitToWidth();
    int ColumnWidth(int column);
    void FitHeight();
    void CopySelection();

    TextRowsModel model_;
    QAbstractItemDelegate* bars_;
    int wideColumn_;
    int neededWidth_ = 0; ///< for all texts
};

} // namespace quarnel
