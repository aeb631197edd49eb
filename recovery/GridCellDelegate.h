#pragma once

#include "recovery/GridEditor.h"

#include <QStyledItemDelegate>

namespace quarnel {

/// Draws the cells of the recovery grid: the selected block tinted, the current cell framed in it,
/// and the corner where the selection ends marked with a square.
class GridCellDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    GridCellDelegate(const GridEditor& editor, QObject* parent)
        : QStyledItemDelegate(parent)
        , editor_(editor) {}
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    const GridEditor& editor_;
};

} // namespace quarnel
