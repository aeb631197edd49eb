#include "loggerfiles/ImportReadingsFrm.h"

#include "loggerfiles/ImportTableModel.h"
#include "loggerfiles/ImportTexts.h"
#include "loggerfiles/LoggerFileDialogs.h"
#include "loggerfiles/Thinning.h"
#include "project/FixedLists.h"
#include "project/Texts.h"
#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <algorithm>
#include <cmath>

namespace quarnel {

namespace {

std::size_t ReadingsInGrid(const ProjectState& state) {
    return static_cast<std::size_t>(
        std::count_if(state.RecDatGrid.begin(), state.RecDatGrid.end(), [](const auto& row) {
            return !TrimBlanks(row.time.View()).empty() || !TrimBlanks(row.level.View()).empty();
        }));
}

/// A list's entry of a choice that is still open.
QString OpenChoice() {
    return QStringLiteral("Please choose");
}

/// Fills a list anew only where it differs: it may be open.
void Fill(QComboBox& list, const QStringList& entries, int current) {
    QStringList had;
    for (int i = 0; i < list.count(); ++i)
        had.append(list.itemText(i));
    if (had != entries) {
        list.clear();
        list.addItems(entries);
        // The open list shows whole names, however narrow the closed one is.
        constexpr int WidestList = 600;
        list.view()->setMinimumWidth(
            std::min(list.view()->sizeHintForColumn(0) + list.view()->fontMetrics().height() * 2,
                     WidestList));
    }
    list.setCurrentIndex(current);
    list.setToolTip(list.currentText());
}

template <std::size_t N> QStringList Entries(const std::array<std::string_view, N>& names) {
    QStringList entries;
    for (const std::string_view name : names)
        entries.append(ToQString(TrimBlanks(name)));
    return entries;
}

QString ChannelEntry(const LoggerChannel& channel, std::size_t number) {
    std::string text = std::to_string(number + 1) + " " + channel.name;
    if (!channel.unit.empty())
        text += ", " + channel.unit;
    return ToQString(text);
}

} // namespace

// ---- Plan --------------------------------------------------------------------------------------

void ImportReadingsFrm::MakePlan() {
    auto plan = PlanImport(file_, choices_, plan_.get());
    if (choices_.thinnedPerDecade && !plan->ThinningIsOffered()) {
        choices_.thinnedPerDecade.reset();
        plan = PlanImport(file_, choices_, plan.get());
    }
    plan_ = std::move(plan);
    dateOrderAsked_ = dateOrderAsked_ || file_->reading.bothDateOrders;
    timeUnitAsked_ = timeUnitAsked_ || file_->reading.timeUnitIsOpen;
    ShowPlan();
}

void ImportReadingsFrm::ShowPlan() {
    ShowFormat();
    ShowLists();
    ShowBoxes();
    preview_->ShowPlan(plan_, Marks());
    table_->ShowPlan(plan_);
    ShowThinning();
    ShowMessages();
}

bool ImportReadingsFrm::CanImport() const {
    return plan_->CanBeImported() && std::all_of(boxes_.begin(), boxes_.end(),
                                                 [](const Box& box) { return box.fault.empty(); });
}

/// A line stays where the user has put it also while it makes no test.
ImportMarks ImportReadingsFrm::Marks() const {
    ImportMarks marks;
    const std::size_t rows = plan_->RowCount();
    const std::optional<std::size_t> start = plan_->start ? plan_->start : choices_.start;
    const bool isUnreadable =
        plan_->fault != ImportFault::None && plan_->fault < ImportFault::Start;
    if (rows == 0 || !start || isUnreadable)
        return marks;
    const auto at = [&marks](ImportHandle handle) -> std::optional<std::size_t>& {
        return marks[static_cast<std::size_t>(handle)];
    };
    at(ImportHandle::Start) = std::min(*start, rows - 1);
    at(ImportHandle::End) =
        plan_->start ? plan_->end : std::min(choices_.end.value_or(rows - 1), rows - 1);
    if (plan_->staticRows.Count() > 0) {
        at(ImportHandle::StaticFrom) = plan_->staticRows.first;
        at(ImportHandle::StaticTo) = plan_->staticRows.end - 1;
    }
    return marks;
}

// ---- Showing -----------------------------------------------------------------------------------

void ImportReadingsFrm::ShowFormat() {
    const LoggerRecord& record = file_->reading.record;
    std::string text = file_->name + ": " + record.formatName;
    if (record.location && !record.location->empty())
        text += ", location " + *record.location;
    if (record.serial && !record.serial->empty())
        text += ", serial number " + *record.serial;
    text += ", " + std::to_string(record.times.size()) + " rows";
    if (!record.times.empty())
        text += ", " + RecordTimeText(record, record.times.front()) + " to " +
                RecordTimeText(record, record.times.back()) + (record.timesAreClock ? "" : " sec");
    format_->setText(ToQString(text));
}

void ImportReadingsFrm::ShowLists() {
    const std::vector<LoggerChannel>& channels = file_->reading.record.channels;
    QStringList entries;
    for (std::size_t i = 0; i < channels.size(); ++i)
        entries.append(ChannelEntry(channels[i], i));
    if (!plan_->readings)
        return Fill(*channel_, entries, -1);
    Fill(*channel_, entries, static_cast<int>(plan_->readings->Channel()));
    Fill(*dataType_, Entries(DataTypeNames), plan_->dataType);
    ShowSourceUnits();
    Fill(*levelUnit_, Entries(LengthUnitNames), plan_->readings->LevelUnit());
    ShowOrders();
    barometer_->setText(choices_.readings.barometer ? QStringLiteral("No &Barometer")
                                                    : QStringLiteral("&Barometer..."));
}

void ImportReadingsFrm::ShowSourceUnits() {
    const std::optional<WaterUnit> unit = plan_->readings->SourceUnit();
    QStringList entries = Entries(WaterUnitNames);
    if (!unit)
        entries.append(OpenChoice());
    Fill(*sourceUnit_, entries, unit ? static_cast<int>(*unit) : WaterUnitCount);
}

void ImportReadingsFrm::ShowOrders() {
    const LoggerReading& reading = file_->reading;
    QStringList orders = {QStringLiteral("month/day/year"), QStringLiteral("day/month/year")};
    if (!reading.dateOrder)
        orders.append(OpenChoice());
    Fill(*dateOrder_, orders, reading.dateOrder ? static_cast<int>(*reading.dateOrder) : 2);
    Fill(*timeUnit_, Entries(TimeUnitNames), reading.timeUnit);
    for (const auto& [list, asked] :
         {std::pair(dateOrder_, dateOrderAsked_), std::pair(timeUnit_, timeUnitAsked_)}) {
        list->setVisible(asked);
        if (auto* caption = findChild<QLabel*>(list->objectName() + QStringLiteral("Lbl")))
            caption->setVisible(asked);
    }
}

std::string ImportReadingsFrm::TimeText(std::optional<std::size_t> row) const {
    return row ? RecordTimeText(file_->reading.record, plan_->readings->Times()[*row]) : "";
}

void ImportReadingsFrm::ShowBoxes() {
    const ImportMarks marks = Marks();
    const auto time = [&](ImportHandle handle) {
        return TimeText(marks[static_cast<std::size_t>(handle)]);
    };
    ShowBox(StaticFromBox, time(ImportHandle::StaticFrom));
    ShowBox(StaticToBox, time(ImportHandle::StaticTo));
    ShowBox(StartBox, time(ImportHandle::Start));
    ShowBox(EndBox, time(ImportHandle::End));
    ShowBox(StaticBox, plan_->StaticText());
    const bool hasStaticLevel = plan_->dataType != ChangeInHead;
    for (const BoxIndex index : {StaticFromBox, StaticToBox, StaticBox})
        boxes_[index].edit->setEnabled(hasStaticLevel);
}

void ImportReadingsFrm::ShowBox(BoxIndex index, const std::string& text) {
    Box& box = boxes_[index];
    if (!box.fault.empty())
        return; // to be corrected
    const QString shown = ToQString(text);
    if (box.edit->text() != shown)
        box.edit->setText(shown);
    box.shown = shown;
}

void ImportReadingsFrm::ShowThinning() {
    thin_->setVisible(plan_->CanBeImported() && plan_->ThinningIsOffered());
    thin_->setChecked(choices_.thinnedPerDecade.has_value());
}

void ImportReadingsFrm::ShowMessages() {
    QStringList lines;
    for (const std::string& message : plan_->messages)
        lines.append(ToQString(message));
    if (!plan_->faultMessage.empty())
        lines.last() = FaultText();
    if (plan_->readings && plan_->readings->AirPressureSubtracted())
        lines.append(QStringLiteral("The air pressure of %1 is subtracted.")
                         .arg(ToQString(choices_.readings.barometer->name)));
    for (const Box& box : boxes_)
        if (!box.fault.empty())
            lines.append(ToQString(box.fault));
    const QString text = lines.join(QLatin1Char('\n'));
    if (messages_->toPlainText() != text)
        messages_->setPlainText(text);
    importState_->setText(ToQString(plan_->StateLine()));
    importState_->setVisible(!importState_->text().isEmpty());
    ShowWhetherOk();
}

/// What stops the plan, as one says it beside the lists of this window.
QString ImportReadingsFrm::FaultText() const {
    // The sentence of the plan names an option of the terminal.
    if (plan_->fault == ImportFault::DateOrder)
        return QStringLiteral("The dates of %1 can be read as month/day or day/month. "
                              "Please choose the order of the dates.")
            .arg(ToQString(file_->name));
    if (plan_->fault == ImportFault::Unit && plan_->readings->ChannelItself().unit.empty())
        return QStringLiteral("The file names no unit. Please choose the unit of the readings.");
    return ToQString(plan_->faultMessage);
}

/// Why OK is greyed, and what to do by mouse or keys; empty where it is not.
QString ImportReadingsFrm::WhyNotText() const {
    if (CanImport())
        return {};
    const auto box = std::find_if(boxes_.begin(), boxes_.end(),
                                  [](const Box& one) { return !one.fault.empty(); });
    QString why = box != boxes_.end() ? ToQString(box->fault) : FaultText();
    if (box == boxes_.end() && plan_->fault == ImportFault::Start)
        why += QStringLiteral(" Or type its time into Start (Alt+A).");
    return QStringLiteral("OK is greyed: ") + why;
}

void ImportReadingsFrm::ShowWhetherOk() {
    const QString why = WhyNotText();
    ok_->setEnabled(why.isEmpty());
    // A greyed button is passed over by the keyboard: the window itself says why.
    for (QWidget* widget : {static_cast<QWidget*>(ok_), static_cast<QWidget*>(this)})
        widget->setAccessibleDescription(why);
    ok_->setToolTip(why);
    whyNot_->setText(why);
    whyNot_->setVisible(!why.isEmpty());
}

// ---- Lists -------------------------------------------------------------------------------------

/// Rows are counted over the readings of one channel: in other ones they are other rows.
void ImportReadingsFrm::ForgetRows() {
    choices_.start.reset();
    choices_.end.reset();
    choices_.staticRows.reset();
    choices_.staticLevel.reset();
    for (Box& box : boxes_)
        box.fault.clear();
}

void ImportReadingsFrm::ChooseChannel(int index) {
    if (plan_->readings && plan_->readings->Channel() == static_cast<std::size_t>(index))
        return;
    choices_.readings.channel = static_cast<std::size_t>(index);
    choices_.readings.sourceUnit.reset();
    choices_.readings.levelUnit.reset();
    choices_.dataType.reset();
    ForgetRows();
    MakePlan();
}

void ImportReadingsFrm::ChooseDataType(int index) {
    choices_.dataType = static_cast<DataType>(index);
    if (index == ChangeInHead)
        for (const BoxIndex box : {StaticFromBox, StaticToBox, StaticBox})
            boxes_[box].fault.clear();
    MakePlan();
}

/// A level that was typed is one of the former unit.
void ImportReadingsFrm::ChooseSourceUnit(int index) {
    if (index >= WaterUnitCount)
        return MakePlan();
    choices_.readings.sourceUnit = static_cast<WaterUnit>(index);
    choices_.staticLevel.reset();
    MakePlan();
}

void ImportReadingsFrm::ChooseLevelUnit(int index) {
    choices_.readings.levelUnit = static_cast<LengthUnit>(index);
    choices_.staticLevel.reset();
    MakePlan();
}

void ImportReadingsFrm::ChooseDateOrder(int index) {
    if (index > 1)
        return MakePlan();
    ReadOptions options = options_;
    options.dateOrder = static_cast<DateOrder>(index);
    ReadAgain(options);
}

void ImportReadingsFrm::ChooseTimeUnit(int index) {
    ReadOptions options = options_;
    options.timeUnit = static_cast<TimeUnit>(index);
    ReadAgain(options);
}

/// The file's times mean something else now. Cancelled, all stays as it was.
void ImportReadingsFrm::ReadAgain(const ReadOptions& options) {
    auto file = ReadLoggerFileShown(this, source_, options);
    if (file && file->reading.record.channels.empty()) {
        // The file has gone, or has become another one.
        ShowMessage(this, ToQString(file->reading.fault), ImportTitle());
    } else if (file) {
        const bool otherRows =
            file->reading.record.times.size() != file_->reading.record.times.size();
        file_ = std::move(file);
        options_ = options;
        if (otherRows)
            ForgetRows();
    }
    MakePlan();
}

// ---- Lines -------------------------------------------------------------------------------------

void ImportReadingsFrm::MoveHandle(ImportHandle handle, std::size_t row) {
    RowSpan span = plan_->staticRows;
    const ImportMarks marks = Marks();
    const auto end = marks[static_cast<std::size_t>(ImportHandle::End)];
    const auto start = marks[static_cast<std::size_t>(ImportHandle::Start)];
    switch (handle) {
    case ImportHandle::Start:
        choices_.start = std::min(row, end.value_or(row));
        boxes_[StartBox].fault.clear();
        break;
    case ImportHandle::End:
        choices_.end = std::max(row, start.value_or(row));
        boxes_[EndBox].fault.clear();
        break;
    case ImportHandle::StaticFrom:
        span.first = std::min(row, span.end - 1);
        choices_.staticRows = span;
        boxes_[StaticFromBox].fault.clear();
        break;
    case ImportHandle::StaticTo:
        span.end = std::max(row, span.first) + 1;
        choices_.staticRows = span;
        boxes_[StaticToBox].fault.clear();
        break;
    }
    MakePlan();
}

/// Where no start was found, a click on the first reading after the slug makes it.
void ImportReadingsFrm::ClickRow(std::size_t row) {
    if (plan_->start || plan_->fault != ImportFault::Start)
        return;
    choices_.start = row;
    MakePlan();
}

void ImportReadingsFrm::ChooseThinning(bool thin) {
    choices_.thinnedPerDecade = thin ? std::optional(UsualRowsPerDecade) : std::nullopt;
    MakePlan();
}

void ImportReadingsFrm::ChooseBarometer() {
    if (choices_.readings.barometer) {
        choices_.readings.barometer.reset();
        return MakePlan();
    }
    const QString path = ChooseLoggerFile(this);
    const auto file = path.isEmpty() ? nullptr : ReadLoggerFileShown(this, ToUtf8(path));
    if (!file)
        return;
    ReadingChoices readings = choices_.readings;
    readings.barometer = file;
    const ImportReadings tried(file_, readings);
    if (!tried.BarometerFault().empty())
        return ShowMessage(this, ToQString(tried.BarometerFault()), ImportTitle());
    choices_.readings = readings;
    choices_.staticLevel.reset();
    MakePlan();
}

// ---- Boxes -------------------------------------------------------------------------------------

/// Whether nothing was left to be taken.
bool ImportReadingsFrm::CommitBoxes() {
    bool nothing = true;
    for (int index = 0; index < BoxCount; ++index) {
        nothing = nothing && boxes_[index].edit->text() == boxes_[index].shown;
        CommitBox(static_cast<BoxIndex>(index));
    }
    return nothing;
}

void ImportReadingsFrm::CommitBox(BoxIndex index) {
    Box& box = boxes_[index];
    if (box.edit->text() == box.shown || !plan_->readings)
        return;
    box.shown = box.edit->text();
    box.fault.clear();
    const std::string text(TrimBlanks(ToUtf8(box.shown)));
    if (index == StaticBox)
        TakeStaticLevel(text);
    else
        TakeTime(index, text);
    MakePlan();
}

/// Clock times or seconds since the first row; the file's own seconds where it has no clock.
std::optional<std::int64_t> ImportReadingsFrm::TimeOf(const std::string& text) const {
    constexpr double LongestSeconds = 1e12;
    const LoggerRecord& record = file_->reading.record;
    const std::optional<double> seconds = ParseNumber(text, state_.DecimalSeparator);
    if (record.timesAreClock && seconds)
        return RecordTimeOf(record, DoubleToText(*seconds));
    if (record.timesAreClock)
        return RecordTimeOf(record, text);
    return seconds && std::fabs(*seconds) < LongestSeconds
               ? std::optional<std::int64_t>(std::llround(*seconds * 1e6))
               : std::nullopt;
}

/// An emptied box is told from the file again.
void ImportReadingsFrm::TakeTime(BoxIndex index, const std::string& text) {
    const bool isFirst = index == StartBox || index == StaticFromBox;
    std::optional<std::size_t> row;
    if (!text.empty()) {
        const std::optional<std::int64_t> time = TimeOf(text);
        if (time)
            row = isFirst ? plan_->FirstRowFrom(*time) : plan_->LastRowUntil(*time);
        if (!time)
            boxes_[index].fault = "'" + text + "' is not a time.";
        else if (!row)
            boxes_[index].fault = "There is no reading " +
                                  std::string(isFirst ? "from " : "until ") + text +
                                  (isFirst ? " on." : ".");
        if (!boxes_[index].fault.empty())
            return;
    }
    if (index == StartBox)
        choices_.start = row;
    else if (index == EndBox)
        choices_.end = row;
    else
        TakeSpan(index, row);
}

void ImportReadingsFrm::TakeSpan(BoxIndex index, std::optional<std::size_t> row) {
    if (!row) {
        choices_.staticRows.reset();
        return;
    }
    // A level that was typed had taken the place of the span.
    const RowSpan usual =
        choices_.staticRows.value_or(StaticRows(plan_->RowCount(), plan_->start.value_or(0)));
    RowSpan span = plan_->staticRows.Count() > 0 ? plan_->staticRows : usual;
    if (index == StaticFromBox)
        span.first = *row;
    else
        span.end = *row + 1;
    if (span.Count() == 0) {
        boxes_[index].fault = "The static level would have no readings.";
        return;
    }
    choices_.staticRows = span;
    choices_.staticLevel.reset(); // the last word counts
}

void ImportReadingsFrm::TakeStaticLevel(const std::string& text) {
    choices_.staticLevel = ParseNumber(text, state_.DecimalSeparator);
    if (!text.empty() && !choices_.staticLevel)
        boxes_[StaticBox].fault = "'" + text + "' is not a number.";
}

// ---- The end -----------------------------------------------------------------------------------

void ImportReadingsFrm::accept() {
    CommitBoxes();
    if (!CanImport())
        return;
    const std::size_t count = ReadingsInGrid(state_);
    if (count > 0 && !AskYesNo(this,
                               QStringLiteral("Replace the %1 reading%2 in the grid?")
                                   .arg(count)
                                   .arg(count == 1 ? QString() : QStringLiteral("s")),
                               ImportTitle()))
        return;
    QDialog::accept();
}

bool ImportReadingsFrm::eventFilter(QObject* receiver, QEvent* event) {
    if (event->type() == QEvent::KeyPress && qobject_cast<QLineEdit*>(receiver) != nullptr) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        // What came of the text is to be seen before an OK.
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && !CommitBoxes())
            return true;
    }
    return QDialog::eventFilter(receiver, event);
}

} // namespace quarnel
