#include "loggerfiles/ImportReadingsFrm.h"

#include "loggerfiles/ImportTableModel.h"
#include "loggerfiles/LoggerFileDialogs.h"
#include "widgets/GridView.h"
#include "widgets/PageScroll.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace quarnel {

ImportReadingsFrm::ImportReadingsFrm(LoggerSource source, std::shared_ptr<const LoggerFile> file,
                                     const ProjectState& state, QWidget* parent)
    : QDialog(parent)
    , source_(std::move(source))
    , state_(state)
    , file_(std::move(file)) {
    setObjectName(QStringLiteral("ImportReadingsFrm"));
    setWindowTitle(ImportTitle());
    setModal(true);
    importState_ = new QLabel;
    importState_->setObjectName(QStringLiteral("ImportState"));
    importState_->setWordWrap(true);
    importState_->setTextFormat(Qt::PlainText);
    whyNot_ = new QLabel;
    whyNot_->setObjectName(QStringLiteral("ImportWhyNot"));
    whyNot_->setWordWrap(true);
    whyNot_->setTextFormat(Qt::PlainText);
    QFont bold = whyNot_->font();
    bold.setBold(true);
    whyNot_->setFont(bold);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(new PageScroll(BuildContent()), 1);
    rows->addWidget(importState_);
    rows->addWidget(whyNot_);
    rows->addLayout(BuildButtons());
    MakePlan();
    resize(900, 640);
    channel_->setFocus();
}

QWidget* ImportReadingsFrm::BuildContent() {
    auto* content = new QWidget;
    auto* rows = new QVBoxLayout(content);
    rows->setContentsMargins(0, 0, 0, 0);
    format_ = new QLabel;
    format_->setObjectName(QStringLiteral("ImportFormat"));
    format_->setWordWrap(true);
    format_->setTextFormat(Qt::PlainText);
    rows->addWidget(format_);
    BuildLists();
    auto* lists = new QGridLayout;
    const int columns = ColumnsOfFields(6);
    AddField(lists, QStringLiteral("C&hannel"), channel_, columns, 3);
    AddField(lists, QStringLiteral("&Measurement"), dataType_, columns, 3);
    AddField(lists, QStringLiteral("&Unit in the File"), sourceUnit_, columns, 2);
    AddField(lists, QStringLiteral("&Level Unit"), levelUnit_, columns, 2);
    AddField(lists, QStringLiteral("&Dates Are"), dateOrder_, columns, 0);
    AddField(lists, QStringLiteral("T&imes Are In"), timeUnit_, columns, 0);
    rows->addLayout(lists);
    preview_ = new ImportPreviewWidget;
    preview_->setToolTip(QStringLiteral("Drag the lines, or press Tab until the keyboard is on one "
                                        "and use the arrows. The wheel zooms, a double click shows "
                                        "all."));
    connect(preview_, &ImportPreviewWidget::HandleMoved, this, &ImportReadingsFrm::MoveHandle);
    connect(preview_, &ImportPreviewWidget::RowClicked, this, &ImportReadingsFrm::ClickRow);
    rows->addWidget(preview_, 3);
    rows->addWidget(BuildBoxes());
    rows->addWidget(BuildTableAndMessages(), 2);
    thin_ = new QCheckBox(QStringLiteral("&Keep about 20 readings a decade of time"));
    thin_->setObjectName(QStringLiteral("ImportThin"));
    connect(thin_, &QCheckBox::clicked, this, &ImportReadingsFrm::ChooseThinning);
    rows->addWidget(thin_);
    return content;
}

void ImportReadingsFrm::BuildLists() {
    channel_ = MakeList(QStringLiteral("ImportChannel"));
    dataType_ = MakeList(QStringLiteral("ImportDataType"));
    sourceUnit_ = MakeList(QStringLiteral("ImportSourceUnit"));
    levelUnit_ = MakeList(QStringLiteral("ImportUnit"));
    dateOrder_ = MakeList(QStringLiteral("ImportDateOrder"));
    timeUnit_ = MakeList(QStringLiteral("ImportTimeUnit"));
    dateOrder_->setMinimumContentsLength(14);
    using Frm = ImportReadingsFrm;
    connect(channel_, &QComboBox::activated, this, &Frm::ChooseChannel);
    connect(dataType_, &QComboBox::activated, this, &Frm::ChooseDataType);
    connect(sourceUnit_, &QComboBox::activated, this, &Frm::ChooseSourceUnit);
    connect(levelUnit_, &QComboBox::activated, this, &Frm::ChooseLevelUnit);
    connect(dateOrder_, &QComboBox::activated, this, &Frm::ChooseDateOrder);
    connect(timeUnit_, &QComboBox::activated, this, &Frm::ChooseTimeUnit);
}

QComboBox* ImportReadingsFrm::MakeList(const QString& name) {
    auto* list = new QComboBox;
    list->setObjectName(name);
    // Names of channels can be longer than any window.
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(6);
    return list;
}

/// All in one line where the font leaves room for it.
int ImportReadingsFrm::ColumnsOfFields(int wanted) const {
    constexpr int WidthOfWindow = 800;
    constexpr int CharactersOfField = 15;
    const int fitting = WidthOfWindow / (fontMetrics().averageCharWidth() * CharactersOfField);
    return fitting >= wanted ? wanted : 3;
}

void ImportReadingsFrm::AddField(QGridLayout* grid, const QString& caption, QWidget* field,
                                 int columns, int stretch) {
    const int number = grid->count() / 2;
    auto* label = new QLabel(caption);
    label->setObjectName(field->objectName() + QStringLiteral("Lbl"));
    label->setBuddy(field);
    grid->addWidget(label, number / columns * 2, number % columns);
    grid->addWidget(field, number / columns * 2 + 1, number % columns);
    if (number < columns)
        grid->setColumnStretch(number, stretch);
}

ImportReadingsFrm::~ImportReadingsFrm() {
    // A box that loses the keyboard because its window goes has nobody left to take its text.
    for (const Box& box : boxes_)
        disconnect(box.edit, nullptr, this, nullptr);
}

QLineEdit* ImportReadingsFrm::MakeBox(BoxIndex index, const QString& name) {
    auto* edit = new QLineEdit;
    edit->setObjectName(name);
    boxes_[index].edit = edit;
    edit->installEventFilter(this);
    connect(edit, &QLineEdit::editingFinished, this, [this, index] { CommitBox(index); });
    return edit;
}

QWidget* ImportReadingsFrm::BuildBoxes() {
    auto* content = new QWidget;
    auto* grid = new QGridLayout(content);
    grid->setContentsMargins(0, 0, 0, 0);
    const int columns = ColumnsOfFields(5);
    AddField(grid, QStringLiteral("Static &From"),
             MakeBox(StaticFromBox, QStringLiteral("ImportStaticFrom")), columns);
    AddField(grid, QStringLiteral("Static &To"),
             MakeBox(StaticToBox, QStringLiteral("ImportStaticTo")), columns);
    AddField(grid, QStringLiteral("&Static Level"),
             MakeBox(StaticBox, QStringLiteral("ImportStatic")), columns);
    AddField(grid, QStringLiteral("St&art"), MakeBox(StartBox, QStringLiteral("ImportStart")),
             columns);
    AddField(grid, QStringLiteral("&End"), MakeBox(EndBox, QStringLiteral("ImportEnd")), columns);
    return content;
}

QWidget* ImportReadingsFrm::BuildTableAndMessages() {
    auto* content = new QWidget;
    auto* columns = new QHBoxLayout(content);
    columns->setContentsMargins(0, 0, 0, 0);
    table_ = new ImportTableModel(this);
    auto* view = new GridView;
    view->setObjectName(QStringLiteral("ImportTable"));
    view->setAccessibleName(QStringLiteral("The readings to come"));
    view->setTabKeyNavigation(false);
    view->setModel(table_);
    columns->addWidget(view, 1);
    messages_ = new QPlainTextEdit;
    messages_->setObjectName(QStringLiteral("ImportMessages"));
    messages_->setAccessibleName(QStringLiteral("Messages"));
    messages_->setReadOnly(true);
    messages_->setTabChangesFocus(true);
    messages_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    columns->addWidget(messages_, 1);
    const int line = fontMetrics().height();
    view->setMinimumHeight(line * 5);
    messages_->setMinimumHeight(line * 4);
    return content;
}

QBoxLayout* ImportReadingsFrm::BuildButtons() {
    auto* columns = new QHBoxLayout;
    const auto add = [columns](const QString& name, const QString& caption) {
        auto* button = new QPushButton(caption);
        button->setObjectName(name);
        button->setAutoDefault(false);
        columns->addWidget(button);
        return button;
    };
    barometer_ = add(QStringLiteral("ImportBarometer"), QStringLiteral("&Barometer..."));
    barometer_->setToolTip(
        QStringLiteral("Subtract the air pressure that another logger has recorded"));
    columns->addStretch(1);
    ok_ = add(QStringLiteral("ImportOK"), QStringLiteral("OK"));
    ok_->setDefault(true);
    auto* cancel = add(QStringLiteral("ImportCancel"), QStringLiteral("Cancel"));
    connect(barometer_, &QPushButton::clicked, this, &ImportReadingsFrm::ChooseBarometer);
    connect(ok_, &QPushButton::clicked, this, &ImportReadingsFrm::accept);
    connect(cancel, &QPushButton::clicked, this, &ImportReadingsFrm::reject);
    return columns;
}

} // namespace quarnel
