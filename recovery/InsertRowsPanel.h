#pragma once

#include "project/GlobalDeclar.h"
#include "recovery/GridEditing.h"

#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <string>

namespace quarnel {

class TextBox;

/// Asks where and how many rows to insert. It stands beside the grid, which stays usable.
class InsertRowsPanel : public QGroupBox {
    Q_OBJECT
public:
    explicit InsertRowsPanel(const ProjectState& state, QWidget* parent = nullptr);

    /// Shows the panel with an empty box, which gets the focus.
    void Open();

Q_SIGNALS:
    void InsertRequested(int count, quarnel::InsertPlace place);
    void Closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Accept();
    void Close();

    const ProjectState& state_;
    QRadioButton* afterCurrentRow_ = nullptr;
    QRadioButton* beforeCurrentRow_ = nullptr;
    std::string rowsText_;
    TextBox* RecDatInsertRowsText = nullptr;
    QPushButton* CmdInsertRowsOK = nullptr;
    QPushButton* CmdInsertRowsCancel = nullptr;
};

} // namespace quarnel
