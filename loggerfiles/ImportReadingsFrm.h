#pragma once

#include "loggerfiles/ImportPlan.h"
#include "loggerfiles/ImportPreviewWidget.h"
#include "loggerfiles/LoggerFileDialogs.h"

#include <QDialog>
#include <array>
#include <memory>
#include <string>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace quarnel {

class ImportTableModel;

/// The window "Import Readings": shows one plan for a logger's file and makes the next one from
/// each choice. It changes nothing itself: whoever opens it carries out the plan of an OK.
class ImportReadingsFrm : public QDialog {
    Q_OBJECT
public:
    /// `file` was read from `source` and has a channel. `state` is the project that the readings
    /// are for.
    ImportReadingsFrm(LoggerSource source, std::shared_ptr<const LoggerFile> file,
                      const ProjectState& state, QWidget* parent);
    ~ImportReadingsFrm() override;

    /// What is shown; can be carried out after OK.
    std::shared_ptr<const ImportPlan> Plan() const { return plan_; }

    /// OK, once a Yes allows it to replace readings.
    void accept() override;

protected:
    /// Enter in a box takes its text; only then it is OK.
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    /// A box that is typed into, and why what stands in it cannot be taken.
    struct Box {
        QLineEdit* edit = nullptr;
        QString shown;     ///< as this window wrote it last
        std::string fault; ///< "" while it can be taken
    };
    enum BoxIndex { StartBox, EndBox, StaticFromBox, StaticToBox, StaticBox, BoxCount };

    // ---- Building
    QWidget* BuildContent();
    void BuildLists();
    QWidget* BuildBoxes();
    QWidget* BuildTableAndMessages();
    QBoxLayout* BuildButtons();
    QComboBox* MakeList(const QString& name);
    QLineEdit* MakeBox(BoxIndex index, const QString& name);
    int ColumnsOfFields(int wanted) const;
    /// Puts a field and its caption behind those of `grid`; one without `stretch` takes no room
    /// while it is hidden.
    void AddField(QGridLayout* grid, const QString& caption, QWidget* field, int columns,
                  int stretch = 1);

    // ---- Showing
    void MakePlan();
    void ShowPlan();
    void ShowFormat();
    void ShowLists();
    void ShowSourceUnits();
    void ShowOrders();
    void ShowBoxes();
    void ShowBox(BoxIndex index, const std::string& text);
    void ShowMessages();
    QString FaultText() const;
    QString WhyNotText() const;
    void ShowWhetherOk();
    void ShowThinning();
    std::string TimeText(std::optional<std::size_t> row) const;
    ImportMarks Marks() const;
    bool CanImport() const;

    // ---- Choices
    void ChooseChannel(int index);
    void ChooseDataType(int index);
    void ChooseSourceUnit(int index);
    void ChooseLevelUnit(int index);
    void ChooseDateOrder(int index);
    void ChooseTimeUnit(int index);
    void ReadAgain(const ReadOptions& options);
    void ForgetRows();
    void MoveHandle(ImportHandle handle, std::size_t row);
    void ClickRow(std::size_t row);
    void ChooseThinning(bool thin);
    void ChooseBarometer();
    bool CommitBoxes();
    void CommitBox(BoxIndex index);
    void TakeTime(BoxIndex index, const std::string& text);
    void TakeSpan(BoxIndex index, std::optional<std::size_t> row);
    void TakeStaticLevel(const std::string& text);
    std::optional<std::int64_t> TimeOf(const std::string& text) const;

    LoggerSource source_;
    const ProjectState& state_;
    ReadOptions options_;
    std::shared_ptr<const LoggerFile> file_;
    ImportChoices choices_;
    std::shared_ptr<const ImportPlan> plan_;
    bool dateOrderAsked_ = false;
    bool timeUnitAsked_ = false;

    QLabel* format_ = nullptr;
    QComboBox* channel_ = nullptr;
    QComboBox* dataType_ = nullptr;
    QComboBox* sourceUnit_ = nullptr;
    QComboBox* levelUnit_ = nullptr;
    QComboBox* dateOrder_ = nullptr;
    QComboBox* timeUnit_ = nullptr;
    ImportPreviewWidget* preview_ = nullptr;
    std::array<Box, BoxCount> boxes_;
    ImportTableModel* table_ = nullptr;
    QPlainTextEdit* messages_ = nullptr;
    QLabel* importState_ = nullptr;
    QLabel* whyNot_ = nullptr;
    QCheckBox* thin_ = nullptr;
    QPushButton* barometer_ = nullptr;
    QPushButton* ok_ = nullptr;
};

} // namespace quarnel
