#pragma once

#include <QLayout>
#include <cstddef>
#include <memory>
#include <vector>

namespace quarnel {

/// Puts its items into rows, as many beside each other as the width holds, so that a page needs no
/// sideways scrolling at any size. An item without stretch keeps the width it asks for, and a row
/// breaks before it where that is not there; one with stretch gives way down to its least width and
/// shares what its row has to spare. Spare height goes to the rows that hold something that grows.
class ReflowLayout : public QLayout {
public:
    /// Rows of items from the top; an item is named by its place in the order it was added in.
    using Rows = std::vector<std::vector<std::size_t>>;

    explicit ReflowLayout(QWidget* parent = nullptr);
    ~ReflowLayout() override;

    /// Adds a widget or a layout that takes `stretch` parts of its row's spare width.
    void Add(QWidget* widget, int stretch = 0);
    void Add(QLayout* layout, int stretch = 0);
    /// Chooses among these arrangements instead of breaking rows: the first that the width holds,
    /// or the last. Each names every item once.
    void Arrange(std::vector<Rows> widestFirst);

    void addItem(QLayoutItem* item) override;
    int count() const override;
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;
    int minimumHeightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    struct Entry {
        std::unique_ptr<QLayoutItem> item;
        int stretch = 0;
    };
    /// One item's place in its row.
    struct Place {
        QLayoutItem* item = nullptr;
        int width = 0;
    };
    /// A row laid out for a width.
    struct Row {
        std::vector<Place> places;
        int least = 0;      ///< height
        int usual = 0;      ///< height
        bool grows = false; ///< whether it has a use for more height
    };

    int Gap() const;
    int NeededWidth(const Entry& entry) const;
    int RowWidth(const std::vector<std::size_t>& row) const;
    Rows RowsFor(int width) const;
    Rows BrokenRows(int width) const;
    Row LaidOut(const std::vector<std::size_t>& row, int width) const;
    std::vector<Row> LaidOutRows(int width) const;
    void SpendSpareWidth(const std::vector<std::size_t>& row, std::vector<Place>& places,
                         int spare) const;
    int HeightOf(int width, int Row::*height) const;
    std::vector<int> RowHeights(const std::vector<Row>& rows, int height) const;

    std::vector<Entry> entries_;
    std::vector<Rows> arrangements_;
};

} // namespace quarnel
